#include "host/tour/TourSteps.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QDir>
#include <QImage>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdlib>

#include <fcntl.h>

// The built program, driven from outside.
class tst_Orvel : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void helpNeedsNoDisplay();
    void nonsenseIsRefused();
    void aPlugInThatCannotBeUsed_data();
    void aPlugInThatCannotBeUsed();
    void aTerminatedProgramSavesItsSettings();
    void terminatedTwiceItDoesNotWaitForAScan();
    void itGoesOnWhenNobodyReadsWhatItSays();
    void theTourTakesEveryPicture();
    void aTourThatCannotWriteSaysSo();
    void aTourWithoutAPlugInSaysSo();

private:
    struct Result
    {
        int exitCode;
        QString out;
        QString err;
    };

    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }
    Result run(const QStringList& arguments);
    bool waitForText(QProcess& process, const char* text);
    void showsTheGuidesPictures();

    std::unique_ptr<QTemporaryDir> m_folder;
    QProcessEnvironment m_environment;
    QString m_said; // by a process that goes on
};

namespace {

constexpr int timeoutMs = 600'000; // the tour takes hundreds of pictures, under a sanitizer too

// The window's size in a picture at scale 1.
QSize sizeOf(const QString& picture)
{
    if (picture.contains(QLatin1String("small-window")))
        return {1024, 600};
    if (picture.contains(QLatin1String("wide-window")))
        return {1920, 1080};
    return {1280, 800};
}

// The largest difference between the pictures in places of 16 x 16 pixels, 0 .. 255.
int difference(const QImage& one, const QImage& other)
{
    if (one.isNull() || one.size() != other.size())
        return 255;
    const auto blurred = [](const QImage& image) {
        return image.scaled(image.size() / 16, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_RGB32);
    };
    const QImage a = blurred(one);
    const QImage b = blurred(other);
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x)
            largest = std::max(largest, std::abs(qGray(a.pixel(x, y)) - qGray(b.pixel(x, y))));
    }
    return largest;
}

QString program()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/orvel");
}

} // namespace

void tst_Orvel::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_said.clear();
    m_environment = QProcessEnvironment::systemEnvironment();
    m_environment.insert(QStringLiteral("XDG_CONFIG_HOME"), path("config"));
    m_environment.insert(QStringLiteral("XDG_DATA_HOME"), path("data"));
}

tst_Orvel::Result tst_Orvel::run(const QStringList& arguments)
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(program(), arguments);
    if (!process.waitForFinished(timeoutMs) || process.exitStatus() == QProcess::CrashExit)
        return {-1, {}, process.errorString()};
    return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput()),
            QString::fromLocal8Bit(process.readAllStandardError())};
}

// The documents' pictures are the tour's, but for what another version of a font changes.
void tst_Orvel::showsTheGuidesPictures()
{
    const QDir guide(QStringLiteral(GUIDE_PICTURES));
    const QDir tour(path("tour/en-1x"));
    const QStringList pictures = guide.entryList(QDir::Files);
    QVERIFY(pictures.size() > 1);
    for (const QString& picture : pictures) {
        const QString taken = tour.entryList({QStringLiteral("[0-9][0-9]-") + picture}).value(0);
        QVERIFY2(difference(QImage(guide.filePath(picture)), QImage(tour.filePath(taken))) < 12,
                 qPrintable(picture + QStringLiteral(" is not current: run scripts/update-pictures")));
    }
}

// Waits until the process has written the text to its standard error.
bool tst_Orvel::waitForText(QProcess& process, const char* text)
{
    while (!m_said.contains(QLatin1String(text))) {
        if (!process.waitForReadyRead(timeoutMs))
            return false;
        m_said += QString::fromLocal8Bit(process.readAll());
    }
    return true;
}

void tst_Orvel::helpNeedsNoDisplay()
{
    m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    m_environment.remove(QStringLiteral("DISPLAY"));
    const Result help = run({QStringLiteral("--help")});
    QCOMPARE(help.exitCode, 0);
    QVERIFY(help.out.contains(QStringLiteral("--library DIR")));
    const Result version = run({QStringLiteral("--version")});
    QCOMPARE(version.exitCode, 0);
    QCOMPARE(version.out, QStringLiteral("orvel " ORVEL_VERSION "\n"));
    QCOMPARE(help.err + version.err, QString());
}

void tst_Orvel::nonsenseIsRefused()
{
    const Result result = run({QStringLiteral("--bogus")});
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.out, QString());
    QCOMPARE(result.err, QStringLiteral("orvel: Unknown option 'bogus'.\nTry 'orvel --help'.\n"));
}

void tst_Orvel::aPlugInThatCannotBeUsed_data()
{
    QTest::addColumn<QString>("reason"); // %1: the plug-in's path
    QTest::newRow("missing") << QStringLiteral("no such file: %1");
    QTest::newRow("text") << QStringLiteral("%1: Cannot load library %1: (%1: file too short)");
    QTest::newRow("no symbol") << QStringLiteral("%1: undefined symbol: "
                                                 "_Z16SettingArea_InitPP25IAbstractControlInterfaceP7QWidget");
}

void tst_Orvel::aPlugInThatCannotBeUsed()
{
    QFETCH(QString, reason);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QString plugin = path("plugin.so");
    if (name == QLatin1String("text"))
        QVERIFY(writeFile(plugin, "text"));
    else if (name == QLatin1String("no symbol"))
        plugin = QCoreApplication::applicationDirPath() + QStringLiteral("/libplugin_without_symbol.so");

    const Result result = run({QStringLiteral("--plugin"), plugin});
    QCOMPARE(result.exitCode, 2);
    QCOMPARE(result.err, QStringLiteral("orvel: cannot load the settings plug-in: %1\n").arg(reason.arg(plugin)));
}

void tst_Orvel::aTerminatedProgramSavesItsSettings()
{
    m_environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("orvel.library=true"));
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program(), QStringList());
    QVERIFY(waitForText(process, "loaded "));
    process.terminate();
    QVERIFY(process.waitForFinished(timeoutMs));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    const QJsonObject saved = QJsonDocument::fromJson(readFile(path("config/orvel/settings.json"))).object();
    QCOMPARE(saved.value(QLatin1String("monitoring"))[QLatin1String("refreshInterval")], QJsonValue(10));
    // The first run has filled the type library.
    QVERIFY(QFile::exists(path("data/orvel/type-library/Universal-128x128.rcvp")));
}

void tst_Orvel::terminatedTwiceItDoesNotWaitForAScan()
{
    QVERIFY(QDir().mkdir(path("types")));
    QFile large(path("types/large.rcvp"));
    QVERIFY(large.open(QIODevice::WriteOnly));
    QVERIFY(large.resize(qint64(1) << 40)); // takes no room, and hours to hash
    m_environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("orvel.library=true"));
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program(), {QStringLiteral("--library"), path("types")});
    QVERIFY(waitForText(process, "loading "));
    process.terminate();
    QVERIFY(!process.waitForFinished(300)); // the pages' values are still to be had, after the scan
    // Two that a busy machine delivers together count as one.
    for (int i = 0; i < 100 && process.state() == QProcess::Running; ++i) {
        process.terminate();
        process.waitForFinished(300);
    }
    QCOMPARE(process.state(), QProcess::NotRunning);
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QVERIFY(QFile::exists(path("config/orvel/settings.json")));
}

void tst_Orvel::itGoesOnWhenNobodyReadsWhatItSays()
{
    QVERIFY(makeFifo(path("words")));
    const int reader = ::open(QFile::encodeName(path("words")).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    QVERIFY(reader >= 0);
    m_environment.insert(QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("orvel.*=true"));
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setStandardErrorFile(path("words"));
    process.start(program(), QStringList());
    QVERIFY(process.waitForStarted(timeoutMs));
    ::close(reader);
    // It has said by then which plug-in it has, and more.
    const auto hasLibrary = [this] { return QFile::exists(path("data/orvel/type-library/Universal-128x128.rcvp")); };
    QTRY_VERIFY_WITH_TIMEOUT(hasLibrary() || process.state() == QProcess::NotRunning, timeoutMs);
    process.terminate();
    QVERIFY(process.waitForFinished(timeoutMs));
    QCOMPARE(process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(process.exitCode(), 0);
    QVERIFY(QFile::exists(path("config/orvel/settings.json")));
}

void tst_Orvel::theTourTakesEveryPicture()
{
    const Result result = run({QStringLiteral("--tour"), path("tour")});
    QCOMPARE(result.err, QString());
    QCOMPARE(result.exitCode, 0);
    const QStringList passes{QStringLiteral("en-1x"), QStringLiteral("en-2x"), QStringLiteral("zh_CN-1x"),
                             QStringLiteral("zh_CN-2x")};
    QCOMPARE(QDir(path("tour")).entryList(QDir::Dirs | QDir::NoDotAndDotDot), passes);
    QStringList pictures;
    for (const TourStep& step : tourSteps()) {
        pictures << QStringLiteral("%1-%2.png")
                        .arg(pictures.size() + 1, 2, 10, QLatin1Char('0'))
                        .arg(QLatin1String(step.name));
    }
    QCOMPARE(pictures.value(0), QStringLiteral("01-preferences.png"));
    QCOMPARE(pictures.value(1), QStringLiteral("02-type-library.png"));
    QStringList told{QStringLiteral("Pictures of the tour:")};
    for (const QString& pass : passes) {
        const QDir folder(path("tour/") + pass);
        told << QStringLiteral("  ") + folder.path();
        QCOMPARE(folder.entryList(QDir::Files), pictures);
        const int scale = pass.endsWith(QLatin1String("2x")) ? 2 : 1;
        QList<QImage> seen;
        for (const QString& picture : qAsConst(pictures)) {
            const QImage image(folder.filePath(picture));
            QCOMPARE(image.size(), sizeOf(picture) * scale);
            QVERIFY2(!seen.contains(image), qPrintable(picture)); // each shows something of its own
            seen << image;
        }
    }
    QCOMPARE(result.out, told.join(QLatin1Char('\n')) + QLatin1Char('\n'));
    for (const QString& picture : qAsConst(pictures)) {
        QVERIFY2(QImage(path("tour/en-1x/") + picture) != QImage(path("tour/zh_CN-1x/") + picture),
                 qPrintable(picture));
    }
    showsTheGuidesPictures();
    // The user's own files are not touched.
    QVERIFY(!QFile::exists(path("config")));
    QVERIFY(!QFile::exists(path("data")));
}

void tst_Orvel::aTourThatCannotWriteSaysSo()
{
    const QString tour = path("tour \u5c4f"); // arguments are taken in the locale's encoding
    QVERIFY(QDir().mkpath(tour + QStringLiteral("/en-1x/01-preferences.png")));
    const Result result = run({QStringLiteral("--tour"), tour});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(result.err, QStringLiteral("orvel: tour en-1x: 01-preferences: cannot write %1\n")
                             .arg(tour + QStringLiteral("/en-1x/01-preferences.png")));
    QVERIFY(writeFile(path("file"), "x"));
    const Result other = run({QStringLiteral("--tour"), path("file/tour")});
    QCOMPARE(other.exitCode, 1);
    QCOMPARE(other.err, QStringLiteral("orvel: tour en-1x: cannot make the folder %1\n").arg(path("file/tour/en-1x")));
}

void tst_Orvel::aTourWithoutAPlugInSaysSo()
{
    const Result result = run({QStringLiteral("--tour"), path("tour"), QStringLiteral("--plugin"), path("a.so")});
    QCOMPARE(result.exitCode, 1);
    QCOMPARE(
        result.err,
        QStringLiteral("orvel: tour en-1x: cannot load the settings plug-in: no such file: %1\n").arg(path("a.so")));
}

SETTINGAREA_TEST_MAIN(tst_Orvel, QCoreApplication)
#include "tst_Orvel.moc"
