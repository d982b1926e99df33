#include "typelibrary/ImportOperations.h"

#include "dialogs/OperationDialogs.h"
#include "plugin/SettingHandler.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "typelibrary/CProductTreeView.h"
#include "typelibrary/ChangeOperations.h"
#include "typelibrary/NameList.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/LibraryFolders.h"
#include "typelibrary/store/LibraryImport.h"

#include <QDir>
#include <QEasingCurve>
#include <QPointer>

#include <algorithm>

namespace {

constexpr int progressPerFile = 300;           // milliseconds
constexpr int mostFilesOfProgress = 1'000'000; // beyond which the time would overflow

// The time that an import seems to take is the host's to show; the import itself is done.
void showImportProgress(int files)
{
    const auto host = settingHandler();
    QObject* progress = nullptr;
    if (host)
        progress = host->showProgress(CProductTreeView::tr("Importing..."),
                                      progressPerFile * std::min(files, mostFilesOfProgress), QEasingCurve::InQuart);
    CTypeLibrary::instance().startUpdate();
    if (host)
        host->endProgress(progress);
}

} // namespace

void importAsFolder(CProductTreeView* view, const QString& root, const QString& target, QString& lastFolder,
                    const std::function<void(const QStringList&)>& imported)
{
    const QString source = chooseFolder(view, CProductTreeView::tr("Import..."), lastFolder);
    if (source.isEmpty() || !view->isEditable())
        return;
    lastFolder = source;

    const int levels = groupLevelsIn(source);
    if (groupLevel(target, root) + std::max(levels, 1) > deepestGroupLevel) {
        informTooDeep(view);
        return;
    }
    if (levels == 0) {
        inform(view, CProductTreeView::tr("There is no valid type file in this folder."));
        return;
    }

    const QString name = freeName(target, QDir(QDir::cleanPath(source)).dirName());
    const FolderImport import = importFolder(source, QStringLiteral("%1/%2").arg(target, name));
    if (!import.copied) {
        if (import.added > 0)
            CTypeLibrary::instance().startUpdate();
        inform(view, CProductTreeView::tr("Import failed."));
        return;
    }
    if (import.added == 0) {
        inform(view, CProductTreeView::tr("All type files in the type group has been added."));
        return;
    }
    const QPointer<QWidget> guard(view);
    showImportProgress(import.added);
    if (!guard)
        return;
    imported(import.folders);
    if (!import.known.isEmpty())
        inform(view, CProductTreeView::tr("There is already a same type file: %1").arg(joinedNames(import.known)));
}

void importCabinetFiles(CProductTreeView* view, const QString& target, QString& lastFolder)
{
    const QStringList files = chooseFiles(view, CProductTreeView::tr("Import..."), lastFolder,
                                          CProductTreeView::tr("Parameter(*.rcvp *.rcvbp)"));
    if (files.isEmpty() || !view->isEditable())
        return;
    lastFolder = QFileInfo(files.first()).path();

    const FilesImport import = importFiles(files, target);
    CTypeLibrary::instance().startUpdate();
    QStringList messages;
    if (import.failed)
        messages.append(CProductTreeView::tr("Add cabinet type failed."));
    if (!import.sameContent.isEmpty())
        messages.append(CProductTreeView::tr("Duplicated type files:(%1).").arg(joinedNames(import.sameContent)));
    if (!import.sameName.isEmpty())
        messages.append(
            CProductTreeView::tr("There is already a type file with the same name under this subdirectory(%1).")
                .arg(joinedNames(import.sameName)));
    const QPointer<QWidget> guard(view);
    for (const QString& message : qAsConst(messages)) {
        if (guard)
            inform(view, message);
    }
}
