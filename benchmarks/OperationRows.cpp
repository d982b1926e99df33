#include "benchmarks/DialogAnswers.h"
#include "benchmarks/Peer.h"
#include "benchmarks/Rows.h"
#include "benchmarks/Stage.h"
#include "typelibrary/CProductTreeView.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QDir>
#include <QDirIterator>
#include <QFileSystemModel>
#include <QTemporaryDir>

#include <functional>
#include <thread>

namespace {

constexpr int settleTime = 300; // milliseconds for the view to take notice of the disk

// The types below the folder, in no order.
QStringList typesIn(const QString& folder)
{
    QStringList files;
    QDirIterator entries(folder, QDir::Files, QDirIterator::Subdirectories);
    while (entries.hasNext())
        files.append(entries.next());
    return files;
}

// Types that the library does not have.
LibraryFiles newTypes(const BenchOptions& options, int count)
{
    return {options.types(count), 1, 2'000, 60'000, "New"};
}

QByteArray encoded(const QString& path)
{
    return QFile::encodeName(path);
}

// A copy of the usual library that may be changed, shown in the view as the tab does it, and a place for files beside
// it on the same disk.
class Workshop
{
public:
    explicit Workshop(const BenchOptions& options)
        : m_source(usualLibrary(options).path(options.files)),
          m_folder(options.files + QStringLiteral("/work-XXXXXX"))
    {
        settingArea();
        if (!m_folder.isValid())
            qFatal("%s", qPrintable(m_folder.errorString()));
        copy(m_source, library());
        CTypeLibrary::instance().setRootPath(library());
        m_view.setRootPath(library());
        m_view.resize(1000, 700);
        m_view.show();
        processEventsFor(settleTime);
    }

    QString library() const { return m_folder.filePath(QStringLiteral("library")); }
    QString beside(const char* name) const { return m_folder.filePath(QLatin1String(name)); }

    // Copies a folder's content; the target may exist.
    void copy(const QString& from, const QString& to) const
    {
        QDir().mkpath(to);
        Peer({"cp", "-r", encoded(from + QStringLiteral("/.")), encoded(to)}, m_folder.path()).run();
    }

    // Removes a file or folder of the library, and all that is known about it.
    static void forgetAndRemove(const QString& path)
    {
        const QStringList types = QFileInfo(path).isDir() ? typesIn(path) : QStringList{path};
        for (const QString& type : types)
            removeFromCache(type);
        QDir(path).removeRecursively();
        QFile::remove(path);
    }

    // Runs an operation that begins with a dialog, which is answered with the files. Seconds from the answer until
    // `isDone`, with every message that the operation shows.
    template<typename IsDone>
    double secondsOf(const std::function<void()>& operation, const QStringList& files, IsDone isDone) const
    {
        const DialogAnswers answers(files);
        operation();
        answers.secondsSinceFirst(); // an operation that asked nothing has done nothing
        while (!isDone())
            std::this_thread::yield();
        return answers.secondsSinceFirst();
    }

    // Lets the view and the store take notice of what was done to the library behind them.
    static void settle()
    {
        CTypeLibrary::instance().updateLibrary();
        processEventsFor(settleTime);
    }

    CProductTreeView& view() { return m_view; }

private:
    const QString m_source; // made before the folder beside it
    const QTemporaryDir m_folder;
    CProductTreeView m_view;
};

bool isKnown(const QString& type)
{
    return !CTypeLibrary::instance().searchSameName(type).isEmpty();
}

void expect(bool condition, const char* what)
{
    if (!condition)
        qFatal("%s", what);
}

// Measures `ours` by turns with cp of the folder's content and, where a row hashes it, md5sum of that.
template<typename Ours>
std::vector<Measurement> besideCopying(const BenchOptions& options, const Workshop& shop, const QString& folder,
                                       bool isHashed, Measurement line, Ours ours)
{
    const Peer copying({"cp", "-r", ".", encoded(shop.beside("peer"))}, folder);
    const Peer hashing = md5sumOfAll(folder);
    const auto peer = [&] {
        const double seconds = copying.run() + (isHashed ? hashing.run() : 0);
        QDir(shop.beside("peer")).removeRecursively();
        return seconds;
    };
    peer(); // brings the files into memory
    measureByTurns(options.repeat, line, ours, peer);
    return {line};
}

} // namespace

std::vector<Measurement> measureImportFiles(const BenchOptions& options)
{
    Workshop shop(options);
    const QString source = newTypes(options, 2'000).path(options.files) + QStringLiteral("/Group 000");
    const QStringList files = typesIn(source);

    Measurement line(QStringLiteral("import 2,000 files, beside cp and md5sum"), Measurement::Ratio, 2);
    const auto import = [&] {
        const double seconds =
            shop.secondsOf([&] { shop.view().importCabinetFiles(); }, files, [&] { return isKnown(files.last()); });
        for (const QString& file : files) {
            const QString imported = shop.library() + QLatin1Char('/') + QFileInfo(file).fileName();
            expect(QFileInfo::exists(imported), "Not all files were imported");
            Workshop::forgetAndRemove(imported);
        }
        Workshop::settle();
        return seconds;
    };
    return besideCopying(options, shop, source, true, line, import);
}

std::vector<Measurement> measureImportFolder(const BenchOptions& options)
{
    Workshop shop(options);
    const QString source = shop.beside("source");
    const QStringList added = typesIn(newTypes(options, 1'000).path(options.files) + QStringLiteral("/Group 000"));
    shop.copy(QFileInfo(added.first()).path(), source + QStringLiteral("/New"));
    for (const char* group : {"Group 000", "Group 001", "Group 002", "Group 003"}) {
        const QString name = QLatin1Char('/') + QLatin1String(group);
        shop.copy(shop.library() + name, source + name);
    }
    expect(typesIn(source).size() == options.types(2'000), "The folder to import is not what it should be");

    Measurement line(QStringLiteral("import as folder, half duplicates, beside cp and md5sum"), Measurement::Ratio,
                     2.5);
    const auto import = [&] {
        const double seconds =
            shop.secondsOf([&] { shop.view().importAsFolder(); }, {source}, [&] { return isKnown(added.last()); });
        const QString imported = shop.library() + QStringLiteral("/source");
        expect(typesIn(imported).size() == added.size(), "The import did not keep what is new");
        Workshop::forgetAndRemove(imported);
        Workshop::settle();
        return seconds;
    };
    return besideCopying(options, shop, source, true, line, import);
}

std::vector<Measurement> measureExportAll(const BenchOptions& options)
{
    Workshop shop(options);
    const QString target = shop.beside("exported");

    Measurement line(QStringLiteral("export all of 10,000 files, beside cp -r"), Measurement::Ratio, 1.5);
    const auto exportAll = [&] {
        QDir().mkpath(target);
        const double seconds = shop.secondsOf([&] { shop.view().exportAll(); }, {target}, [] { return true; });
        expect(typesIn(target).size() == options.types(10'000), "Not all files were exported");
        QDir(target).removeRecursively();
        return seconds;
    };
    return besideCopying(options, shop, shop.library(), false, line, exportAll);
}

std::vector<Measurement> measureDeleteGroup(const BenchOptions& options)
{
    Workshop shop(options);
    const QString source = newTypes(options, 2'000).path(options.files) + QStringLiteral("/Group 000");
    const QString type = typesIn(source).value(0);
    const QString group = shop.library() + QStringLiteral("/Deleted");
    const Peer removal({"rm", "-r", encoded(shop.beside("peer"))}, shop.library());

    Measurement line(QStringLiteral("delete a group of 2,000 files, beside rm -r"), Measurement::Ratio, 3);
    const auto deleteGroup = [&] {
        shop.copy(source, group);
        Workshop::settle();
        const auto* const model = qobject_cast<QFileSystemModel*>(shop.view().model());
        const double seconds =
            shop.secondsOf([&] { shop.view().deleteIndex(model->index(group)); }, {}, [&] { return !isKnown(type); });
        expect(!QFileInfo::exists(group), "The group was not deleted");
        return seconds;
    };
    const auto peer = [&] {
        shop.copy(source, shop.beside("peer"));
        return removal.run();
    };
    measureByTurns(options.repeat, line, deleteGroup, peer);
    return {line};
}
