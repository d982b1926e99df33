#include "host/keychain/DesktopKeychain.h"
#include "tests/host/keychain/FakeWallet.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>

#include <csignal>
#include <cstdio>
#include <cstdlib>

// What is behind it looks for the desktop once in a process. So this program also plays the other parts, in processes
// of their own: the one who asks, and the desktop's service.
class tst_DesktopKeychain : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void aServiceKeepsThePassword();
    void withoutABusNothingIsKept_data();
    void withoutABusNothingIsKept();
    void withoutAServiceNothingIsKept();
    void whoIsSilentIsNotWaitedForLong_data();
    void whoIsSilentIsNotWaitedForLong();
    void theProgramKeepsItsPasswordThere();
};

namespace {

constexpr int timeoutMs = 30'000;

QString result(const std::optional<QString>& password)
{
    return password ? QLatin1Char('"') + *password + QLatin1Char('"') : QStringLiteral("none");
}

// The part of the one who asks: calls everything, and tells what came of it.
int ask(const QString& patience)
{
    const auto keychain = DesktopKeychain::open(std::chrono::milliseconds(patience.toInt()));
    if (!keychain)
        return 1;
    QStringList said;
    said << result(keychain->read());
    said << QString::number(keychain->write(QStringLiteral("secret")));
    said << result(keychain->read());
    said << QString::number(keychain->write(QStringLiteral("another"))) << result(keychain->read());
    said << QString::number(keychain->remove()) << result(keychain->read()) << QString::number(keychain->remove());
    std::puts(qPrintable(said.join(QLatin1Char(' '))));
    std::fflush(stdout);
    if (keychain->isBusy())
        std::quick_exit(0);
    return 0;
}

// The part of the service.
int serve()
{
    FakeWallet wallet;
    if (!wallet.appear())
        return 1;
    std::puts("here");
    std::fflush(stdout);
    return QCoreApplication::exec();
}

// Another program, until the object goes.
class Process
{
public:
    Process(const QString& program, const QStringList& arguments, const QString& bus,
            const QMap<QString, QString>& variables = {})
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (auto variable = variables.cbegin(); variable != variables.cend(); ++variable)
            environment.insert(variable.key(), variable.value());
        environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), bus);
        // The desktop whose service is played here.
        environment.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("KDE"));
        environment.insert(QStringLiteral("KDE_SESSION_VERSION"), QStringLiteral("5"));
        m_process.setProcessEnvironment(environment);
        m_process.start(program, arguments);
    }
    ~Process()
    {
        m_process.kill(); // one that is stopped does not hear anything else
        m_process.waitForFinished(timeoutMs);
    }
    Q_DISABLE_COPY(Process)

    // Waits for a line of its standard output; empty when none comes.
    QString line()
    {
        while (!m_process.canReadLine() && m_process.waitForReadyRead(timeoutMs)) {
        }
        return QString::fromLocal8Bit(m_process.readLine()).trimmed();
    }

    void terminate() { m_process.terminate(); }

    // Goes on living, and says nothing any more.
    void fallSilent() const { ::kill(static_cast<pid_t>(m_process.processId()), SIGSTOP); }

    // Waits until it has ended; false when it did not, or not well.
    bool hasEnded()
    {
        return (m_process.state() == QProcess::NotRunning || m_process.waitForFinished(timeoutMs)) &&
               m_process.exitStatus() == QProcess::NormalExit && m_process.exitCode() == 0;
    }

private:
    QProcess m_process;
};

class Bus : public Process
{
public:
    Bus()
        : Process(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--config-file=" KEYCHAIN_TESTS "/bus.conf"), QStringLiteral("--nofork"),
                   QStringLiteral("--print-address")},
                  {})
    {
    }
};

class Self : public Process
{
public:
    Self(const QStringList& arguments, const QString& bus)
        : Process(QCoreApplication::applicationFilePath(), arguments, bus)
    {
    }
};

// The host, whose standard output takes its log, with its files in the folder.
class Host : public Process
{
public:
    Host(const QString& folder, const QString& bus)
        : Process(QStringLiteral("/bin/sh"),
                  {QStringLiteral("-c"), QStringLiteral("exec \"$0\" 2>&1"),
                   QCoreApplication::applicationDirPath() + QStringLiteral("/orvel")},
                  bus,
                  {{QStringLiteral("XDG_CONFIG_HOME"), folder},
                   {QStringLiteral("XDG_DATA_HOME"), folder},
                   {QStringLiteral("QT_LOGGING_RULES"), QStringLiteral("orvel.library=true")}})
    {
    }

    // Waits until it has loaded its type library, and ends it.
    bool saves()
    {
        QString said = line();
        while (!said.isEmpty() && !said.contains(QLatin1String("loaded ")))
            said = line();
        terminate();
        return !said.isEmpty() && hasEnded();
    }
};

QStringList asking(int patienceMs)
{
    return {QStringLiteral("ask"), QString::number(patienceMs)};
}

const QString nothing = QStringLiteral("none 0 none 0 none 0 none 0");

} // namespace

void tst_DesktopKeychain::aServiceKeepsThePassword()
{
    Bus bus;
    const QString address = bus.line();
    QVERIFY(!address.isEmpty());
    Self service({QStringLiteral("serve")}, address);
    QCOMPARE(service.line(), QStringLiteral("here"));
    QCOMPARE(Self(asking(timeoutMs), address).line(), QStringLiteral("\"\" 1 \"secret\" 1 \"another\" 1 \"\" 1"));
}

void tst_DesktopKeychain::withoutABusNothingIsKept_data()
{
    QTest::addColumn<QString>("bus");
    QTest::newRow("none") << QStringLiteral("disabled:"); // an empty one would have the user's looked for
    QTest::newRow("gone") << QStringLiteral("unix:path=/nonexistent/bus");
    QTest::newRow("nonsense") << QStringLiteral("nonsense");
}

void tst_DesktopKeychain::withoutABusNothingIsKept()
{
    QFETCH(QString, bus);
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(Self(asking(timeoutMs), bus).line(), nothing);
    QVERIFY2(timer.elapsed() < timeoutMs, qPrintable(QString::number(timer.elapsed())));
}

void tst_DesktopKeychain::withoutAServiceNothingIsKept()
{
    Bus bus;
    const QString address = bus.line();
    QVERIFY(!address.isEmpty());
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(Self(asking(timeoutMs), address).line(), nothing);
    QVERIFY2(timer.elapsed() < timeoutMs, qPrintable(QString::number(timer.elapsed())));
}

void tst_DesktopKeychain::whoIsSilentIsNotWaitedForLong_data()
{
    QTest::addColumn<bool>("isBus");
    QTest::newRow("the service") << false;
    QTest::newRow("the bus") << true;
}

void tst_DesktopKeychain::whoIsSilentIsNotWaitedForLong()
{
    QFETCH(bool, isBus);
    Bus bus;
    const QString address = bus.line();
    QVERIFY(!address.isEmpty());
    Self service({QStringLiteral("serve")}, address);
    QCOMPARE(service.line(), QStringLiteral("here"));
    (isBus ? static_cast<Process&>(bus) : service).fallSilent();
    QElapsedTimer timer;
    timer.start();
    Self one(asking(300), address);
    QCOMPARE(one.line(), nothing);
    QVERIFY(one.hasEnded());
    QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
}

void tst_DesktopKeychain::theProgramKeepsItsPasswordThere()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("orvel/settings.json"));
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("orvel")));
    QVERIFY(writeFile(path, R"({"email": {"password": "first", "smtpServer": "mail.example.com"}})"));
    Bus bus;
    const QString address = bus.line();
    QVERIFY(!address.isEmpty());
    Self service({QStringLiteral("serve")}, address);
    QCOMPARE(service.line(), QStringLiteral("here"));
    for (int run = 0; run < 2; ++run) {
        QVERIFY(Host(folder.path(), address).saves());
        const QJsonObject saved = QJsonDocument::fromJson(readFile(path)).object();
        QCOMPARE(saved.value(QLatin1String("email"))[QLatin1String("password")], QJsonValue(QString()));
        QCOMPARE(saved.value(QLatin1String("email"))[QLatin1String("smtpServer")],
                 QJsonValue(QStringLiteral("mail.example.com")));
        QCOMPARE(saved.value(QLatin1String("host"))[QLatin1String("passwordInKeychain")], QJsonValue(true));
    }
    const QString kept = Self(asking(timeoutMs), address).line();
    QVERIFY2(kept.startsWith(QLatin1String("\"first\" ")), qPrintable(kept));
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("ask"))
        return ask(arguments.value(2));
    if (arguments.value(1) == QLatin1String("serve"))
        return serve();
    tst_DesktopKeychain test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_DesktopKeychain.moc"
