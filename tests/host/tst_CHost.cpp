#include "host/CHost.h"
#include "host/CLibraryLoader.h"
#include "host/CMainWindow.h"
#include "host/CProgressDisplay.h"
#include "host/CStatusBar.h"
#include "host/HostPaths.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "tests/host/FakeArea.h"
#include "tests/host/ModalAnswer.h"
#include "tests/host/NoThreads.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QAction>
#include <QEasingCurve>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QProgressBar>
#include <QSignalSpy>
#include <QTemporaryDir>

class tst_CHost : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void thePlugInIsCalledInOrder();
    void aPlugInWithoutAnAreaFails();
    void theSettingsReachThePlugInAndComeBack();
    void theWindowKeepsItsSize();
    void theMenusReachThePlugIn();
    void theFirstRunGetsTheSamples();
    void aChosenLibraryIsRemembered();
    void theLibraryOfTheCommandLineIsNotRemembered();
    void theLanguageIsSwitchedAndRemembered();
    void theLanguageOfTheCommandLineCounts();
    void theConnectionPriorityIsRemembered();
    void theConnectionPriorityCanBeHidden();
    void progressIsShownInTheStatusBar();
    void progressMayOutliveTheWindow();
    void aDamagedFileIsReported();
    void aSystemWithoutThreadsIsReported();
    void valuesAreSavedAfterTheUserHasDoneSomething_data();
    void valuesAreSavedAfterTheUserHasDoneSomething();
    void savingWaitsForAnOpenDialog();

private:
    void start();
    void restart();
    QJsonObject stored(const char* section) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FakeArea> m_area;
    std::unique_ptr<CHost> m_host;
    CommandLine m_commandLine;
};

void tst_CHost::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_folder->filePath(QStringLiteral("data"))));
    m_area = std::make_unique<FakeArea>();
    m_commandLine = CommandLine();
    m_commandLine.settings = m_folder->filePath(QStringLiteral("settings.json"));
    m_commandLine.library = m_folder->filePath(QStringLiteral("types"));
    m_commandLine.language = QStringLiteral("en");
}

void tst_CHost::cleanup()
{
    m_host.reset();
    m_area.reset();
    TestObject::cleanup();
}

// Opens the host and waits until the library is there.
void tst_CHost::start()
{
    m_host = std::make_unique<CHost>(m_commandLine);
    QVERIFY(m_host->start(FakeArea::init, QStringLiteral("/opt/libsettingarea.so")));
    QTRY_VERIFY(!m_host->loader()->isBusy());
}

void tst_CHost::restart()
{
    m_host.reset();
    m_area = std::make_unique<FakeArea>();
    start();
}

QJsonObject tst_CHost::stored(const char* section) const
{
    const QJsonObject document = QJsonDocument::fromJson(readFile(m_commandLine.settings)).object();
    return document.value(QLatin1String(section)).toObject();
}

void tst_CHost::thePlugInIsCalledInOrder()
{
    start();
    QCOMPARE(m_area->calls(), (QStringList{QStringLiteral("init"), QStringLiteral("setHandler"),
                                           QStringLiteral("setSettings"), QStringLiteral("refreshPreferences"),
                                           QStringLiteral("setTypeLibraryPath(%1)").arg(m_commandLine.library),
                                           QStringLiteral("shown")}));
    QVERIFY(m_area->scanThread != QThread::currentThread());
    QVERIFY(m_host->window()->isVisible());
    QCOMPARE(m_area->widget()->parentWidget(), m_host->window()->dock());
    QCOMPARE(m_area->widget()->size(), m_host->window()->dock()->size());
    QVERIFY(std::dynamic_pointer_cast<ISettingInterfaceHandler>(m_area->getHandler()));
}

void tst_CHost::aPlugInWithoutAnAreaFails()
{
    m_area->valid = false;
    QVERIFY(!CHost(m_commandLine).start(FakeArea::init, {}));
    m_area.reset(); // init() returns false
    QVERIFY(!CHost(m_commandLine).start(FakeArea::init, {}));
}

void tst_CHost::theSettingsReachThePlugInAndComeBack()
{
    QVERIFY(writeFile(m_commandLine.settings, R"({"monitoring": {"refreshInterval": 42}, "mine": 1})"));
    start();
    QCOMPARE(m_area->settings.monitoring.nRefreshInterval, 42);
    m_area->settings.monitoring.nRefreshInterval = 43;
    m_area->settings.email.strPassword = QStringLiteral("secret");
    QSignalSpy finished(m_host.get(), &CHost::notifyFinished);
    QVERIFY(m_host->window()->close());
    QCOMPARE(finished.size(), 1);
    QCOMPARE(stored("monitoring").value(QLatin1String("refreshInterval")), QJsonValue(43));
    QCOMPARE(stored("email").value(QLatin1String("password")), QJsonValue(QStringLiteral("secret")));
    QVERIFY(readFile(m_commandLine.settings).contains("\"mine\": 1"));
}

void tst_CHost::theWindowKeepsItsSize()
{
    start();
    m_host->window()->resize(1111, 666);
    m_host->window()->action(CMainWindow::PlacedTypes)->trigger();
    QVERIFY(m_host->window()->close());
    restart();
    QCOMPARE(m_host->window()->size(), QSize(1111, 666));
    QVERIFY(!m_host->window()->action(CMainWindow::PlacedTypes)->isChecked());
}

void tst_CHost::theMenusReachThePlugIn()
{
    start();
    for (const auto command : {CMainWindow::HealthSettings, CMainWindow::Preferences, CMainWindow::TypeLibrary})
        m_host->window()->action(command)->trigger();
    QCOMPARE(m_area->calls().mid(6),
             (QStringList{QStringLiteral("setCurrentTab(2)"), QStringLiteral("setCurrentTab(0)"),
                          QStringLiteral("setCurrentTab(1)")}));
}

void tst_CHost::theFirstRunGetsTheSamples()
{
    m_commandLine.library.clear();
    start();
    const QString folder = HostPaths::defaultLibraryFolder();
    QVERIFY(folder.startsWith(m_folder->path()));
    QVERIFY(m_area->calls().contains(QStringLiteral("setTypeLibraryPath(%1)").arg(folder)));
    QVERIFY(QFile::exists(folder + QStringLiteral("/Universal-128x128.rcvp")));
}

void tst_CHost::aChosenLibraryIsRemembered()
{
    start();
    const QString chosen = m_folder->filePath(QStringLiteral("chosen"));
    QVERIFY(QDir().mkdir(chosen));
    {
        const ModalAnswer answer(chosen);
        m_host->window()->action(CMainWindow::OpenLibrary)->trigger();
    }
    QTRY_VERIFY(!m_host->loader()->isBusy());
    QVERIFY(m_area->calls().contains(QStringLiteral("setTypeLibraryPath(%1)").arg(chosen)));
    QCOMPARE(m_host->window()->status()->findChild<QLabel*>(QStringLiteral("StatusFolder"))->text(),
             QStringLiteral("Type library: chosen"));
    QVERIFY(m_host->window()->close());

    m_commandLine.library.clear();
    restart();
    QCOMPARE(m_area->calls().at(4), QStringLiteral("setTypeLibraryPath(%1)").arg(chosen));
}

void tst_CHost::theLibraryOfTheCommandLineIsNotRemembered()
{
    start();
    QVERIFY(m_host->window()->close());
    QCOMPARE(stored("host").value(QLatin1String("libraryFolder")), QJsonValue(QString()));
}

void tst_CHost::theLanguageIsSwitchedAndRemembered()
{
    m_commandLine.language.clear();
    QVERIFY(writeFile(m_commandLine.settings, R"({"host": {"language": "en_US"}})"));
    start();
    const auto handler = std::dynamic_pointer_cast<ISettingInterfaceHandler>(m_area->getHandler());
    handler->setLanguage(QLocale(QLocale::Chinese, QLocale::China));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(m_host->window()->action(CMainWindow::FileMenu)->text(), QStringLiteral("\u6587\u4ef6(&F)"));
    QCOMPARE(QLocale().name(), QStringLiteral("zh_CN"));
    QCOMPARE(m_host->window()->windowTitle(), QStringLiteral("\u672a\u547d\u540d[*]"));
    // At once, and without asking the pages for their values in the middle of their own call.
    QCOMPARE(stored("host").value(QLatin1String("language")), QJsonValue(QStringLiteral("zh_CN")));
    QVERIFY(!m_area->calls().contains(QStringLiteral("getSettings")));
    QCOMPARE(m_area->calls().last(), QStringLiteral("syncLanguageWithLocale"));

    QVERIFY(m_host->window()->close());
    restart();
    QCOMPARE(QLocale().name(), QStringLiteral("zh_CN"));
}

void tst_CHost::theConnectionPriorityIsRemembered()
{
    start();
    const auto handler = std::dynamic_pointer_cast<ISettingInterfaceHandler>(m_area->getHandler());
    for (const int priority : {1, 2, 0}) {
        handler->setConnectionPriority(priority);
        QCOMPARE(stored("preferences").value(QLatin1String("connectionPriority")), QJsonValue(priority));
    }
    QVERIFY(!m_area->calls().contains(QStringLiteral("getSettings")));
}

void tst_CHost::theConnectionPriorityCanBeHidden()
{
    m_commandLine.hidePriorityConnection = true;
    start();
    const auto handler = std::dynamic_pointer_cast<ISettingInterfaceHandler>(m_area->getHandler());
    QVERIFY(handler->isPriorityConnectionHidden());
    m_host->setPriorityConnectionHidden(false);
    QVERIFY(!handler->isPriorityConnectionHidden());
    QCOMPARE(m_area->calls().count(QStringLiteral("refreshPreferences")), 2);

    m_commandLine.hidePriorityConnection = false;
    restart();
    QVERIFY(!std::dynamic_pointer_cast<ISettingInterfaceHandler>(m_area->getHandler())->isPriorityConnectionHidden());
}

void tst_CHost::theLanguageOfTheCommandLineCounts()
{
    QVERIFY(writeFile(m_commandLine.settings, R"({"host": {"language": "zh_CN"}})"));
    start();
    QCOMPARE(QLocale().name(), QStringLiteral("en_US"));
    QVERIFY(m_host->window()->close());
    QCOMPARE(stored("host").value(QLatin1String("language")), QJsonValue(QStringLiteral("zh_CN")));
}

void tst_CHost::progressIsShownInTheStatusBar()
{
    start();
    QWidget* const display = m_host->window()->status()->progress();
    QVERIFY(!display->isVisible());
    const auto handler = std::dynamic_pointer_cast<ISettingInterfaceHandler>(m_area->getHandler());
    QObject* const progress = handler->showProgress(QStringLiteral("Importing..."), 20, QEasingCurve::InQuart);
    QVERIFY(progress);
    QVERIFY(display->isVisible());
    QCOMPARE(display->findChild<QLabel*>()->text(), QStringLiteral("Importing..."));
    QTRY_COMPARE(display->findChild<QProgressBar*>()->value(), 1000);
    handler->endProgress(nullptr);
    handler->endProgress(m_host->window());
    QVERIFY(display->isVisible());
    handler->endProgress(progress);
    QTRY_VERIFY(!display->isVisible());
    handler->endProgress(progress);
}

void tst_CHost::progressMayOutliveTheWindow()
{
    m_host = std::make_unique<CHost>(m_commandLine);
    QVERIFY(m_host->start(FakeArea::init, {}));
    m_host->window()->hide();
    const auto handler = std::dynamic_pointer_cast<ISettingInterfaceHandler>(m_area->getHandler());
    QObject* const early = handler->showProgress(QStringLiteral("Importing..."), 1000, QEasingCurve::InQuart);
    QVERIFY(early);
    QTRY_VERIFY(!m_host->loader()->isBusy());
    m_host.reset();
    handler->endProgress(early);
    QVERIFY(!handler->showProgress(QStringLiteral("Importing..."), 1000, QEasingCurve::InQuart));
}

void tst_CHost::aDamagedFileIsReported()
{
    QVERIFY(writeFile(m_commandLine.settings, "{"));
    const ModalAnswer answer(CDialog::Ok);
    start();
    QTRY_VERIFY(answer.wasThere());
    QVERIFY2(
        answer.text().startsWith(QStringLiteral("The settings file %1 cannot be used").arg(m_commandLine.settings)),
        qPrintable(answer.text()));
    QCOMPARE(readFile(m_commandLine.settings + QStringLiteral(".damaged")), QByteArray("{"));
}

void tst_CHost::aSystemWithoutThreadsIsReported()
{
    const NoThreads none;
    expectWarning(QRegularExpression(QStringLiteral("not counted")));
    const ModalAnswer answer(CDialog::Ok);
    m_host = std::make_unique<CHost>(m_commandLine);
    QVERIFY(m_host->start(FakeArea::init, {}));
    QTRY_VERIFY(answer.wasThere());
    QCOMPARE(answer.text(), QStringLiteral("The type library %1 was not loaded: Resource temporarily unavailable")
                                .arg(m_commandLine.library));
    QTRY_VERIFY(!m_host->loader()->isBusy());
    QCOMPARE(m_host->window()->status()->findChild<QLabel*>(QStringLiteral("StatusState"))->text(),
             QStringLiteral("Types: 0"));
}

void tst_CHost::valuesAreSavedAfterTheUserHasDoneSomething_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("key") << true;
    QTest::newRow("mouse") << false;
}

void tst_CHost::valuesAreSavedAfterTheUserHasDoneSomething()
{
    QFETCH(bool, byKey);
    start();
    auto* const timer = m_host->findChild<QTimer*>(QStringLiteral("SaveTimer"));
    QCOMPARE(timer->interval(), 60'000);
    QVERIFY(!timer->isActive());
    timer->setInterval(0);
    QTest::mouseMove(m_area->widget());
    QCoreApplication::processEvents();
    QVERIFY(!m_area->calls().contains(QStringLiteral("getSettings"))); // which scans the library
    if (byKey)
        QTest::keyClick(m_area->widget(), Qt::Key_Space);
    else
        QTest::mouseClick(m_area->widget(), Qt::LeftButton);
    m_area->settings.monitoring.nRefreshInterval = 43;
    QTRY_COMPARE(m_area->calls().count(QStringLiteral("getSettings")), 1);
    QCOMPARE(stored("monitoring").value(QLatin1String("refreshInterval")), QJsonValue(43));
    QVERIFY(!timer->isActive());
}

void tst_CHost::savingWaitsForAnOpenDialog()
{
    start();
    auto* const timer = m_host->findChild<QTimer*>(QStringLiteral("SaveTimer"));
    timer->setInterval(0);
    QDialog dialog(m_host->window());
    dialog.open();
    QSignalSpy timeout(timer, &QTimer::timeout);
    QTest::keyClick(m_area->widget(), Qt::Key_Space);
    QTRY_VERIFY(timeout.size() > 2);
    QVERIFY(!m_area->calls().contains(QStringLiteral("getSettings")));
    dialog.close();
    QTRY_COMPARE(m_area->calls().count(QStringLiteral("getSettings")), 1);
}

SETTINGAREA_TEST_MAIN(tst_CHost, QApplication)
#include "tst_CHost.moc"
