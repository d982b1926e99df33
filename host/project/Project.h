#pragma once

#include <utilbase/SMD5.h>

#include <QJsonObject>
#include <QObject>
#include <QVector>

// The open project: which cabinet types its layout places, and the file it is kept in.
// The file format is written down in docs/project-file-format.md. [GUI thread]
class Project : public QObject
{
    Q_OBJECT

public:
    struct PlacedType
    {
        QString digest;        // of the type file: 32 lower-case hexadecimal digits
        QString name;          // for the user, of any length; may be empty
        QJsonObject otherKeys; // what the project file says about the type that this program does not know

        // The name as it can be shown: its beginning where it is without end, the digest where it is empty.
        QString shownName() const;
    };

    static constexpr qint64 maxFileSize = 16 * 1024 * 1024; // bytes

    // An empty project without a file.
    explicit Project(QObject* parent = nullptr);

    // Absolute path of the project's file; empty for a project that was neither loaded nor saved.
    QString path() const { return m_path; }
    // The file's name without folder and suffix; a translated "Untitled" without a file.
    QString name() const;
    bool isModified() const { return m_modified; }

    // In the order in which they were placed, each type once.
    const QVector<PlacedType>& placedTypes() const { return m_placedTypes; }
    // Position of the type with the digest among them; -1 when it is not placed, as the empty digest never is.
    int indexOf(const SMD5& md5) const;
    bool places(const SMD5& md5) const { return indexOf(md5) >= 0; }

    // False, and nothing changes, when the digest is empty or placed already.
    bool place(const SMD5& md5, const QString& name);
    // False, and nothing changes, when there is no type at the position.
    bool removeAt(int index);

    // Starts an empty project without a file.
    void clear();
    // Opens a project file. On failure the open project stays as it is; `error` gets the reason, for the user.
    bool load(const QString& path, QString& error);
    // Writes the project to `path`, which becomes its file; what that file held is kept beside it, ".bak" appended to
    // its name. On failure the file and the project stay as they are; `error` gets the reason, for the user.
    bool save(const QString& path, QString& error);

Q_SIGNALS:
    // The path, the placed types or the modified flag have changed.
    void notifyChanged();

private:
    QVector<PlacedType> m_placedTypes;
    QJsonObject m_otherKeys; // of the project file
    QString m_path;
    bool m_modified = false;
};
