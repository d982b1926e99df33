#include "tests/support/TestObject.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>

#include <csignal>

// The program as a whole, with plug-ins that are sound and such as are not.
class tst_Validator : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void usageErrors();
    void soundPlugin();
    void sameSeedSameEvents();
    void whatIsNoLibrary();
    void libraryWithoutTheSymbol();
    void faults_data();
    void faults();
    void crashUnderIgnoredSigchld();
    void aFailureTellsItsSteps();
    void theIndexIsAsked();

private:
    struct Run
    {
        int code;
        QString output;
        QString errors;
    };

    static QString binary(const char* name)
    {
        return QCoreApplication::applicationDirPath() + QLatin1Char('/') + QLatin1String(name);
    }
    static QString real() { return binary("libsettingarea.so"); }

    // A parent that does not want to hear of its children, and what it starts inherits that.
    class DeafProcess : public QProcess
    {
    protected:
        void setupChildProcess() override { std::signal(SIGCHLD, SIG_IGN); }
    };

    static Run validate(const QStringList& arguments, const char* fault = "")
    {
        QProcess process;
        return validate(process, arguments, fault);
    }

    static Run validate(QProcess& process, const QStringList& arguments, const char* fault)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("FAULT"), QLatin1String(fault));
        process.setProcessEnvironment(environment);
        process.start(binary("orvel-validate"), arguments);
        if (!process.waitForFinished(280'000))
            qFatal("The validator does not end");
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()), QString::fromUtf8(process.readAllStandardError())};
    }
};

void tst_Validator::usageErrors()
{
    const Run none = validate({});
    QCOMPARE(none.code, 2);
    QCOMPARE(none.output, QString());
    QCOMPARE(none.errors, QStringLiteral("orvel-validate: No plug-in is named.\nTry 'orvel-validate --help'.\n"));
    const Run help = validate({QStringLiteral("--help")});
    QCOMPARE(help.code, 0);
    QVERIFY(help.output.startsWith(QLatin1String("Usage: orvel-validate PLUGIN [options]\n")));
}

void tst_Validator::soundPlugin()
{
    const Run run = validate({real(), QStringLiteral("--strictness"), QStringLiteral("10"), QStringLiteral("--events"),
                              QStringLiteral("2000"), QStringLiteral("--seed"), QStringLiteral("7")});
    QVERIFY2(run.code == 0, qPrintable(run.output + run.errors));
    const QStringList lines = run.output.split(QLatin1Char('\n'));
    QCOMPARE(lines.first(), real() + QStringLiteral(", strictness 10, seed 7"));
    QVERIFY(lines.contains(QStringLiteral("ok   1 exports the one symbol")));
    QVERIFY(lines.contains(QStringLiteral("ok   3 handler replaced during a scan")));
    QVERIFY2(run.output.contains(QLatin1String("ok   7 random use: 2000 events, seed 7, 21 times the invariants")),
             qPrintable(run.output));
    QVERIFY2(run.output.contains(QRegularExpression(QStringLiteral(", [1-9]\\d* times the index, "))),
             qPrintable(run.output));
    QVERIFY(!run.output.contains(QLatin1String("FAIL")));
    QVERIFY(run.output.contains(QLatin1String("22 of 22 checks hold")));
}

void tst_Validator::sameSeedSameEvents()
{
    const auto steps = [](const char* seed) {
        const Run run =
            validate({real(), QStringLiteral("--strictness"), QStringLiteral("7"), QStringLiteral("--events"),
                      QStringLiteral("60"), QStringLiteral("--seed"), QLatin1String(seed)});
        return run.output.section(QStringLiteral("steps "), 1).section(QLatin1Char('\n'), 0, 0);
    };
    const QString first = steps("5");
    QCOMPARE(first.size(), 8);
    QCOMPARE(steps("5"), first);
    QVERIFY(steps("6") != first);
}

void tst_Validator::whatIsNoLibrary()
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("text.so")));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("no library\n") > 0);
    file.close();
    const Run run = validate({file.fileName(), QStringLiteral("--strictness"), QStringLiteral("1")});
    QCOMPARE(run.code, 1);
    QVERIFY(run.output.contains(QLatin1String("FAIL 1 exports the one symbol\n       not a shared library\n")));
    QVERIFY(run.output.contains(QLatin1String("FAIL 1 loads with every symbol resolved\n")));
    QVERIFY(run.output.contains(QLatin1String("0 of 4 checks hold")));
}

void tst_Validator::libraryWithoutTheSymbol()
{
    const Run run =
        validate({binary("libplugin_without_area.so"), QStringLiteral("--strictness"), QStringLiteral("1")});
    QCOMPARE(run.code, 1);
    QVERIFY2(run.output.contains(QLatin1String("it exports somethingElse, not _Z16SettingArea_Init")),
             qPrintable(run.output));
    QVERIFY(run.output.contains(QLatin1String("undefined symbol: _Z16SettingArea_Init")));
}

void tst_Validator::faults_data()
{
    QTest::addColumn<QString>("finding");
    QTest::newRow("") << QString();
    QTest::newRow("crash") << QStringLiteral("the process ended by signal 6 (Aborted)");
    QTest::newRow("hang") << QStringLiteral("the process hung: no sign of life for 3 s");
    QTest::newRow("thread") << QStringLiteral("1 threads have not ended");
    QTest::newRow("wrong record") << QStringLiteral("\"Show grid\" shows true and the record says false");
}

void tst_Validator::faults()
{
    QFETCH(QString, finding);
    const QString patience = finding.isEmpty() ? QStringLiteral("60") : QStringLiteral("3");
    const Run run = validate({binary("libfaulty_plugin.so"), QStringLiteral("--strictness"), QStringLiteral("2"),
                              QStringLiteral("--patience"), patience},
                             QTest::currentDataTag());
    QVERIFY2(run.code == (finding.isEmpty() ? 0 : 1), qPrintable(run.output));
    QVERIFY2(finding.isEmpty() || run.output.contains(QLatin1String("       ") + finding), qPrintable(run.output));
}

void tst_Validator::crashUnderIgnoredSigchld()
{
    DeafProcess process;
    const Run run = validate(
        process, {binary("libfaulty_plugin.so"), QStringLiteral("--strictness"), QStringLiteral("2")}, "crash");
    QVERIFY2(run.code == 1, qPrintable(run.output));
    QVERIFY2(run.output.contains(QLatin1String("       the process ended by signal 6 (Aborted)")),
             qPrintable(run.output));
}

void tst_Validator::aFailureTellsItsSteps()
{
    const Run run = validate({binary("libfaulty_plugin.so"), QStringLiteral("--strictness"), QStringLiteral("7"),
                              QStringLiteral("--events"), QStringLiteral("500"), QStringLiteral("--seed"),
                              QStringLiteral("3"), QStringLiteral("--patience"), QStringLiteral("8")},
                             "crash");
    QCOMPARE(run.code, 1);
    const QString random = run.output.section(QStringLiteral("FAIL 7 random use"), 1);
    QVERIFY2(random.contains(QLatin1String("the last steps, with seed 3:\n")), qPrintable(run.output));
    QVERIFY2(random.contains(QRegularExpression(QStringLiteral("\\d+: closeShortcutPanel\n"))), qPrintable(random));
}

void tst_Validator::theIndexIsAsked()
{
    const Run run =
        validate({binary("libfaulty_plugin.so"), QStringLiteral("--strictness"), QStringLiteral("7"),
                  QStringLiteral("--events"), QStringLiteral("1"), QStringLiteral("--patience"), QStringLiteral("8")},
                 "no import");
    QCOMPARE(run.code, 1);
    QVERIFY2(run.output.contains(QLatin1String("       after event 0 with seed 1: Type 001000.rcvp, new by content and "
                                               "name, was not imported\n")),
             qPrintable(run.output));
    QVERIFY2(run.output.contains(QLatin1String("       Type 001000.rcvp and 24 twins of known types are imported\n")),
             qPrintable(run.output));
}

SETTINGAREA_TEST_MAIN(tst_Validator, QCoreApplication)

#include "tst_Validator.moc"
