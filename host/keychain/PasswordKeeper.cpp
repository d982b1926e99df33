#include "host/keychain/PasswordKeeper.h"

#include "host/Logging.h"

#include <utility>

PasswordKeeper::PasswordKeeper(std::unique_ptr<IKeychain> keychain)
    : m_pKeychain(std::move(keychain))
{
}

void PasswordKeeper::complete(StoredSettings& settings, QStringList& messages)
{
    QString& password = settings.record.email.strPassword;
    // One in the file is newer: it was written there by hand, or since the keychain did not take it.
    m_bInKeychain = settings.host.passwordInKeychain && password.isEmpty();
    if (!m_bInKeychain)
        return;
    const auto kept = m_pKeychain ? m_pKeychain->read() : std::nullopt;
    password = kept.value_or(QString());
    m_bInKeychain = !kept || !password.isEmpty();
    if (password.isEmpty())
        messages << tr("The password of the mail account could not be read from the desktop's keychain.");
    m_settled = password;
}

StoredSettings PasswordKeeper::forFile(const StoredSettings& settings)
{
    const QString& password = settings.record.email.strPassword;
    // What has failed once is not tried again with every save. While the keychain is asked another password may come.
    while (m_settled != password) {
        const QString asked = password;
        m_bInKeychain = moveToKeychain(asked);
        m_settled = asked;
    }
    StoredSettings stored = settings;
    stored.host.passwordInKeychain = m_bInKeychain;
    if (m_bInKeychain)
        stored.record.email.strPassword.clear();
    return stored;
}

bool PasswordKeeper::moveToKeychain(const QString& password)
{
    if (!m_pKeychain)
        return false;
    if (!password.isEmpty())
        return m_pKeychain->write(password);
    if (m_bInKeychain && !m_pKeychain->remove())
        qCWarning(logSettings, "the password is still in the keychain");
    return false;
}
