#include "tests/faults/Contents.h"
#include "tests/faults/Write.h"
#include "tests/support/FileFixture.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/LibraryExport.h"
#include "typelibrary/store/LibraryFiles.h"
#include "typelibrary/store/LibraryImport.h"

namespace {

using STreeNode = SSettings::TypeLibrary::STreeNode;

QString strangerIn(const std::vector<STreeNode>& nodes)
{
    for (const STreeNode& node : nodes) {
        if (node.nodeType == STreeNode::None)
            return node.path + QStringLiteral(" is in the tree");
        const QString below = strangerIn(node.children);
        if (!below.isEmpty())
            return below;
    }
    return {};
}

// A scan sees types and groups only, whatever was left behind.
QString inspectLibrary(const WritePlace& place)
{
    CTypeLibrary::instance().setRootPath(place.work);
    return strangerIn(CTypeLibrary::instance().nodes());
}

Write importFilesWrite()
{
    const QStringList names{QStringLiteral("A.rcvp"), QStringLiteral("B.rcvp"), QStringLiteral("C.rcvbp")};
    Write write;
    write.name = "import of files";
    write.isAtomic = false;
    write.prepare = [=](const WritePlace& place) {
        for (int i = 0; i < names.size(); ++i)
            writeFile(place.inSource(names.at(i)), content(i));
        writeFile(place.inWork(QStringLiteral("Old.rcvp")), content(9));
        CTypeLibrary::instance().setRootPath(place.work);
    };
    write.perform = [=](const WritePlace& place, int /*turn*/) {
        QStringList files;
        for (const QString& name : names)
            files << place.inSource(name);
        return !importFiles(files, place.work).failed;
    };
    write.undo = takingAway(names);
    write.inspect = inspectLibrary;
    return write;
}

Write importFolderWrite()
{
    Write write;
    write.name = "import of a folder";
    write.isAtomic = false;
    write.prepare = [](const WritePlace& place) {
        for (int i = 0; i < 4; ++i)
            writeFile(place.inSource(QLatin1String(i % 2 == 0 ? "G/%1.rcvp" : "G/H/%1.rcvbp")).arg(i), content(i));
        writeFile(place.inWork(QStringLiteral("Old.rcvp")), content(9));
        CTypeLibrary::instance().setRootPath(place.work);
    };
    write.perform = [](const WritePlace& place, int /*turn*/) {
        return importFolder(place.inSource(QStringLiteral("G")), place.inWork(QStringLiteral("G"))).copied;
    };
    write.undo = takingAway({QStringLiteral("G")});
    write.inspect = inspectLibrary;
    return write;
}

// Two contents for a file of the work folder to have by turns. It has the second one.
std::function<void(const WritePlace&)> twoContentsFor(const QString& name)
{
    return [name](const WritePlace& place) {
        writeFile(place.inSource(QStringLiteral("0.rcvp")), content(0));
        writeFile(place.inSource(QStringLiteral("1.rcvp")), content(1));
        writeFile(place.inWork(name), content(1));
    };
}

Write exportToNewFileWrite()
{
    Write write;
    write.name = "export to a new file";
    write.prepare = [](const WritePlace& place) { writeFile(place.inSource(QStringLiteral("A.rcvp")), content(0)); };
    write.perform = [](const WritePlace& place, int /*turn*/) {
        return exportFile(place.inSource(QStringLiteral("A.rcvp")), place.inWork(QStringLiteral("A.rcvp")),
                          place.source)
            .done;
    };
    write.undo = takingAway({QStringLiteral("A.rcvp")});
    return write;
}

Write exportOverFileWrite()
{
    Write write;
    write.name = "export over a file";
    write.prepare = twoContentsFor(QStringLiteral("T.rcvp"));
    write.perform = [](const WritePlace& place, int turn) {
        return exportFile(place.inSource(QStringLiteral("%1.rcvp")).arg(turn % 2),
                          place.inWork(QStringLiteral("T.rcvp")), place.source)
            .done;
    };
    return write;
}

Write exportFolderWrite()
{
    Write write;
    write.name = "export of all";
    write.isAtomic = false;
    write.prepare = [](const WritePlace& place) {
        for (int i = 0; i < 4; ++i)
            writeFile(place.inSource(QStringLiteral("%1/G/%2.rcvp")).arg(i % 2).arg(i / 2), content(i));
        for (int i = 0; i < 2; ++i)
            writeFile(place.inWork(QStringLiteral("All types/G/%1.rcvp")).arg(i), content(2 * i + 1));
    };
    write.perform = [](const WritePlace& place, int turn) {
        return exportFolder(place.inSource(QStringLiteral("%1")).arg(turn % 2), place.work, place.source,
                            QStringLiteral("All types"))
            .done;
    };
    return write;
}

Write replacementWrite()
{
    Write write;
    write.name = "replacement of a type";
    write.prepare = twoContentsFor(QStringLiteral("T.rcvp"));
    write.perform = [](const WritePlace& place, int turn) {
        const QString type = place.inWork(QStringLiteral("T.rcvp"));
        return replaceInLibrary(place.inSource(QStringLiteral("%1.rcvp")).arg(turn % 2), type, type);
    };
    write.inspect = inspectLibrary;
    return write;
}

Write replacementByOtherNameWrite()
{
    Write write;
    write.name = "replacement of a type under another name";
    write.mayLeaveOld = true;
    write.prepare = twoContentsFor(QStringLiteral("T1.rcvp"));
    write.perform = [](const WritePlace& place, int turn) {
        return replaceInLibrary(place.inSource(QStringLiteral("%1.rcvp")).arg(turn % 2),
                                place.inWork(QStringLiteral("T%1.rcvp")).arg(1 - turn % 2),
                                place.inWork(QStringLiteral("T%1.rcvp")).arg(turn % 2));
    };
    write.inspect = [](const WritePlace& place) {
        const bool lost = !QFileInfo::exists(place.inWork(QStringLiteral("T0.rcvp"))) &&
                          !QFileInfo::exists(place.inWork(QStringLiteral("T1.rcvp")));
        return lost ? QStringLiteral("The type is lost") : inspectLibrary(place);
    };
    return write;
}

} // namespace

QList<Write> libraryWrites()
{
    return {importFilesWrite(),  importFolderWrite(), exportToNewFileWrite(),       exportOverFileWrite(),
            exportFolderWrite(), replacementWrite(),  replacementByOtherNameWrite()};
}
