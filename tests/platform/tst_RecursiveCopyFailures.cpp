#include "tests/platform/CopyFixture.h"
#include "tests/support/FileFixture.h"
#include "utilbase/CFileDescriptor.h"

#include <utilbase/Utils.h>

#include <QCoreApplication>
#include <QDir>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <csignal>

// Copies of folders that cannot be made, or not as a whole.
class tst_RecursiveCopyFailures : public CopyFixture
{
    Q_OBJECT

private Q_SLOTS:
    void badArguments_data();
    void badArguments();
    void unreadableFileAndFolder();
    void readingFails();
    void targetNotWritable();
    void targetVanishes();
    void folderInTheWay();
    void linkInTheWay();
    void fullDisk();
    void killedWhileWriting();
};

void tst_RecursiveCopyFailures::badArguments_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::newRow("no source") << QString() << QStringLiteral("target");
    QTest::newRow("no target") << QStringLiteral("source") << QString();
    QTest::newRow("source is not there") << QStringLiteral("missing") << QStringLiteral("target");
    QTest::newRow("source is a file") << QStringLiteral("source/a.rcvp") << QStringLiteral("target");
    QTest::newRow("target is a file") << QStringLiteral("source") << QStringLiteral("source/a.rcvp");
    QTest::newRow("target lies in a file") << QStringLiteral("source") << QStringLiteral("source/a.rcvp/target");
    QTest::newRow("target's name is too long") << QStringLiteral("source") << QString(300, QLatin1Char('n'));
    QTest::newRow("zero in the source") << QStringLiteral("source") + QChar(QChar::Null) << QStringLiteral("target");
    QTest::newRow("zero in the target") << QStringLiteral("source") << QStringLiteral("target") + QChar(QChar::Null);
}

void tst_RecursiveCopyFailures::badArguments()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QVERIFY(writeFile(source("a.rcvp"), QByteArrayLiteral("a")));
    const QString previous = QDir::currentPath(); // which an empty name must not stand for
    QVERIFY(QDir::setCurrent(m_folder->path()));
    const bool copied = Utils::RecursiveCopyDirectory(from, to);
    QVERIFY(QDir::setCurrent(previous));
    QVERIFY(!copied);
    QCOMPARE(entriesBelow(m_folder->path()), list("source source/a.rcvp"));
}

void tst_RecursiveCopyFailures::unreadableFileAndFolder()
{
    for (const char* name : {"a.rcvp", "b.rcvp", "G/c.rcvp", "H/d.rcvp"})
        QVERIFY(writeFile(source(name), QByteArray(name)));
    QVERIFY(QFile::setPermissions(source("a.rcvp"), QFile::Permissions()));
    QVERIFY(QFile::setPermissions(source("G"), QFile::Permissions()));
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0777), 0);
    {
        const PermissionsApply permissionsApply;
        QVERIFY(!Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    }
    QCOMPARE(entriesBelow(target()), list("H H/d.rcvp b.rcvp"));
    QVERIFY(QFile::setPermissions(source("G"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
}

// The system has a regular file whose first byte cannot be read: the memory of the process.
void tst_RecursiveCopyFailures::readingFails()
{
    const QString process = QStringLiteral("/proc/self/task/%1").arg(::getpid());
    QVERIFY(QFileInfo(process + QStringLiteral("/mem")).isFile());
    QVERIFY(!Utils::RecursiveCopyDirectory(process, target(), {QStringLiteral("mem")}));
    QCOMPARE(entriesBelow(target()), QStringList());
}

void tst_RecursiveCopyFailures::targetNotWritable()
{
    QVERIFY(writeFile(source("a.rcvp"), QByteArrayLiteral("a")));
    QVERIFY(QDir().mkpath(target()));
    QVERIFY(QFile::setPermissions(target(), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther));
    QCOMPARE(::chmod(QFile::encodeName(m_folder->path()).constData(), 0755), 0);
    const PermissionsApply permissionsApply;
    QVERIFY(!Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    QCOMPARE(entriesBelow(target()), QStringList());
}

// A folder that is open can be reached after it was removed, and has no path any more: as if it had been removed a
// moment after it was made. The copy must not take the root folder for it.
void tst_RecursiveCopyFailures::targetVanishes()
{
    const QString inRoot = QStringLiteral("/tst_RecursiveCopyFailures");
    QVERIFY(!QFileInfo::exists(inRoot));
    QVERIFY(writeFile(source("tst_RecursiveCopyFailures/a.rcvp"), QByteArrayLiteral("a")));
    QVERIFY(QDir().mkpath(target()));
    const CFileDescriptor folder(::open(QFile::encodeName(target()).constData(), O_PATH | O_CLOEXEC));
    QVERIFY(QDir().rmdir(target()));
    const QString vanished = QStringLiteral("/proc/self/fd/%1").arg(folder.get());
    QVERIFY(QFileInfo(vanished).isDir());
    const bool isCopied = Utils::RecursiveCopyDirectory(source(), vanished, typeFiles());
    const bool isInRoot = QFileInfo::exists(inRoot);
    QDir(inRoot).removeRecursively();
    QVERIFY(!isCopied && !isInRoot);
}

void tst_RecursiveCopyFailures::folderInTheWay()
{
    QVERIFY(writeFile(source("a.rcvp"), QByteArrayLiteral("a")));
    QVERIFY(writeFile(source("b.rcvp"), QByteArrayLiteral("b")));
    QVERIFY(writeFile(source("G/c.rcvp"), QByteArrayLiteral("c")));
    QVERIFY(QDir().mkpath(target("a.rcvp")));
    QVERIFY(writeFile(target("G"), QByteArrayLiteral("file")));
    QVERIFY(!Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    QCOMPARE(entriesBelow(target()), list("G a.rcvp b.rcvp"));
    QCOMPARE(readFile(target("G")), QByteArrayLiteral("file"));
}

void tst_RecursiveCopyFailures::linkInTheWay()
{
    QVERIFY(writeFile(source("a.rcvp"), QByteArrayLiteral("a")));
    QVERIFY(writeFile(source("G/b.rcvp"), QByteArrayLiteral("b")));
    QVERIFY(writeFile(source("H/Sub/c.rcvp"), QByteArrayLiteral("c")));
    const QString elsewhere = m_folder->filePath(QStringLiteral("elsewhere"));
    QVERIFY(writeFile(elsewhere + QStringLiteral("/b.rcvp"), QByteArrayLiteral("kept")));
    QVERIFY(QDir().mkpath(target()));
    QVERIFY(makeLink(elsewhere, target("G")));
    QVERIFY(makeLink(elsewhere, target("H")));
    QVERIFY(!Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    QVERIFY(!Utils::RecursiveCopyDirectory(source("G"), target(), typeFiles(), QStringLiteral("H")));
    QCOMPARE(readFile(target("a.rcvp")), QByteArrayLiteral("a"));
    QCOMPARE(entriesBelow(elsewhere), list("b.rcvp"));
    QCOMPARE(readFile(elsewhere + QStringLiteral("/b.rcvp")), QByteArrayLiteral("kept"));
}

void tst_RecursiveCopyFailures::fullDisk()
{
    QVERIFY(writeFile(source("large.rcvp"), QByteArray(100000, 'l')));
    QVERIFY(writeFile(source("other.rcvp"), QByteArray(100000, 'o')));
    QVERIFY(writeFile(source("small.rcvp"), QByteArrayLiteral("small")));
    QVERIFY(writeFile(target("other.rcvp"), QByteArrayLiteral("old")));
    bool copied = true;
    {
        const DiskIsFull diskIsFull(4096);
        copied = Utils::RecursiveCopyDirectory(source(), target(), typeFiles());
    }
    QVERIFY(!copied);
    QCOMPARE(entriesBelow(target()), list("other.rcvp small.rcvp"));
    QCOMPARE(readFile(target("other.rcvp")), QByteArrayLiteral("old"));
    QCOMPARE(readFile(target("small.rcvp")), QByteArrayLiteral("small"));
}

void tst_RecursiveCopyFailures::killedWhileWriting()
{
    QVERIFY(writeFile(source("a.rcvp"), QByteArray(100000, 'a')));
    QVERIFY(writeFile(target("a.rcvp"), QByteArrayLiteral("old")));
    const pid_t child = ::fork();
    if (child == 0) {
        // Writing beyond the limit ends the process in the middle of the file.
        const rlimit limit = {4096, 4096};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::setrlimit(RLIMIT_CORE, &limit);
        std::signal(SIGXFSZ, SIG_DFL);
        Utils::RecursiveCopyDirectory(source(), target(), typeFiles());
        ::_exit(0);
    }
    int status = 0;
    QCOMPARE(::waitpid(child, &status, 0), child);
    QVERIFY(WIFSIGNALED(status));
    QCOMPARE(readFile(target("a.rcvp")), QByteArrayLiteral("old"));
    // What it left behind is in nobody's way.
    QVERIFY(Utils::RecursiveCopyDirectory(source(), target(), typeFiles()));
    QCOMPARE(readFile(target("a.rcvp")), QByteArray(100000, 'a'));
}

SETTINGAREA_TEST_MAIN(tst_RecursiveCopyFailures, QCoreApplication)
#include "tst_RecursiveCopyFailures.moc"
