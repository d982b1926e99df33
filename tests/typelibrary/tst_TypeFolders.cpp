#include "tests/support/FileSystemCalls.h"
#include "tests/support/StoreFixture.h"
#include "typelibrary/store/LibraryScan.h"
#include "typelibrary/store/TypeFolders.h"

#include <QCoreApplication>
#include <QFile>

// Which folders get an expander, and which of them are listed again to find out.
class tst_TypeFolders : public StoreFixture
{
    Q_OBJECT

private Q_SLOTS:
    void answers_data();
    void answers();
    void everyChangeCounts();
    void answerIsRemembered();
    void scanRemembers();
    void recentChangeIsNotTrusted();
    void linksAreNotTrusted();
    void changedFolderIsListedAgain();
};

namespace {

// A folder with types that nobody has changed for a while.
const QString samples = QStringLiteral(SAMPLES_FOLDER);

bool lists(const QString& folder)
{
    FileSystemCalls calls;
    if (isFreeOfTypes(folder))
        qFatal("%s holds no types", qPrintable(folder));
    return calls.take().contains(QStringLiteral("opendir(%1)").arg(folder));
}

FolderStamp longUnchanged(FolderStamp stamp)
{
    stamp.changed.tv_sec -= 3600;
    return stamp;
}

} // namespace

void tst_TypeFolders::answers_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("isFree");
    QTest::newRow("text file") << QStringLiteral("t.txt") << true;
    QTest::newRow("suffix in capitals") << QStringLiteral("a.RCVP") << true;
    QTest::newRow("hidden type") << QStringLiteral(".a.rcvp") << true;
    QTest::newRow("single type") << QStringLiteral("a.rcvp") << false;
    QTest::newRow("multi type") << QStringLiteral("a.rcvbp") << false;
    QTest::newRow("folder") << QStringLiteral("inner/t.txt") << false;
}

void tst_TypeFolders::answers()
{
    QFETCH(QString, entry);
    QVERIFY(isFreeOfTypes(library->path()));
    write(entry, "content");
    QTEST(isFreeOfTypes(library->path()), "isFree");
    QVERIFY(isFreeOfTypes(pathOf(QStringLiteral("not there"))));
    QVERIFY(isFreeOfTypes(pathOf(entry)));
}

void tst_TypeFolders::everyChangeCounts()
{
    const QString group = makeFolder(QStringLiteral("G"));
    for (int i = 0; i < 100; ++i) {
        const QString path = write(QStringLiteral("G/a.rcvp"), "a");
        scanLibrary(library->path());
        QVERIFY(!isFreeOfTypes(group));
        QVERIFY(QFile::remove(path));
        QVERIFY(isFreeOfTypes(group));
    }
}

void tst_TypeFolders::answerIsRemembered()
{
    QVERIFY(lists(samples));
    QVERIFY(!lists(samples));
}

void tst_TypeFolders::scanRemembers()
{
    const QString link = pathOf(QStringLiteral("link"));
    QVERIFY(QFile::link(samples, link));
    scanLibrary(library->path());
    QVERIFY(!lists(link));
}

void tst_TypeFolders::recentChangeIsNotTrusted()
{
    const QString group = makeFolder(QStringLiteral("G"));
    write(QStringLiteral("G/a.rcvp"), "a");
    QVERIFY(lists(group));
    QVERIFY(lists(group));
}

void tst_TypeFolders::linksAreNotTrusted()
{
    const QString group = makeFolder(QStringLiteral("G"));
    QVERIFY(QFile::link(samples, group + QStringLiteral("/link")));
    scanLibrary(library->path());
    QVERIFY(!isFreeOfTypes(group));
    QVERIFY(QFile::remove(group + QStringLiteral("/link")));
    QVERIFY(isFreeOfTypes(group));
}

void tst_TypeFolders::changedFolderIsListedAgain()
{
    QVERIFY(!isFreeOfTypes(samples));
    QVERIFY(!lists(samples));
    rememberTypesIn(samples, longUnchanged(folderStamp(samples)));
    QVERIFY(lists(samples));
    QVERIFY(!lists(samples));
}

SETTINGAREA_TEST_MAIN(tst_TypeFolders, QCoreApplication)
#include "tst_TypeFolders.moc"
