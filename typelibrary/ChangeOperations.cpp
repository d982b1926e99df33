#include "typelibrary/ChangeOperations.h"

#include "dialogs/OperationDialogs.h"
#include "multircv/CMultiRcvCabinetSetDlg.h"
#include "plugin/SettingHandler.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "typelibrary/CProductTreeModel.h"
#include "typelibrary/CProductTreeView.h"
#include "typelibrary/NameList.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/LibraryClearing.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QDir>
#include <QPointer>

namespace {

bool isUsedInLayout(const SMD5& md5)
{
    const auto host = settingHandler();
    return host && host->isTypeUsedInLayout(md5);
}

void informUsed(QWidget* view, const QStringList& names)
{
    inform(view, CProductTreeView::tr("The action cannot be completed because the type (%1) is being used in layout.")
                     .arg(joinedNames(names)));
}

// Drops a type, or a group with all that is in it, from the attribute cache.
void forget(const QString& path)
{
    removeFromCache(path);
    removeFolderFromCache(path);
}

} // namespace

void informTooDeep(QWidget* view)
{
    inform(view, CProductTreeView::tr("The action cannot be done because the subdirectory is limited to 3 layers."));
}

bool mayChangeType(QWidget* view, const SMD5& md5)
{
    if (!isUsedInLayout(md5))
        return true;
    inform(view, CProductTreeView::tr("The action cannot be completed because the type is being used in layout."));
    return false;
}

void rescanRenamed(const QString& folder, const QString& oldName, const QString& newName)
{
    forget(QDir(folder).filePath(oldName));
    forget(QDir(folder).filePath(newName)); // of another entry that had the name before
    CTypeLibrary::instance().startUpdate();
}

void deleteEntry(CProductTreeView* view, CProductTreeModel& model, const QModelIndex& index)
{
    const QPersistentModelIndex entry = index;
    const bool isGroup = model.isDir(entry);
    const QString path = model.filePath(entry);
    const QString name = isGroup ? model.fileName(entry) : QFileInfo(path).completeBaseName();
    if (!isGroup && isUsedInLayout(entry.data(CProductTreeModel::Md5Role).value<SMD5>())) {
        informUsed(view, {name});
        return;
    }
    if (!ask(view, (isGroup ? CProductTreeView::tr("Are you sure want to delete type group(%1)?")
                            : CProductTreeView::tr("Are you sure want to delete type(%1)?"))
                       .arg(name)) ||
        !view->isEditable())
        return;
    if (entry.isValid()) // it may have vanished meanwhile, and another one have taken its name
        model.remove(entry);
    // Only now: a scan may have read the files once more before they went.
    forget(path);
    CTypeLibrary::instance().startUpdate();
}

void deleteAll(QWidget* view, const QString& root)
{
    const auto host = settingHandler();
    const QStringList kept =
        clearLibrary(root, [&host](const SMD5& md5) { return host && host->isTypeUsedInLayout(md5); });
    if (!kept.isEmpty())
        informUsed(view, kept);
}

void editType(QWidget* view, const QString& folder, const QString& file)
{
    if (!mayChangeType(view, md5OfFile(file)))
        return;
    CTypeLibrary::instance().updateLibrary(); // the wizard's searches see the folder as it is now
    runCabinetWizard(view, folder, file);
    removeFromCache(file);
    CTypeLibrary::instance().startUpdate();
}

bool runCabinetWizard(QWidget* view, const QString& folder, const QString& file)
{
    // On the heap: the host may destroy the view while the wizard is open.
    const QPointer<CMultiRcvCabinetSetDlg> wizard = new CMultiRcvCabinetSetDlg(folder, file, view);
    const bool accepted = wizard->exec() == QDialog::Accepted && wizard;
    delete wizard;
    return accepted;
}
