#include "host/CHostHandler.h"
#include "host/typefile/TypeFile.h"
#include "multircv/CMultiRcvCabinetSetFirstPage.h"
#include "multircv/CMultiRcvCabinetSetSecondPage.h"
#include "plugin/CSettingArea.h"
#include "tests/host/TypeFileFixture.h"
#include "tests/multircv/Wizard.h"
#include "tests/support/FileFixture.h"
#include "tests/support/ModalScript.h"
#include "tests/support/TestObject.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QApplication>
#include <QCheckBox>
#include <QTemporaryDir>

using STreeNode = SSettings::TypeLibrary::STreeNode;

namespace {

const char payload[] = "parameters of the receiving card";

} // namespace

// The wizard and this host together: what the one enters the other keeps in real type files.
class tst_CabinetRoundTrip : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void createdTypeReadsBack_data();
    void createdTypeReadsBack();
    void treeKnowsTheCreatedType();
    void pressingThroughLeavesTheFile();
    void editedTypeReadsBack();
    void createDeleteCreate();
    void brokenTypeIsNoParameterFile();

private:
    QString path(const QString& name) const { return m_folder->filePath(name); }

    // Makes the type "Cab" of 2 x 2 receivers with a label; its record as the file has it.
    SHwRcvInCabinetInfo createCab();
    SHwRcvInCabinetInfo recordOf(const QString& file);

    std::unique_ptr<QTemporaryDir> m_folder;
    CHostHandler* m_pHandler = nullptr; // owned by the settings area
    QString m_card;
};

void tst_CabinetRoundTrip::init()
{
    TestObject::init();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_folder = std::make_unique<QTemporaryDir>();
    m_card = path(QStringLiteral("Card.rcvp"));
    TypeFileHeader header;
    header.width = 128;
    header.height = 64;
    header.receiverKind = 7;
    header.block = {2500, 320'000, 160'000, 16};
    QString error;
    QVERIFY2(TypeFile::write(m_card, header, payload, error), qPrintable(error));
    m_pHandler = new CHostHandler(nullptr, nullptr, {});
    CSettingArea::instance().setHandler(m_pHandler);
    CTypeLibrary::instance().setRootPath(m_folder->path());
}

void tst_CabinetRoundTrip::cleanup()
{
    CTypeLibrary::instance().setRootPath({}); // waits for the wizard's rescan
    CSettingArea::instance().setHandler(nullptr);
    m_folder.reset();
    TestObject::cleanup();
}

SHwRcvInCabinetInfo tst_CabinetRoundTrip::recordOf(const QString& file)
{
    SHwRcvInCabinetInfo record;
    m_pHandler->readCabinetInfo(file, record);
    return record;
}

SHwRcvInCabinetInfo tst_CabinetRoundTrip::createCab()
{
    Wizard wizard(m_folder->path());
    wizard.pick(QStringLiteral("Card"));
    wizard.setGrid(QStringLiteral("2 x 2"));
    wizard.next();
    wizard.dialog.findChild<QCheckBox*>()->click();
    wizard.applyTopology(QStringLiteral("left-up-direction"));
    wizard.next();
    wizard.setName(QStringLiteral("Cab"));
    wizard.box(0)->setValue(12.34);
    wizard.box(1)->setValue(350);
    wizard.box(2)->setValue(100.25);
    wizard.box(3)->setValue(9999999999.0);
    wizard.next();
    return wizard.isAccepted() ? recordOf(path(QStringLiteral("Cab.rcvbp"))) : SHwRcvInCabinetInfo();
}

void tst_CabinetRoundTrip::createdTypeReadsBack_data()
{
    QTest::addColumn<QString>("grid");
    QTest::addColumn<QSize>("size");
    for (const QSize& size : {QSize(2, 1), QSize(1, 2), QSize(3, 1), QSize(1, 3), QSize(4, 1), QSize(1, 4)})
        QTest::addRow("%d x %d", size.width(), size.height())
            << QStringLiteral("%1 x %2").arg(size.width()).arg(size.height()) << size;
}

void tst_CabinetRoundTrip::createdTypeReadsBack()
{
    QFETCH(QString, grid);
    QFETCH(QSize, size);
    Wizard wizard(m_folder->path());
    wizard.pick(QStringLiteral("Card"));
    wizard.setGrid(grid);
    wizard.next(2);
    wizard.setName(QString::fromUtf8("舞台屏-P4"));
    wizard.next();
    QVERIFY(wizard.isAccepted());

    const QString file = path(QString::fromUtf8("舞台屏-P4.rcvbp"));
    SHwRcvInCabinetInfo expected;
    expected.name = QStringLiteral("Card");
    expected.md5 = md5OfFile(m_card);
    expected.columns = static_cast<std::uint8_t>(size.width());
    expected.rows = static_cast<std::uint8_t>(size.height());
    for (std::size_t k = 0; k < std::size_t(size.width()) * std::size_t(size.height()); ++k)
        expected.wiringOrder[k] = static_cast<std::uint8_t>(k);
    QVERIFY(recordOf(file) == expected);
    QString error;
    QVERIFY2(TypeFile::verify(file, error), qPrintable(error));
    QVERIFY(readFile(file).endsWith(readFile(m_card).right(int(sizeof payload) - 1)));
    QVERIFY(QFileInfo::exists(m_card));
}

void tst_CabinetRoundTrip::treeKnowsTheCreatedType()
{
    SHwRcvInCabinetInfo expected;
    expected.name = QStringLiteral("Card");
    expected.md5 = md5OfFile(m_card);
    expected.specifyOrientation = true;
    expected.columns = expected.rows = 2;
    expected.wiringOrder = {3, 1, 0, 2};
    expected.weight = 12.34F;
    expected.power = 350;
    expected.voltageMin = 100.25F;
    expected.voltageMax = 1e10F;
    QVERIFY(createCab() == expected);

    QTRY_COMPARE(CTypeLibrary::instance().nodes().size(), std::size_t(2));
    const auto nodes = CTypeLibrary::instance().nodes();
    QCOMPARE(nodes.at(0).name, QStringLiteral("Cab"));
    QCOMPARE(nodes.at(0).nodeType, STreeNode::MultiRcv);
    QCOMPARE(nodes.at(0).resolution, QSize(256, 128));
    QCOMPARE(nodes.at(0).cabinetList, QList<int>({3, 1, 0, 2}));
    QCOMPARE(nodes.at(0).cabinetFlag, true);
    QCOMPARE(nodes.at(0).cabinetBlock, (std::array<std::int64_t, 4>{2500, 320'000, 160'000, 16}));
    QVERIFY(nodes.at(0).md5 != nodes.at(1).md5);
    QCOMPARE(nodes.at(1).nodeType, STreeNode::SingleRcv);
    QCOMPARE(nodes.at(1).resolution, QSize(128, 64));
}

void tst_CabinetRoundTrip::pressingThroughLeavesTheFile()
{
    // Called like its parameter file, in a group of its own.
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("G")));
    const QString file = path(QStringLiteral("G/Card.rcvbp"));
    QVERIFY(QFile::copy(m_card, file));
    SHwRcvInCabinetInfo record = sampleRecord();
    record.name = QStringLiteral("Card");
    record.md5 = md5OfFile(m_card);
    record.columns = record.rows = 2;
    record.wiringOrder = {1, 3, 2, 0};
    record.weight = 0.1F;
    m_pHandler->writeCabinetInfo(file, record);
    CTypeLibrary::instance().updateLibrary();
    const QByteArray before = readFile(file);

    Wizard wizard(path(QStringLiteral("G")), file);
    ModalScript script;
    wizard.next(3);
    QVERIFY(wizard.isRejected());
    QCOMPARE(script.seen(), QStringList());
    QCOMPARE(readFile(file), before);
}

void tst_CabinetRoundTrip::editedTypeReadsBack()
{
    SHwRcvInCabinetInfo expected = createCab();
    CTypeLibrary::instance().updateLibrary();
    const QString file = path(QStringLiteral("Cab.rcvbp"));

    Wizard wizard(m_folder->path(), file);
    QCOMPARE(wizard.dialog.findChild<CMultiRcvCabinetSetFirstPage*>()->parameterFile(), m_card);
    wizard.next();
    QCOMPARE(wizard.dialog.findChild<CMultiRcvCabinetSetSecondPage*>()->wiring(), QList<int>({3, 1, 0, 2}));
    wizard.applyTopology(QStringLiteral("down-left-direction"));
    wizard.next();
    QCOMPARE(wizard.nameEdit()->text(), QStringLiteral("Cab"));
    wizard.box(1)->setValue(360.5);
    ModalScript script;
    script.press(CDialog::Yes);
    wizard.next();
    QVERIFY(wizard.isAccepted());
    QVERIFY(script.isDone());

    expected.wiringOrder = {2, 3, 1, 0};
    expected.power = 360.5F;
    QVERIFY(recordOf(file) == expected);
    QCOMPARE(QDir(m_folder->path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList({QStringLiteral("Cab.rcvbp"), QStringLiteral("Card.rcvp")}));
}

void tst_CabinetRoundTrip::createDeleteCreate()
{
    createCab();
    CTypeLibrary::instance().updateLibrary();
    const QString file = path(QStringLiteral("Cab.rcvbp"));
    const SMD5 first = md5OfFile(file);
    QVERIFY(QFile::remove(file));
    removeFromCache(file);
    CTypeLibrary::instance().updateLibrary();
    QCOMPARE(CTypeLibrary::instance().searchSameName(QStringLiteral("Cab")), QString());

    Wizard wizard(m_folder->path());
    wizard.pick(QStringLiteral("Card"));
    wizard.next(2);
    wizard.setName(QStringLiteral("Cab"));
    wizard.next();
    QVERIFY(wizard.isAccepted());
    QVERIFY(md5OfFile(file) != first);
    QCOMPARE(resolutionOfFile(file), QSize(256, 64));
    QTRY_COMPARE(CTypeLibrary::instance().searchSameType(md5OfFile(file)), file);
    QCOMPARE(CTypeLibrary::instance().searchSameType(first), QString());
}

// A broken file reads as a single-receiver type, so it can be picked; the host then refuses to write into the copy,
// and says why.
void tst_CabinetRoundTrip::brokenTypeIsNoParameterFile()
{
    const QString broken = path(QStringLiteral("Broken.rcvp"));
    QVERIFY(writeFile(broken, "garbage"));
    const QRegularExpression reason(QStringLiteral("(Broken.rcvp|Cab.rcvbp): This is not a type file."));
    for (int query = 0; query < 4; ++query)
        expectWarning(reason);
    CTypeLibrary::instance().updateLibrary();
    {
        Wizard wizard(m_folder->path());
        wizard.pick(QStringLiteral("Broken"));
        wizard.next(2);
        wizard.setName(QStringLiteral("Cab"));
        // One by the record's writing, and the scan asks about the new type and once more about its parameter file.
        for (int query = 0; query < 9; ++query)
            expectWarning(reason);
        wizard.next();
        QVERIFY(wizard.isAccepted());
    }
    QTRY_COMPARE(CTypeLibrary::instance().nodes().size(), std::size_t(3));
    QCOMPARE(typeOfFile(path(QStringLiteral("Cab.rcvbp"))), STreeNode::SingleRcv);
    QCOMPARE(readFile(path(QStringLiteral("Cab.rcvbp"))), QByteArray("garbage"));
    QCOMPARE(readFile(broken), QByteArray("garbage"));
}

SETTINGAREA_TEST_MAIN(tst_CabinetRoundTrip, QApplication)
#include "tst_CabinetRoundTrip.moc"
