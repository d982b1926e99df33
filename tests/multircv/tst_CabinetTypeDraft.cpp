#include "multircv/CabinetTypeDraft.h"
#include "tests/multircv/WizardLibrary.h"
#include "tests/support/TestObject.h"

#include <utilbase/Utils.h>

#include <QApplication>

#include <memory>

class tst_CabinetTypeDraft : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void readsTheRecord();
    void nameTakenAnywhere();
    void ownNameIsFree();
    void nameWithDots();
    void unscannedFileTakesItsName();
    void replacesOldFile();
    void canBeSaved();
    void savesNewType();
    void parameterFileChangedSinceTheScan();
    void savesEditedTypeUnderItsName();
    void savesEditedTypeUnderAnotherName();
    void editedFileIsGone();
    void unreadableRecordOfTheSameName();
    void writesNoRecordWithoutACopy();
    void copyOfReadOnlyFileIsWritable();
    void createDeleteCreate();
    void forgetsTheCopyWithoutARecord();

private:
    CabinetEdit named(const QString& name) const
    {
        CabinetEdit edit;
        edit.grid = QSize(2, 1);
        edit.wiring = {1, 0};
        edit.typeName = name;
        edit.weight = 12.5;
        return edit;
    }
    QString addType(const QString& relative)
    {
        SHwRcvInCabinetInfo record;
        record.columns = 2;
        record.rows = 1;
        record.weight = 3.5F;
        return m_pLibrary->addMulti(relative, m_parameterFile, record);
    }

    std::unique_ptr<WizardLibrary> m_pLibrary;
    QString m_parameterFile;
};

void tst_CabinetTypeDraft::init()
{
    TestObject::init();
    m_pLibrary = std::make_unique<WizardLibrary>();
    m_parameterFile = m_pLibrary->add(QStringLiteral("G/Card.rcvp"), "card");
    m_pLibrary->rescan();
}

void tst_CabinetTypeDraft::cleanup()
{
    m_pLibrary.reset();
    TestObject::cleanup();
}

void tst_CabinetTypeDraft::readsTheRecord()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"));
    m_pLibrary->handler->forgetCalls();
    const CabinetTypeDraft edited(m_pLibrary->root(), type);
    QCOMPARE(m_pLibrary->handler->calls(), QStringList({QStringLiteral("readCabinetInfo(%1)").arg(type)}));
    QCOMPARE(edited.record().weight, 3.5F);
    QCOMPARE(edited.ownName(), QStringLiteral("Cab"));

    m_pLibrary->handler->forgetCalls();
    const CabinetTypeDraft created(m_pLibrary->root(), {});
    QCOMPARE(m_pLibrary->handler->calls(), QStringList());
    QVERIFY(isNew(created.record()));
    QCOMPARE(created.ownName(), QString());
}

void tst_CabinetTypeDraft::nameTakenAnywhere()
{
    const CabinetTypeDraft draft(m_pLibrary->root(), {});
    QVERIFY(draft.isNameTaken(QStringLiteral("Card")));
    QVERIFY(!draft.isNameTaken(QStringLiteral("card")));
    QVERIFY(!draft.isNameTaken(QStringLiteral("G")));
}

// Also where another entry of that name comes first in the tree.
void tst_CabinetTypeDraft::ownNameIsFree()
{
    m_pLibrary->add(QStringLiteral("A/Cab.rcvp"), "first");
    const QString type = addType(QStringLiteral("H/Cab.rcvbp"));
    m_pLibrary->rescan();
    QCOMPARE(CTypeLibrary::instance().searchSameName(QStringLiteral("Cab")),
             m_pLibrary->path(QStringLiteral("A/Cab.rcvp")));
    QVERIFY(!CabinetTypeDraft(m_pLibrary->path(QStringLiteral("H")), type).isNameTaken(QStringLiteral("Cab")));
    QVERIFY(CabinetTypeDraft(m_pLibrary->path(QStringLiteral("H")), {}).isNameTaken(QStringLiteral("Cab")));
    QVERIFY(CabinetTypeDraft(m_pLibrary->path(QStringLiteral("H")), type).isNameTaken(QStringLiteral("Card")));
}

// A type from elsewhere: its name is not cut off at the last dot.
void tst_CabinetTypeDraft::nameWithDots()
{
    m_pLibrary->add(QStringLiteral("P2.rcvp"), "other");
    const QString type = addType(QStringLiteral("P2.5.rcvbp"));
    m_pLibrary->rescan();
    const CabinetTypeDraft draft(m_pLibrary->root(), type);
    QCOMPARE(draft.ownName(), QStringLiteral("P2.5"));
    QVERIFY(!draft.isNameTaken(QStringLiteral("P2.5")));
    QVERIFY(CabinetTypeDraft(m_pLibrary->root(), {}).isNameTaken(QStringLiteral("P2.5")));
}

void tst_CabinetTypeDraft::unscannedFileTakesItsName()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"));
    m_pLibrary->rescan();
    m_pLibrary->add(QStringLiteral("Late.rcvbp"), "late");
    QVERIFY(CabinetTypeDraft(m_pLibrary->root(), {}).isNameTaken(QStringLiteral("Late")));
    m_pLibrary->add(QStringLiteral("G/Cab.rcvbp"), "late");
    QVERIFY(CabinetTypeDraft(m_pLibrary->path(QStringLiteral("G")), type).isNameTaken(QStringLiteral("Cab")));
}

void tst_CabinetTypeDraft::replacesOldFile()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"));
    QVERIFY(CabinetTypeDraft(m_pLibrary->root(), type).replacesOldFile(QStringLiteral("Cab")));
    QVERIFY(CabinetTypeDraft(m_pLibrary->root(), type).replacesOldFile(QStringLiteral("Other")));
    QVERIFY(!CabinetTypeDraft(m_pLibrary->root(), {}).replacesOldFile(QStringLiteral("Other")));
    // Without a record it is a new type, unless it would take the place of the file.
    m_pLibrary->records.clear();
    QVERIFY(CabinetTypeDraft(m_pLibrary->root(), type).replacesOldFile(QStringLiteral("Cab")));
    QVERIFY(!CabinetTypeDraft(m_pLibrary->root(), type).replacesOldFile(QStringLiteral("Other")));
}

void tst_CabinetTypeDraft::canBeSaved()
{
    QVERIFY(CabinetTypeDraft(m_pLibrary->root(), {}).canBeSaved());
    QVERIFY(!CabinetTypeDraft({}, {}).canBeSaved());
    CSettingArea::instance().setHandler(nullptr);
    CabinetTypeDraft draft(m_pLibrary->root(), QStringLiteral("/gone.rcvbp"));
    QVERIFY(!draft.canBeSaved());
    draft.save(m_parameterFile, named(QStringLiteral("Cab")));
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("G/Card.rcvp=card")}));
}

void tst_CabinetTypeDraft::savesNewType()
{
    CabinetTypeDraft draft(m_pLibrary->path(QStringLiteral("G")), {});
    m_pLibrary->handler->forgetCalls();
    draft.save(m_parameterFile, named(QStringLiteral("Cab")));
    const QString file = m_pLibrary->path(QStringLiteral("G/Cab.rcvbp"));
    QCOMPARE(m_pLibrary->handler->calls(), QStringList({QStringLiteral("writeCabinetInfo(%1)").arg(file)}));
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("G/Cab.rcvbp=multi card"), QStringLiteral("G/Card.rcvp=card")}));
    const SHwRcvInCabinetInfo written = m_pLibrary->records.value(file);
    QCOMPARE(written.name, QStringLiteral("Card"));
    QVERIFY(written.md5 == md5OfFile(m_parameterFile));
    QCOMPARE(written.columns, std::uint8_t{2});
    QCOMPARE(written.rows, std::uint8_t{1});
    QCOMPARE(written.wiringOrder, (std::array<std::uint8_t, 10>{1, 0}));
    QCOMPARE(written.weight, 12.5F);
}

// The record tells of the content that was copied.
void tst_CabinetTypeDraft::parameterFileChangedSinceTheScan()
{
    m_pLibrary->add(QStringLiteral("G/Card.rcvp"), "card, calibrated");
    CabinetTypeDraft draft(m_pLibrary->root(), {});
    draft.save(m_parameterFile, named(QStringLiteral("Cab")));
    QCOMPARE(m_pLibrary->contentOf(m_pLibrary->path(QStringLiteral("Cab.rcvbp"))),
             QByteArray("multi card, calibrated"));
    const SMD5 written = m_pLibrary->records.value(m_pLibrary->path(QStringLiteral("Cab.rcvbp"))).md5;
    QVERIFY(written == Utils::getFileMD5(m_parameterFile));
}

void tst_CabinetTypeDraft::savesEditedTypeUnderItsName()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"));
    CabinetTypeDraft(m_pLibrary->root(), type).save(m_parameterFile, named(QStringLiteral("Cab")));
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("Cab.rcvbp=multi card"), QStringLiteral("G/Card.rcvp=card")}));
    QCOMPARE(m_pLibrary->records.value(type).weight, 12.5F);
}

void tst_CabinetTypeDraft::savesEditedTypeUnderAnotherName()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"));
    const SMD5 md5 = md5OfFile(type);
    bool oldStayed = false;
    const auto writeRecord = m_pLibrary->handler->write;
    m_pLibrary->handler->write = [&](const QString& path, const SHwRcvInCabinetInfo& info) {
        oldStayed = QFile::exists(type);
        writeRecord(path, info);
    };
    CabinetTypeDraft(m_pLibrary->path(QStringLiteral("G")), type).save(m_parameterFile, named(QStringLiteral("New")));
    QVERIFY(oldStayed); // until the new one is complete
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("G/Card.rcvp=card"), QStringLiteral("G/New.rcvbp=multi card")}));
    QVERIFY(!isEmpty(md5));
    QCOMPARE(TypeFileInfoCache::instance().find(type).known, std::uint8_t{0});
}

void tst_CabinetTypeDraft::editedFileIsGone()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"));
    CabinetTypeDraft draft(m_pLibrary->root(), type);
    QVERIFY(QFile::remove(type));
    QVERIFY(draft.replacesOldFile(QStringLiteral("Cab")));
    draft.save(m_parameterFile, named(QStringLiteral("Cab")));
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("Cab.rcvbp=multi card"), QStringLiteral("G/Card.rcvp=card")}));
}

void tst_CabinetTypeDraft::unreadableRecordOfTheSameName()
{
    const QString broken = m_pLibrary->add(QStringLiteral("Cab.rcvbp"), "broken");
    CabinetTypeDraft draft(m_pLibrary->root(), broken);
    QVERIFY(isNew(draft.record()));
    draft.save(m_parameterFile, named(QStringLiteral("Cab")));
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("Cab.rcvbp=multi card"), QStringLiteral("G/Card.rcvp=card")}));
}

// The old type keeps its content and its record, whatever keeps the copy from being made.
void tst_CabinetTypeDraft::writesNoRecordWithoutACopy()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"));
    const QStringList before = m_pLibrary->files();
    m_pLibrary->handler->forgetCalls();
    CabinetTypeDraft edited(m_pLibrary->root(), type);
    edited.save(m_pLibrary->path(QStringLiteral("gone.rcvp")), named(QStringLiteral("Cab")));
    CabinetTypeDraft(m_parameterFile, type).save(m_parameterFile, named(QStringLiteral("Cab")));
    CabinetTypeDraft(m_pLibrary->path(QStringLiteral("gone")), {}).save(m_parameterFile, named(QStringLiteral("Cab")));
    const QString longName(300, QLatin1Char('x'));
    CabinetTypeDraft(m_pLibrary->root(), {}).save(m_parameterFile, named(longName));
    QCOMPARE(m_pLibrary->files(), before);
    QVERIFY(m_pLibrary->handler->calls().filter(QStringLiteral("writeCabinetInfo")).isEmpty());
    QCOMPARE(m_pLibrary->records.value(type).weight, 3.5F);
}

void tst_CabinetTypeDraft::copyOfReadOnlyFileIsWritable()
{
    QVERIFY(QFile::setPermissions(m_parameterFile, QFile::ReadOwner | QFile::ReadGroup));
    QFile::Permissions seen;
    m_pLibrary->handler->write = [&seen](const QString& path, const SHwRcvInCabinetInfo&) {
        seen = QFile::permissions(path);
    };
    CabinetTypeDraft(m_pLibrary->root(), {}).save(m_parameterFile, named(QStringLiteral("Cab")));
    QVERIFY(seen & QFile::WriteOwner);
    QVERIFY(!(seen & QFile::WriteOther));
}

// The second type of a name is not taken for the first: neither its digest nor its kind.
void tst_CabinetTypeDraft::createDeleteCreate()
{
    const QString file = m_pLibrary->path(QStringLiteral("Cab.rcvbp"));
    CabinetTypeDraft(m_pLibrary->root(), {}).save(m_parameterFile, named(QStringLiteral("Cab")));
    m_pLibrary->rescan();
    const SMD5 first = md5OfFile(file);
    QCOMPARE(typeOfFile(file), SSettings::TypeLibrary::STreeNode::MultiRcv);

    QVERIFY(QFile::remove(file));
    const QString other = m_pLibrary->add(QStringLiteral("Other.rcvp"), "other");
    m_pLibrary->handler->write = [](const QString&, const SHwRcvInCabinetInfo&) {}; // leaves it a single one
    CabinetTypeDraft(m_pLibrary->root(), {}).save(other, named(QStringLiteral("Cab")));
    m_pLibrary->rescan();
    QCOMPARE(typeOfFile(file), SSettings::TypeLibrary::STreeNode::SingleRcv);
    QVERIFY(md5OfFile(file) == md5OfFile(other));
    QVERIFY(md5OfFile(file) != first);
}

// A scan may look at the copy before its record is written.
void tst_CabinetTypeDraft::forgetsTheCopyWithoutARecord()
{
    const QString file = m_pLibrary->path(QStringLiteral("Cab.rcvbp"));
    const auto write = m_pLibrary->handler->write;
    SMD5 early;
    m_pLibrary->handler->write = [&](const QString& path, const SHwRcvInCabinetInfo& info) {
        early = md5OfFile(path);
        typeOfFile(path);
        write(path, info);
    };
    CabinetTypeDraft(m_pLibrary->root(), {}).save(m_parameterFile, named(QStringLiteral("Cab")));
    QVERIFY(early == md5OfFile(m_parameterFile));
    QVERIFY(md5OfFile(file) != early);
    QCOMPARE(typeOfFile(file), SSettings::TypeLibrary::STreeNode::MultiRcv);
}

SETTINGAREA_TEST_MAIN(tst_CabinetTypeDraft, QApplication)

#include "tst_CabinetTypeDraft.moc"
