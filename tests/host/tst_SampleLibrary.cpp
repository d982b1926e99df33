#include "host/HostPaths.h"
#include "host/SampleLibrary.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QDirIterator>
#include <QTemporaryDir>

#include <array>
#include <future>

class tst_SampleLibrary : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void theSamplesAreCopied();
    void onlyTypesAreCopied();
    void aLibraryThatExistsIsLeftAlone();
    void withoutSamplesTheLibraryIsEmpty();
    void aCopyThatIsCutOffLeavesNothing();
    void whatAKilledRunHasLeftIsRemoved();
    void severalHostsMayStartAtOnce();
    void aFolderThatCannotBeMade();

private:
    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

namespace {

QStringList filesBelow(const QString& folder)
{
    QStringList files;
    QDirIterator it(folder, QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << QDir(folder).relativeFilePath(it.next());
    files.sort();
    return files;
}

} // namespace

void tst_SampleLibrary::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
}

void tst_SampleLibrary::theSamplesAreCopied()
{
    const QString samples = HostPaths::samplesFolder();
    QVERIFY(filesBelow(samples).size() >= 20);
    QVERIFY(SampleLibrary::create(path("a/b/library"), samples));
    QCOMPARE(filesBelow(path("a/b/library")), filesBelow(samples));
    QCOMPARE(QDir(path("a/b")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("library")});
}

void tst_SampleLibrary::onlyTypesAreCopied()
{
    QVERIFY(writeFile(path("samples/G/a.rcvp"), "a"));
    QVERIFY(writeFile(path("samples/b.rcvbp"), "b"));
    QVERIFY(writeFile(path("samples/readme.txt"), "c"));
    QVERIFY(SampleLibrary::create(path("library"), path("samples")));
    QCOMPARE(filesBelow(path("library")), (QStringList{QStringLiteral("G/a.rcvp"), QStringLiteral("b.rcvbp")}));
    QCOMPARE(readFile(path("library/G/a.rcvp")), QByteArray("a"));
}

void tst_SampleLibrary::aLibraryThatExistsIsLeftAlone()
{
    QVERIFY(writeFile(path("samples/a.rcvp"), "a"));
    QVERIFY(QDir().mkdir(path("library")));
    QVERIFY(SampleLibrary::create(path("library"), path("samples")));
    QCOMPARE(filesBelow(path("library")), QStringList());
}

void tst_SampleLibrary::withoutSamplesTheLibraryIsEmpty()
{
    QVERIFY(SampleLibrary::create(path("library"), {}));
    QVERIFY(QDir(path("library")).isEmpty());
}

void tst_SampleLibrary::aCopyThatIsCutOffLeavesNothing()
{
    QVERIFY(writeFile(path("samples/a.rcvp"), "a"));
    QVERIFY(writeFile(path("samples/b.rcvp"), QByteArray(100'000, 'b')));
    {
        const DiskIsFull full(4096);
        QVERIFY(!SampleLibrary::create(path("library"), path("samples")));
    }
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{QStringLiteral("samples")});
    QVERIFY(SampleLibrary::create(path("library"), path("samples")));
    QCOMPARE(filesBelow(path("library")).size(), 2);
}

void tst_SampleLibrary::whatAKilledRunHasLeftIsRemoved()
{
    QVERIFY(writeFile(path("samples/a.rcvp"), "a"));
    QVERIFY(writeFile(path("library.new-AbCdEf/library/a.rcvp"), "a"));
    QVERIFY(writeFile(path("another.new-AbCdEf/a.rcvp"), "a"));
    QVERIFY(makeLink(path("another.new-AbCdEf"), path("library.new-AbCdEg")));
    QVERIFY(SampleLibrary::create(path("library"), path("samples")));
    QVERIFY(!QFileInfo::exists(path("library.new-AbCdEf")));
    QVERIFY(QFileInfo::exists(path("library.new-AbCdEg/a.rcvp")));
}

// As when the user is impatient with the first one.
void tst_SampleLibrary::severalHostsMayStartAtOnce()
{
    const QString samples = HostPaths::samplesFolder();
    constexpr int rounds = 50;
    for (int round = 0; round < rounds; ++round) {
        const QString home = m_folder->filePath(QString::number(round));
        const QString library = home + QStringLiteral("/library");
        const auto create = [&] { return SampleLibrary::create(library, samples); };
        std::array<std::future<bool>, 3> hosts;
        for (auto& host : hosts)
            host = std::async(std::launch::async, create);
        for (auto& host : hosts)
            QVERIFY2(host.get(), qPrintable(QStringLiteral("in round %1").arg(round)));
        QCOMPARE(filesBelow(library), filesBelow(samples));
        QCOMPARE(QDir(home).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
                 QStringList{QStringLiteral("library")});
    }
}

void tst_SampleLibrary::aFolderThatCannotBeMade()
{
    QVERIFY(writeFile(path("file"), "x"));
    QVERIFY(!SampleLibrary::create(path("file/library"), {}));
}

SETTINGAREA_TEST_MAIN(tst_SampleLibrary, QCoreApplication)
#include "tst_SampleLibrary.moc"
