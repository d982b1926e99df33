#pragma once

#include "host/settings/StoredSettings.h"

#include <QCoreApplication>
#include <QJsonObject>
#include <QString>
#include <QStringList>

// The settings in a JSON file that only its owner may read, since it holds the password of the mail account.
// Beside the file, with a suffix appended: the generation before the last save (".bak"), a file that could not be
// understood, which is moved there and never overwritten (".damaged"), and a file of a newer version, which is copied
// there before it is replaced (".newer"). What is no file, a folder for instance, is left alone, and nothing is saved.
// Two programs that use one file at a time: the last save wins. [GUI thread]
class SettingsFile
{
    Q_DECLARE_TR_FUNCTIONS(SettingsFile)

public:
    // `path`: absolute. Its folder is made by the first save.
    explicit SettingsFile(const QString& path);

    QString path() const { return m_path; }

    // What the file holds, with the default for everything it lacks. `messages` gets what the user must know about a
    // file that was not as it should be; a file that does not exist is not worth a word. A damaged file is replaced by
    // the generation before it, if there is one.
    StoredSettings load(QStringList& messages);

    // Replaces the file by the settings, keeping the keys that load() found and did not know. Does nothing when the
    // file holds just that. A generation with a password that has moved to the keychain is not kept. On failure the old
    // file stays as it is and `error` says why.
    bool save(const StoredSettings& settings, QString& error);

private:
    enum class State
    {
        Missing,
        Sound,
        Damaged,
    };

    static State inspect(const QString& path, QJsonObject& document, QString& error);
    static bool holdsPassword(const QJsonObject& document);
    bool closeToOthers(QString& error) const;
    bool replace(const QByteArray& content, bool keepPrevious, QString& error) const;
    bool write(const QByteArray& content, QString& error) const;
    QString moveAside(QString& error) const;
    QString replaceDamaged(const QByteArray& content, QString& error) const;
    bool keepNewer(QString& error);

    QString m_path;
    QJsonObject m_document; // as loaded or saved last
    bool m_bNewerKept = false;
};
