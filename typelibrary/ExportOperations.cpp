#include "typelibrary/ExportOperations.h"

#include "dialogs/OperationDialogs.h"
#include "typelibrary/CProductTreeView.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/LibraryExport.h"

#include <QFileInfo>
#include <QStandardPaths>

namespace {

QString desktop()
{
    return QStandardPaths::writableLocation(QStandardPaths::DesktopLocation);
}

void exportFolderTo(QWidget* view, const QString& root, const QString& source, const QString& folderName)
{
    const QString target = chooseFolder(view, CProductTreeView::tr("Export..."), desktop());
    if (target.isEmpty())
        return;
    const LibraryExport result = exportFolder(source, target, root, folderName);
    if (result.rescan)
        CTypeLibrary::instance().startUpdate();
    inform(view, result.done ? CProductTreeView::tr("Export successful.") : CProductTreeView::tr("Export failed."));
}

} // namespace

void exportType(QWidget* view, const QString& root, const QString& file, bool isMultiRcv)
{
    const QString suffix = isMultiRcv ? QStringLiteral("rcvbp") : QStringLiteral("rcvp");
    const QString proposal = QStringLiteral("%1.%2").arg(QFileInfo(file).completeBaseName(), suffix);
    const QString target =
        chooseTarget(view, CProductTreeView::tr("Export..."), desktop() + QLatin1Char('/') + proposal,
                     CProductTreeView::tr("File(*.%1)").arg(suffix), suffix);
    if (target.isEmpty())
        return;
    const LibraryExport result = exportFile(file, target, root);
    if (result.rescan)
        CTypeLibrary::instance().startUpdate();
    if (!result.done)
        inform(view, CProductTreeView::tr("Export failed."));
}

void exportGroup(QWidget* view, const QString& root, const QString& group)
{
    exportFolderTo(view, root, group, {});
}

void exportLibrary(QWidget* view, const QString& root)
{
    exportFolderTo(view, root, root, CProductTreeView::tr("All types"));
}
