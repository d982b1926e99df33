#pragma once

#include "host/keychain/IKeychain.h"

#include <QStringList>

#include <functional>
#include <utility>

// A desktop's keychain as a test wants it: its content and its mood outlive the keychains that are opened on it.
class FakeKeychain : public IKeychain
{
public:
    struct Desktop
    {
        QString password;
        bool answers = true; // false: as where no desktop is running
        bool isBusy = false;
        QStringList calls;
        std::function<void()> meanwhile; // happens once, while the next write() waits and takes no other call
    };

    explicit FakeKeychain(Desktop& desktop)
        : m_desktop(desktop)
    {
    }

    std::optional<QString> read() override
    {
        m_desktop.calls << QStringLiteral("read");
        return m_desktop.answers ? std::optional(m_desktop.password) : std::nullopt;
    }

    bool write(const QString& password) override
    {
        m_desktop.calls << QStringLiteral("write ") + password;
        const QString asked = password; // what was given when the call began
        if (const auto meanwhile = std::exchange(m_desktop.meanwhile, nullptr)) {
            const bool answers = std::exchange(m_desktop.answers, false);
            meanwhile();
            m_desktop.answers = answers;
        }
        if (m_desktop.answers)
            m_desktop.password = asked;
        return m_desktop.answers;
    }

    bool remove() override
    {
        m_desktop.calls << QStringLiteral("remove");
        if (m_desktop.answers)
            m_desktop.password.clear();
        return m_desktop.answers;
    }

    bool isBusy() const override { return m_desktop.isBusy; }

private:
    Desktop& m_desktop;
};
