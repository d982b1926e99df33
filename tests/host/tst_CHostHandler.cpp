#include "host/CHostHandler.h"
#include "host/project/Project.h"
#include "host/typefile/TypeFile.h"
#include "tests/host/TypeFileFixture.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QEasingCurve>
#include <QLocale>
#include <QTemporaryDir>

#include <atomic>
#include <thread>

namespace {

using Block = std::array<std::int64_t, 4>;

SHwRcvInCabinetInfo otherRecord()
{
    SHwRcvInCabinetInfo record;
    record.name = QString(300, QLatin1Char('n'));
    record.columns = 1;
    record.rows = 1;
    return record;
}

} // namespace

class tst_CHostHandler : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void answersForATypeFile();
    void answersForASingleReceiverFile();
    void answersForAnotherRecordAfterARewrite();
    void answersForBrokenFiles_data();
    void answersForBrokenFiles();
    void keepsARecordThatItCannotReplace();
    void neverReadsATornRecord();

    void asksTheProject();
    void savesTheProject();
    void reportsAProjectThatIsNotSaved();
    void passesEverythingOnToTheWindow();
    void failsEveryRecipientWithoutAMailSender();
    void livesLongerThanWindowAndProject();

private:
    QString m_path; // of a type file with a multi-receiver record
    std::unique_ptr<QTemporaryDir> m_folder;
    CHostHandler m_handler{nullptr, nullptr, {}};
};

void tst_CHostHandler::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(QStringLiteral("a.rcvbp"));
    TypeFileHeader header = sampleHeader();
    header.cabinet = sampleRecord();
    QString error;
    QVERIFY2(TypeFile::write(m_path, header, "some payload", error), qPrintable(error));
}

void tst_CHostHandler::answersForATypeFile()
{
    QVERIFY(m_handler.isMultiRcvCabinetFile(m_path));
    SHwRcvInCabinetInfo record;
    m_handler.readCabinetInfo(m_path, record);
    QVERIFY(record == sampleRecord());
    int width = -1;
    int height = -1;
    m_handler.queryCabinetResolution(m_path, width, height);
    QCOMPARE(QSize(width, height), QSize(3 * 384, 2 * 64));
    QCOMPARE(m_handler.queryCabinetBlock(m_path), (Block{1, -2, INT64_MAX, INT64_MIN}));
}

void tst_CHostHandler::answersForASingleReceiverFile()
{
    QString error;
    QVERIFY(TypeFile::write(m_path, sampleHeader(), {}, error));
    QVERIFY(!m_handler.isMultiRcvCabinetFile(m_path));
    SHwRcvInCabinetInfo record = otherRecord();
    m_handler.readCabinetInfo(m_path, record);
    QVERIFY(record == otherRecord());
    int width = -1;
    int height = -1;
    m_handler.queryCabinetResolution(m_path, width, height);
    QCOMPARE(QSize(width, height), QSize(384, 64));
}

void tst_CHostHandler::answersForAnotherRecordAfterARewrite()
{
    SHwRcvInCabinetInfo two = sampleRecord();
    two.rows = 1;
    two.columns = 2;
    two.wiringOrder = {1, 0};
    m_handler.writeCabinetInfo(m_path, two);
    SHwRcvInCabinetInfo record;
    m_handler.readCabinetInfo(m_path, record);
    QVERIFY(record == two);
    QVERIFY(readFile(m_path).endsWith("some payload"));
    m_handler.writeCabinetInfo(m_path, otherRecord());
    QVERIFY(!m_handler.isMultiRcvCabinetFile(m_path)); // 1 x 1
    m_handler.readCabinetInfo(m_path, record);
    QVERIFY(record == otherRecord());
}

void tst_CHostHandler::answersForBrokenFiles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");
    QTest::newRow("gone") << QStringLiteral("gone") << QStringLiteral("No such file or directory");
    QTest::newRow("cut off") << QStringLiteral("cut")
                             << QStringLiteral("The file is cut off: it has 100 of 149 bytes.");
    QTest::newRow("garbage") << QStringLiteral("garbage") << QStringLiteral("This is not a type file.");
    QTest::newRow("newer") << QStringLiteral("newer") << QStringLiteral("The file was made by a newer program");
    QTest::newRow("fifo") << QStringLiteral("fifo") << QStringLiteral("This is not a regular file.");
    QTest::newRow("percent") << QStringLiteral("%s%n") << QStringLiteral("This is not a type file.");
}

void tst_CHostHandler::answersForBrokenFiles()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);
    const QByteArray whole = readFile(m_path);
    QByteArray newer = whole;
    newer[8] = 2;
    QVERIFY(writeFile(m_folder->filePath(QStringLiteral("cut.rcvp")), whole.left(100)));
    QVERIFY(writeFile(m_folder->filePath(QStringLiteral("garbage.rcvp")), QByteArray(1000, '\0')));
    QVERIFY(writeFile(m_folder->filePath(QStringLiteral("newer.rcvp")), newer));
    QVERIFY(writeFile(m_folder->filePath(QStringLiteral("%s%n.rcvp")), "x"));
    QVERIFY(makeFifo(m_folder->filePath(QStringLiteral("fifo.rcvp"))));

    const QString path = m_folder->filePath(name + QStringLiteral(".rcvp"));
    const QRegularExpression warning(QRegularExpression::escape(path + QStringLiteral(": ") + reason));
    for (int query = 0; query < 5; ++query)
        expectWarning(warning);
    QVERIFY(!m_handler.isMultiRcvCabinetFile(path));
    SHwRcvInCabinetInfo record = sampleRecord();
    m_handler.readCabinetInfo(path, record);
    QVERIFY(record == sampleRecord());
    int width = -1;
    int height = -1;
    m_handler.queryCabinetResolution(path, width, height);
    QCOMPARE(QSize(width, height), QSize(-1, -1));
    QCOMPARE(m_handler.queryCabinetBlock(path), Block{});
    const QByteArray before = name == QLatin1String("fifo") ? QByteArray() : readFile(path);
    m_handler.writeCabinetInfo(path, sampleRecord());
    QCOMPARE(name == QLatin1String("fifo") ? QByteArray() : readFile(path), before);
}

void tst_CHostHandler::keepsARecordThatItCannotReplace()
{
    QObject window;
    QStringList failures;
    CHostHandler::Services services;
    services.saveFailed = [&failures](const QString& text) { failures.append(text); };
    CHostHandler handler(nullptr, &window, services);
    SHwRcvInCabinetInfo invalid = sampleRecord();
    invalid.columns = 11;
    expectWarning(QRegularExpression(QStringLiteral("a.rcvbp: The record has 11 x 2 receivers")));
    handler.writeCabinetInfo(m_path, invalid);
    SHwRcvInCabinetInfo record;
    handler.readCabinetInfo(m_path, record);
    QVERIFY(record == sampleRecord());
    QCOMPARE(failures, QStringList{QStringLiteral("The type file %1 was not written: "
                                                  "The record has 11 x 2 receivers; 1 to 10 are possible.")
                                       .arg(m_path)});
}

void tst_CHostHandler::neverReadsATornRecord()
{
    constexpr int rewrites = 200;
    std::atomic_bool done{false};
    std::atomic_int torn{0};
    std::array<std::atomic_int, 2> seen{};
    const auto read = [&] {
        while (!done) {
            SHwRcvInCabinetInfo record;
            m_handler.readCabinetInfo(m_path, record);
            if (record == sampleRecord())
                ++seen[0];
            else if (record == otherRecord())
                ++seen[1];
            else
                ++torn;
        }
    };
    std::thread first(read);
    std::thread second(read);
    for (int i = 0; i < rewrites; ++i)
        m_handler.writeCabinetInfo(m_path, i % 2 == 0 ? otherRecord() : sampleRecord());
    done = true;
    first.join();
    second.join();
    QCOMPARE(torn.load(), 0);
    QVERIFY(seen[0] > 0);
    QVERIFY(seen[1] > 0);
}

void tst_CHostHandler::asksTheProject()
{
    Project project;
    CHostHandler handler(&project, nullptr, {});
    QCOMPARE(handler.projectName(), QStringLiteral("Untitled"));
    QVERIFY(!handler.isProjectModified());
    QVERIFY(!handler.hasProjectPath());
    QVERIFY(!handler.isTypeUsedInLayout(sampleRecord().md5));
    QVERIFY(project.place(sampleRecord().md5, QStringLiteral("A")));
    QVERIFY(handler.isProjectModified());
    QVERIFY(handler.isTypeUsedInLayout(sampleRecord().md5));
    QVERIFY(!handler.isTypeUsedInLayout(SMD5{}));
}

void tst_CHostHandler::savesTheProject()
{
    Project project;
    CHostHandler handler(&project, nullptr, {});
    QVERIFY(project.place(sampleRecord().md5, QStringLiteral("A")));
    const QString path = m_folder->filePath(QStringLiteral("Wall.prj"));
    handler.saveProject(path);
    QVERIFY(handler.hasProjectPath());
    QVERIFY(!handler.isProjectModified());
    QCOMPARE(handler.projectName(), QStringLiteral("Wall"));
    QVERIFY(project.removeAt(0));
    handler.saveProject(QString());
    QVERIFY(!handler.isProjectModified());
    QVERIFY(readFile(path).contains("\"placedTypes\": [\n    ]"));
}

void tst_CHostHandler::reportsAProjectThatIsNotSaved()
{
    QObject window;
    Project project;
    QStringList failures;
    CHostHandler::Services services;
    services.saveFailed = [&failures](const QString& text) { failures.append(text); };
    CHostHandler handler(&project, &window, services);
    QVERIFY(project.place(sampleRecord().md5, QStringLiteral("A")));
    handler.saveProject(m_folder->path());
    handler.saveProject(QString());
    QCOMPARE(failures, QStringList({QStringLiteral("The project was not saved: This is not a regular file."),
                                    QStringLiteral("The project was not saved: There is no file name.")}));
    QVERIFY(handler.isProjectModified());
    QVERIFY(!handler.hasProjectPath());
}

void tst_CHostHandler::passesEverythingOnToTheWindow()
{
    QObject window;
    QObject progress;
    QStringList calls;
    CHostHandler::Services services;
    services.shortcutPanelVisible = [&](bool visible) { calls << QStringLiteral("panel %1").arg(visible); };
    services.connectionPriority = [&](int priority) { calls << QStringLiteral("priority %1").arg(priority); };
    services.language = [&](const QLocale& locale) { calls << QStringLiteral("language ") + locale.name(); };
    services.showProgress = [&](const QString& text, int duration, const QEasingCurve& curve) {
        calls << QStringLiteral("progress %1 %2 %3").arg(text).arg(duration).arg(curve.type());
        return &progress;
    };
    services.endProgress = [&](QObject* object) { calls << QStringLiteral("end %1").arg(object == &progress); };
    services.isPriorityConnectionHidden = [&] { return true; };
    services.sendEmail = [&](QList<int>& failed, const SEmailSettings& settings, const QString& body) {
        failed = {1};
        calls << QStringLiteral("mail %1 %2").arg(settings.nPort).arg(body);
        return true;
    };
    CHostHandler handler(nullptr, &window, services);
    handler.notifyShortcutPanelVisible(true);
    handler.setConnectionPriority(2);
    handler.setLanguage(QLocale(QLocale::Chinese));
    QCOMPARE(handler.showProgress(QStringLiteral("Importing..."), 600, QEasingCurve(QEasingCurve::InQuart)), &progress);
    handler.endProgress(&progress);
    handler.endProgress(nullptr);
    QVERIFY(handler.isPriorityConnectionHidden());
    QList<int> failed;
    QVERIFY(handler.SendEmail(failed, SEmailSettings(), QStringLiteral("body")));
    QCOMPARE(failed, QList<int>{1});
    QCOMPARE(calls, QStringList({QStringLiteral("panel 1"), QStringLiteral("priority 2"),
                                 QStringLiteral("language zh_CN"), QStringLiteral("progress Importing... 600 9"),
                                 QStringLiteral("end 1"), QStringLiteral("mail 465 body")}));
}

void tst_CHostHandler::failsEveryRecipientWithoutAMailSender()
{
    SEmailSettings settings;
    settings.lstRecipients = {{}, {}, {}};
    QList<int> failed{7};
    QVERIFY(!m_handler.SendEmail(failed, settings, QStringLiteral("body")));
    QCOMPARE(failed, QList<int>({0, 1, 2}));
}

void tst_CHostHandler::livesLongerThanWindowAndProject()
{
    auto window = std::make_unique<QObject>();
    auto project = std::make_unique<Project>();
    QVERIFY(project->place(sampleRecord().md5, QStringLiteral("A")));
    int calls = 0;
    CHostHandler::Services services;
    services.shortcutPanelVisible = [&calls](bool) { ++calls; };
    services.sendEmail = [&calls](QList<int>&, const SEmailSettings&, const QString&) { return ++calls > 0; };
    services.connectionPriority = [&calls](int) { ++calls; };
    services.language = [&calls](const QLocale&) { ++calls; };
    services.showProgress = [&calls](const QString&, int, const QEasingCurve&) { return ++calls, nullptr; };
    services.endProgress = [&calls](QObject*) { ++calls; };
    services.isPriorityConnectionHidden = [&calls] { return ++calls > 0; };
    services.saveFailed = [&calls](const QString&) { ++calls; };
    CHostHandler handler(project.get(), window.get(), services);
    window.reset();
    project.reset();

    QObject progress;
    QList<int> failed;
    handler.notifyShortcutPanelVisible(false);
    QVERIFY(!handler.SendEmail(failed, SEmailSettings(), QString()));
    handler.setConnectionPriority(0);
    handler.setLanguage(QLocale::c());
    QVERIFY(!handler.showProgress(QString(), 0, QEasingCurve()));
    handler.endProgress(&progress);
    QVERIFY(!handler.isPriorityConnectionHidden());
    QVERIFY(!handler.isProjectModified());
    QVERIFY(!handler.hasProjectPath());
    QCOMPARE(handler.projectName(), QString());
    QVERIFY(!handler.isTypeUsedInLayout(sampleRecord().md5));
    handler.saveProject(m_folder->filePath(QStringLiteral("a.prj")));
    QVERIFY(!QFile::exists(m_folder->filePath(QStringLiteral("a.prj"))));
    QCOMPARE(calls, 0);
    QVERIFY(handler.isMultiRcvCabinetFile(m_path)); // needs neither
}

SETTINGAREA_TEST_MAIN(tst_CHostHandler, QCoreApplication)
#include "tst_CHostHandler.moc"
