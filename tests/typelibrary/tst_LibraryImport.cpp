#include "tests/support/FileFixture.h"
#include "tests/support/StoreFixture.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/LibraryImport.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QCoreApplication>
#include <QDirIterator>

class tst_LibraryImport : public StoreFixture
{
    Q_OBJECT

private Q_SLOTS:
    void folderOfNewTypes();
    void folderKeepsWhatTheLibraryLacks();
    void folderWithANameTwice();
    void folderWithANameTwiceAndAKnownContent();
    void folderWithAContentTwice();
    void folderWithoutAnythingNew();
    void folderWithHiddenFiles();
    void folderWithLinks();
    void folderFromTheLibrary();
    void folderThatIsThere();
    void folderThatWasThere();
    void folderIntoNothing();
    void folderWithUnreadableFiles();
    void folderOntoAFullDisk();

    void files();
    void filesTheLibraryHas();
    void filesOfOneName();
    void filesOfTheNameOfOneLeftOut();
    void filesChangedSinceTheLastImport();
    void filesThatAreHidden();
    void filesThatAreNoTypes();
    void filesThatDifferInCaseOnly();
    void filesIntoNothing();
    void filesOntoAFullDisk();
    void filesOfTheLibrary();

protected Q_SLOTS:
    void init();
    void cleanup();

private:
    QString put(const QString& relativePath, const QByteArray& content) const // outside of the library
    {
        const QString path = outside->filePath(relativePath);
        if (!writeFile(path, content))
            qFatal("Cannot write %s", qPrintable(path));
        return path;
    }
    void scan() { CTypeLibrary::instance().setRootPath(library->path()); }
    FolderImport importOutside() { return importFolder(outside->path(), pathOf(QStringLiteral("New"))); }
    // What is in the library, hidden files as well, as "path=content" or "path/".
    QStringList onDisk() const
    {
        QStringList found;
        QDirIterator it(library->path(), QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            const QFileInfo entry(it.next());
            const QString name = entry.filePath().mid(library->path().size() + 1);
            found.append(entry.isDir() ? name + QLatin1Char('/')
                                       : name + QLatin1Char('=') + QString::fromUtf8(readFile(entry.filePath())));
        }
        found.sort();
        return found;
    }

    std::unique_ptr<QTemporaryDir> outside;
};

void tst_LibraryImport::init()
{
    StoreFixture::init();
    outside = std::make_unique<QTemporaryDir>();
}

void tst_LibraryImport::cleanup()
{
    CTypeLibrary::instance().setRootPath({});
    outside.reset();
    StoreFixture::cleanup();
}

void tst_LibraryImport::folderOfNewTypes()
{
    scan();
    put(QStringLiteral("b.rcvp"), "b");
    put(QStringLiteral("a.rcvbp"), "a");
    put(QStringLiteral("Sub/c.rcvp"), "c");
    put(QStringLiteral("Notes/n.txt"), "n");
    put(QStringLiteral("d.RCVP"), "d");
    const FolderImport import = importOutside();
    QVERIFY(import.copied);
    QCOMPARE(import.added, 3);
    QCOMPARE(import.known, QStringList());
    QCOMPARE(import.folders, QStringList({pathOf(QStringLiteral("New")), pathOf(QStringLiteral("New/Sub"))}));
    QCOMPARE(onDisk(),
             QStringList({QStringLiteral("New/"), QStringLiteral("New/Sub/"), QStringLiteral("New/Sub/c.rcvp=c"),
                          QStringLiteral("New/a.rcvbp=a"), QStringLiteral("New/b.rcvp=b")}));
}

void tst_LibraryImport::folderKeepsWhatTheLibraryLacks()
{
    write(QStringLiteral("old.rcvp"), "same");
    write(QStringLiteral("G/Taken.rcvp"), "taken");
    scan();
    put(QStringLiteral("other name.rcvp"), "same");
    put(QStringLiteral("Known/Taken.rcvbp"), "other content");
    put(QStringLiteral("Mixed/fresh.rcvp"), "fresh");
    put(QStringLiteral("Mixed/old.rcvp"), "same");
    const FolderImport import = importOutside();
    QCOMPARE(import.added, 1);
    QCOMPARE(import.known, QStringList({QStringLiteral("other name"), QStringLiteral("Taken"), QStringLiteral("old")}));
    QCOMPARE(import.folders, QStringList({pathOf(QStringLiteral("New")), pathOf(QStringLiteral("New/Mixed"))}));
    QCOMPARE(onDisk(), QStringList({QStringLiteral("G/"), QStringLiteral("G/Taken.rcvp=taken"), QStringLiteral("New/"),
                                    QStringLiteral("New/Mixed/"), QStringLiteral("New/Mixed/fresh.rcvp=fresh"),
                                    QStringLiteral("old.rcvp=same")}));
    // What was deleted again is not known either.
    QVERIFY(!TypeFileInfoCache::instance().find(pathOf(QStringLiteral("New/other name.rcvp"))).known);
}

void tst_LibraryImport::folderWithANameTwice()
{
    scan();
    put(QStringLiteral("Cab.rcvp"), "1");
    put(QStringLiteral("A/Cab.rcvbp"), "2");
    put(QStringLiteral("B/cab.rcvp"), "3"); // another name
    const FolderImport import = importOutside();
    QCOMPARE(import.added, 2);
    QCOMPARE(import.known, QStringList({QStringLiteral("Cab")}));
    QCOMPARE(onDisk(), QStringList({QStringLiteral("New/"), QStringLiteral("New/B/"),
                                    QStringLiteral("New/B/cab.rcvp=3"), QStringLiteral("New/Cab.rcvp=1")}));
}

// Met is met, also on a file that does not stay.
void tst_LibraryImport::folderWithANameTwiceAndAKnownContent()
{
    write(QStringLiteral("old.rcvp"), "old");
    scan();
    put(QStringLiteral("Cab.rcvp"), "old");
    put(QStringLiteral("A/Cab.rcvbp"), "new");
    const FolderImport import = importOutside();
    QCOMPARE(import.added, 0);
    QCOMPARE(import.known, QStringList({QStringLiteral("Cab"), QStringLiteral("Cab")}));
    QCOMPARE(onDisk(), QStringList({QStringLiteral("old.rcvp=old")}));
}

void tst_LibraryImport::folderWithAContentTwice()
{
    scan();
    put(QStringLiteral("a.rcvp"), "same");
    put(QStringLiteral("b.rcvp"), "same"); // compared with the library as it was before
    const FolderImport import = importOutside();
    QCOMPARE(import.added, 2);
    QCOMPARE(import.known, QStringList());
}

void tst_LibraryImport::folderWithoutAnythingNew()
{
    write(QStringLiteral("a.rcvp"), "a");
    scan();
    put(QStringLiteral("Deep/Deeper/a.rcvp"), "a");
    const FolderImport import = importOutside();
    QVERIFY(import.copied);
    QCOMPARE(import.added, 0);
    QCOMPARE(import.known, QStringList({QStringLiteral("a")}));
    QCOMPARE(import.folders, QStringList());
    QCOMPARE(onDisk(), QStringList({QStringLiteral("a.rcvp=a")}));
}

void tst_LibraryImport::folderWithHiddenFiles()
{
    scan();
    put(QStringLiteral("._a.rcvp"), "resource fork");
    put(QStringLiteral(".trash/b.rcvp"), "b");
    put(QStringLiteral("a.rcvp"), "a");
    const FolderImport import = importOutside();
    QCOMPARE(import.added, 1);
    QCOMPARE(import.known, QStringList());
    QCOMPARE(onDisk(), QStringList({QStringLiteral("New/"), QStringLiteral("New/a.rcvp=a")}));
}

void tst_LibraryImport::folderWithLinks()
{
    scan();
    const QTemporaryDir elsewhere;
    QVERIFY(writeFile(elsewhere.filePath(QStringLiteral("e.rcvp")), "e"));
    put(QStringLiteral("a.rcvp"), "a");
    QVERIFY(makeLink(outside->path(), outside->filePath(QStringLiteral("loop"))));
    QVERIFY(makeLink(elsewhere.path(), outside->filePath(QStringLiteral("out"))));
    QVERIFY(makeLink(elsewhere.filePath(QStringLiteral("e.rcvp")), outside->filePath(QStringLiteral("e.rcvp"))));
    QVERIFY(makeFifo(outside->filePath(QStringLiteral("pipe.rcvp"))));
    const FolderImport import = importOutside();
    QVERIFY(import.copied);
    QCOMPARE(import.added, 1);
    QCOMPARE(onDisk(), QStringList({QStringLiteral("New/"), QStringLiteral("New/a.rcvp=a")}));
    QCOMPARE(readFile(elsewhere.filePath(QStringLiteral("e.rcvp"))), QByteArray("e"));
}

void tst_LibraryImport::folderFromTheLibrary()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("G/b.rcvp"), "b");
    scan();
    write(QStringLiteral("G/unscanned.rcvp"), "u");
    const FolderImport import = importFolder(library->path(), pathOf(QStringLiteral("G/New")));
    QVERIFY(import.copied);
    QCOMPARE(import.known, QStringList({QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(import.added, 1);
    QCOMPARE(onDisk(), QStringList({QStringLiteral("G/"), QStringLiteral("G/New/"), QStringLiteral("G/New/G/"),
                                    QStringLiteral("G/New/G/unscanned.rcvp=u"), QStringLiteral("G/b.rcvp=b"),
                                    QStringLiteral("G/unscanned.rcvp=u"), QStringLiteral("a.rcvp=a")}));
}

void tst_LibraryImport::folderThatIsThere()
{
    write(QStringLiteral("New/kept.rcvp"), "kept");
    scan();
    put(QStringLiteral("kept.rcvp"), "other");
    const FolderImport import = importOutside();
    QVERIFY(!import.copied);
    QCOMPARE(import.added, 0);
    QCOMPARE(onDisk(), QStringList({QStringLiteral("New/"), QStringLiteral("New/kept.rcvp=kept")}));
}

// What the cache still knows of the files of a folder that is gone says nothing of new ones.
void tst_LibraryImport::folderThatWasThere()
{
    write(QStringLiteral("a.rcvp"), "a");
    const QString gone = write(QStringLiteral("New/b.rcvp"), "a");
    QVERIFY(!isEmpty(md5OfFile(gone)));
    QVERIFY(QDir(pathOf(QStringLiteral("New"))).removeRecursively());
    scan();
    put(QStringLiteral("b.rcvp"), "b");
    const FolderImport import = importOutside();
    QCOMPARE(import.known, QStringList());
    QCOMPARE(import.added, 1);
}

void tst_LibraryImport::folderIntoNothing()
{
    scan();
    put(QStringLiteral("a.rcvp"), "a");
    QVERIFY(!importFolder(outside->path(), pathOf(QStringLiteral("gone/New"))).copied);
    QCOMPARE(onDisk(), QStringList());
}

void tst_LibraryImport::folderWithUnreadableFiles()
{
    write(QStringLiteral("known.rcvp"), "known");
    scan();
    put(QStringLiteral("a.rcvp"), "a");
    put(QStringLiteral("known.rcvp"), "known");
    QFile::setPermissions(put(QStringLiteral("secret.rcvp"), "s"), QFileDevice::Permissions());
    for (const QString& path : {outside->path(), library->path()})
        QFile::setPermissions(path, QFileDevice::Permissions(0x7777));
    FolderImport import;
    {
        const PermissionsApply user;
        import = importOutside();
    }
    QVERIFY(!import.copied);
    QCOMPARE(import.added, 1);
    QCOMPARE(onDisk(),
             QStringList({QStringLiteral("New/"), QStringLiteral("New/a.rcvp=a"), QStringLiteral("known.rcvp=known")}));
}

void tst_LibraryImport::folderOntoAFullDisk()
{
    scan();
    put(QStringLiteral("large.rcvp"), QByteArray(100'000, 'x'));
    put(QStringLiteral("small.rcvp"), "s");
    const DiskIsFull full(50'000);
    const FolderImport import = importOutside();
    QVERIFY(!import.copied);
    QCOMPARE(onDisk(), QStringList({QStringLiteral("New/"), QStringLiteral("New/small.rcvp=s")}));
}

void tst_LibraryImport::files()
{
    makeFolder(QStringLiteral("G"));
    scan();
    const FilesImport import = importFiles({put(QStringLiteral("a.rcvp"), "a"), put(QStringLiteral("b.rcvbp"), "b")},
                                           pathOf(QStringLiteral("G")));
    QVERIFY(!import.failed);
    QCOMPARE(import.sameContent, QStringList());
    QCOMPARE(import.sameName, QStringList());
    QCOMPARE(onDisk(),
             QStringList({QStringLiteral("G/"), QStringLiteral("G/a.rcvp=a"), QStringLiteral("G/b.rcvbp=b")}));
}

void tst_LibraryImport::filesTheLibraryHas()
{
    write(QStringLiteral("G/a.rcvp"), "a");
    write(QStringLiteral("b.rcvp"), "b");
    scan();
    const FilesImport import = importFiles({put(QStringLiteral("x.rcvp"), "b"), put(QStringLiteral("a.rcvbp"), "other"),
                                            put(QStringLiteral("b.rcvp"), "b"), put(QStringLiteral("c.rcvp"), "c")},
                                           library->path());
    QCOMPARE(import.sameContent, QStringList({QStringLiteral("x"), QStringLiteral("b")})); // content comes first
    QCOMPARE(import.sameName, QStringList({QStringLiteral("a")}));
    QVERIFY(!import.failed);
    QCOMPARE(onDisk(), QStringList({QStringLiteral("G/"), QStringLiteral("G/a.rcvp=a"), QStringLiteral("b.rcvp=b"),
                                    QStringLiteral("c.rcvp=c")}));
}

void tst_LibraryImport::filesOfOneName()
{
    scan();
    const FilesImport import =
        importFiles({put(QStringLiteral("a.rcvp"), "1"), put(QStringLiteral("a.rcvbp"), "2")}, library->path());
    QCOMPARE(import.sameName, QStringList({QStringLiteral("a")}));
    QCOMPARE(onDisk(), QStringList({QStringLiteral("a.rcvp=1")}));
}

// The name of a file that was not copied is free.
void tst_LibraryImport::filesOfTheNameOfOneLeftOut()
{
    write(QStringLiteral("old.rcvp"), "old");
    scan();
    const FilesImport import =
        importFiles({put(QStringLiteral("a.rcvp"), "old"), put(QStringLiteral("a.rcvbp"), "new")}, library->path());
    QCOMPARE(import.sameContent, QStringList({QStringLiteral("a")}));
    QCOMPARE(import.sameName, QStringList());
    QCOMPARE(onDisk(), QStringList({QStringLiteral("a.rcvbp=new"), QStringLiteral("old.rcvp=old")}));
}

void tst_LibraryImport::filesChangedSinceTheLastImport()
{
    write(QStringLiteral("a.rcvp"), "a");
    scan();
    const QString file = put(QStringLiteral("b.rcvp"), "a");
    QCOMPARE(importFiles({file}, library->path()).sameContent, QStringList({QStringLiteral("b")}));
    put(QStringLiteral("b.rcvp"), "now new");
    QCOMPARE(importFiles({file}, library->path()).sameContent, QStringList());
    QCOMPARE(onDisk(), QStringList({QStringLiteral("a.rcvp=a"), QStringLiteral("b.rcvp=now new")}));
}

// The library would not show them: the user would look for them in vain.
void tst_LibraryImport::filesThatAreHidden()
{
    scan();
    QVERIFY(importFiles({put(QStringLiteral(".a.rcvp"), "a")}, library->path()).failed);
    QCOMPARE(onDisk(), QStringList());
}

void tst_LibraryImport::filesThatAreNoTypes()
{
    scan();
    QVERIFY(makeFifo(outside->filePath(QStringLiteral("pipe.rcvp"))));
    const QStringList unfit = {put(QStringLiteral("a.txt"), "a"), put(QStringLiteral("b.RCVP"), "b"),
                               outside->filePath(QStringLiteral("missing.rcvp")),
                               outside->filePath(QStringLiteral("pipe.rcvp"))};
    for (const QString& file : unfit)
        QVERIFY2(importFiles({file}, library->path()).failed, qPrintable(file));
    QCOMPARE(onDisk(), QStringList());
}

void tst_LibraryImport::filesThatDifferInCaseOnly()
{
    write(QStringLiteral("Cab.rcvp"), "upper");
    scan();
    const FilesImport import = importFiles({put(QStringLiteral("cab.rcvp"), "lower")}, library->path());
    QVERIFY(!import.failed);
    QCOMPARE(onDisk(), QStringList({QStringLiteral("Cab.rcvp=upper"), QStringLiteral("cab.rcvp=lower")}));
}

void tst_LibraryImport::filesIntoNothing()
{
    scan();
    QVERIFY(importFiles({put(QStringLiteral("a.rcvp"), "a")}, pathOf(QStringLiteral("gone"))).failed);
    QCOMPARE(onDisk(), QStringList());
}

void tst_LibraryImport::filesOntoAFullDisk()
{
    scan();
    const QString large = put(QStringLiteral("large.rcvp"), QByteArray(100'000, 'x'));
    const QString small = put(QStringLiteral("small.rcvp"), "s");
    const QString lastStraw = put(QStringLiteral("straw.rcvp"), QByteArray(100, 'x'));
    const DiskIsFull full(50'000);
    QVERIFY(importFiles({large, small}, library->path()).failed);
    QCOMPARE(onDisk(), QStringList({QStringLiteral("small.rcvp=s")}));
    // So small that it is written when the copy is closed only.
    const DiskIsFull fuller(10);
    QVERIFY(importFiles({lastStraw}, library->path()).failed);
    QCOMPARE(onDisk(), QStringList({QStringLiteral("small.rcvp=s")}));
}

void tst_LibraryImport::filesOfTheLibrary()
{
    const QString file = write(QStringLiteral("a.rcvp"), "a");
    scan();
    QCOMPARE(importFiles({file}, library->path()).sameContent, QStringList({QStringLiteral("a")}));
    QCOMPARE(onDisk(), QStringList({QStringLiteral("a.rcvp=a")}));
}

SETTINGAREA_TEST_MAIN(tst_LibraryImport, QCoreApplication)

#include "tst_LibraryImport.moc"
