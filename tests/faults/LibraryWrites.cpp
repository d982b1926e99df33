#include "tests/faults/Contents.h"
#include "tests/faults/Write.h"
#include "tests/support/FileFixture.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/LibraryExport.h"
#include "typelibrary/store/LibraryFiles.h"
#include "typelibrary/store/LibraryImport.h"

namespace {

using STreeNode = SSettings::TypeLibrary::STreeNode;

QString inWork(const WritePlace& place, const char* name)
{
    return place.work + QLatin1Char('/') + QLatin1String(name);
}

QString inSource(const WritePlace& place, const char* name)
{
    return place.source + QLatin1Char('/') + QLatin1String(name);
}

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
    const QList<const char*> names{"A.rcvp", "B.rcvp", "C.rcvbp"};
    Write write;
    write.name = "import of files";
    write.isAtomic = false;
    write.prepare = [=](const WritePlace& place) {
        for (int i = 0; i < names.size(); ++i)
            writeFile(inSource(place, names.at(i)), content(i));
        writeFile(inWork(place, "Old.rcvp"), content(9));
        CTypeLibrary::instance().setRootPath(place.work);
    };
    write.perform = [=](const WritePlace& place, int turn) {
        if (turn % 2 == 1) {
            for (const char* name : names)
                takeAway(place, inWork(place, name));
            return true;
        }
        QStringList files;
        for (const char* name : names)
            files << inSource(place, name);
        return !importFiles(files, place.work).failed;
    };
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
            writeFile(inSource(place, i % 2 == 0 ? "G/%1.rcvp" : "G/H/%1.rcvbp").arg(i), content(i));
        writeFile(inWork(place, "Old.rcvp"), content(9));
        CTypeLibrary::instance().setRootPath(place.work);
    };
    write.perform = [](const WritePlace& place, int turn) {
        if (turn % 2 == 0)
            return importFolder(inSource(place, "G"), inWork(place, "G")).copied;
        takeAway(place, inWork(place, "G"));
        return true;
    };
    write.inspect = inspectLibrary;
    return write;
}

Write exportToNewFileWrite()
{
    Write write;
    write.name = "export to a new file";
    write.prepare = [](const WritePlace& place) { writeFile(inSource(place, "A.rcvp"), content(0)); };
    write.perform = [](const WritePlace& place, int turn) {
        if (turn % 2 == 0)
            return exportFile(inSource(place, "A.rcvp"), inWork(place, "A.rcvp"), place.source).done;
        takeAway(place, inWork(place, "A.rcvp"));
        return true;
    };
    return write;
}

Write exportOverFileWrite()
{
    Write write;
    write.name = "export over a file";
    write.prepare = [](const WritePlace& place) {
        writeFile(inSource(place, "0.rcvp"), content(0));
        writeFile(inSource(place, "1.rcvp"), content(1));
        writeFile(inWork(place, "T.rcvp"), content(1));
    };
    write.perform = [](const WritePlace& place, int turn) {
        return exportFile(inSource(place, "%1.rcvp").arg(turn % 2), inWork(place, "T.rcvp"), place.source).done;
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
            writeFile(inSource(place, "%1/G/%2.rcvp").arg(i % 2).arg(i / 2), content(i));
        for (int i = 0; i < 2; ++i)
            writeFile(inWork(place, "All types/G/%1.rcvp").arg(i), content(2 * i + 1));
    };
    write.perform = [](const WritePlace& place, int turn) {
        return exportFolder(inSource(place, "%1").arg(turn % 2), place.work, place.source, QStringLiteral("All types"))
            .done;
    };
    return write;
}

Write replacementWrite()
{
    Write write;
    write.name = "replacement of a type";
    write.prepare = [](const WritePlace& place) {
        writeFile(inSource(place, "0.rcvp"), content(0));
        writeFile(inSource(place, "1.rcvp"), content(1));
        writeFile(inWork(place, "T.rcvp"), content(1));
    };
    write.perform = [](const WritePlace& place, int turn) {
        const QString type = inWork(place, "T.rcvp");
        return replaceInLibrary(inSource(place, "%1.rcvp").arg(turn % 2), type, type);
    };
    write.inspect = inspectLibrary;
    return write;
}

Write replacementByOtherNameWrite()
{
    Write write;
    write.name = "replacement of a type under another name";
    write.prepare = [](const WritePlace& place) {
        writeFile(inSource(place, "0.rcvp"), content(0));
        writeFile(inSource(place, "1.rcvp"), content(1));
        writeFile(inWork(place, "T1.rcvp"), content(1));
    };
    write.perform = [](const WritePlace& place, int turn) {
        return replaceInLibrary(inSource(place, "%1.rcvp").arg(turn % 2), inWork(place, "T%1.rcvp").arg(1 - turn % 2),
                                inWork(place, "T%1.rcvp").arg(turn % 2));
    };
    write.inspect = [](const WritePlace& place) {
        const bool lost = !QFileInfo::exists(inWork(place, "T0.rcvp")) && !QFileInfo::exists(inWork(place, "T1.rcvp"));
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
