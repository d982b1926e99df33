#include "host/CHost.h"
#include "host/CLibraryLoader.h"
#include "host/CMainWindow.h"
#include "host/HostPaths.h"
#include "host/PluginLibrary.h"
#include "plugin/interface/ISettingInterface.h"
#include "tests/monitoring/Controls.h"
#include "tests/support/FileFixture.h"
#include "tests/support/ModalScript.h"
#include "tests/support/TestObject.h"

#include <QAction>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QRadioButton>
#include <QTabBar>
#include <QTemporaryDir>

// The built plug-in's Preferences page in this host.
class tst_PreferencesInHost : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theUserSwitchesTheLanguage();
    void theLanguageIsSwitchedAllTheTime();
    void theLanguageAppliesFromTheStart();
    void thePriorityIsRemembered();
    void theProjectIsSavedFirst();
    void aProjectThatCannotBeSavedIsReported();
    void theHostEndsWhileTheQuestionIsOpen();
    void thePriorityIsHiddenByTheOption();

private:
    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }
    void start(const CommandLine& options = {});
    QRadioButton* radio(const char* text) const { return withText<QRadioButton>(*m_host->area()->widget(), text); }
    QString fileMenu() const { return m_host->window()->action(CMainWindow::FileMenu)->text(); }
    QString firstTab() const;
    QJsonValue stored(const char* section, const char* key) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CHost> m_host;
};

namespace {

SMD5 digest(char character)
{
    SMD5 md5{};
    std::fill_n(md5.data, 32, character);
    return md5;
}

const QString asked = QStringLiteral("Orvel: The project has not been saved, want to save it? [(&Yes) &No Cancel]");
const QString askedInChinese = QString::fromUtf8("Orvel: 工程尚未保存，是否保存？ [(是(&Y)) 否(&N) 取消]");

} // namespace

void tst_PreferencesInHost::init()
{
    TestObject::init();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_folder = std::make_unique<QTemporaryDir>();
}

void tst_PreferencesInHost::cleanup()
{
    m_host.reset();
    m_folder.reset();
    TestObject::cleanup();
}

// Opens the host, or opens it anew.
void tst_PreferencesInHost::start(const CommandLine& options)
{
    m_host.reset();
    CommandLine commandLine = options;
    commandLine.settings = path("settings.json");
    commandLine.library = path("types");
    QString error;
    PluginLibrary plugin;
    QVERIFY2(plugin.load(HostPaths::pluginCandidates(), error), qPrintable(error));
    m_host = std::make_unique<CHost>(commandLine);
    QVERIFY(m_host->start(plugin.initFunction(), plugin.path()));
    QTRY_VERIFY(!m_host->loader()->isBusy());
    QCoreApplication::sendPostedEvents();
}

QString tst_PreferencesInHost::firstTab() const
{
    return m_host->area()->widget()->findChild<QTabBar*>(QStringLiteral("SettingAreaTabBar"))->tabText(0);
}

QJsonValue tst_PreferencesInHost::stored(const char* section, const char* key) const
{
    const QJsonObject document = QJsonDocument::fromJson(readFile(path("settings.json"))).object();
    return document.value(QLatin1String(section)).toObject().value(QLatin1String(key));
}

void tst_PreferencesInHost::theUserSwitchesTheLanguage()
{
    CommandLine english;
    english.language = QStringLiteral("en");
    start(english);
    QVERIFY(radio("English")->isChecked());
    radio("Chinese")->click();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(fileMenu(), QString::fromUtf8("文件(&F)"));
    QCOMPARE(firstTab(), QString::fromUtf8("偏好设置"));
    QVERIFY(radio("中文")->isChecked());
    QCOMPARE(stored("host", "language"), QJsonValue(QStringLiteral("zh_CN")));

    // Qt's own words come along: those of the buttons.
    m_host->project()->place(digest('a'), QStringLiteral("P4"));
    ModalScript script;
    script.press(CDialog::Cancel);
    radio("USB 和局域网")->click();
    QCOMPARE(script.seen(), QStringList{askedInChinese});

    radio("English")->click();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(fileMenu(), QStringLiteral("&File"));
    QCOMPARE(firstTab(), QStringLiteral("Preferences"));
    QVERIFY(!radio("Chinese")->isChecked());
    QCOMPARE(stored("host", "language"), QJsonValue(QStringLiteral("en_US")));
}

// Ten times a second for a minute.
void tst_PreferencesInHost::theLanguageIsSwitchedAllTheTime()
{
    CommandLine english;
    english.language = QStringLiteral("en");
    start(english);
    QRadioButton* const languages[] = {radio("English"), radio("Chinese")};
    for (int i = 1; i <= 600; ++i) {
        languages[i % 2]->click();
        if (i % 3 == 0)
            QCoreApplication::processEvents();
    }
    QCoreApplication::processEvents();
    QCOMPARE(firstTab(), QStringLiteral("Preferences"));
    QCOMPARE(fileMenu(), QStringLiteral("&File"));
}

void tst_PreferencesInHost::theLanguageAppliesFromTheStart()
{
    QVERIFY(writeFile(path("settings.json"), R"({"host": {"language": "zh_CN"}})"));
    start();
    QCOMPARE(firstTab(), QString::fromUtf8("偏好设置"));
    QVERIFY(radio("中文")->isChecked());
    // One that the page did not ask for.
    m_host->setLanguage(QLocale(QLocale::English));
    QCoreApplication::sendPostedEvents();
    QVERIFY(radio("English")->isChecked());
}

void tst_PreferencesInHost::thePriorityIsRemembered()
{
    QVERIFY(writeFile(path("settings.json"), R"({"preferences": {"connectionPriority": 1}})"));
    CommandLine english;
    english.language = QStringLiteral("en");
    start(english);
    QVERIFY(radio("USB and LAN")->isChecked());
    radio("Designated IP address")->click();
    QCOMPARE(stored("preferences", "connectionPriority"), QJsonValue(2));
    start(english);
    QVERIFY(radio("Designated IP address")->isChecked());
}

void tst_PreferencesInHost::theProjectIsSavedFirst()
{
    CommandLine english;
    english.language = QStringLiteral("en");
    start(english);
    Project* const project = m_host->project();
    QVERIFY(project->place(digest('a'), QStringLiteral("P4")));
    ModalScript script;
    script.press(CDialog::Yes).choose(path("wall.prj"));
    radio("USB and LAN")->click();
    QCOMPARE(script.seen(), (QStringList{asked, QStringLiteral("Save project: *.prj")}));
    QVERIFY(!project->isModified());
    QCOMPARE(project->path(), path("wall.prj"));
    QCOMPARE(stored("preferences", "connectionPriority"), QJsonValue(1));
    const QByteArray first = readFile(path("wall.prj"));
    QVERIFY(first.contains("aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"));

    // The next time it has a path, and what was in the file is kept.
    QVERIFY(project->place(digest('b'), QStringLiteral("P3")));
    script.press(CDialog::Yes);
    radio("USB primary")->click();
    QCOMPARE(script.seen().mid(2), QStringList{asked});
    QVERIFY(!project->isModified());
    QVERIFY(readFile(path("wall.prj")).contains("bbbbbbbbbbbbbbbbbbbbbbbbbbbbbbbb"));
    QCOMPARE(readFile(path("wall.prj.bak")), first);
    QCOMPARE(stored("preferences", "connectionPriority"), QJsonValue(0));

    radio("USB and LAN")->click(); // nothing to save
    QCOMPARE(script.seen().size(), 3);
    QCOMPARE(stored("preferences", "connectionPriority"), QJsonValue(1));
}

void tst_PreferencesInHost::aProjectThatCannotBeSavedIsReported()
{
    CommandLine english;
    english.language = QStringLiteral("en");
    start(english);
    QVERIFY(m_host->project()->place(digest('a'), QStringLiteral("P4")));
    ModalScript script;
    script.press(CDialog::Yes).choose(path("nowhere/wall.prj")).press(CDialog::Ok);
    radio("USB and LAN")->click();
    QTRY_VERIFY(script.isDone());
    QVERIFY2(script.seen().value(2).startsWith(QStringLiteral("Orvel: The project was not saved: ")),
             qPrintable(script.seen().join(QLatin1Char('\n'))));
    QVERIFY(m_host->project()->isModified());
    QCOMPARE(stored("preferences", "connectionPriority"), QJsonValue(1)); // the choice is not the project's
}

// The answer finds neither a window nor a project, and the next host starts from what was stored.
void tst_PreferencesInHost::theHostEndsWhileTheQuestionIsOpen()
{
    for (const auto answer : {CDialog::Yes, CDialog::No}) {
        CommandLine english;
        english.language = QStringLiteral("en");
        start(english);
        QVERIFY(radio("USB primary")->isChecked());
        QVERIFY(m_host->project()->place(digest('a'), QStringLiteral("P4")));
        ModalScript script;
        script.use([this, answer](QWidget* box) {
            m_host.reset();
            QTest::mouseClick(qobject_cast<CMessageBox*>(box)->button(answer), Qt::LeftButton);
        });
        if (answer == CDialog::Yes)
            script.choose(path("late.prj"));
        radio("USB and LAN")->click();
        QVERIFY(script.isDone());
        QVERIFY(!QFile::exists(path("late.prj")));
        QCOMPARE(stored("preferences", "connectionPriority").toInt(), 0);
    }
}

void tst_PreferencesInHost::thePriorityIsHiddenByTheOption()
{
    CommandLine options;
    options.language = QStringLiteral("en");
    options.hidePriorityConnection = true;
    start(options);
    QVERIFY(radio("USB primary")->isHidden());
    m_host->setPriorityConnectionHidden(false);
    QVERIFY(radio("USB primary")->isVisible());
    QVERIFY(withText<QLabel>(*m_host->area()->widget(), "Priority connection")->isVisible());
}

SETTINGAREA_TEST_MAIN(tst_PreferencesInHost, QApplication)
#include "tst_PreferencesInHost.moc"
