#pragma once

#include <QString>

#include <optional>

// The place in a desktop's keychain that holds the password of the mail account. No call waits longer than the
// implementation says; all run the event loop while they wait, without what the user does. [GUI thread]
class IKeychain
{
public:
    virtual ~IKeychain() = default;

    // The password, an empty one when none is kept; nothing when the keychain cannot be asked or does not answer.
    virtual std::optional<QString> read() = 0;

    // Keeps the password in place of the one before. False when it may not be kept.
    virtual bool write(const QString& password) = 0;

    // Keeps no password any longer. False when one may still be kept.
    virtual bool remove() = 0;

    // Whether a thread is still waiting for an answer that nobody waits for any more: the end of the process must leave
    // it alone.
    virtual bool isBusy() const { return false; }

protected:
    IKeychain() = default;
    Q_DISABLE_COPY(IKeychain)
};
