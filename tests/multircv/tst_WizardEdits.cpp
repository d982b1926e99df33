#include "multircv/CMultiRcvCabinetSetFirstPage.h"
#include "multircv/CMultiRcvCabinetSetSecondPage.h"
#include "tests/multircv/Wizard.h"
#include "tests/multircv/WizardFixture.h"
#include "tests/support/ModalScript.h"

#include <QApplication>
#include <QCheckBox>

namespace {

const char noFile[] = "Please select a parameter file.";
const char fileGone[] = "The parameter file does not exist.";
const char unwired[] = "Please complete a box of multi-card wiring.";
const char replaceIt[] = "Should you replace the old parameter file with a new parameter file?";

} // namespace

// The wizard on a type that there is already.
class tst_WizardEdits : public WizardFixture
{
    Q_OBJECT

private Q_SLOTS:
    void editingStartsFromTheType();
    void pressingThroughWritesNothing();
    void unchangedButForTheCheckBox();
    void otherNameThanTheParameterFiles();
    void editingConfirmed();
    void editingRefused();
    void editingUnderAnotherName();
    void editingKeepsALongName();
    void editingWithoutTheParameterFile();
    void editedFileDeletedOutside();
    void editingWhatHasNoRecord();
    void parameterFileVanishesBeforeOk();
    void damagedRecords_data();
    void damagedRecords();
    void parentMayEndWhileAsked();
};

void tst_WizardEdits::editingStartsFromTheType()
{
    const QString type = addType(QStringLiteral("G/Cab.rcvbp"), m_card, label());
    Wizard wizard(m_pLibrary->path(QStringLiteral("G")), type);
    QCOMPARE(m_pLibrary->handler->calls().filter(QStringLiteral("readCabinetInfo")),
             QStringList({QStringLiteral("readCabinetInfo(%1)").arg(type)}));
    QCOMPARE(wizard.step(), 0);
    QCOMPARE(wizard.dialog.findChild<CMultiRcvCabinetSetFirstPage*>()->parameterFile(), m_card);
    QCOMPARE(wizard.dialog.findChild<CComboBox*>()->currentText(), QStringLiteral("2 x 2"));
    wizard.next();
    QVERIFY(wizard.dialog.findChild<QCheckBox*>()->isChecked());
    QCOMPARE(wizard.dialog.findChild<CMultiRcvCabinetSetSecondPage*>()->wiring(), QList<int>({2, 0, 1, 3}));
    wizard.next();
    QCOMPARE(wizard.nameEdit()->text(), QStringLiteral("Cab"));
    QCOMPARE(wizard.box(0)->value(), 0.1);
    QCOMPARE(wizard.box(3)->value(), 240.5);
}

// For a type that is called like its parameter file, which lies in another group.
void tst_WizardEdits::pressingThroughWritesNothing()
{
    const QString type = addType(QStringLiteral("G/Card.rcvbp"), m_card, label());
    const QStringList before = m_pLibrary->files();
    const QDateTime modified = QFileInfo(type).lastModified();
    Wizard wizard(m_pLibrary->path(QStringLiteral("G")), type);
    ModalScript script;
    wizard.next(3);
    QVERIFY(wizard.isRejected());
    QCOMPARE(script.seen(), QStringList());
    QCOMPARE(m_pLibrary->files(), before);
    QCOMPARE(QFileInfo(type).lastModified(), modified);
    QCOMPARE(writes(), QStringList());
}

// The check box is no part of what is compared.
void tst_WizardEdits::unchangedButForTheCheckBox()
{
    const QString type = addType(QStringLiteral("G/Card.rcvbp"), m_card, label());
    Wizard wizard(m_pLibrary->path(QStringLiteral("G")), type);
    wizard.next();
    wizard.dialog.findChild<QCheckBox*>()->click();
    ModalScript script;
    wizard.next(2);
    QVERIFY(wizard.isRejected());
    QCOMPARE(script.seen(), QStringList());
}

// The record keeps the name of the parameter file: such a type always counts as changed.
void tst_WizardEdits::otherNameThanTheParameterFiles()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"), m_card, label());
    Wizard wizard(m_pLibrary->root(), type);
    ModalScript script;
    script.press(CDialog::No);
    wizard.next(3);
    QCOMPARE(script.seen(), QStringList({question(replaceIt)}));
    QCOMPARE(wizard.step(), 2);
}

void tst_WizardEdits::editingConfirmed()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"), m_card, label());
    Wizard wizard(m_pLibrary->root(), type);
    ModalScript script;
    script.press(CDialog::Yes);
    wizard.next(2);
    wizard.box(1)->setValue(260);
    wizard.next();
    QVERIFY(wizard.isAccepted());
    QCOMPARE(script.seen(), QStringList({question(replaceIt)}));
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("Cab.rcvbp=multi card"), QStringLiteral("Card.rcvp=card")}));
    const SHwRcvInCabinetInfo written = m_pLibrary->records.value(type);
    QCOMPARE(written.power, 260.0F);
    QCOMPARE(written.weight, 0.1F);
    QCOMPARE(written.wiringOrder, (std::array<std::uint8_t, 10>{2, 0, 1, 3}));
    QCOMPARE(written.specifyOrientation, true);
}

void tst_WizardEdits::editingRefused()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"), m_card, label());
    const QStringList before = m_pLibrary->files();
    Wizard wizard(m_pLibrary->root(), type);
    ModalScript script;
    script.press(CDialog::No).press(CDialog::Cancel); // which closes the box
    wizard.next(2);
    wizard.box(1)->setValue(260);
    wizard.next(2);
    QCOMPARE(script.seen(), QStringList({question(replaceIt), question(replaceIt)}));
    QCOMPARE(wizard.step(), 2);
    QVERIFY(wizard.finished.isEmpty());
    QCOMPARE(m_pLibrary->files(), before);
    QCOMPARE(writes(), QStringList());
}

void tst_WizardEdits::editingUnderAnotherName()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"), m_card, label());
    Wizard wizard(m_pLibrary->root(), type);
    ModalScript script;
    script.press(CDialog::Yes);
    wizard.next(2);
    wizard.setName(QStringLiteral("Cabinet"));
    wizard.next();
    QVERIFY(wizard.isAccepted());
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("Cabinet.rcvbp=multi card"), QStringLiteral("Card.rcvp=card")}));
    QTRY_VERIFY(libraryHas(QStringLiteral("Cabinet")));
    QVERIFY(!libraryHas(QStringLiteral("Cab")));
}

// A type from elsewhere may have a longer name than can be typed.
void tst_WizardEdits::editingKeepsALongName()
{
    const QString name(200, QLatin1Char('n'));
    const QString type = addType(name + QStringLiteral(".rcvbp"), m_card, label());
    Wizard wizard(m_pLibrary->root(), type);
    ModalScript script;
    script.press(CDialog::Yes);
    wizard.next(2);
    QCOMPARE(wizard.nameEdit()->text(), name);
    wizard.box(1)->setValue(260);
    wizard.next();
    QVERIFY(wizard.isAccepted());
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("Card.rcvp=card"), name + QStringLiteral(".rcvbp=multi card")}));
    QCOMPARE(m_pLibrary->records.value(type).power, 260.0F);
}

void tst_WizardEdits::editingWithoutTheParameterFile()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"), m_card, label());
    QVERIFY(QFile::remove(m_card));
    m_pLibrary->rescan();
    Wizard wizard(m_pLibrary->root(), type);
    ModalScript script;
    script.press(CDialog::Ok);
    wizard.next();
    QCOMPARE(script.seen(), QStringList({information(noFile)}));
    QCOMPARE(wizard.dialog.findChild<CComboBox*>()->currentText(), QStringLiteral("2 x 2"));
}

void tst_WizardEdits::editedFileDeletedOutside()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"), m_card, label());
    Wizard wizard(m_pLibrary->root(), type);
    QVERIFY(QFile::remove(type));
    ModalScript script;
    script.press(CDialog::Yes);
    wizard.next(3);
    QVERIFY(wizard.isAccepted());
    QCOMPARE(script.seen(), QStringList({question(replaceIt)}));
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("Cab.rcvbp=multi card"), QStringLiteral("Card.rcvp=card")}));
}

// A file that the host finds no record in starts as a new type; nothing is replaced without the question.
void tst_WizardEdits::editingWhatHasNoRecord()
{
    const QString broken = m_pLibrary->add(QStringLiteral("Broken.rcvbp"), "broken");
    m_pLibrary->rescan();
    Wizard wizard(m_pLibrary->root(), broken);
    QCOMPARE(wizard.dialog.findChild<CMultiRcvCabinetSetFirstPage*>()->parameterFile(), QString());
    wizard.pick(QStringLiteral("Card"));
    ModalScript script;
    script.press(CDialog::No);
    wizard.next(3);
    QCOMPARE(script.seen(), QStringList({question(replaceIt)}));
    wizard.setName(QStringLiteral("Other"));
    wizard.next();
    QVERIFY(wizard.isAccepted());
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("Broken.rcvbp=broken"), QStringLiteral("Card.rcvp=card"),
                                               QStringLiteral("Other.rcvbp=multi card")}));
}

// The type is not given up for a file that is no longer there.
void tst_WizardEdits::parameterFileVanishesBeforeOk()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"), m_card, label());
    Wizard wizard(m_pLibrary->root(), type);
    wizard.next(2);
    QVERIFY(QFile::remove(m_card));
    ModalScript script;
    script.press(CDialog::Ok);
    wizard.next();
    QCOMPARE(script.seen(), QStringList({information(fileGone)}));
    QCOMPARE(wizard.step(), 2);
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("Cab.rcvbp=multi card")}));
}

void tst_WizardEdits::damagedRecords_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<int>("rows");
    QTest::addColumn<QList<int>>("wiring");
    QTest::addColumn<bool>("complete");
    QTest::newRow("too many cells") << 255 << 255 << QList<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9} << true;
    QTest::newRow("no cell") << 0 << 0 << QList<int>{} << true;
    QTest::newRow("one cell twice") << 2 << 2 << QList<int>{1, 1, 2, 3} << false;
    QTest::newRow("cells that are none") << 2 << 2 << QList<int>{200, 1, 2, 255} << false;
}

// Either the first configuration is proposed, or the wiring has to be completed.
void tst_WizardEdits::damagedRecords()
{
    QFETCH(int, columns);
    QFETCH(int, rows);
    QFETCH(QList<int>, wiring);
    QFETCH(bool, complete);
    SHwRcvInCabinetInfo record = label();
    record.columns = static_cast<std::uint8_t>(columns);
    record.rows = static_cast<std::uint8_t>(rows);
    for (int i = 0; i < wiring.size(); ++i)
        record.wiringOrder[static_cast<std::size_t>(i)] = static_cast<std::uint8_t>(wiring.at(i));
    const QString type = addType(QStringLiteral("Cab.rcvbp"), m_card, record);
    Wizard wizard(m_pLibrary->root(), type);
    ModalScript script;
    script.press(complete ? CDialog::Yes : CDialog::Ok);
    wizard.next(2);
    if (!complete) {
        QCOMPARE(script.seen(), QStringList({information(unwired)}));
        return;
    }
    QCOMPARE(wizard.dialog.findChild<CComboBox*>()->currentText(), QStringLiteral("2 x 1"));
    wizard.next();
    QCOMPARE(script.seen(), QStringList({question(replaceIt)}));
    QVERIFY(wizard.isAccepted());
    QCOMPARE(m_pLibrary->records.value(type).columns, std::uint8_t{2});
    QCOMPARE(m_pLibrary->records.value(type).rows, std::uint8_t{1});
}

// The host may destroy the window behind an open question: that is no Yes.
void tst_WizardEdits::parentMayEndWhileAsked()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"), m_card, label());
    const QStringList before = m_pLibrary->files();
    auto* const window = new QWidget;
    auto* const dialog = new CMultiRcvCabinetSetDlg(m_pLibrary->root(), type, window);
    dialog->show();
    QPushButton* const next = dialog->button(CDialog::Next);
    next->click();
    next->click();
    QTimer end;
    end.setSingleShot(true);
    connect(&end, &QTimer::timeout, &end, [window] { delete window; });
    end.start();
    next->click();
    QCOMPARE(m_pLibrary->files(), before);
}

SETTINGAREA_TEST_MAIN(tst_WizardEdits, QApplication)
#include "tst_WizardEdits.moc"
