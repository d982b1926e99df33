#include "host/CHost.h"
#include "host/CLibraryLoader.h"
#include "host/CMainWindow.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "tests/host/FakeArea.h"
#include "tests/host/ModalAnswer.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QAction>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSignalSpy>
#include <QTemporaryDir>

// What happens when the user closes the window.
class tst_ClosingTheHost : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theEndOfAScanIsAwaited();
    void theSecondTimeEndsAtOnce();
    void anUnwritableFileIsAskedAbout();
    void anUnwritableFileIsAskedAboutAfterAScan();
    void aChangedProjectIsAskedAbout();

private:
    void start();
    void startAndHoldTheScan();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FakeArea> m_area;
    std::unique_ptr<CHost> m_host;
    CommandLine m_commandLine;
};

void tst_ClosingTheHost::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_area = std::make_unique<FakeArea>();
    m_commandLine = CommandLine();
    m_commandLine.settings = m_folder->filePath(QStringLiteral("settings.json"));
    m_commandLine.library = m_folder->filePath(QStringLiteral("types"));
    m_commandLine.language = QStringLiteral("en");
}

void tst_ClosingTheHost::cleanup()
{
    m_host.reset();
    m_area.reset();
    TestObject::cleanup();
}

void tst_ClosingTheHost::start()
{
    m_host = std::make_unique<CHost>(m_commandLine);
    QVERIFY(m_host->start(FakeArea::init, {}));
    QTRY_VERIFY(!m_host->loader()->isBusy());
}

void tst_ClosingTheHost::startAndHoldTheScan()
{
    m_area->holdScans();
    m_host = std::make_unique<CHost>(m_commandLine);
    QVERIFY(m_host->start(FakeArea::init, {}));
    QTRY_COMPARE(m_area->calls().size(), 5); // the worker is in the plug-in
}

void tst_ClosingTheHost::theEndOfAScanIsAwaited()
{
    startAndHoldTheScan();
    QSignalSpy finished(m_host.get(), &CHost::notifyFinished);
    m_area->settings.monitoring.nRefreshInterval = 43;
    QString error;
    QVERIFY(m_host->save(error)); // as by the timer
    m_host->window()->close();
    QVERIFY(!m_host->window()->isVisible());
    QVERIFY(!m_area->calls().contains(QStringLiteral("getSettings"))); // it would wait for the scan
    QCOMPARE(finished.size(), 0);

    m_area->letScan();
    QTRY_COMPARE(finished.size(), 1);
    const QJsonObject document = QJsonDocument::fromJson(readFile(m_commandLine.settings)).object();
    QCOMPARE(document.value(QLatin1String("monitoring"))[QLatin1String("refreshInterval")], QJsonValue(43));
    QTRY_VERIFY(!m_host->loader()->isBusy());
}

void tst_ClosingTheHost::theSecondTimeEndsAtOnce()
{
    startAndHoldTheScan();
    QSignalSpy finished(m_host.get(), &CHost::notifyFinished);
    m_host->window()->close();
    m_host->window()->close();
    QCOMPARE(finished.size(), 1);
    QVERIFY(QFile::exists(m_commandLine.settings));
    QVERIFY(!m_area->calls().contains(QStringLiteral("getSettings")));
    m_area->letScan();
    QTRY_VERIFY(!m_host->loader()->isBusy());
}

void tst_ClosingTheHost::anUnwritableFileIsAskedAbout()
{
    QVERIFY(writeFile(m_folder->filePath(QStringLiteral("file")), "x"));
    m_commandLine.settings = m_folder->filePath(QStringLiteral("file/settings.json"));
    start();
    QSignalSpy finished(m_host.get(), &CHost::notifyFinished);
    {
        const ModalAnswer answer(CDialog::No);
        QVERIFY(!m_host->window()->close());
        QCOMPARE(answer.text(), QStringLiteral("The settings could not be saved: The folder %1 cannot be created.\n"
                                               "Quit anyway?")
                                    .arg(m_folder->filePath(QStringLiteral("file"))));
    }
    QVERIFY(m_host->window()->isVisible());
    QCOMPARE(finished.size(), 0);
    const ModalAnswer answer(CDialog::Yes);
    QVERIFY(m_host->window()->close());
    QCOMPARE(finished.size(), 1);
}

void tst_ClosingTheHost::anUnwritableFileIsAskedAboutAfterAScan()
{
    QVERIFY(writeFile(m_folder->filePath(QStringLiteral("file")), "x"));
    m_commandLine.settings = m_folder->filePath(QStringLiteral("file/settings.json"));
    startAndHoldTheScan();
    QSignalSpy finished(m_host.get(), &CHost::notifyFinished);
    {
        const ModalAnswer answer(CDialog::No); // by the impatient
        m_host->window()->close();
        QVERIFY(!m_host->window()->isVisible());
        QVERIFY(!m_host->window()->close());
        QVERIFY(answer.wasThere());
    }
    QVERIFY(m_host->window()->isVisible());
    {
        const ModalAnswer answer(CDialog::No);
        m_host->window()->close();
        QVERIFY(!m_host->window()->isVisible());
        m_area->letScan();
        QTRY_VERIFY(m_host->window()->isVisible());
        QVERIFY(answer.wasThere());
    }
    QCOMPARE(finished.size(), 0);
    QTRY_VERIFY(!m_host->loader()->isBusy());
    const ModalAnswer answer(CDialog::Yes);
    QVERIFY(m_host->window()->close());
    QCOMPARE(finished.size(), 1);
}

void tst_ClosingTheHost::aChangedProjectIsAskedAbout()
{
    start();
    const QString path = m_folder->filePath(QStringLiteral("stage.prj"));
    {
        const ModalAnswer answer(path);
        m_host->window()->action(CMainWindow::SaveProjectAs)->trigger();
    }
    QCOMPARE(m_host->window()->windowTitle(), QStringLiteral("stage[*]"));
    SMD5 md5;
    std::fill_n(md5.data, 32, 'a');
    QVERIFY(m_host->project()->place(md5, QStringLiteral("type")));
    QVERIFY(m_host->window()->isWindowModified());
    const auto handler = std::dynamic_pointer_cast<ISettingInterfaceHandler>(m_area->getHandler());
    QVERIFY(handler->isTypeUsedInLayout(md5));
    QVERIFY(handler->isProjectModified());
    {
        const ModalAnswer answer(CDialog::Cancel);
        QVERIFY(!m_host->window()->close());
    }
    const ModalAnswer answer(CDialog::Yes);
    QVERIFY(m_host->window()->close());
    QVERIFY(readFile(path).contains("aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"));
}

SETTINGAREA_TEST_MAIN(tst_ClosingTheHost, QApplication)
#include "tst_ClosingTheHost.moc"
