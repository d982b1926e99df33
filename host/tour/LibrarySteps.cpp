#include "host/tour/LibrarySteps.h"

#include "host/CMainWindow.h"
#include "host/CProgressDisplay.h"
#include "host/CStatusBar.h"
#include "host/tour/LibraryTree.h"
#include "host/tour/TourStage.h"
#include "host/typefile/TypeFile.h"
#include "plugin/interface/ISettingInterface.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QToolButton>
#include <QTreeView>
#include <QVariantAnimation>

#include <algorithm>
#include <csignal>

#include <sys/resource.h>

namespace {

using Act = TourStage::Act;
using Acts = std::vector<Act>;

const QLatin1String usedType("Indoor/Fixed/P4-512x512.rcvp"); // placed in the layout by an earlier step
const QLatin1String freeType("Rental/P4-500x1000.rcvp");
const QLatin1String group("Rental");
const QLatin1String deepestGroup("Indoor/Fixed/Fine pitch");

QString inLibrary(const TourStage& stage, const QString& entry)
{
    return stage.path(QStringLiteral("type-library/") + entry);
}

// A new folder to import from or export to.
QString newFolder(const TourStage& stage, const QString& name)
{
    QDir(stage.path(name)).removeRecursively();
    QDir().mkpath(stage.path(name));
    return stage.path(name);
}

// Copies types of the library into the folder, under new names.
void copyTypes(const TourStage& stage, const QString& folder)
{
    QFile::copy(inLibrary(stage, freeType), folder + QStringLiteral("/Copy-1.rcvp"));
    QFile::copy(inLibrary(stage, usedType), folder + QStringLiteral("/Copy-2.rcvp"));
}

// Writes a type into the folder that the library does not have.
void writeType(const TourStage& stage, const QString& folder, const QString& name)
{
    QString error;
    if (const auto header = TypeFile::readHeader(inLibrary(stage, freeType), error))
        TypeFile::write(folder + QLatin1Char('/') + name, *header, name.toUtf8(), error);
}

// Opens the menu of the tree's selected entry, as the mouse does.
void openMenu(const TourStage& stage)
{
    QTreeView* const tree = LibraryTree::of(stage);
    tree->scrollTo(tree->currentIndex());
    const QPoint position = tree->visualRect(tree->currentIndex()).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, position, tree->viewport()->mapToGlobal(position));
    QCoreApplication::sendEvent(tree->viewport(), &event);
}

void pressKey(QWidget* widget, Qt::Key key)
{
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
}

// Chooses the menu's entry with this text.
Act choose(TourStage& stage, const char* entry)
{
    return [&stage, entry](QWidget* popup) {
        auto* const menu = qobject_cast<QMenu*>(popup);
        const QString text = QCoreApplication::translate("CProductTreeMenu", entry);
        if (!menu)
            return stage.fail(QStringLiteral("there is no menu"));
        const QList<QAction*> actions = menu->actions();
        const auto hasText = [&text](const QAction* action) { return action->text() == text; };
        const auto found = std::find_if(actions.begin(), actions.end(), hasText);
        if (found == actions.end())
            return stage.fail(QStringLiteral("there is no entry %1").arg(text));
        menu->setActiveAction(*found);
        // Not sent: what the entry opens would be waited for in here.
        QCoreApplication::postEvent(menu, new QKeyEvent(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier));
        return true;
    };
}

// Answers a file dialog.
Act enter(TourStage& stage, const QString& path)
{
    return [&stage, path](QWidget* dialog) {
        if (!qobject_cast<QFileDialog*>(dialog))
            return stage.fail(QStringLiteral("there is no file dialog"));
        dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
        QMetaObject::invokeMethod(dialog, "accept");
        return true;
    };
}

Act press(TourStage& stage, const char* button)
{
    return [&stage, button](QWidget* dialog) {
        auto* const push = dialog->findChild<QPushButton*>(QLatin1String(button));
        if (!push)
            return stage.fail(QStringLiteral("there is no button %1").arg(QLatin1String(button)));
        push->click();
        return true;
    };
}

// Chooses an entry of the menu of `selected`, which leads to dialogs.
bool openEntry(TourStage& stage, const QString& selected, const char* entry, const Acts& dialogs)
{
    if (!LibraryTree::expandAll(stage) || !LibraryTree::select(stage, selected))
        return false;
    Acts acts{choose(stage, entry)};
    acts.insert(acts.end(), dialogs.begin(), dialogs.end());
    return stage.inDialogs([&] { openMenu(stage); }, acts);
}

std::function<bool(TourStage&)> entryOf(const QString& selected, const char* entry)
{
    return [selected, entry](TourStage& stage) { return openEntry(stage, selected, entry, {stage.shot()}); };
}

std::function<bool(TourStage&)> menuOf(const QString& selected)
{
    return [selected](TourStage& stage) {
        return LibraryTree::expandAll(stage) && LibraryTree::select(stage, selected) &&
               stage.shootDialog([&] { openMenu(stage); });
    };
}

// Opens the name editor on an entry and runs `use` with it.
template<typename Use>
bool withEditor(TourStage& stage, const QString& entry, Use use)
{
    if (!LibraryTree::expandAll(stage) || !LibraryTree::select(stage, entry) ||
        !stage.inDialogs([&] { openMenu(stage); }, {choose(stage, "Rename")}))
        return false;
    QPointer<QLineEdit> editor;
    const auto isThere = [&] {
        editor = LibraryTree::of(stage)->viewport()->findChild<QLineEdit*>();
        return !editor.isNull();
    };
    if (!stage.waitFor(isThere, QStringLiteral("the name editor")))
        return false;
    const bool used = use(editor.data());
    if (editor)
        pressKey(editor, Qt::Key_Escape);
    return stage.waitFor([&] { return editor.isNull(); }, QStringLiteral("the end of the name editor")) && used;
}

bool renaming(TourStage& stage)
{
    return withEditor(stage, group, [&](QLineEdit*) { return stage.shoot(); });
}

bool renamingToTakenName(TourStage& stage)
{
    return withEditor(stage, freeType, [&](QLineEdit* editor) {
        editor->setText(QStringLiteral("P3-500x500"));
        return stage.shootDialog([editor] { pressKey(editor, Qt::Key_Return); });
    });
}

bool importDuplicate(TourStage& stage)
{
    const QString folder = newFolder(stage, QStringLiteral("import"));
    copyTypes(stage, folder);
    return openEntry(stage, group, "Import cabinet type file(Suffix rcvbp)",
                     {enter(stage, folder + QStringLiteral("/Copy-1.rcvp")), stage.shot()});
}

bool importTakenName(TourStage& stage)
{
    const QString folder = newFolder(stage, QStringLiteral("import"));
    writeType(stage, folder, QStringLiteral("P3-500x500.rcvp"));
    return openEntry(stage, group, "Import cabinet type file(Suffix rcvbp)",
                     {enter(stage, folder + QStringLiteral("/P3-500x500.rcvp")), stage.shot()});
}

bool importEmptyFolder(TourStage& stage)
{
    const QString folder = newFolder(stage, QStringLiteral("import"));
    return openEntry(stage, group, "Import as folder", {enter(stage, folder), stage.shot()});
}

bool importNothingNew(TourStage& stage)
{
    const QString folder = newFolder(stage, QStringLiteral("import"));
    copyTypes(stage, folder);
    return openEntry(stage, group, "Import as folder", {enter(stage, folder), stage.shot()});
}

// The progress is held where it is to be seen.
bool importPartlyNew(TourStage& stage)
{
    const QString folder = newFolder(stage, QStringLiteral("Touring stock"));
    copyTypes(stage, folder);
    writeType(stage, folder, QStringLiteral("P2.9-500x500.rcvp"));
    auto* const display = stage.window()->status()->progress();
    const Act shootHalfWay = [&](QWidget* box) {
        auto* const finish = display->findChild<QVariantAnimation*>(QStringLiteral("Finish"));
        finish->pause();
        finish->setCurrentTime(finish->duration() / 3);
        const bool shot = stage.shoot();
        finish->resume();
        box->close();
        return shot;
    };
    return openEntry(stage, group, "Import as folder", {enter(stage, folder), shootHalfWay}) &&
           stage.waitFor([display] { return !display->isVisible(); }, QStringLiteral("the end of the progress"));
}

// Chooses a folder for an operation that then finds the disk full.
bool shootFullDisk(TourStage& stage, const char* entry, const QString& folder)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    const rlimit full{1, before.rlim_max};
    const Act fillDisk = [&](QWidget* dialog) {
        return ::setrlimit(RLIMIT_FSIZE, &full) == 0 && enter(stage, folder)(dialog);
    };
    const Act makeRoom = [&](QWidget* box) { return ::setrlimit(RLIMIT_FSIZE, &before) == 0 && stage.shot()(box); };
    return openEntry(stage, group, entry, {fillDisk, makeRoom});
}

bool importFailed(TourStage& stage)
{
    const QString folder = newFolder(stage, QStringLiteral("import"));
    copyTypes(stage, folder);
    return shootFullDisk(stage, "Import as folder", folder);
}

bool exportSuccessful(TourStage& stage)
{
    const QString folder = newFolder(stage, QStringLiteral("export"));
    return openEntry(stage, group, "Export all cabinet parameters", {enter(stage, folder), stage.shot()});
}

bool exportFailed(TourStage& stage)
{
    return shootFullDisk(stage, "Export all cabinet parameters", newFolder(stage, QStringLiteral("export")));
}

bool deleteAll(TourStage& stage, const Acts& acts)
{
    auto* const clear = stage.area()->widget()->findChild<QToolButton*>(QStringLiteral("ClearAll"));
    return LibraryTree::expandAll(stage) && LibraryTree::select(stage, {}) &&
           stage.inDialogs([clear] { clear->click(); }, acts);
}

bool deleteAllQuestion(TourStage& stage)
{
    return deleteAll(stage, {stage.shot()});
}

bool deleteAllInUse(TourStage& stage)
{
    // The tree follows the disk on a thread of its own.
    const Act shootWhatIsLeft = [&](QWidget* box) {
        return LibraryTree::waitUntilGone(stage, QStringLiteral("Indoor/Fixed/P3-576x576.rcvp")) && stage.shot()(box);
    };
    return deleteAll(stage, {press(stage, "YesButton"), shootWhatIsLeft});
}

} // namespace

std::vector<TourStep> librarySteps()
{
    return {
        {"library-group-menu", menuOf(group)},
        {"library-type-menu", menuOf(QStringLiteral("Rental/P4-1500x1000-3x1.rcvbp"))},
        {"library-rename", renaming},
        {"library-rename-taken", renamingToTakenName},
        {"library-rename-in-use", entryOf(usedType, "Rename")},
        {"library-delete-in-use", entryOf(usedType, "Delete")},
        {"library-delete-type", entryOf(freeType, "Delete")},
        {"library-delete-group", entryOf(group, "Delete")},
        {"library-three-layers", entryOf(deepestGroup, "New type folder")},
        {"library-import-duplicate", importDuplicate},
        {"library-import-taken-name", importTakenName},
        {"library-import-empty-folder", importEmptyFolder},
        {"library-import-nothing-new", importNothingNew},
        {"library-import-partly-new", importPartlyNew},
        {"library-import-failed", importFailed},
        {"library-export-successful", exportSuccessful},
        {"library-export-failed", exportFailed},
        {"library-delete-all", deleteAllQuestion},
        {"library-delete-all-in-use", deleteAllInUse},
    };
}
