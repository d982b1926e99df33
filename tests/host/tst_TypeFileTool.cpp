#include "host/typefile/TypeFile.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>

namespace {

struct Run
{
    int exitCode = -1;
    QString output;
    QString errors;
};

Run runTool(const QStringList& arguments)
{
    QProcess process;
    process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/orvel-typefile"), arguments);
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return {};
    return {process.exitCode(), QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

// The content of every file below the folder, by its path in it.
QMap<QString, QByteArray> contentOf(const QString& folder)
{
    QMap<QString, QByteArray> files;
    QDirIterator entries(folder, QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        files.insert(QDir(folder).relativeFilePath(path), readFile(path));
    }
    return files;
}

} // namespace

class tst_TypeFileTool : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void createsAndShowsASingleType();
    void createsAndShowsAMultiType();
    void createsNoFileTwice();
    void checksFiles();
    void refusesWrongArguments_data();
    void refusesWrongArguments();
    void refusesEmptyPaths();
    void printsHelpAndVersion();
    void makesTheCommittedSamples();
    void makesSamplesOfEveryKind();
    void saysWhereSamplesCannotGo();

private:
    QString file(const char* name) const { return m_folder->filePath(QString::fromUtf8(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_TypeFileTool::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
}

void tst_TypeFileTool::createsAndShowsASingleType()
{
    const Run create = runTool({QStringLiteral("create"), file("a.rcvp"), QStringLiteral("--width=128"),
                                QStringLiteral("--height=256"), QStringLiteral("--kind=7"),
                                QStringLiteral("--block=1,-2,9223372036854775807,-9223372036854775808"),
                                QStringLiteral("--payload-size=1000"), QStringLiteral("--seed=3")});
    QCOMPARE(create.errors, QString());
    QCOMPARE(create.exitCode, 0);
    QCOMPARE(runTool({QStringLiteral("show"), file("a.rcvp")}).output,
             QStringLiteral("format:       1.0\n"
                            "kind:         single-receiver\n"
                            "cabinet:      128 x 256 pixels\n"
                            "receiver:     128 x 256 pixels, model 7\n"
                            "block:        1 -2 9223372036854775807 -9223372036854775808\n"
                            "payload:      1000 bytes\n"));
}

void tst_TypeFileTool::createsAndShowsAMultiType()
{
    QVERIFY(writeFile(file("P4 屏.rcvp"), "abc"));
    const Run create =
        runTool({QStringLiteral("create"), file("a.rcvbp"), QStringLiteral("--width=10"), QStringLiteral("--height=20"),
                 QStringLiteral("--columns=2"), QStringLiteral("--rows=2"), QStringLiteral("--wiring=0,2,3,1"),
                 QStringLiteral("--orientation"), QStringLiteral("--source"), file("P4 屏.rcvp"),
                 QStringLiteral("--weight=12.5"), QStringLiteral("--power=300"), QStringLiteral("--voltage=100,240")});
    QCOMPARE(create.errors, QString());
    QCOMPARE(create.exitCode, 0);
    QCOMPARE(runTool({QStringLiteral("show"), file("a.rcvbp")}).output,
             QStringLiteral("format:       1.0\n"
                            "kind:         multi-receiver\n"
                            "cabinet:      20 x 40 pixels\n"
                            "receiver:     10 x 20 pixels, model 0\n"
                            "block:        0 0 0 0\n"
                            "payload:      0 bytes\n"
                            "receivers:    2 x 2, wired 0 2 3 1 with orientation\n"
                            "source:       P4 屏, digest 900150983cd24fb0d6963f7d28e17f72\n"
                            "label:        12.5 kg, 300 W, 100 to 240 V\n"));
    QCOMPARE(runTool({QStringLiteral("create"), file("b.rcvbp"), QStringLiteral("--width=10"),
                      QStringLiteral("--height=20"), QStringLiteral("--rows=3")})
                 .exitCode,
             0);
    QVERIFY(runTool({QStringLiteral("show"), file("b.rcvbp")})
                .output.contains(QStringLiteral("receivers:    1 x 3, wired 0 1 2\n")));
}

void tst_TypeFileTool::createsNoFileTwice()
{
    QVERIFY(writeFile(file("a.rcvp"), "mine"));
    const Run run = runTool(
        {QStringLiteral("create"), file("a.rcvp"), QStringLiteral("--width=10"), QStringLiteral("--height=20")});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.errors, QStringLiteral("orvel-typefile: %1: The file exists already.\n").arg(file("a.rcvp")));
    QCOMPARE(readFile(file("a.rcvp")), QByteArray("mine"));
}

void tst_TypeFileTool::checksFiles()
{
    QString error;
    TypeFileHeader header;
    header.width = header.height = 10;
    QVERIFY(TypeFile::write(file("good.rcvp"), header, "payload", error));
    QVERIFY(writeFile(file("bad.rcvp"), readFile(file("good.rcvp")).replace("payload", "Payload")));
    Run run = runTool({QStringLiteral("check"), file("bad.rcvp"), file("good.rcvp")});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.output, file("good.rcvp") + QStringLiteral(": sound\n"));
    QCOMPARE(
        run.errors,
        QStringLiteral("orvel-typefile: %1: The payload is damaged: its checksum is wrong.\n").arg(file("bad.rcvp")));
    run = runTool({QStringLiteral("check"), file("good.rcvp")});
    QCOMPARE(run.exitCode, 0);
    run = runTool({QStringLiteral("show"), file("none.rcvp")});
    QCOMPARE(run.exitCode, 1);
    QCOMPARE(run.errors, QStringLiteral("orvel-typefile: %1: No such file or directory\n").arg(file("none.rcvp")));
}

void tst_TypeFileTool::refusesWrongArguments_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char* arguments, const char* problem) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << QString::fromLatin1(problem);
    };
    row("", "There is no command \"\"; --help lists them.");
    row("paint a", "There is no command \"paint\"; --help lists them.");
    row("show", "\"show\" needs a path.");
    row("show a b", "\"show\" takes one path.");
    row("check a --width=1", "\"check\" takes no options.");
    row("create a --wdith=1", "Unknown option 'wdith'.");
    row("create a --width", "Missing value after '--width'.");
    row("create a --width=0x", "The value of --width cannot be used: 0x");
    row("create a --width=65536", "The value of --width cannot be used: 65536");
    row("create a --height=-1", "The value of --height cannot be used: -1");
    row("create a --block=1,2,3", "The value of --block cannot be used: 1,2,3");
    row("create a --columns=2 --wiring=0", "The value of --wiring cannot be used: 0");
    row("create a --columns=2 --voltage=1", "The value of --voltage cannot be used: 1");
    row("create a --columns=2 --source=/nowhere", "The file /nowhere cannot be read.");
    row("create a --payload-size=268435457", "A payload has at most 268435456 bytes.");
}

void tst_TypeFileTool::refusesWrongArguments()
{
    QFETCH(QString, arguments);
    QFETCH(QString, problem);
    const Run run = runTool(arguments.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QCOMPARE(run.errors, QStringLiteral("orvel-typefile: ") + problem + QLatin1Char('\n'));
    QCOMPARE(run.output, QString());
    QCOMPARE(run.exitCode, 2);
}

void tst_TypeFileTool::printsHelpAndVersion()
{
    const Run help = runTool({QStringLiteral("--help")});
    QCOMPARE(help.exitCode, 0);
    for (const char* word : {"create FILE", "show FILE", "check FILE", "samples DIR", "--wiring", "--seed"})
        QVERIFY2(help.output.contains(QLatin1String(word)), word);
    const Run version = runTool({QStringLiteral("--version")});
    QCOMPARE(version.exitCode, 0);
    QVERIFY(QRegularExpression(QStringLiteral("\\Aorvel-typefile \\d+\\.\\d+\\.\\d+\\n\\z"))
                .match(version.output)
                .hasMatch());
}

void tst_TypeFileTool::makesTheCommittedSamples()
{
    const QString committed = QFINDTESTDATA("../../samples/type-library");
    QVERIFY(!committed.isEmpty());
    QCOMPARE(runTool({QStringLiteral("samples"), file("library")}).exitCode, 0);
    const auto files = contentOf(file("library"));
    QCOMPARE(files.keys(), contentOf(committed).keys());
    QVERIFY(files == contentOf(committed));
    QCOMPARE(runTool({QStringLiteral("samples"), file("library")}).exitCode, 0);
    QVERIFY(files == contentOf(file("library")));
}

void tst_TypeFileTool::makesSamplesOfEveryKind()
{
    QCOMPARE(runTool({QStringLiteral("samples"), file("library")}).exitCode, 0);
    const auto files = contentOf(file("library"));
    int multi = 0;
    int deepest = 0;
    QSet<QByteArray> contents;
    QSet<QString> names;
    QMap<QString, QString> digests; // by name
    for (auto it = files.begin(); it != files.end(); ++it) {
        const QString name = QFileInfo(it.key()).completeBaseName();
        contents.insert(it.value());
        names.insert(name);
        digests.insert(name,
                       QString::fromLatin1(QCryptographicHash::hash(it.value(), QCryptographicHash::Md5).toHex()));
        deepest = qMax(deepest, it.key().count(QLatin1Char('/')));
    }
    for (auto it = files.begin(); it != files.end(); ++it) {
        const QString path = file("library/") + it.key();
        QString error;
        QVERIFY2(TypeFile::verify(path, error), qPrintable(error));
        const auto header = TypeFile::readHeader(path, error);
        QCOMPARE(header->isMultiReceiver(), path.endsWith(QLatin1String(".rcvbp")));
        if (header->cabinet) {
            ++multi;
            QCOMPARE(QString::fromLatin1(header->cabinet->md5.data), digests.value(header->cabinet->name));
        }
    }
    QCOMPARE(files.size(), 21);
    QCOMPARE(multi, 6);
    QCOMPARE(deepest, 3);
    // As the settings area demands it of a library: no name and no content twice.
    QCOMPARE(names.size(), 21);
    QCOMPARE(contents.size(), 21);
}

// What a script passes whose variable is not set; the samples would go to the root of the disk.
void tst_TypeFileTool::refusesEmptyPaths()
{
    for (const char* command : {"create", "show", "check", "samples"}) {
        const Run run = runTool({QLatin1String(command), QString()});
        QCOMPARE(run.errors, QStringLiteral("orvel-typefile: \"%1\" needs a path.\n").arg(QLatin1String(command)));
        QCOMPARE(run.exitCode, 2);
    }
}

void tst_TypeFileTool::saysWhereSamplesCannotGo()
{
    QVERIFY(writeFile(file("library"), ""));
    const Run run = runTool({QStringLiteral("samples"), file("library")});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.startsWith(QStringLiteral("orvel-typefile: ") + file("library/Universal-128x128.rcvp: ")),
             qPrintable(run.errors));
}

SETTINGAREA_TEST_MAIN(tst_TypeFileTool, QCoreApplication)
#include "tst_TypeFileTool.moc"
