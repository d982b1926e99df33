#include "multircv/CabinetTypeDraft.h"

#include "plugin/SettingHandler.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/LibraryFiles.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QFile>
#include <QFileInfo>

CabinetTypeDraft::CabinetTypeDraft(const QString& folder, const QString& editedFile)
    : m_folder(folder),
      m_editedFile(editedFile)
{
    if (m_editedFile.isEmpty())
        return;
    if (const auto host = settingHandler())
        host->readCabinetInfo(m_editedFile, m_record);
}

QString CabinetTypeDraft::ownName() const
{
    return QFileInfo(m_editedFile).completeBaseName();
}

bool CabinetTypeDraft::isNameTaken(const QString& name) const
{
    const QString file = fileOf(name);
    // A file that came since the library was read is not overwritten either.
    if (QFileInfo::exists(file) && !isSameFile(file, m_editedFile))
        return true;
    // The search gives the first of several entries of one name: it need not be the edited type that has its own.
    return name != ownName() && !CTypeLibrary::instance().searchSameName(file).isEmpty();
}

bool CabinetTypeDraft::replacesOldFile(const QString& name) const
{
    return !isNew(m_record) || isSameFile(fileOf(name), m_editedFile);
}

bool CabinetTypeDraft::canBeSaved() const
{
    return !m_folder.isEmpty() && settingHandler();
}

void CabinetTypeDraft::save(const QString& parameterFile, const CabinetEdit& edit)
{
    const auto host = settingHandler();
    if (!host)
        return;
    const QString file = fileOf(edit.typeName);
    const bool replaces = replacesOldFile(edit.typeName);
    const bool inPlace = replaces && isSameFile(file, m_editedFile);
    removeFromCache(parameterFile); // another program may have changed it, and the record is for good
    fillRecord(m_record, parameterFile, md5OfFile(parameterFile), edit);
    if (!(inPlace ? replaceInLibrary(parameterFile, m_editedFile, file) : copyIntoLibrary(parameterFile, file)))
        return;
    // A parameter file from a read-only medium is copied with its permissions.
    QFile::setPermissions(file, QFile::permissions(file) | QFile::WriteOwner);
    host->writeCabinetInfo(file, m_record);
    removeFromCache(file);
    // Under another name the old type stays until the new one is complete.
    if (replaces && !isSameFile(file, m_editedFile)) {
        QFile::remove(m_editedFile);
        removeFromCache(m_editedFile);
    }
}

QString CabinetTypeDraft::fileOf(const QString& name) const
{
    return QStringLiteral("%1/%2.rcvbp").arg(m_folder, name);
}
