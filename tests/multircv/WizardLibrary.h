#pragma once

#include "plugin/CSettingArea.h"
#include "tests/support/FakeHandler.h"
#include "tests/support/FileFixture.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

// A type library, a folder outside of it, and a host that keeps cabinet records: a file that begins with "multi" is
// one of several receivers, and writing a record makes a file begin so.
class WizardLibrary
{
public:
    WizardLibrary()
    {
        handler = new FakeHandler;
        handler->isMulti = [](const QString& path) { return contentOf(path).startsWith("multi"); };
        handler->cabinet = [this](const QString& path, SHwRcvInCabinetInfo& info) {
            if (contentOf(path).startsWith("multi"))
                info = records.value(path, info);
        };
        handler->write = [this](const QString& path, const SHwRcvInCabinetInfo& info) {
            records[path] = info;
            put(path, "multi " + contentOf(path));
        };
        CSettingArea::instance().setHandler(handler);
        rescan();
    }
    ~WizardLibrary()
    {
        CTypeLibrary::instance().setRootPath({}); // waits for a scan that is under way, which may ask the host
        CSettingArea::instance().setHandler(nullptr);
    }
    Q_DISABLE_COPY(WizardLibrary)

    void rescan() const { CTypeLibrary::instance().setRootPath(root()); }

    QString root() const { return m_folder.path() + QStringLiteral("/library"); }
    QString path(const QString& relative) const { return root() + QLatin1Char('/') + relative; }

    // Writes a file; its path.
    QString add(const QString& relative, const QByteArray& content) const { return put(path(relative), content); }
    QString addOutside(const QString& name, const QByteArray& content) const
    {
        return put(m_folder.path() + QStringLiteral("/outside/") + name, content);
    }

    // Adds a multi-receiver type that was made from the parameter file, and its record.
    QString addMulti(const QString& relative, const QString& parameterFile, const SHwRcvInCabinetInfo& label)
    {
        const QString file = add(relative, "multi " + contentOf(parameterFile));
        SHwRcvInCabinetInfo record = label;
        record.name = QFileInfo(parameterFile).completeBaseName();
        record.md5 = md5OfFile(parameterFile);
        records[file] = record;
        removeFromCache(file);
        return file;
    }

    // Everything in the library, hidden files as well, as "relative path=content".
    QStringList files() const
    {
        QStringList found;
        QDirIterator it(root(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QFileInfo entry(it.next());
            if (entry.isFile())
                found.append(entry.filePath().mid(root().size() + 1) + QLatin1Char('=') +
                             QString::fromUtf8(contentOf(entry.filePath())));
            else if (entry.fileName().startsWith(QLatin1Char('.')))
                found.append(entry.filePath());
        }
        found.sort();
        return found;
    }

    static QByteArray contentOf(const QString& file)
    {
        QFile in(file);
        return in.open(QIODevice::ReadOnly) ? in.readAll() : QByteArray();
    }

    FakeHandler* handler; // owned by the settings area
    QMap<QString, SHwRcvInCabinetInfo> records;

private:
    static QString put(const QString& file, const QByteArray& content)
    {
        if (!writeFile(file, content))
            qFatal("Cannot write %s", qPrintable(file));
        return file;
    }

    const QTemporaryDir m_folder;
};
