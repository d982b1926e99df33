#include "tests/platform/CopyFixture.h"
#include "tests/support/FileFixture.h"

#include <utilbase/Utils.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>

#include <sys/stat.h>

class tst_RecursiveCopyDirectory : public CopyFixture
{
    Q_OBJECT

private Q_SLOTS:
    void copiesTreeWithFilters();
    void filters_data();
    void filters();
    void folderName();
    void nothingMatches();
    void contents_data();
    void contents();
    void oddNames_data();
    void oddNames();
    void deepTree();
    void keepsTimeAndPermissions();

    void replacesExistingFile();
    void copyOntoItself();
    void copyIntoItself();
    void copyIntoItselfAgain();
    void copyIntoParent();

    void linkToFileInside();
    void linksThatAreNotFollowed();
    void sourceMayBeLink();
    void noRegularFiles();
};

void tst_RecursiveCopyDirectory::copiesTreeWithFilters()
{
    for (const char* name : {"a.rcvp", "b.rcvbp", "c.txt", "G/d.rcvp", "G/e.RCVP", "G/H/f.rcvbp", "only/text.txt"})
        QVERIFY(writeFile(source(name), QByteArray(name)));
    QVERIFY(QDir().mkpath(source("empty")));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    QCOMPARE(entriesBelow(target()), list("G G/H G/H/f.rcvbp G/d.rcvp a.rcvp b.rcvbp"));
    for (const char* name : {"a.rcvp", "b.rcvbp", "G/d.rcvp", "G/H/f.rcvbp"})
        QCOMPARE(readFile(target(name)), QByteArray(name));
}

void tst_RecursiveCopyDirectory::filters_data()
{
    QTest::addColumn<QStringList>("filters");
    QTest::addColumn<QStringList>("copied");
    QTest::newRow("none") << QStringList() << list(".hidden a.rcvp a1.txt ab.txt b.RCVP");
    QTest::newRow("case counts") << list("*.rcvp") << list("a.rcvp");
    QTest::newRow("question mark") << list("a?.txt") << list("a1.txt ab.txt");
    QTest::newRow("set") << list("a[0-9].*") << list("a1.txt");
    QTest::newRow("whole name") << list("a.rcv b.RCVP") << list("b.RCVP");
    QTest::newRow("dot is a dot") << list("a?rcvp* abtxt") << list("a.rcvp");
}

void tst_RecursiveCopyDirectory::filters()
{
    QFETCH(QStringList, filters);
    QFETCH(QStringList, copied);
    for (const char* name : {"a.rcvp", "b.RCVP", "a1.txt", "ab.txt", ".hidden"})
        QVERIFY(writeFile(source(name), {}));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), target(), filters));
    QCOMPARE(entriesBelow(target()), copied);
}

void tst_RecursiveCopyDirectory::folderName()
{
    QVERIFY(writeFile(source("G/a.rcvp"), QByteArrayLiteral("a")));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), target(), typeFiles(), QStringLiteral("All types")));
    QCOMPARE(readFile(target("All types/G/a.rcvp")), QByteArrayLiteral("a"));
    QCOMPARE(QDir(target()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList(QStringLiteral("All types")));
}

void tst_RecursiveCopyDirectory::nothingMatches()
{
    QVERIFY(writeFile(source("G/a.txt"), {}));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), target(), typeFiles(), QStringLiteral("All types")));
    QVERIFY(!QFileInfo::exists(target()));
}

void tst_RecursiveCopyDirectory::contents_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 65535, 65536, 65537, 1000003})
        QTest::addRow("%d bytes", size) << size;
}

void tst_RecursiveCopyDirectory::contents()
{
    QFETCH(int, size);
    QByteArray content(size, '\0');
    for (int i = 0; i < size; ++i)
        content[i] = static_cast<char>(i * 7 + i / 256);
    QVERIFY(writeFile(source("a.rcvp"), content));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    QVERIFY(readFile(target("a.rcvp")) == content);
    QCOMPARE(entriesBelow(target()), list("a.rcvp"));
}

void tst_RecursiveCopyDirectory::oddNames_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("newline") << QByteArray("two\nlines.rcvp");
    QTest::newRow("255 bytes") << QByteArray(250, 'n') + ".rcvp";
    QTest::newRow("Chinese") << QStringLiteral("\u7bb1\u4f53.rcvp").toUtf8();
    QTest::newRow("right to left") << QStringLiteral("\u202e\u05d0.rcvp").toUtf8();
    QTest::newRow("no UTF-8") << QByteArray("\xff\xfe.rcvp");
}

void tst_RecursiveCopyDirectory::oddNames()
{
    QFETCH(QByteArray, name);
    const QByteArray from = QFile::encodeName(source()) + name;
    const QByteArray to = QFile::encodeName(target()) + name;
    QVERIFY(writeFile(source("plain"), QByteArrayLiteral("content")));
    QCOMPARE(::rename(QFile::encodeName(source("plain")).constData(), from.constData()), 0);
    QVERIFY(Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    struct stat status = {};
    QCOMPARE(::stat(to.constData(), &status), 0);
    QCOMPARE(status.st_size, 7);
    // Qt cannot remove what it cannot name.
    QCOMPARE(::unlink(from.constData()), 0);
    QCOMPARE(::unlink(to.constData()), 0);
}

void tst_RecursiveCopyDirectory::deepTree()
{
    QString deep;
    for (int level = 0; level < 64; ++level)
        deep += QStringLiteral("level %1/").arg(level);
    QVERIFY(writeFile(source() + deep + QStringLiteral("a.rcvp"), QByteArrayLiteral("deep")));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    QCOMPARE(readFile(target() + deep + QStringLiteral("a.rcvp")), QByteArrayLiteral("deep"));
}

void tst_RecursiveCopyDirectory::keepsTimeAndPermissions()
{
    const QDateTime changed = QDateTime::fromSecsSinceEpoch(1000000000);
    QVERIFY(writeFile(source("G/a.rcvp"), {}));
    QFile file(source("G/a.rcvp"));
    QVERIFY(file.open(QIODevice::ReadWrite) && file.setFileTime(changed, QFileDevice::FileModificationTime));
    QCOMPARE(::fchmod(file.handle(), 04640), 0);
    QCOMPARE(::chmod(QFile::encodeName(source("G")).constData(), 0550), 0);

    const mode_t umask = ::umask(022);
    const bool copied = Utils::RecursiveCopyDirectory(source(), target(), typeFiles());
    ::umask(umask);
    QVERIFY(copied);
    QCOMPARE(QFileInfo(target("G/a.rcvp")).lastModified(), changed);
    struct stat status = {};
    QCOMPARE(::stat(QFile::encodeName(target("G/a.rcvp")).constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777, 0640U);
    QCOMPARE(::stat(QFile::encodeName(target("G")).constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777, 0750U); // the copy can be changed where the original cannot
}

void tst_RecursiveCopyDirectory::replacesExistingFile()
{
    QVERIFY(writeFile(source("a.rcvp"), QByteArrayLiteral("new")));
    QVERIFY(writeFile(target("a.rcvp"), QByteArrayLiteral("older and longer")));
    QVERIFY(writeFile(target("b.rcvp"), QByteArrayLiteral("stays")));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    QCOMPARE(readFile(target("a.rcvp")), QByteArrayLiteral("new"));
    QCOMPARE(readFile(target("b.rcvp")), QByteArrayLiteral("stays"));
}

void tst_RecursiveCopyDirectory::copyOntoItself()
{
    QVERIFY(writeFile(source("G/a.rcvp"), QByteArrayLiteral("a")));
    QVERIFY(makeLink(QStringLiteral("a.rcvp"), source("G/link.rcvp")));
    struct stat before = {};
    struct stat after = {};
    QCOMPARE(::stat(QFile::encodeName(source("G/a.rcvp")).constData(), &before), 0);
    QVERIFY(Utils::RecursiveCopyDirectory(source(), source(), typeFiles()));
    QCOMPARE(::stat(QFile::encodeName(source("G/a.rcvp")).constData(), &after), 0);
    QCOMPARE(after.st_ino, before.st_ino);
    QCOMPARE(readFile(source("G/a.rcvp")), QByteArrayLiteral("a"));
    QVERIFY(QFileInfo(source("G/link.rcvp")).isSymLink());
    QCOMPARE(entriesBelow(source()), list("G G/a.rcvp G/link.rcvp"));
}

void tst_RecursiveCopyDirectory::copyIntoItself()
{
    QVERIFY(writeFile(source("a.rcvp"), QByteArrayLiteral("a")));
    QVERIFY(writeFile(source("G/b.rcvp"), QByteArrayLiteral("b")));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), source("G"), typeFiles(), QStringLiteral("copy")));
    QCOMPARE(entriesBelow(source()), list("G G/b.rcvp G/copy G/copy/G G/copy/G/b.rcvp G/copy/a.rcvp a.rcvp"));
}

// The second copy finds the first one, also where it replaces it.
void tst_RecursiveCopyDirectory::copyIntoItselfAgain()
{
    QVERIFY(writeFile(source("a.rcvp"), QByteArrayLiteral("first")));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), source("copy"), typeFiles()));
    QVERIFY(writeFile(source("a.rcvp"), QByteArrayLiteral("second")));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), source("copy"), typeFiles()));
    QCOMPARE(entriesBelow(source()), list("a.rcvp copy copy/a.rcvp copy/copy copy/copy/a.rcvp"));
    QCOMPARE(readFile(source("copy/a.rcvp")), QByteArrayLiteral("second"));
    QCOMPARE(readFile(source("copy/copy/a.rcvp")), QByteArrayLiteral("first"));
}

void tst_RecursiveCopyDirectory::copyIntoParent()
{
    QVERIFY(writeFile(source("source/a.rcvp"), QByteArrayLiteral("outer")));
    QVERIFY(writeFile(source("source/source/a.rcvp"), QByteArrayLiteral("inner")));
    QVERIFY(Utils::RecursiveCopyDirectory(source("source"), source(), typeFiles()));
    QCOMPARE(readFile(source("a.rcvp")), QByteArrayLiteral("outer"));
    QCOMPARE(readFile(source("source/a.rcvp")), QByteArrayLiteral("inner"));
}

void tst_RecursiveCopyDirectory::linkToFileInside()
{
    QVERIFY(writeFile(source("G/a.rcvp"), QByteArrayLiteral("a")));
    QVERIFY(makeLink(QStringLiteral("G/a.rcvp"), source("link.rcvp")));
    QVERIFY(makeLink(source("link.rcvp"), source("again.rcvp")));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    QCOMPARE(entriesBelow(target()), list("G G/a.rcvp again.rcvp link.rcvp"));
    QCOMPARE(readFile(target("link.rcvp")), QByteArrayLiteral("a"));
    QVERIFY(!QFileInfo(target("link.rcvp")).isSymLink());
    QVERIFY(!QFileInfo(target("again.rcvp")).isSymLink());
}

void tst_RecursiveCopyDirectory::linksThatAreNotFollowed()
{
    const QString outside = m_folder->filePath(QStringLiteral("source outside"));
    QVERIFY(writeFile(outside + QStringLiteral("/secret.rcvp"), QByteArrayLiteral("secret")));
    QVERIFY(writeFile(source("a.rcvp"), QByteArrayLiteral("a")));
    QVERIFY(writeFile(source("G/b.rcvp"), QByteArrayLiteral("b")));
    QVERIFY(makeLink(outside, source("outside")));
    QVERIFY(makeLink(outside + QStringLiteral("/secret.rcvp"), source("secret.rcvp")));
    QVERIFY(makeLink(QStringLiteral("../source outside/secret.rcvp"), source("G.rcvp")));
    QVERIFY(makeLink(QStringLiteral("."), source("loop")));
    QVERIFY(makeLink(QStringLiteral(".."), source("G/parent")));
    QVERIFY(makeLink(QStringLiteral("G"), source("sibling.rcvp")));
    QVERIFY(makeLink(QStringLiteral("nowhere"), source("dangling.rcvp")));
    QVERIFY(makeLink(QStringLiteral("self.rcvp"), source("self.rcvp")));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    QCOMPARE(entriesBelow(target()), list("G G/b.rcvp a.rcvp"));
}

void tst_RecursiveCopyDirectory::sourceMayBeLink()
{
    QVERIFY(writeFile(source("a.rcvp"), QByteArrayLiteral("a")));
    const QString link = m_folder->filePath(QStringLiteral("link"));
    QVERIFY(makeLink(source(), link));
    QVERIFY(Utils::RecursiveCopyDirectory(link, target(), typeFiles()));
    QCOMPARE(entriesBelow(target()), list("a.rcvp"));
}

void tst_RecursiveCopyDirectory::noRegularFiles()
{
    QVERIFY(writeFile(source("a.rcvp"), QByteArrayLiteral("a")));
    QVERIFY(QDir().mkpath(source("folder.rcvp")));
    QVERIFY(makeFifo(source("fifo.rcvp")));
    QVERIFY(makeSocket(source("socket.rcvp")));
    QVERIFY(makeLink(QStringLiteral("fifo.rcvp"), source("link.rcvp")));
    QVERIFY(Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    QCOMPARE(entriesBelow(target()), list("a.rcvp"));
}

SETTINGAREA_TEST_MAIN(tst_RecursiveCopyDirectory, QCoreApplication)
#include "tst_RecursiveCopyDirectory.moc"
