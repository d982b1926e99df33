#include "host/keychain/DesktopKeychain.h"
#include "tests/host/keychain/FakeWallet.h"
#include "tests/support/TestObject.h"

#include <QElapsedTimer>
#include <QProcess>

#include <csignal>
#include <cstdio>

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
    void aSilentServiceIsNotWaitedForLong();
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
    return 0;
}

// The part of the service, which may fall silent once it is known.
int serve(bool isSilent)
{
    FakeWallet wallet;
    if (!wallet.appear())
        return 1;
    std::puts("here");
    std::fflush(stdout);
    if (isSilent)
        std::raise(SIGSTOP);
    return QCoreApplication::exec();
}

// Another program, until the object goes.
class Process
{
public:
    Process(const QString& program, const QStringList& arguments, const QString& bus)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
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

void tst_DesktopKeychain::aSilentServiceIsNotWaitedForLong()
{
    Bus bus;
    const QString address = bus.line();
    QVERIFY(!address.isEmpty());
    Self service({QStringLiteral("serve"), QStringLiteral("silently")}, address);
    QCOMPARE(service.line(), QStringLiteral("here"));
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(Self(asking(300), address).line(), nothing);
    QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
}

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.value(1) == QLatin1String("ask"))
        return ask(arguments.value(2));
    if (arguments.value(1) == QLatin1String("serve"))
        return serve(arguments.size() > 2);
    tst_DesktopKeychain test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_DesktopKeychain.moc"
