#pragma once

#include <QDBusConnection>
#include <QMap>
#include <QObject>
#include <QStringList>

// The part of a desktop's wallet service that passwords go through, on the session bus of this process.
class FakeWallet : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.KWallet")

public:
    // False when there is no bus, or another service has the name.
    bool appear()
    {
        QDBusConnection bus = QDBusConnection::sessionBus();
        return bus.registerObject(QStringLiteral("/modules/kwalletd5"), this, QDBusConnection::ExportAllInvokables) &&
               bus.registerService(QStringLiteral("org.kde.kwalletd5"));
    }

    Q_INVOKABLE bool isEnabled() const { return true; }
    Q_INVOKABLE QString networkWallet() const { return QStringLiteral("wallet"); }
    Q_INVOKABLE int open(const QString& /*wallet*/, qlonglong /*window*/, const QString& /*program*/) const
    {
        return 1;
    }

    // 1: a password, 0: nothing.
    Q_INVOKABLE int entryType(int /*handle*/, const QString& folder, const QString& key,
                              const QString& /*program*/) const
    {
        return m_entries.contains({folder, key}) ? 1 : 0;
    }
    Q_INVOKABLE QString readPassword(int /*handle*/, const QString& folder, const QString& key,
                                     const QString& /*program*/) const
    {
        return m_entries.value({folder, key});
    }
    Q_INVOKABLE int writePassword(int /*handle*/, const QString& folder, const QString& key, const QString& value,
                                  const QString& /*program*/)
    {
        m_entries.insert({folder, key}, value);
        return 0;
    }
    Q_INVOKABLE int removeEntry(int /*handle*/, const QString& folder, const QString& key, const QString& /*program*/)
    {
        return m_entries.remove({folder, key}) == 1 ? 0 : -3;
    }

private:
    QMap<QPair<QString, QString>, QString> m_entries; // by folder and key
};
