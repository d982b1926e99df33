#include "host/CommandLine.h"
#include "tests/support/TestObject.h"

#include <QDir>

class tst_CommandLine : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingOpensTheWindow();
    void everyOptionIsTaken();
    void helpAndVersion_data();
    void helpAndVersion();
    void nonsenseIsRefused_data();
    void nonsenseIsRefused();
};

namespace {

CommandLine parse(const QStringList& arguments)
{
    return CommandLine::parse(QStringList{QStringLiteral("orvel")} + arguments);
}

QStringList words(const char* text)
{
    return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace

void tst_CommandLine::nothingOpensTheWindow()
{
    const CommandLine line = parse({});
    QCOMPARE(line.action, CommandLine::Action::Open);
    QCOMPARE(line.plugin + line.library + line.settings + line.language + line.smtpCa + line.tour + line.tourPass,
             QString());
    QVERIFY(!line.hidePriorityConnection);
}

void tst_CommandLine::everyOptionIsTaken()
{
    const CommandLine line = parse(words("--plugin lib/a.so --library /types --settings=s.json --language zh_CN"));
    QCOMPARE(line.action, CommandLine::Action::Open);
    QCOMPARE(line.plugin, QDir::current().absoluteFilePath(QStringLiteral("lib/a.so")));
    QCOMPARE(line.library, QStringLiteral("/types"));
    QCOMPARE(line.settings, QDir::current().absoluteFilePath(QStringLiteral("s.json")));
    QCOMPARE(line.language, QStringLiteral("zh_CN"));
    QCOMPARE(parse(words("--smtp-ca own.pem")).smtpCa, QDir::current().absoluteFilePath(QStringLiteral("own.pem")));

    QVERIFY(parse(words("--hide-priority-connection")).hidePriorityConnection);

    const CommandLine tour = parse(words("--tour pictures"));
    QCOMPARE(tour.action, CommandLine::Action::Tour);
    QCOMPARE(tour.tour, QDir::current().absoluteFilePath(QStringLiteral("pictures")));

    const CommandLine pass = parse(words("--tour /pictures --tour-pass en-2x"));
    QCOMPARE(pass.action, CommandLine::Action::TourPass);
    QCOMPARE(pass.tourPass, QStringLiteral("en-2x"));
}

void tst_CommandLine::helpAndVersion_data()
{
    QTest::addColumn<QString>("option");
    QTest::addColumn<QString>("beginning");
    QTest::newRow("--help") << QStringLiteral("--help") << QStringLiteral("Usage: orvel [options]\n");
    QTest::newRow("-h") << QStringLiteral("-h") << QStringLiteral("Usage: orvel [options]\n");
    QTest::newRow("--version") << QStringLiteral("--version") << QStringLiteral("orvel " ORVEL_VERSION "\n");
    QTest::newRow("-v") << QStringLiteral("-v") << QStringLiteral("orvel " ORVEL_VERSION "\n");
}

void tst_CommandLine::helpAndVersion()
{
    QFETCH(QString, option);
    QFETCH(QString, beginning);
    const CommandLine line = parse({option});
    QCOMPARE(line.action, CommandLine::Action::Say);
    QCOMPARE(line.message.left(beginning.size()), beginning);
}

void tst_CommandLine::nonsenseIsRefused_data()
{
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("reason");
    const auto row = [](const char* arguments, const char* reason) {
        QTest::newRow(arguments) << QString::fromLatin1(arguments) << QString::fromLatin1(reason);
    };
    row("--bogus", "Unknown option 'bogus'.");
    row("--help --bogus", "Unknown option 'bogus'.");
    row("stage.prj", "Unexpected argument 'stage.prj'.");
    row("--plugin", "Missing value after '--plugin'.");
    row("--smtp-ca", "Missing value after '--smtp-ca'.");
    row("--tour=", "Missing value after '--tour'.");
    row("--hide-priority-connection=1", "Unexpected value after '--hide-priority-connection'.");
    row("--language fr", "Unknown language 'fr': use en or zh_CN.");
    row("--language nonsense", "Unknown language 'nonsense': use en or zh_CN.");
}

void tst_CommandLine::nonsenseIsRefused()
{
    QFETCH(QString, arguments);
    QFETCH(QString, reason);
    const CommandLine line = parse(arguments.split(QLatin1Char(' ')));
    QCOMPARE(line.action, CommandLine::Action::Refuse);
    QCOMPARE(line.message, QStringLiteral("orvel: %1\nTry 'orvel --help'.\n").arg(reason));
}

QTEST_APPLESS_MAIN(tst_CommandLine)
#include "tst_CommandLine.moc"
