#include "tests/faults/Contents.h"
#include "tests/faults/Write.h"
#include "tests/support/FileFixture.h"
#include "typelibrary/CProductTreeModel.h"
#include "typelibrary/store/LibraryClearing.h"

namespace {

void makeLibrary(const WritePlace& place)
{
    writeFile(place.inWork(QStringLiteral("T1.rcvp")), content(1));
    writeFile(place.inWork(QStringLiteral("G1/A.rcvp")), content(2));
    writeFile(place.inWork(QStringLiteral("G1/H/B.rcvp")), content(3));
}

// Turns give the names in turn, the first of them T0 or G0.
Write renameWrite(const char* title, const QString& name)
{
    Write write;
    write.name = title;
    write.writesContent = false;
    write.mayAsk = true;
    write.prepare = makeLibrary;
    write.perform = [=](const WritePlace& place, int turn) {
        CProductTreeModel model;
        const QModelIndex entry = model.index(place.inWork(name.arg(1 - turn % 2)));
        model.setRootPath(place.work);
        return model.setData(entry, QFileInfo(name.arg(turn % 2)).completeBaseName());
    };
    write.inspect = [=](const WritePlace& place) {
        const int found = QFileInfo::exists(place.inWork(name.arg(0))) + QFileInfo::exists(place.inWork(name.arg(1)));
        return found == 1 ? QString() : QStringLiteral("There are %1 entries").arg(found);
    };
    return write;
}

Write newFolderWrite()
{
    const QString name = QStringLiteral("New");
    Write write;
    write.name = "new folder";
    write.writesContent = false;
    write.prepare = makeLibrary;
    write.perform = [=](const WritePlace& place, int /*turn*/) {
        CProductTreeModel model;
        return model.mkdir(model.index(place.work), name).isValid();
    };
    write.undo = takingAway({name});
    return write;
}

Write removal(const char* title, const std::function<bool(const WritePlace&)>& remove)
{
    Write write;
    write.name = title;
    write.writesContent = false;
    write.prepare = makeLibrary;
    write.perform = [=](const WritePlace& place, int /*turn*/) { return remove(place); };
    write.undo = [](const WritePlace& place) {
        WritePlace again = place;
        again.work = place.trash + QStringLiteral("/again");
        makeLibrary(again);
        for (const char* name : {"T1.rcvp", "G1"})
            QFile::rename(again.inWork(QLatin1String(name)), place.inWork(QLatin1String(name))); // unless it is there
    };
    return write;
}

bool removeInModel(const WritePlace& place, const QString& name)
{
    CProductTreeModel model;
    const QModelIndex entry = model.index(place.inWork(name));
    return entry.isValid() && model.remove(entry);
}

QList<Write> removals()
{
    Write type = removal("deletion of a type",
                         [](const WritePlace& place) { return removeInModel(place, QStringLiteral("T1.rcvp")); });
    Write group = removal("deletion of a group",
                          [](const WritePlace& place) { return removeInModel(place, QStringLiteral("G1")); });
    type.mayLeaveOld = true;
    group.isAtomic = false;
    group.mayLeaveOld = true;
    Write all = removal("deletion of all", [](const WritePlace& place) {
        const auto names = [&] { return QDir(place.work).entryList(QDir::AllEntries | QDir::NoDotAndDotDot); };
        const bool wasThere = !names().isEmpty();
        clearLibrary(place.work, [](const SMD5&) { return false; });
        return wasThere && QFileInfo::exists(place.work) && names().isEmpty();
    });
    all.isAtomic = false;
    return {type, group, all};
}

} // namespace

QList<Write> treeWrites()
{
    return QList<Write>{renameWrite("renaming of a type", QStringLiteral("T%1.rcvp")),
                        renameWrite("renaming of a group", QStringLiteral("G%1")), newFolderWrite()} +
           removals();
}
