#include "tests/support/FileFixture.h"
#include "tests/support/StoreFixture.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QCoreApplication>

#include <future>

using NodeType = SSettings::TypeLibrary::STreeNode::NodeType;

class tst_TypeFileAttributes : public StoreFixture
{
    Q_OBJECT

private Q_SLOTS:
    void eachAttributeOfATypeFile();
    void whatIsNoTypeFileHasEmptyAttributes_data();
    void whatIsNoTypeFileHasEmptyAttributes();
    void eachAttributeIsComputedOnce();
    void attributesAreIndependentOfEachOther();
    void removedPathIsAskedAbout();
    void pathsAreComparedExactly();
    void deletedFileHasEmptyAttributesEvenWhenKnown();
    void withoutHandlerNothingOfTheHostsIsKept();
    void removalWinsOverASlowReader();
    void removalOfAnotherPathDoesNotMatter();
    void removalOfAFolder();
    void removalOfAFolderWinsOverASlowReader();
    void digestOfAnEmptyFile();
    void digestOfAnUnreadableFileIsEmptyAndKept();
    void digestsCompareByTheirCharacters();
    void metatypesHaveTheirNames();
};

void tst_TypeFileAttributes::eachAttributeOfATypeFile()
{
    const QString path = write(QStringLiteral("a.rcvbp"), "content");
    handler->isMulti = [](const QString&) { return true; };
    handler->cabinet = [](const QString&, SHwRcvInCabinetInfo& info) {
        info.columns = 1;
        info.rows = 3;
        info.wiringOrder = {2, 1, 0};
        info.specifyOrientation = true;
    };
    QCOMPARE(typeOfFile(path), NodeType::MultiRcv);
    QCOMPARE(QByteArray(md5OfFile(path).data), QByteArray("9a0364b9e99bb480dd25e1f0284c8555"));
    QCOMPARE(resolutionOfFile(path), QSize(128, 64));
    QCOMPARE(cabinetListOfFile(path), QList<int>({2, 1, 0}));
    QCOMPARE(cabinetFlagOfFile(path), true);
    QCOMPARE(cabinetBlockOfFile(path), (std::array<std::int64_t, 4>{11, 12, 13, 14}));
}

void tst_TypeFileAttributes::whatIsNoTypeFileHasEmptyAttributes_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("another suffix") << QStringLiteral("a.txt");
    QTest::newRow("suffix in capitals") << QStringLiteral("a.RCVP");
    QTest::newRow("no suffix") << QStringLiteral("rcvp");
    QTest::newRow("folder named like a type") << QStringLiteral("folder.rcvp");
    QTest::newRow("missing file") << QStringLiteral("missing.rcvp");
    QTest::newRow("pipe") << QStringLiteral("pipe.rcvp");
    QTest::newRow("socket") << QStringLiteral("socket.rcvp");
    QTest::newRow("link to nowhere") << QStringLiteral("broken.rcvp");
    QTest::newRow("device") << QStringLiteral("device.rcvp");
}

void tst_TypeFileAttributes::whatIsNoTypeFileHasEmptyAttributes()
{
    write(QStringLiteral("a.txt"), "a");
    write(QStringLiteral("a.RCVP"), "a");
    write(QStringLiteral("rcvp"), "a");
    makeFolder(QStringLiteral("folder.rcvp"));
    QVERIFY(makeFifo(pathOf(QStringLiteral("pipe.rcvp"))));
    QVERIFY(QFile::link(QStringLiteral("nowhere"), pathOf(QStringLiteral("broken.rcvp"))));
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), pathOf(QStringLiteral("device.rcvp"))));
    QVERIFY(makeSocket(pathOf(QStringLiteral("socket.rcvp"))));

    QFETCH(QString, name);
    const QString path = pathOf(name);
    QCOMPARE(typeOfFile(path), NodeType::None);
    QVERIFY(isEmpty(md5OfFile(path)));
    QCOMPARE(resolutionOfFile(path), QSize(-1, -1));
    QCOMPARE(cabinetListOfFile(path), QList<int>());
    QCOMPARE(cabinetFlagOfFile(path), false);
    QCOMPARE(cabinetBlockOfFile(path), (std::array<std::int64_t, 4>{}));
    QVERIFY(handler->calls().isEmpty());
}

void tst_TypeFileAttributes::eachAttributeIsComputedOnce()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    for (int i = 0; i < 3; ++i) {
        typeOfFile(path);
        resolutionOfFile(path);
        cabinetListOfFile(path);
        cabinetFlagOfFile(path);
        cabinetBlockOfFile(path);
    }
    QCOMPARE(questionsAbout(path),
             QStringList({QStringLiteral("isMultiRcvCabinetFile"), QStringLiteral("queryCabinetResolution"),
                          QStringLiteral("readCabinetInfo"), QStringLiteral("queryCabinetBlock")}));
}

void tst_TypeFileAttributes::attributesAreIndependentOfEachOther()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    md5OfFile(path);
    QCOMPARE(handler->calls(), QStringList());
    resolutionOfFile(path);
    QCOMPARE(questionsAbout(path), QStringList({QStringLiteral("queryCabinetResolution")}));
    QCOMPARE(TypeFileInfoCache::instance().find(path).known, int(TypeFileInfo::Digest | TypeFileInfo::Resolution));
}

void tst_TypeFileAttributes::removedPathIsAskedAbout()
{
    const QString path = write(QStringLiteral("a.rcvp"), "old");
    const QString other = write(QStringLiteral("b.rcvp"), "other");
    typeOfFile(path);
    typeOfFile(other);
    const SMD5 old = md5OfFile(path);
    write(QStringLiteral("a.rcvp"), "new");
    QVERIFY(md5OfFile(path) == old);
    removeFromCache(path);
    QVERIFY(md5OfFile(path) != old);
    typeOfFile(path);
    typeOfFile(other);
    QCOMPARE(questionsAbout(path).size(), 2);
    QCOMPARE(questionsAbout(other).size(), 1);
    removeFromCache(QStringLiteral("never heard of"));
}

void tst_TypeFileAttributes::pathsAreComparedExactly()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    const QString sameFile = pathOf(QStringLiteral("./a.rcvp"));
    typeOfFile(path);
    removeFromCache(sameFile);
    removeFromCache(path.toUpper());
    typeOfFile(path);
    QCOMPARE(questionsAbout(path).size(), 1);
}

void tst_TypeFileAttributes::deletedFileHasEmptyAttributesEvenWhenKnown()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    QCOMPARE(typeOfFile(path), NodeType::SingleRcv);
    QVERIFY(QFile::remove(path));
    QCOMPARE(typeOfFile(path), NodeType::None);
    QVERIFY(isEmpty(md5OfFile(path)));
}

void tst_TypeFileAttributes::withoutHandlerNothingOfTheHostsIsKept()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    setStoreHandler(nullptr);
    QCOMPARE(typeOfFile(path), NodeType::SingleRcv);
    QCOMPARE(resolutionOfFile(path), QSize(-1, -1));
    QCOMPARE(cabinetListOfFile(path), QList<int>());
    QCOMPARE(cabinetBlockOfFile(path), (std::array<std::int64_t, 4>{}));
    handler->isMulti = [](const QString&) { return true; };
    setStoreHandler(handler);
    QCOMPARE(typeOfFile(path), NodeType::MultiRcv);
    QCOMPARE(resolutionOfFile(path), QSize(128, 64));
}

void tst_TypeFileAttributes::removalWinsOverASlowReader()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    std::promise<void> asked;
    std::promise<void> answer;
    std::atomic_int questions{0};
    handler->resolution = [&](const QString&) {
        if (++questions > 1)
            return QSize(2, 2);
        asked.set_value();
        answer.get_future().wait();
        return QSize(1, 1);
    };
    auto slow = std::async(std::launch::async, [&] { return resolutionOfFile(path); });
    asked.get_future().wait();
    removeFromCache(path);
    answer.set_value();
    QCOMPARE(slow.get(), QSize(1, 1));
    QCOMPARE(resolutionOfFile(path), QSize(2, 2));
    QCOMPARE(resolutionOfFile(path), QSize(2, 2));
    QCOMPARE(questions.load(), 2);
}

void tst_TypeFileAttributes::removalOfAnotherPathDoesNotMatter()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    handler->resolution = [&](const QString&) {
        removeFromCache(pathOf(QStringLiteral("b.rcvp")));
        return QSize(1, 1);
    };
    resolutionOfFile(path);
    resolutionOfFile(path);
    QCOMPARE(questionsAbout(path).size(), 1);
}

void tst_TypeFileAttributes::removalOfAFolder()
{
    const QString inside = write(QStringLiteral("G/Sub/a.rcvp"), "a");
    const QString gone = write(QStringLiteral("G/gone.rcvp"), "gone");
    const QString beside = write(QStringLiteral("G2/b.rcvp"), "b");
    for (const QString& path : {inside, gone, beside})
        QVERIFY(!isEmpty(md5OfFile(path)));
    QFile::remove(gone);
    removeFolderFromCache(pathOf(QStringLiteral("G")));
    QVERIFY(!TypeFileInfoCache::instance().find(inside).known);
    QVERIFY(!TypeFileInfoCache::instance().find(gone).known);
    QVERIFY(TypeFileInfoCache::instance().find(beside).known);
}

void tst_TypeFileAttributes::removalOfAFolderWinsOverASlowReader()
{
    const QString inside = write(QStringLiteral("G/a.rcvp"), "a");
    const QString beside = write(QStringLiteral("G2/b.rcvp"), "b");
    handler->isMulti = [this](const QString&) {
        removeFolderFromCache(pathOf(QStringLiteral("G"))); // while the answer is under way
        return true;
    };
    QCOMPARE(typeOfFile(inside), NodeType::MultiRcv);
    QVERIFY(!TypeFileInfoCache::instance().find(inside).known);
    QCOMPARE(typeOfFile(beside), NodeType::MultiRcv);
    QVERIFY(TypeFileInfoCache::instance().find(beside).known);
    handler->isMulti = [](const QString&) { return false; };
    QCOMPARE(typeOfFile(inside), NodeType::SingleRcv); // a removal counts for what had begun before it only
    QVERIFY(TypeFileInfoCache::instance().find(inside).known);
}

void tst_TypeFileAttributes::digestOfAnEmptyFile()
{
    const QString path = write(QStringLiteral("a.rcvp"), QByteArray());
    QCOMPARE(QByteArray(md5OfFile(path).data), QByteArray("d41d8cd98f00b204e9800998ecf8427e"));
}

void tst_TypeFileAttributes::digestOfAnUnreadableFileIsEmptyAndKept()
{
    const QString path = write(QStringLiteral("a.rcvp"), "a");
    QVERIFY(QFile::setPermissions(library->path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                                       QFile::ExeGroup | QFile::ExeOther));
    QVERIFY(QFile::setPermissions(path, {}));
    {
        const PermissionsApply permissions;
        QVERIFY(isEmpty(md5OfFile(path)));
    }
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
    QVERIFY(isEmpty(md5OfFile(path)));
    removeFromCache(path);
    QVERIFY(!isEmpty(md5OfFile(path)));
}

void tst_TypeFileAttributes::digestsCompareByTheirCharacters()
{
    QCOMPARE(sizeof(SMD5), std::size_t(33));
    SMD5 a;
    SMD5 b;
    QVERIFY(isEmpty(a));
    QVERIFY(a == b);
    b.data[32] = 'x'; // past the characters
    QVERIFY(a == b);
    QVERIFY(isEmpty(b));
    b.data[31] = 'f';
    QVERIFY(a != b);
    QVERIFY(!isEmpty(b));
}

void tst_TypeFileAttributes::metatypesHaveTheirNames()
{
    QCOMPARE(QByteArray(QMetaType::typeName(qMetaTypeId<SMD5>())), QByteArray("SMD5"));
    QCOMPARE(QByteArray(QMetaType::typeName(qMetaTypeId<NodeType>())),
             QByteArray("SSettings::TypeLibrary::STreeNode::NodeType"));
    QCOMPARE(int(NodeType::None), 0);
    QCOMPARE(int(NodeType::Group), 1);
    QCOMPARE(int(NodeType::MultiRcv), 2);
    QCOMPARE(int(NodeType::SingleRcv), 3);
}

SETTINGAREA_TEST_MAIN(tst_TypeFileAttributes, QCoreApplication)
#include "tst_TypeFileAttributes.moc"
