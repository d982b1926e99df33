#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QSet>
#include <QString>

// Everything below a folder, hidden or not: contents by relative path. A folder's path ends in a slash.
using FolderState = QMap<QString, QByteArray>;

FolderState stateOf(const QString& folder);

// Whether the name is one that a file has only while it is written: no type, project or settings file looks like it.
bool isTemporary(const QString& relativePath);

// What is different, for the message of a test that fails; empty if nothing is.
QString difference(const FolderState& found, const FolderState& expected);

// The states that a folder may be in, entry by entry: each file with the content that it has in one of them, and those
// that are in all of them there.
class AllowedStates
{
public:
    void add(const FolderState& state);
    // The file may also be like this.
    void addContent(const QString& relativePath, const QByteArray& content) { m_contents[relativePath] << content; }

    // What must not be; empty if nothing. Temporary files count as well unless they are allowed.
    QString problemOf(const FolderState& found, bool temporariesAllowed) const;

private:
    QMap<QString, QList<QByteArray>> m_contents;
    QSet<QString> m_always;
    bool m_bEmpty = true;
};
