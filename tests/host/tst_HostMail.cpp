#include "host/CHost.h"
#include "host/CLibraryLoader.h"
#include "host/CMainWindow.h"
#include "host/CStatusBar.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "tests/host/FakeArea.h"
#include "tests/host/ModalAnswer.h"
#include "tests/host/keychain/FakeKeychain.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QElapsedTimer>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <netinet/in.h>

namespace {

// Takes connections and never says a word.
class SilentServer
{
public:
    SilentServer()
        : m_socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t size = sizeof m_address;
        auto* const address = reinterpret_cast<sockaddr*>(&m_address);
        if (::bind(m_socket, address, size) != 0 || ::listen(m_socket, 1) != 0 ||
            ::getsockname(m_socket, address, &size) != 0)
            qFatal("Cannot listen");
    }
    ~SilentServer() { ::close(m_socket); }
    Q_DISABLE_COPY(SilentServer)

    int port() const { return ntohs(m_address.sin_port); }

private:
    const int m_socket;
    sockaddr_in m_address = {};
};

SEmailSettings mailSettings(int port)
{
    SEmailSettings settings;
    settings.bSsl = false;
    settings.nPort = port;
    settings.strSmtpServer = QStringLiteral("127.0.0.1");
    settings.strSenderAddress = QStringLiteral("sender@example.com");
    settings.lstRecipients = {{QString(), QStringLiteral("a@example.com")}};
    return settings;
}

} // namespace

// Mail as the settings area asks the host for it.
class tst_HostMail : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aMailThatFailsIsExplained();
    void closingDuringAMailEndsIt();
    void thePasswordMovesToTheKeychain();
    void withoutADesktopThePasswordStaysInTheFile();
    void aKeychainThatStillWaitsIsLeftAloneAtTheEnd();
    void aPasswordThatCannotBeReadIsReported();

private:
    void start(std::unique_ptr<IKeychain> keychain);
    QString settings() const { return m_folder->filePath(QStringLiteral("settings.json")); }
    QByteArray storedPassword() const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<FakeArea> m_area;
    std::unique_ptr<CHost> m_host;
    std::shared_ptr<ISettingInterfaceHandler> m_handler;
};

void tst_HostMail::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
}

// Opens the host, or opens it anew, and waits until the library is there.
void tst_HostMail::start(std::unique_ptr<IKeychain> keychain)
{
    m_handler.reset();
    m_host.reset();
    m_area = std::make_unique<FakeArea>();
    CommandLine commandLine;
    commandLine.settings = settings();
    commandLine.library = m_folder->filePath(QStringLiteral("types"));
    commandLine.language = QStringLiteral("en");
    m_host = std::make_unique<CHost>(commandLine, std::move(keychain));
    QVERIFY(m_host->start(FakeArea::init, {}));
    QTRY_VERIFY(!m_host->loader()->isBusy());
    m_handler = std::dynamic_pointer_cast<ISettingInterfaceHandler>(m_area->getHandler());
}

void tst_HostMail::cleanup()
{
    m_handler.reset();
    m_host.reset();
    m_area.reset();
    TestObject::cleanup();
}

QByteArray tst_HostMail::storedPassword() const
{
    const QJsonObject document = QJsonDocument::fromJson(readFile(settings())).object();
    return document.value(QLatin1String("email"))[QLatin1String("password")].toString().toLatin1();
}

void tst_HostMail::aMailThatFailsIsExplained()
{
    start(nullptr);
    const QString reason = QStringLiteral("A recipient's address is not valid.");
    expectWarning(QRegularExpression(QLatin1Char('^') + reason + QLatin1Char('$')));
    SEmailSettings account = mailSettings(25);
    account.lstRecipients = {{QString(), QStringLiteral("a\r\nb@example.com")}};
    QList<int> failed{7, 8};
    QVERIFY(!m_handler->SendEmail(failed, account, QStringLiteral("body")));
    QCOMPARE(failed, QList<int>{0});
    QCOMPARE(m_host->window()->status()->currentMessage(), reason);
    QVERIFY(!QApplication::overrideCursor());
    QTRY_VERIFY(!m_host->isBusy());
}

void tst_HostMail::closingDuringAMailEndsIt()
{
    start(nullptr);
    const SilentServer server;
    connect(m_host.get(), &CHost::notifyFinished, qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    expectWarning(QRegularExpression(QStringLiteral("^The mail was given up, since the program ends.$")));
    QList<int> failed;
    bool sent = true;
    QTimer::singleShot(0, this, [&] {
        QTimer::singleShot(0, this, [&] {
            QCOMPARE(m_host->window()->status()->currentMessage(), QStringLiteral("Sending the mail..."));
            QVERIFY(m_host->window()->close());
        });
        sent = m_handler->SendEmail(failed, mailSettings(server.port()), QStringLiteral("body"));
    });
    QElapsedTimer timer;
    timer.start();
    QApplication::exec();
    QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
    QVERIFY(!sent);
    QCOMPARE(failed, QList<int>{0});
    QVERIFY(QFile::exists(settings()));
    QTRY_VERIFY(!m_host->isBusy());
}

void tst_HostMail::thePasswordMovesToTheKeychain()
{
    FakeKeychain::Desktop desktop;
    QVERIFY(writeFile(settings(), R"({"email": {"password": "secret"}})"));
    start(std::make_unique<FakeKeychain>(desktop));
    QCOMPARE(m_area->settings.email.strPassword, QStringLiteral("secret"));
    QVERIFY(m_host->window()->close());
    QCOMPARE(desktop.password, QStringLiteral("secret"));
    QCOMPARE(storedPassword(), QByteArray());
    QVERIFY(!QFile::exists(settings() + QStringLiteral(".bak"))); // where it would still be

    start(std::make_unique<FakeKeychain>(desktop));
    QCOMPARE(m_area->settings.email.strPassword, QStringLiteral("secret"));
    m_area->settings.email.strPassword = QStringLiteral("another");
    QVERIFY(m_host->window()->close());
    QCOMPARE(desktop.password, QStringLiteral("another"));
    QCOMPARE(storedPassword(), QByteArray());
}

void tst_HostMail::withoutADesktopThePasswordStaysInTheFile()
{
    FakeKeychain::Desktop none;
    none.answers = false;
    QVERIFY(writeFile(settings(), R"({"email": {"password": "secret"}})"));
    start(std::make_unique<FakeKeychain>(none));
    QVERIFY(m_host->window()->close());
    QCOMPARE(storedPassword(), QByteArray("secret"));
    start(std::make_unique<FakeKeychain>(none));
    QCOMPARE(m_area->settings.email.strPassword, QStringLiteral("secret"));
}

void tst_HostMail::aKeychainThatStillWaitsIsLeftAloneAtTheEnd()
{
    FakeKeychain::Desktop desktop;
    start(std::make_unique<FakeKeychain>(desktop));
    QVERIFY(!m_host->isBusy());
    desktop.isBusy = true;
    QVERIFY(m_host->isBusy());
}

void tst_HostMail::aPasswordThatCannotBeReadIsReported()
{
    FakeKeychain::Desktop none;
    none.answers = false;
    QVERIFY(writeFile(settings(), R"({"host": {"passwordInKeychain": true}})"));
    const ModalAnswer answer(CDialog::Ok);
    start(std::make_unique<FakeKeychain>(none));
    QTRY_VERIFY(answer.wasThere());
    QCOMPARE(answer.text(),
             QStringLiteral("The password of the mail account could not be read from the desktop's keychain."));
}

SETTINGAREA_TEST_MAIN(tst_HostMail, QApplication)
#include "tst_HostMail.moc"
