#include "host/keychain/PasswordKeeper.h"
#include "tests/host/keychain/FakeKeychain.h"
#include "tests/support/TestObject.h"

class tst_PasswordKeeper : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void withoutAKeychainTheFileKeepsIt();
    void aPasswordInTheFileMovesToTheKeychain();
    void aKeychainThatFailsLeavesItInTheFile();
    void aKeychainThatFailsIsNotAskedAgain();
    void itComesBackFromTheKeychain();
    void anotherOneReplacesIt();
    void anotherOneThatIsNotTakenStaysInTheFile();
    void anotherOneThatComesWhileTheKeychainIsAskedIsKept();
    void aDeletedOneLeavesTheKeychain();
    void aDeletedOneThatStaysInTheKeychain();
    void anUnreadableOneStaysInTheKeychain();
    void anotherOneReplacesAnUnreadableOne();
    void aLostOneIsReported();
    void withoutAKeychainAKeptOneIsReported();
    void oneInTheFileCountsMoreThanTheKeychains();
    void nothingToKeepAsksForNothing();

private:
    // What the file held when the program was started, and what it holds after the first save.
    StoredSettings start(const char* password, bool inKeychain);
    StoredSettings save(const char* password);

    FakeKeychain::Desktop m_desktop;
    std::unique_ptr<PasswordKeeper> m_keeper;
    QStringList m_messages;
};

namespace {

QString passwordOf(const StoredSettings& settings)
{
    return settings.record.email.strPassword;
}

} // namespace

void tst_PasswordKeeper::init()
{
    TestObject::init();
    m_desktop = {};
    m_messages.clear();
    m_keeper = std::make_unique<PasswordKeeper>(std::make_unique<FakeKeychain>(m_desktop));
}

StoredSettings tst_PasswordKeeper::start(const char* password, bool inKeychain)
{
    StoredSettings settings;
    settings.record.email.strPassword = QString::fromLatin1(password);
    settings.record.monitoring.nRefreshInterval = 77;
    settings.host.passwordInKeychain = inKeychain;
    m_keeper->complete(settings, m_messages);
    return settings;
}

StoredSettings tst_PasswordKeeper::save(const char* password)
{
    StoredSettings settings;
    settings.record.email.strPassword = QString::fromLatin1(password);
    settings.record.monitoring.nRefreshInterval = 77;
    StoredSettings stored = m_keeper->forFile(settings);
    // Whatever happens to it, the rest is stored as it is, and the caller's copy stays.
    if (stored.record.monitoring.nRefreshInterval != 77 || passwordOf(settings) != QLatin1String(password))
        qWarning("Something else has changed");
    return stored;
}

void tst_PasswordKeeper::withoutAKeychainTheFileKeepsIt()
{
    m_keeper = std::make_unique<PasswordKeeper>(nullptr);
    QCOMPARE(passwordOf(start("secret", false)), QStringLiteral("secret"));
    const StoredSettings stored = save("another");
    QCOMPARE(passwordOf(stored), QStringLiteral("another"));
    QVERIFY(!stored.host.passwordInKeychain);
    QCOMPARE(m_messages, QStringList());
}

void tst_PasswordKeeper::aPasswordInTheFileMovesToTheKeychain()
{
    QCOMPARE(passwordOf(start("secret", false)), QStringLiteral("secret"));
    QCOMPARE(m_desktop.calls, QStringList());
    const StoredSettings stored = save("secret");
    QCOMPARE(passwordOf(stored), QString());
    QVERIFY(stored.host.passwordInKeychain);
    QCOMPARE(m_desktop.password, QStringLiteral("secret"));
    QCOMPARE(passwordOf(save("secret")), QString());
    QCOMPARE(m_desktop.calls, QStringList{QStringLiteral("write secret")});
}

void tst_PasswordKeeper::aKeychainThatFailsLeavesItInTheFile()
{
    m_desktop.answers = false;
    QCOMPARE(passwordOf(start("secret", false)), QStringLiteral("secret"));
    const StoredSettings stored = save("secret");
    QCOMPARE(passwordOf(stored), QStringLiteral("secret"));
    QVERIFY(!stored.host.passwordInKeychain);
    QCOMPARE(m_messages, QStringList());
}

void tst_PasswordKeeper::aKeychainThatFailsIsNotAskedAgain()
{
    m_desktop.answers = false;
    start("secret", false);
    save("secret");
    save("secret");
    QCOMPARE(m_desktop.calls, QStringList{QStringLiteral("write secret")});
    save("another");
    QCOMPARE(m_desktop.calls, (QStringList{QStringLiteral("write secret"), QStringLiteral("write another")}));
}

void tst_PasswordKeeper::itComesBackFromTheKeychain()
{
    m_desktop.password = QStringLiteral("secret");
    QCOMPARE(passwordOf(start("", true)), QStringLiteral("secret"));
    QCOMPARE(m_messages, QStringList());
    const StoredSettings stored = save("secret");
    QCOMPARE(passwordOf(stored), QString());
    QVERIFY(stored.host.passwordInKeychain);
    QCOMPARE(m_desktop.calls, QStringList{QStringLiteral("read")});
}

void tst_PasswordKeeper::anotherOneReplacesIt()
{
    m_desktop.password = QStringLiteral("secret");
    start("", true);
    QCOMPARE(passwordOf(save("another")), QString());
    QCOMPARE(m_desktop.password, QStringLiteral("another"));
}

void tst_PasswordKeeper::anotherOneThatIsNotTakenStaysInTheFile()
{
    m_desktop.password = QStringLiteral("secret");
    start("", true);
    m_desktop.answers = false;
    const StoredSettings stored = save("another");
    QCOMPARE(passwordOf(stored), QStringLiteral("another"));
    QVERIFY(!stored.host.passwordInKeychain);
}

// Events are handled while the keychain is asked: the settings may be collected and saved once more.
void tst_PasswordKeeper::anotherOneThatComesWhileTheKeychainIsAskedIsKept()
{
    StoredSettings settings;
    settings.record.email.strPassword = QStringLiteral("secret");
    StoredSettings storedMeanwhile;
    m_desktop.meanwhile = [&] {
        settings.record.email.strPassword = QStringLiteral("another");
        storedMeanwhile = m_keeper->forFile(settings);
    };
    const StoredSettings stored = m_keeper->forFile(settings);
    QCOMPARE(passwordOf(storedMeanwhile), QStringLiteral("another"));
    QVERIFY(!storedMeanwhile.host.passwordInKeychain);
    QCOMPARE(m_desktop.password, QStringLiteral("another"));
    QCOMPARE(passwordOf(stored), QString());
    QVERIFY(stored.host.passwordInKeychain);
}

void tst_PasswordKeeper::aDeletedOneLeavesTheKeychain()
{
    m_desktop.password = QStringLiteral("secret");
    start("", true);
    const StoredSettings stored = save("");
    QCOMPARE(passwordOf(stored), QString());
    QVERIFY(!stored.host.passwordInKeychain);
    QCOMPARE(m_desktop.password, QString());
    save("");
    QCOMPARE(m_desktop.calls, (QStringList{QStringLiteral("read"), QStringLiteral("remove")}));
}

void tst_PasswordKeeper::aDeletedOneThatStaysInTheKeychain()
{
    m_desktop.password = QStringLiteral("secret");
    start("", true);
    m_desktop.answers = false;
    expectWarning(QRegularExpression(QStringLiteral("^the password is still in the keychain$")));
    QVERIFY(!save("").host.passwordInKeychain); // so that it does not come back
}

void tst_PasswordKeeper::anUnreadableOneStaysInTheKeychain()
{
    m_desktop.password = QStringLiteral("secret");
    m_desktop.answers = false;
    QCOMPARE(passwordOf(start("", true)), QString());
    QCOMPARE(m_messages, QStringList{QStringLiteral(
                             "The password of the mail account could not be read from the desktop's keychain.")});
    m_desktop.answers = true;
    QVERIFY(save("").host.passwordInKeychain);
    QCOMPARE(m_desktop.password, QStringLiteral("secret"));
    QCOMPARE(m_desktop.calls, QStringList{QStringLiteral("read")});
}

void tst_PasswordKeeper::anotherOneReplacesAnUnreadableOne()
{
    m_desktop.answers = false;
    start("", true);
    m_desktop.answers = true;
    QVERIFY(save("another").host.passwordInKeychain);
    QCOMPARE(m_desktop.password, QStringLiteral("another"));
}

void tst_PasswordKeeper::aLostOneIsReported()
{
    QCOMPARE(passwordOf(start("", true)), QString());
    QCOMPARE(m_messages.size(), 1);
    QVERIFY(!save("").host.passwordInKeychain); // said once is enough
}

void tst_PasswordKeeper::withoutAKeychainAKeptOneIsReported()
{
    m_keeper = std::make_unique<PasswordKeeper>(nullptr);
    start("", true);
    QCOMPARE(m_messages.size(), 1);
    QVERIFY(save("").host.passwordInKeychain);
    const StoredSettings stored = save("another");
    QCOMPARE(passwordOf(stored), QStringLiteral("another"));
    QVERIFY(!stored.host.passwordInKeychain);
}

void tst_PasswordKeeper::oneInTheFileCountsMoreThanTheKeychains()
{
    m_desktop.password = QStringLiteral("old");
    QCOMPARE(passwordOf(start("secret", true)), QStringLiteral("secret"));
    QCOMPARE(passwordOf(save("secret")), QString());
    QCOMPARE(m_desktop.password, QStringLiteral("secret"));
}

void tst_PasswordKeeper::nothingToKeepAsksForNothing()
{
    start("", false);
    QVERIFY(!save("").host.passwordInKeychain);
    QCOMPARE(m_desktop.calls, QStringList());
}

QTEST_APPLESS_MAIN(tst_PasswordKeeper)
#include "tst_PasswordKeeper.moc"
