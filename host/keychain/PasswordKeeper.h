#pragma once

#include "host/keychain/IKeychain.h"
#include "host/settings/StoredSettings.h"

#include <QCoreApplication>
#include <QStringList>

#include <memory>
#include <optional>

// Decides where the password of the mail account is kept: in the desktop's keychain if there is one, and else in the
// settings file, where it never is while the keychain holds it. A password that the keychain does not take stays in
// the file, and one found there moves to the keychain with the next save. [GUI thread]
class PasswordKeeper
{
    Q_DECLARE_TR_FUNCTIONS(PasswordKeeper)

public:
    // Without a keychain the file holds the password.
    explicit PasswordKeeper(std::unique_ptr<IKeychain> keychain);

    // Puts the password from the keychain into settings that come from the file. `messages` gets what the user must
    // know when it is not to be had; it then stays in the keychain until the user enters another one.
    void complete(StoredSettings& settings, QStringList& messages);

    // The settings as the file is to hold them, after the password has been put in its place. Events are handled while
    // the keychain is asked: where they change `settings`, or call this again, the last password counts.
    StoredSettings forFile(const StoredSettings& settings);

    // As IKeychain::isBusy().
    bool isBusy() const { return m_pKeychain && m_pKeychain->isBusy(); }

private:
    bool moveToKeychain(const QString& password);

    const std::unique_ptr<IKeychain> m_pKeychain;
    std::optional<QString> m_settled; // the password that m_bInKeychain is about; none before it is known
    bool m_bInKeychain = false;
};
