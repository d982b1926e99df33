#include "tests/support/FileFixture.h"
#include "tests/support/StoreFixture.h"
#include "typelibrary/store/LibraryClearing.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QDirIterator>

class tst_LibraryClearing : public StoreFixture
{
    Q_OBJECT

private Q_SLOTS:
    void nothingInUse();
    void typesInUseStayWithTheirGroups();
    void whatTheTreeDoesNotShowStays();
    void linksAreDeletedThemselves();
    void linkToATypeInUseStays();
    void withoutALibrary();
    void cacheIsLeftAlone();

private:
    QStringList left() const
    {
        QStringList entries;
        QDirIterator it(library->path(), QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext())
            entries.append(it.next().mid(library->path().size() + 1));
        entries.sort();
        return entries;
    }
    QStringList clear(const QList<QByteArray>& used = {})
    {
        return clearLibrary(library->path(), [&used](const SMD5& md5) {
            for (const QByteArray& content : used) {
                if (QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex() == md5.data)
                    return true;
            }
            return false;
        });
    }
};

void tst_LibraryClearing::nothingInUse()
{
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("G/H/b.rcvbp"), "b");
    write(QStringLiteral("G/notes.txt"), "n");
    write(QStringLiteral("G/.hidden"), "h");
    makeFolder(QStringLiteral("Empty/Emptier"));
    QCOMPARE(clear(), QStringList());
    QCOMPARE(left(), QStringList());
    QVERIFY(QFileInfo(library->path()).isDir());
}

void tst_LibraryClearing::typesInUseStayWithTheirGroups()
{
    write(QStringLiteral("b.rcvp"), "used 1");
    write(QStringLiteral("a.rcvp"), "a");
    write(QStringLiteral("G/H/K/c.rcvbp"), "used 2");
    write(QStringLiteral("G/H/d.rcvp"), "d");
    write(QStringLiteral("G/L/e.rcvp"), "e");
    write(QStringLiteral("G/notes.txt"), "n");
    QCOMPARE(clear({"used 1", "used 2"}), QStringList({QStringLiteral("c"), QStringLiteral("b")}));
    QCOMPARE(left(),
             QStringList({QStringLiteral("G"), QStringLiteral("G/H"), QStringLiteral("G/H/K"),
                          QStringLiteral("G/H/K/c.rcvbp"), QStringLiteral("G/notes.txt"), QStringLiteral("b.rcvp")}));
}

void tst_LibraryClearing::whatTheTreeDoesNotShowStays()
{
    write(QStringLiteral("readme.txt"), "r");
    write(QStringLiteral(".hidden.rcvp"), "h");
    write(QStringLiteral("capital.RCVP"), "c"); // is shown
    QCOMPARE(clear(), QStringList());
    QCOMPARE(left(), QStringList({QStringLiteral(".hidden.rcvp"), QStringLiteral("readme.txt")}));
}

void tst_LibraryClearing::linksAreDeletedThemselves()
{
    const QTemporaryDir outside;
    QVERIFY(writeFile(outside.filePath(QStringLiteral("o.rcvp")), "o"));
    QVERIFY(makeLink(outside.path(), pathOf(QStringLiteral("folder"))));
    QVERIFY(makeLink(outside.filePath(QStringLiteral("o.rcvp")), pathOf(QStringLiteral("file.rcvp"))));
    makeFolder(QStringLiteral("G"));
    QVERIFY(makeLink(outside.path(), pathOf(QStringLiteral("G/folder"))));
    QVERIFY(makeLink(library->path(), pathOf(QStringLiteral("G/loop"))));
    QCOMPARE(clear(), QStringList());
    QCOMPARE(left(), QStringList());
    QCOMPARE(readFile(outside.filePath(QStringLiteral("o.rcvp"))), QByteArray("o"));
}

void tst_LibraryClearing::linkToATypeInUseStays()
{
    const QTemporaryDir outside;
    QVERIFY(writeFile(outside.filePath(QStringLiteral("used.rcvp")), "used"));
    QVERIFY(writeFile(outside.filePath(QStringLiteral("Sub/free.rcvp")), "free"));
    makeFolder(QStringLiteral("G"));
    QVERIFY(makeLink(outside.path(), pathOf(QStringLiteral("G/folder"))));
    QCOMPARE(clear({"used"}), QStringList({QStringLiteral("used")}));
    QCOMPARE(left(), QStringList({QStringLiteral("G"), QStringLiteral("G/folder")}));
    QCOMPARE(readFile(outside.filePath(QStringLiteral("Sub/free.rcvp"))), QByteArray("free"));
}

void tst_LibraryClearing::withoutALibrary()
{
    const QString before = QDir::currentPath();
    const QString file = write(QStringLiteral("a.rcvp"), "a");
    QVERIFY(QDir::setCurrent(library->path()));
    const QStringList kept = clearLibrary({}, [](const SMD5&) { return false; });
    QVERIFY(QDir::setCurrent(before));
    QCOMPARE(kept, QStringList());
    QCOMPARE(readFile(file), QByteArray("a"));
    QCOMPARE(clearLibrary(pathOf(QStringLiteral("gone")), [](const SMD5&) { return false; }), QStringList());
}

void tst_LibraryClearing::cacheIsLeftAlone()
{
    const QString file = write(QStringLiteral("a.rcvp"), "a");
    QVERIFY(!isEmpty(md5OfFile(file)));
    clear();
    QVERIFY(TypeFileInfoCache::instance().find(file).knows(TypeFileInfo::Digest));
}

SETTINGAREA_TEST_MAIN(tst_LibraryClearing, QCoreApplication)

#include "tst_LibraryClearing.moc"
