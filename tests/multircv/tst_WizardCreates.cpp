#include "tests/multircv/Wizard.h"
#include "tests/multircv/WizardFixture.h"
#include "tests/support/ModalScript.h"

#include <QApplication>
#include <QCheckBox>

namespace {

const char fileGone[] = "The parameter file does not exist.";
const char noName[] = "The type name is empty.";
const char voltages[] = "The lower voltage limit is greater than the upper voltage limit.";
const char nameTaken[] = "There is a duplicate box of multi-card file naming.";

} // namespace

// The last step of the wizard when it makes a new type.
class tst_WizardCreates : public WizardFixture
{
    Q_OBJECT

private Q_SLOTS:
    void orderOfTheLastChecks();
    void equalLimits();
    void nameTakenInAnotherGroup();
    void createsType();
    void createsTypeWithWiring();
    void browsedFileGoesToTheRoot();
    void greatestLimits();
    void longName();
    void folderVanishesBeforeOk();
    void withoutAHost();
    void withoutAFolder();
};

// Empty name, limits, name: each hides the ones after it.
void tst_WizardCreates::orderOfTheLastChecks()
{
    Wizard wizard(m_pLibrary->root());
    wizard.pick(QStringLiteral("Card"));
    wizard.next(2);
    QVERIFY(QFile::remove(m_card));
    wizard.box(2)->setValue(2);
    wizard.box(3)->setValue(1.99);
    ModalScript script;
    script.press(CDialog::Ok).press(CDialog::Ok).press(CDialog::Ok).press(CDialog::Ok);
    wizard.next();
    wizard.setName(QStringLiteral("Card"));
    wizard.next();
    wizard.box(3)->setValue(2);
    wizard.next();
    wizard.setName(QStringLiteral("Cab"));
    wizard.next();
    QCOMPARE(script.seen(),
             QStringList({information(noName), information(voltages), information(nameTaken), information(fileGone)}));
    QCOMPARE(wizard.step(), 2);
    QVERIFY(wizard.finished.isEmpty());
    QCOMPARE(m_pLibrary->files(), QStringList());
    QCOMPARE(writes(), QStringList());
}

void tst_WizardCreates::equalLimits()
{
    Wizard wizard(m_pLibrary->root());
    wizard.pick(QStringLiteral("Card"));
    wizard.next(2);
    wizard.setName(QStringLiteral("Cab"));
    wizard.box(2)->setValue(220);
    wizard.box(3)->setValue(220);
    ModalScript script;
    wizard.next();
    QCOMPARE(script.seen(), QStringList());
    QVERIFY(wizard.isAccepted());
    QCOMPARE(m_pLibrary->records.value(m_pLibrary->path(QStringLiteral("Cab.rcvbp"))).voltageMax, 220.0F);
}

void tst_WizardCreates::nameTakenInAnotherGroup()
{
    m_pLibrary->add(QStringLiteral("G/H/Cab.rcvp"), "other");
    m_pLibrary->rescan();
    Wizard wizard(m_pLibrary->root());
    wizard.pick(QStringLiteral("Card"));
    wizard.next(2);
    wizard.setName(QStringLiteral("Cab"));
    ModalScript script;
    script.press(CDialog::Ok);
    wizard.next();
    QCOMPARE(script.seen(), QStringList({information(nameTaken)}));
    QCOMPARE(wizard.step(), 2);
    QCOMPARE(writes(), QStringList());
}

void tst_WizardCreates::createsType()
{
    QVERIFY(QDir().mkpath(m_pLibrary->path(QStringLiteral("G"))));
    Wizard wizard(m_pLibrary->path(QStringLiteral("G")));
    wizard.pick(QStringLiteral("Card"));
    wizard.next(2);
    wizard.setName(QStringLiteral("Cab"));
    wizard.box(0)->setValue(12.34);
    wizard.box(1)->setValue(300);
    wizard.box(3)->setValue(240);
    ModalScript script;
    m_pLibrary->handler->forgetCalls();
    wizard.next();
    QVERIFY(wizard.isAccepted());
    QCOMPARE(script.seen(), QStringList());
    const QString file = m_pLibrary->path(QStringLiteral("G/Cab.rcvbp"));
    QCOMPARE(m_pLibrary->handler->calls().constFirst(), QStringLiteral("writeCabinetInfo(%1)").arg(file));
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("Card.rcvp=card"), QStringLiteral("G/Cab.rcvbp=multi card")}));
    const SHwRcvInCabinetInfo written = m_pLibrary->records.value(file);
    QCOMPARE(written.name, QStringLiteral("Card"));
    QVERIFY(written.md5 == md5OfFile(m_card));
    QCOMPARE(written.specifyOrientation, false);
    QCOMPARE(written.columns, std::uint8_t{2});
    QCOMPARE(written.rows, std::uint8_t{1});
    QCOMPARE(written.wiringOrder, (std::array<std::uint8_t, 10>{0, 1}));
    QCOMPARE(written.weight, 12.34F);
    QCOMPARE(written.power, 300.0F);
    QCOMPARE(written.voltageMin, 0.0F);
    QCOMPARE(written.voltageMax, 240.0F);
    QTRY_VERIFY(libraryHas(QStringLiteral("Cab"))); // the rescan
    QCOMPARE(typeOfFile(file), SSettings::TypeLibrary::STreeNode::MultiRcv);
}

void tst_WizardCreates::createsTypeWithWiring()
{
    Wizard wizard(m_pLibrary->root());
    wizard.pick(QStringLiteral("Card"));
    wizard.setGrid(QStringLiteral("2 x 2"));
    wizard.next();
    wizard.dialog.findChild<QCheckBox*>()->click();
    wizard.applyTopology(QStringLiteral("left-up-direction"));
    wizard.next();
    wizard.setName(QStringLiteral("Cab"));
    wizard.next();
    QVERIFY(wizard.isAccepted());
    const SHwRcvInCabinetInfo written = m_pLibrary->records.value(m_pLibrary->path(QStringLiteral("Cab.rcvbp")));
    QCOMPARE(written.specifyOrientation, true);
    QCOMPARE(written.columns, std::uint8_t{2});
    QCOMPARE(written.rows, std::uint8_t{2});
    QCOMPARE(written.wiringOrder, (std::array<std::uint8_t, 10>{3, 1, 0, 2}));
}

void tst_WizardCreates::browsedFileGoesToTheRoot()
{
    QVERIFY(QDir().mkpath(m_pLibrary->path(QStringLiteral("G"))));
    Wizard wizard(m_pLibrary->path(QStringLiteral("G")));
    ModalScript script;
    script.choose(m_pLibrary->addOutside(QStringLiteral("New.rcvp"), "new"));
    wizard.pick(QStringLiteral("Browse..."));
    QCoreApplication::sendPostedEvents();
    wizard.next(2);
    wizard.setName(QStringLiteral("Cab"));
    wizard.next();
    QVERIFY(wizard.isAccepted());
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("Card.rcvp=card"), QStringLiteral("G/Cab.rcvbp=multi new"),
                          QStringLiteral("New.rcvp=new")}));
}

void tst_WizardCreates::greatestLimits()
{
    Wizard wizard(m_pLibrary->root());
    wizard.pick(QStringLiteral("Card"));
    wizard.next(2);
    wizard.setName(QStringLiteral("Cab"));
    for (const int i : {0, 1, 2, 3})
        wizard.box(i)->setValue(9999999999.0);
    wizard.next();
    QVERIFY(wizard.isAccepted());
    const QString file = m_pLibrary->path(QStringLiteral("Cab.rcvbp"));
    QCOMPARE(m_pLibrary->records.value(file).voltageMin, 1e10F);
    QTRY_VERIFY(libraryHas(QStringLiteral("Cab")));

    Wizard again(m_pLibrary->root(), file);
    QCOMPARE(again.box(3)->value(), 9999999999.0);
}

// As long as a name can get: 128 bytes in 32 characters.
void tst_WizardCreates::longName()
{
    const QString character = QString::fromUtf8("\xf0\xa0\xae\xb7");
    Wizard wizard(m_pLibrary->root());
    wizard.pick(QStringLiteral("Card"));
    wizard.next(2);
    wizard.setName(character.repeated(64));
    wizard.next();
    QVERIFY(wizard.isAccepted());
    QVERIFY(m_pLibrary->files().contains(character.repeated(32) + QStringLiteral(".rcvbp=multi card")));
}

void tst_WizardCreates::folderVanishesBeforeOk()
{
    m_pLibrary->add(QStringLiteral("G/Other.rcvp"), "other");
    m_pLibrary->rescan();
    Wizard wizard(m_pLibrary->path(QStringLiteral("G")));
    wizard.pick(QStringLiteral("Card"));
    wizard.next(2);
    wizard.setName(QStringLiteral("Cab"));
    QVERIFY(QDir(m_pLibrary->path(QStringLiteral("G"))).removeRecursively());
    m_pLibrary->add(QStringLiteral("G"), "a file now");
    ModalScript script;
    wizard.next();
    QVERIFY(wizard.isAccepted()); // the outcome of copying is not told
    QCOMPARE(script.seen(), QStringList());
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("Card.rcvp=card"), QStringLiteral("G=a file now")}));
    QCOMPARE(writes(), QStringList());
}

// Nothing can be saved: the wizard closes as rejected and leaves the library alone.
void tst_WizardCreates::withoutAHost()
{
    CSettingArea::instance().setHandler(nullptr);
    Wizard wizard(m_pLibrary->root(), m_pLibrary->path(QStringLiteral("Cab.rcvbp")));
    wizard.pick(QStringLiteral("Card"));
    wizard.next(2);
    wizard.setName(QStringLiteral("New"));
    wizard.next();
    QVERIFY(wizard.isRejected());
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("Card.rcvp=card")}));
}

void tst_WizardCreates::withoutAFolder()
{
    Wizard wizard({});
    wizard.pick(QStringLiteral("Card"));
    wizard.next(2);
    wizard.setName(QStringLiteral("settingarea-test-cabinet"));
    wizard.next();
    QVERIFY(wizard.isRejected());
    QVERIFY(!QFileInfo::exists(QStringLiteral("/settingarea-test-cabinet.rcvbp")));
}

SETTINGAREA_TEST_MAIN(tst_WizardCreates, QApplication)
#include "tst_WizardCreates.moc"
