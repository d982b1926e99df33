#include "host/typefile/TypeFile.h"
#include "tests/host/TypeFileFixture.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QBuffer>
#include <QTemporaryDir>

namespace {

QByteArray payloadOf(int size)
{
    QByteArray payload;
    for (int i = 0; i < size; ++i)
        payload.append(static_cast<char>(i * 7 + i / 256));
    return payload;
}

} // namespace

class tst_TypeFile : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void writesAndReads_data();
    void writesAndReads();
    void readsFromADevice();
    void readsAFileOfNoBytes();
    void needsOneBlockForAnyFile();
    void waitsForNothing();
    void saysWhatIsWrong();
    void findsDamageInThePayload();

    void putsARecordIntoACopy();
    void keepsWhatItDoesNotKnow();
    void replacesARecord();
    void refusesAnInvalidRecord();
    void refusesToWriteIntoBrokenFiles();
    void keepsTheFileOnAFullDisk_data();
    void keepsTheFileOnAFullDisk();
    void writesThroughLinksAndKeepsTheMode();

private:
    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_path; // of a file that need not exist
    QString m_error;
};

void tst_TypeFile::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    m_path = m_folder->filePath(QStringLiteral("Wall 屏.rcvp"));
    m_error.clear();
}

void tst_TypeFile::writesAndReads_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("no payload") << 0;
    QTest::newRow("small") << 100;
    QTest::newRow("several blocks") << 200000;
}

void tst_TypeFile::writesAndReads()
{
    QFETCH(int, size);
    TypeFileHeader header = sampleHeader();
    header.cabinet = sampleRecord();
    QVERIFY2(TypeFile::write(m_path, header, payloadOf(size), m_error), qPrintable(m_error));
    QVERIFY(readFile(m_path).endsWith(payloadOf(size)));
    QVERIFY(TypeFile::verify(m_path, m_error));

    const auto read = TypeFile::readHeader(m_path, m_error);
    QVERIFY2(read, qPrintable(m_error));
    QCOMPARE(read->payloadSize, static_cast<quint32>(size));
    header.payloadSize = read->payloadSize;
    header.payloadChecksum = read->payloadChecksum;
    QVERIFY(*read == header);
}

void tst_TypeFile::readsFromADevice()
{
    QVERIFY(TypeFile::write(m_path, sampleHeader(), payloadOf(10000), m_error));
    QByteArray bytes = readFile(m_path);
    QBuffer buffer(&bytes);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    QVERIFY(TypeFile::readHeader(buffer, m_error) == TypeFile::readHeader(m_path, m_error));
}

void tst_TypeFile::readsAFileOfNoBytes()
{
    QVERIFY(writeFile(m_path, ""));
    QVERIFY(!TypeFile::readHeader(m_path, m_error));
    QCOMPARE(m_error, QStringLiteral("The file is cut off: it has 0 of 68 bytes."));
}

void tst_TypeFile::needsOneBlockForAnyFile()
{
    // A sparse file that says it has the largest payload there is.
    TypeFileHeader header = sampleHeader();
    header.payloadSize = TypeFileHeader::maxPayloadSize;
    const auto bytes = header.toBytes(m_error);
    QVERIFY(bytes && writeFile(m_path, *bytes));
    QFile file(m_path);
    QVERIFY(file.resize(bytes->size() + qint64{header.payloadSize}));
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Unbuffered));
    QVERIFY(TypeFile::readHeader(file, m_error) == header);
    QCOMPARE(file.pos(), 4096);
}

void tst_TypeFile::waitsForNothing()
{
    QVERIFY(makeFifo(m_path));
    QVERIFY(!TypeFile::readHeader(m_path, m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a regular file."));
    QVERIFY(!TypeFile::writeCabinet(m_path, sampleRecord(), m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a regular file."));
    QVERIFY(!TypeFile::readHeader(QStringLiteral("/dev/zero"), m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a regular file."));
}

void tst_TypeFile::saysWhatIsWrong()
{
    QVERIFY(!TypeFile::readHeader(m_path, m_error));
    QCOMPARE(m_error, QStringLiteral("No such file or directory"));
    QVERIFY(writeFile(m_path, "<?xml version=\"1.0\"?>"));
    QVERIFY(!TypeFile::readHeader(m_path, m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a type file."));
    QVERIFY(!TypeFile::verify(m_path, m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a type file."));
    QVERIFY(TypeFile::write(m_path, sampleHeader(), payloadOf(10000), m_error));
    QVERIFY(QFile::resize(m_path, 5000));
    QVERIFY(!TypeFile::readHeader(m_path, m_error));
    QCOMPARE(m_error, QStringLiteral("The file is cut off: it has 5000 of 10068 bytes."));
}

void tst_TypeFile::findsDamageInThePayload()
{
    QVERIFY(TypeFile::write(m_path, sampleHeader(), payloadOf(100000), m_error));
    QByteArray bytes = readFile(m_path);
    bytes[70000] = static_cast<char>(bytes.at(70000) ^ 1);
    QVERIFY(writeFile(m_path, bytes));
    QVERIFY(TypeFile::readHeader(m_path, m_error));
    QVERIFY(!TypeFile::verify(m_path, m_error));
    QCOMPARE(m_error, QStringLiteral("The payload is damaged: its checksum is wrong."));
}

// What becomes of a parameter file when the wizard makes a cabinet type from it.
void tst_TypeFile::putsARecordIntoACopy()
{
    QVERIFY(TypeFile::write(m_path, sampleHeader(), payloadOf(200000), m_error));
    const QByteArray source = readFile(m_path);
    const QString copy = m_folder->filePath(QStringLiteral("a.rcvbp"));
    QVERIFY(QFile::copy(m_path, copy));
    QVERIFY2(TypeFile::writeCabinet(copy, sampleRecord(), m_error), qPrintable(m_error));

    auto expected = TypeFile::readHeader(m_path, m_error);
    QVERIFY(expected);
    QVERIFY(!expected->cabinet);
    expected->cabinet = sampleRecord();
    QVERIFY(TypeFile::readHeader(copy, m_error) == expected);
    QVERIFY(readFile(copy).endsWith(payloadOf(200000)));
    QVERIFY(TypeFile::verify(copy, m_error));
    QCOMPARE(readFile(m_path), source);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 2);
}

void tst_TypeFile::keepsWhatItDoesNotKnow()
{
    TypeFileHeader header = sampleHeader();
    header.minorVersion = 9;
    header.otherSections = QByteArray("WXYZ\3\0\0\0abc", 11);
    QVERIFY(TypeFile::write(m_path, header, payloadOf(100), m_error));
    QVERIFY(TypeFile::writeCabinet(m_path, sampleRecord(), m_error));
    const auto read = TypeFile::readHeader(m_path, m_error);
    QVERIFY(read);
    QCOMPARE(read->minorVersion, quint16{9});
    QCOMPARE(read->otherSections, header.otherSections);
    QVERIFY(read->cabinet == sampleRecord());
}

void tst_TypeFile::replacesARecord()
{
    QVERIFY(TypeFile::write(m_path, sampleHeader(), payloadOf(100), m_error));
    const int without = readFile(m_path).size();
    QVERIFY(TypeFile::writeCabinet(m_path, sampleRecord(), m_error));
    SHwRcvInCabinetInfo other = sampleRecord();
    other.columns = 1;
    other.rows = 2;
    other.wiringOrder = {1, 0};
    other.name.clear();
    QVERIFY(TypeFile::writeCabinet(m_path, other, m_error));
    QVERIFY(TypeFile::readHeader(m_path, m_error)->cabinet == other);
    QCOMPARE(readFile(m_path).size(), without + 8 + 61);
}

void tst_TypeFile::refusesAnInvalidRecord()
{
    QVERIFY(TypeFile::write(m_path, sampleHeader(), payloadOf(100), m_error));
    const QByteArray before = readFile(m_path);
    QVERIFY(!TypeFile::writeCabinet(m_path, SHwRcvInCabinetInfo(), m_error));
    QCOMPARE(m_error, QStringLiteral("The record has 0 x 0 receivers; 1 to 10 are possible."));
    QCOMPARE(readFile(m_path), before);
}

void tst_TypeFile::refusesToWriteIntoBrokenFiles()
{
    QVERIFY(!TypeFile::writeCabinet(m_path, sampleRecord(), m_error));
    QCOMPARE(m_error, QStringLiteral("No such file or directory"));
    QVERIFY(!QFile::exists(m_path));
    QVERIFY(writeFile(m_path, "garbage"));
    QVERIFY(!TypeFile::writeCabinet(m_path, sampleRecord(), m_error));
    QCOMPARE(m_error, QStringLiteral("This is not a type file."));
    QCOMPARE(readFile(m_path), QByteArray("garbage"));
}

void tst_TypeFile::keepsTheFileOnAFullDisk_data()
{
    QTest::addColumn<int>("payload");
    QTest::addColumn<int>("limit");
    QTest::newRow("in the header") << 100 << 60;
    QTest::newRow("in the payload") << 300000 << 250000;
    QTest::newRow("the last byte") << 100 << 68 + 81 + 100 - 1;
}

void tst_TypeFile::keepsTheFileOnAFullDisk()
{
    QFETCH(int, payload);
    QFETCH(int, limit);
    QVERIFY(TypeFile::write(m_path, sampleHeader(), payloadOf(payload), m_error));
    const QByteArray before = readFile(m_path);
    {
        const DiskIsFull full(static_cast<rlim_t>(limit));
        QVERIFY(!TypeFile::writeCabinet(m_path, sampleRecord(), m_error));
    }
    QCOMPARE(m_error, QStringLiteral("The file could not be written whole; perhaps the disk is full."));
    QCOMPARE(readFile(m_path), before);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::Files).size(), 1);
}

void tst_TypeFile::writesThroughLinksAndKeepsTheMode()
{
    QVERIFY(TypeFile::write(m_path, sampleHeader(), payloadOf(100), m_error));
    QCOMPARE(::chmod(QFile::encodeName(m_path).constData(), 0640), 0);
    const QString link = m_folder->filePath(QStringLiteral("link.rcvp"));
    QVERIFY(makeLink(m_path, link));
    QVERIFY(TypeFile::writeCabinet(link, sampleRecord(), m_error));
    QVERIFY(QFileInfo(link).isSymLink());
    QVERIFY(TypeFile::readHeader(m_path, m_error)->cabinet == sampleRecord());
    struct stat status = {};
    QCOMPARE(::stat(QFile::encodeName(m_path).constData(), &status), 0);
    QCOMPARE(status.st_mode & 07777U, 0640U);
}

SETTINGAREA_TEST_MAIN(tst_TypeFile, QCoreApplication)
#include "tst_TypeFile.moc"
