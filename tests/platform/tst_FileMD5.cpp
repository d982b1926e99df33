#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <utilbase/Utils.h>

#include <QCoreApplication>
#include <QCryptographicHash>
#include <QFile>
#include <QTemporaryDir>

#include <array>
#include <future>
#include <vector>

namespace {

QByteArray digest(const QString& path)
{
    const SMD5 md5 = Utils::getFileMD5(path);
    return {md5.data, sizeof md5.data};
}

// As SMD5 holds it: with the terminating zero.
QByteArray expected(const char* digits)
{
    return {digits, 33};
}

QByteArray noDigest()
{
    return {33, '\0'};
}

// Peak of the memory in use so far, in bytes.
qint64 peakMemory()
{
    rusage usage = {};
    ::getrusage(RUSAGE_SELF, &usage);
    return qint64{usage.ru_maxrss} * 1024;
}

} // namespace

class tst_FileMD5 : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void digestOfContent_data();
    void digestOfContent();
    void oddNames_data();
    void oddNames();
    void fileOfUnknownSize();
    void largeFileStaysOnDisk();
    void linkToFile();
    void noRegularFile_data();
    void noRegularFile();
    void unreadableFile();
    void manyThreads();

private:
    QString path(const QString& name) const { return m_folder.filePath(name); }

    QTemporaryDir m_folder;
};

void tst_FileMD5::digestOfContent_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QByteArray>("digits");
    QTest::newRow("empty") << QByteArray() << expected("d41d8cd98f00b204e9800998ecf8427e");
    QTest::newRow("abc") << QByteArray("abc") << expected("900150983cd24fb0d6963f7d28e17f72");
    QTest::newRow("zero byte") << QByteArray(1, '\0') << expected("93b885adfe0da089cdf634904fd59f71");
    QTest::newRow("one buffer") << QByteArray(65536, 'a') << expected("2d61aa54b58c2e94403fb092c3dbc027");
    QTest::newRow("one byte more") << QByteArray(65537, 'a') << expected("b3c6fc238e908636e53aabd5ad830cf7");
    QTest::newRow("many buffers") << QByteArray(1000000, 'a') << expected("7707d6ae4e027c70eea2a935c2296f21");
}

void tst_FileMD5::digestOfContent()
{
    QFETCH(QByteArray, content);
    QFETCH(QByteArray, digits);
    const QString file = path(QStringLiteral("content.rcvp"));
    QVERIFY(writeFile(file, content));
    QCOMPARE(digest(file), digits);
}

void tst_FileMD5::oddNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("newline") << QStringLiteral("two\nlines.rcvp");
    QTest::newRow("255 bytes") << QString(250, QLatin1Char('n')) + QStringLiteral(".rcvp");
    QTest::newRow("Chinese") << QStringLiteral("\u7bb1\u4f53.rcvp");
    QTest::newRow("right to left") << QStringLiteral("\u202e\u05d0\u05d1.rcvp");
    QTest::newRow("combining") << QStringLiteral("e\u0301.rcvp");
    QTest::newRow("leading dash") << QStringLiteral("-rf");
}

void tst_FileMD5::oddNames()
{
    QFETCH(QString, name);
    QVERIFY(writeFile(path(name), QByteArrayLiteral("abc")));
    QCOMPARE(digest(path(name)), expected("900150983cd24fb0d6963f7d28e17f72"));
}

// The kernel writes these while they are read, by the page, and gives 0 for their size.
void tst_FileMD5::fileOfUnknownSize()
{
    QFile file(QStringLiteral("/proc/crypto"));
    if (!file.open(QFile::ReadOnly))
        QSKIP("There is no such file here");
    const QByteArray content = file.readAll();
    QVERIFY(content.size() > 4096);
    QCOMPARE(digest(file.fileName()),
             expected(QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex().constData()));
}

void tst_FileMD5::largeFileStaysOnDisk()
{
    constexpr qint64 size = qint64{1} << 28;
    const QString file = path(QStringLiteral("large.rcvp"));
    QVERIFY(writeFile(file, {}) && QFile::resize(file, size)); // a hole: takes no room on disk
    const qint64 before = peakMemory();
    QCOMPARE(digest(file), expected("1f5039e50bd66b290c56684d8550c6c2"));
    QVERIFY2(peakMemory() - before < size / 16, qPrintable(QString::number(peakMemory() - before)));
    QVERIFY(QFile::remove(file));
}

void tst_FileMD5::linkToFile()
{
    QVERIFY(writeFile(path(QStringLiteral("target.rcvp")), QByteArrayLiteral("abc")));
    QVERIFY(makeLink(QStringLiteral("target.rcvp"), path(QStringLiteral("link.rcvp"))));
    QCOMPARE(digest(path(QStringLiteral("link.rcvp"))), expected("900150983cd24fb0d6963f7d28e17f72"));
}

void tst_FileMD5::noRegularFile_data()
{
    QTest::addColumn<QString>("file");
    QTest::newRow("empty name") << QString();
    QTest::newRow("not there") << path(QStringLiteral("missing.rcvp"));
    QTest::newRow("folder") << m_folder.path();
    QTest::newRow("name too long") << path(QString(300, QLatin1Char('n')));
    QTest::newRow("reading fails") << QStringLiteral("/proc/self/mem");
    QTest::newRow("endless device") << QStringLiteral("/dev/zero");

    QVERIFY(makeFifo(path(QStringLiteral("fifo.rcvp"))));
    QTest::newRow("FIFO without writer") << path(QStringLiteral("fifo.rcvp"));
    QVERIFY(makeSocket(path(QStringLiteral("socket.rcvp"))));
    QTest::newRow("socket") << path(QStringLiteral("socket.rcvp"));
    QVERIFY(makeLink(QStringLiteral("nowhere"), path(QStringLiteral("dangling.rcvp"))));
    QTest::newRow("link to nowhere") << path(QStringLiteral("dangling.rcvp"));
    QVERIFY(makeLink(QStringLiteral("self.rcvp"), path(QStringLiteral("self.rcvp"))));
    QTest::newRow("link to itself") << path(QStringLiteral("self.rcvp"));

    QVERIFY(writeFile(path(QStringLiteral("cut")), QByteArrayLiteral("abc")));
    QTest::newRow("zero in the name") << path(QStringLiteral("cut")) + QChar(QChar::Null) + QStringLiteral(".rcvp");
}

void tst_FileMD5::noRegularFile()
{
    QFETCH(QString, file);
    QCOMPARE(digest(file), noDigest());
}

void tst_FileMD5::unreadableFile()
{
    const QString file = path(QStringLiteral("secret.rcvp"));
    QVERIFY(writeFile(file, QByteArrayLiteral("abc")));
    QVERIFY(QFile::setPermissions(file, QFile::Permissions()));
    const PermissionsApply permissionsApply;
    QCOMPARE(digest(file), noDigest());
}

void tst_FileMD5::manyThreads()
{
    for (int i = 0; i < 64; ++i)
        QVERIFY(writeFile(path(QStringLiteral("%1.rcvp").arg(i)), QByteArray(i * 1000, 'a')));
    const auto digestAll = [this] {
        std::vector<QByteArray> digests(64);
        for (int i = 0; i < 64; ++i)
            digests[static_cast<std::size_t>(i)] = digest(path(QStringLiteral("%1.rcvp").arg(i)));
        return digests;
    };
    const std::vector<QByteArray> alone = digestAll();
    QCOMPARE(alone.front(), expected("d41d8cd98f00b204e9800998ecf8427e"));
    std::array<std::future<std::vector<QByteArray>>, 8> together;
    for (auto& digests : together)
        digests = std::async(std::launch::async, digestAll);
    for (auto& digests : together)
        QVERIFY(digests.get() == alone);
}

SETTINGAREA_TEST_MAIN(tst_FileMD5, QCoreApplication)
#include "tst_FileMD5.moc"
