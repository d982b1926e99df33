#include "host/files/SafeFile.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QTemporaryDir>

namespace {

constexpr QFileDevice::Permissions ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

SafeFile::Writer writerOf(const QByteArray& content)
{
    return [content](QIODevice& device, QString& error) { return SafeFile::write(device, content, error); };
}

unsigned modeOf(const QString& path)
{
    struct stat status = {};
    ::stat(QFile::encodeName(path).constData(), &status);
    return status.st_mode & 07777U;
}

void setMode(const QString& path, mode_t mode)
{
    ::chmod(QFile::encodeName(path).constData(), mode);
}

} // namespace

class tst_SafeFile : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void readsARegularFile();
    void readsThroughLinks();
    void refusesWhatIsTooLong();
    void refusesWhatIsNoRegularFile_data();
    void refusesWhatIsNoRegularFile();
    void saysWhyAFileCannotBeOpened();

    void createsAFile();
    void replacesAFileAndKeepsItsMode();
    void givesTheModeAskedFor();
    void replacesTheFileBehindLinks();
    void replacesNothingButRegularFiles();
    void leavesTheOldFileWhenTheWriterGivesUp();
    void leavesTheOldFileOnAFullDisk_data();
    void leavesTheOldFileOnAFullDisk();
    void leavesTheOldFileInAReadOnlyFolder();

    void keepsThePreviousContent();
    void keepsThePreviousContentAsPrivateAsTheNew();
    void leavesTheOldFileWhenItCannotBeKept();
    void leavesBothFilesOnAFullDisk();

private:
    QString file(const QString& name) const { return QDir(m_folder->path()).filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_error;
};

void tst_SafeFile::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_error.clear();
}

void tst_SafeFile::readsARegularFile()
{
    QVERIFY(writeFile(file(QStringLiteral("a")), "abc"));
    QVERIFY(writeFile(file(QStringLiteral("empty")), ""));
    QCOMPARE(SafeFile::read(file(QStringLiteral("a")), 3, m_error).value_or("none"), QByteArray("abc"));
    QCOMPARE(SafeFile::read(file(QStringLiteral("empty")), 3, m_error).value_or("none"), QByteArray());
}

void tst_SafeFile::readsThroughLinks()
{
    QVERIFY(writeFile(file(QStringLiteral("a")), "abc"));
    QVERIFY(makeLink(file(QStringLiteral("a")), file(QStringLiteral("b"))));
    QCOMPARE(SafeFile::read(file(QStringLiteral("b")), 3, m_error).value_or("none"), QByteArray("abc"));
}

void tst_SafeFile::refusesWhatIsTooLong()
{
    QVERIFY(writeFile(file(QStringLiteral("a")), "abc"));
    QVERIFY(!SafeFile::read(file(QStringLiteral("a")), 2, m_error));
    QCOMPARE(m_error, QStringLiteral("The file is longer than 2 bytes."));
}

void tst_SafeFile::refusesWhatIsNoRegularFile_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"fifo", "socket", "folder", "link to fifo"})
        QTest::newRow(name) << QString::fromLatin1(name);
    QTest::newRow("device") << QStringLiteral("/dev/zero");
}

void tst_SafeFile::refusesWhatIsNoRegularFile()
{
    QVERIFY(makeFifo(file(QStringLiteral("fifo"))));
    QVERIFY(makeSocket(file(QStringLiteral("socket"))));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("folder")));
    QVERIFY(makeLink(file(QStringLiteral("fifo")), file(QStringLiteral("link to fifo"))));
    QFETCH(QString, name);
    QVERIFY(!SafeFile::read(file(name), 10, m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a regular file."));
}

void tst_SafeFile::saysWhyAFileCannotBeOpened()
{
    QVERIFY(!SafeFile::read(file(QStringLiteral("a")), 10, m_error));
    QCOMPARE(m_error, QStringLiteral("No such file or directory"));
    QVERIFY(makeLink(file(QStringLiteral("loop")), file(QStringLiteral("loop"))));
    QVERIFY(!SafeFile::read(file(QStringLiteral("loop")), 10, m_error));
    QCOMPARE(m_error, QStringLiteral("Too many levels of symbolic links"));
    QVERIFY(writeFile(file(QStringLiteral("a")), "abc"));
    setMode(m_folder->path(), 0755);
    setMode(file(QStringLiteral("a")), 0);
    const PermissionsApply guard;
    QVERIFY(!SafeFile::read(file(QStringLiteral("a")), 10, m_error));
    QCOMPARE(m_error, QStringLiteral("Permission denied"));
}

void tst_SafeFile::createsAFile()
{
    QVERIFY(SafeFile::replace(file(QStringLiteral("a")), writerOf("abc"), m_error));
    QCOMPARE(readFile(file(QStringLiteral("a"))), QByteArray("abc"));
}

void tst_SafeFile::replacesAFileAndKeepsItsMode()
{
    for (const mode_t mode : {0644U, 0600U, 0664U, 0220U}) {
        QVERIFY(writeFile(file(QStringLiteral("a")), "a longer content"));
        setMode(file(QStringLiteral("a")), mode);
        QVERIFY(SafeFile::replace(file(QStringLiteral("a")), writerOf("abc"), m_error));
        QCOMPARE(modeOf(file(QStringLiteral("a"))), mode);
        setMode(file(QStringLiteral("a")), 0644);
        QCOMPARE(readFile(file(QStringLiteral("a"))), QByteArray("abc"));
    }
}

void tst_SafeFile::givesTheModeAskedFor()
{
    QVERIFY(SafeFile::replace(file(QStringLiteral("new")), writerOf("abc"), m_error, ownerOnly));
    QCOMPARE(modeOf(file(QStringLiteral("new"))), 0600U);
    QVERIFY(writeFile(file(QStringLiteral("old")), "old"));
    setMode(file(QStringLiteral("old")), 0644);
    QVERIFY(SafeFile::replace(file(QStringLiteral("old")), writerOf("abc"), m_error, ownerOnly));
    QCOMPARE(modeOf(file(QStringLiteral("old"))), 0600U);
}

void tst_SafeFile::replacesTheFileBehindLinks()
{
    QVERIFY(writeFile(file(QStringLiteral("a")), "old"));
    QVERIFY(makeLink(QStringLiteral("a"), file(QStringLiteral("b"))));
    QVERIFY(makeLink(QStringLiteral("b"), file(QStringLiteral("c"))));
    QVERIFY(SafeFile::replace(file(QStringLiteral("c")), writerOf("new"), m_error));
    QCOMPARE(readFile(file(QStringLiteral("a"))), QByteArray("new"));
    QVERIFY(!QFileInfo(file(QStringLiteral("a"))).isSymLink());
    QVERIFY(QFileInfo(file(QStringLiteral("b"))).isSymLink());
    QVERIFY(QFileInfo(file(QStringLiteral("c"))).isSymLink());
}

void tst_SafeFile::replacesNothingButRegularFiles()
{
    QVERIFY(makeFifo(file(QStringLiteral("fifo"))));
    QVERIFY(!SafeFile::replace(file(QStringLiteral("fifo")), writerOf("new"), m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a regular file."));
    QVERIFY(!SafeFile::replaceKeepingPrevious(m_folder->path(), "new", m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a regular file."));
}

void tst_SafeFile::leavesTheOldFileWhenTheWriterGivesUp()
{
    QVERIFY(writeFile(file(QStringLiteral("a")), "old"));
    const auto giveUp = [](QIODevice& device, QString& error) {
        device.write("new");
        error = QStringLiteral("no more");
        return false;
    };
    QVERIFY(!SafeFile::replace(file(QStringLiteral("a")), giveUp, m_error));
    QCOMPARE(m_error, QStringLiteral("no more"));
    QCOMPARE(readFile(file(QStringLiteral("a"))), QByteArray("old"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{QStringLiteral("a")});
}

void tst_SafeFile::leavesTheOldFileOnAFullDisk_data()
{
    QTest::addColumn<int>("size");
    // Less than the buffer, so that only the flush fails; more than it; many times as much.
    QTest::newRow("buffered") << 4097;
    QTest::newRow("more than the buffer") << 20000;
    QTest::newRow("much more") << 1000000;
}

void tst_SafeFile::leavesTheOldFileOnAFullDisk()
{
    QFETCH(int, size);
    QVERIFY(writeFile(file(QStringLiteral("a")), "old"));
    {
        const DiskIsFull full(4096);
        QVERIFY(!SafeFile::replace(file(QStringLiteral("a")), writerOf(QByteArray(size, 'x')), m_error));
    }
    QCOMPARE(m_error, QStringLiteral("The file could not be written whole; perhaps the disk is full."));
    QCOMPARE(readFile(file(QStringLiteral("a"))), QByteArray("old"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{QStringLiteral("a")});
}

void tst_SafeFile::leavesTheOldFileInAReadOnlyFolder()
{
    QVERIFY(writeFile(file(QStringLiteral("a")), "old"));
    setMode(file(QStringLiteral("a")), 0666);
    setMode(m_folder->path(), 0555);
    {
        const PermissionsApply guard;
        QVERIFY(!SafeFile::replace(file(QStringLiteral("a")), writerOf("new"), m_error));
    }
    setMode(m_folder->path(), 0755);
    QCOMPARE(m_error, QStringLiteral("Permission denied"));
    QCOMPARE(readFile(file(QStringLiteral("a"))), QByteArray("old"));
}

void tst_SafeFile::keepsThePreviousContent()
{
    QVERIFY(SafeFile::replaceKeepingPrevious(file(QStringLiteral("a")), "1", m_error));
    QCOMPARE(readFile(file(QStringLiteral("a.bak"))), QByteArray("(none)"));
    QVERIFY(SafeFile::replaceKeepingPrevious(file(QStringLiteral("a")), "2", m_error));
    QVERIFY(SafeFile::replaceKeepingPrevious(file(QStringLiteral("a")), "3", m_error));
    QCOMPARE(readFile(file(QStringLiteral("a"))), QByteArray("3"));
    QCOMPARE(readFile(file(QStringLiteral("a.bak"))), QByteArray("2"));
}

void tst_SafeFile::keepsThePreviousContentAsPrivateAsTheNew()
{
    QVERIFY(writeFile(file(QStringLiteral("a")), "old"));
    setMode(file(QStringLiteral("a")), 0640);
    QVERIFY(SafeFile::replaceKeepingPrevious(file(QStringLiteral("a")), "new", m_error));
    QCOMPARE(modeOf(file(QStringLiteral("a.bak"))), 0640U);
    QVERIFY(SafeFile::replaceKeepingPrevious(file(QStringLiteral("a")), "new", m_error, ownerOnly));
    QCOMPARE(modeOf(file(QStringLiteral("a"))), 0600U);
    QCOMPARE(modeOf(file(QStringLiteral("a.bak"))), 0600U);
}

void tst_SafeFile::leavesTheOldFileWhenItCannotBeKept()
{
    QVERIFY(writeFile(file(QStringLiteral("a")), "old"));
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("a.bak")));
    QVERIFY(!SafeFile::replaceKeepingPrevious(file(QStringLiteral("a")), "new", m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a regular file."));
    QCOMPARE(readFile(file(QStringLiteral("a"))), QByteArray("old"));
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files), QStringList{QStringLiteral("a")});
}

void tst_SafeFile::leavesBothFilesOnAFullDisk()
{
    QVERIFY(SafeFile::replaceKeepingPrevious(file(QStringLiteral("a")), "1", m_error));
    QVERIFY(SafeFile::replaceKeepingPrevious(file(QStringLiteral("a")), "2", m_error));
    {
        const DiskIsFull full(4096);
        QVERIFY(!SafeFile::replaceKeepingPrevious(file(QStringLiteral("a")), QByteArray(4097, 'x'), m_error));
    }
    QCOMPARE(m_error, QStringLiteral("The file could not be written whole; perhaps the disk is full."));
    QCOMPARE(readFile(file(QStringLiteral("a"))), QByteArray("2"));
    QCOMPARE(readFile(file(QStringLiteral("a.bak"))), QByteArray("1"));
}

SETTINGAREA_TEST_MAIN(tst_SafeFile, QCoreApplication)
#include "tst_SafeFile.moc"
