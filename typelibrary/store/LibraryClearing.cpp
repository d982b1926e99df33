#include "typelibrary/store/LibraryClearing.h"

#include "typelibrary/store/TypeFileAttributes.h"

#include <QDir>

namespace {

class Clearing
{
public:
    explicit Clearing(const std::function<bool(const SMD5&)>& isUsed)
        : m_isUsed(isUsed)
    {
    }

    // Clears the folder, or only looks for types in use where it is reached by a link; true if one was found.
    bool clear(const QString& folder, bool byLink = false)
    {
        const QString canonical = QFileInfo(folder).canonicalFilePath();
        if (m_ancestors.contains(canonical))
            return false; // a link has led back
        m_ancestors.append(canonical);
        bool isKept = false;
        const QFileInfoList entries =
            QDir(folder).entryInfoList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name | QDir::DirsFirst);
        for (const QFileInfo& entry : entries) {
            const QString path = entry.filePath();
            const bool keep = entry.isDir() ? clear(path, byLink || entry.isSymLink()) : isInUse(entry);
            isKept |= keep;
            if (keep || byLink)
                continue;
            if (entry.isDir() && !entry.isSymLink())
                QDir(path).removeRecursively();
            else if (entry.isDir() || isShown(entry))
                QFile::remove(path);
        }
        m_ancestors.removeLast();
        return isKept;
    }

    const QStringList& keptNames() const { return m_keptNames; }

private:
    // The tree does not heed the suffix's case.
    static bool isShown(const QFileInfo& file)
    {
        const QString suffix = file.suffix().toLower();
        return suffix == QLatin1String("rcvp") || suffix == QLatin1String("rcvbp");
    }

    bool isInUse(const QFileInfo& file)
    {
        if (!hasTypeSuffix(file) || !m_isUsed(md5OfFile(file.filePath())))
            return false;
        m_keptNames.append(file.completeBaseName());
        return true;
    }

    const std::function<bool(const SMD5&)>& m_isUsed;
    QStringList m_keptNames;
    QStringList m_ancestors; // canonical paths of the folders that are being cleared
};

} // namespace

QStringList clearLibrary(const QString& root, const std::function<bool(const SMD5&)>& isUsed)
{
    Clearing clearing(isUsed);
    if (!root.isEmpty()) // which would stand for the working directory
        clearing.clear(root);
    return clearing.keptNames();
}
