#include "multircv/CMultiRcvCabinetSetDlg.h"
#include "multircv/CMultiRcvCabinetSetFirstPage.h"
#include "multircv/CMultiRcvCabinetSetSecondPage.h"
#include "multircv/CMultiRcvCabinetSetThirdPage.h"
#include "multircv/CabinetWiringWidget.h"
#include "tests/multircv/ModalScript.h"
#include "tests/multircv/WizardLibrary.h"
#include "tests/support/TestObject.h"

#include <widgetry/CComboBox.h>
#include <widgetry/CDoubleSpinBox.h>
#include <widgetry/CMenuPushButton.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QMenu>
#include <QStackedLayout>
#include <QToolButton>
#include <QTranslator>

#include <memory>

namespace {

const char noFile[] = "Please select a parameter file.";
const char fileGone[] = "The parameter file does not exist.";
const char unwired[] = "Please complete a box of multi-card wiring.";
const char noName[] = "The type name is empty.";
const char voltages[] = "The lower voltage limit is greater than the upper voltage limit.";
const char nameTaken[] = "There is a duplicate box of multi-card file naming.";
const char replaceIt[] = "Should you replace the old parameter file with a new parameter file?";

class UpperCase : public QTranslator
{
public:
    QString translate(const char* /*context*/, const char* text, const char* /*comment*/, int /*n*/) const override
    {
        return QString::fromUtf8(text).toUpper();
    }
    bool isEmpty() const override { return false; }
};

// The wizard as the user sees it.
class Wizard
{
public:
    explicit Wizard(const QString& folder, const QString& edited = {})
        : dialog(folder, edited),
          finished(&dialog, &QDialog::finished)
    {
        dialog.show();
    }

    int step() const { return dialog.findChild<QStackedLayout*>()->currentIndex(); }
    void press(CDialog::Button button) { QTest::mouseClick(dialog.button(button), Qt::LeftButton); }
    void next(int times = 1)
    {
        for (int i = 0; i < times; ++i)
            press(CDialog::Next);
    }
    // Picks the type with the name from the menu's top level.
    void pick(const QString& name)
    {
        const QList<QAction*> actions = dialog.findChild<CMenuPushButton*>()->menu()->actions();
        for (QAction* action : actions) {
            if (action->text() == name)
                action->trigger();
        }
    }
    void setGrid(const QString& text) { dialog.findChild<CComboBox*>()->setCurrentText(text); }
    void setName(const QString& name)
    {
        auto* const edit = dialog.findChild<QLineEdit*>(QStringLiteral("MultiRcvCabinet"));
        edit->selectAll();
        edit->insert(name);
    }
    QString name() const { return dialog.findChild<QLineEdit*>(QStringLiteral("MultiRcvCabinet"))->text(); }
    CDoubleSpinBox* box(int index) const
    {
        return dialog.findChild<CMultiRcvCabinetSetThirdPage*>()->findChildren<CDoubleSpinBox*>().at(index);
    }
    void applyTopology(const QString& name) { QTest::mouseClick(dialog.findChild<QToolButton*>(name), Qt::LeftButton); }
    bool isAccepted() const { return finished.count() == 1 && dialog.result() == QDialog::Accepted; }
    bool isRejected() const { return finished.count() == 1 && dialog.result() == QDialog::Rejected; }

    CMultiRcvCabinetSetDlg dialog;
    QSignalSpy finished;
};

bool libraryHas(const QString& name)
{
    return !CTypeLibrary::instance().searchSameName(name).isEmpty();
}

} // namespace

class tst_CMultiRcvCabinetSetDlg : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void appearance();
    void stepsAndButtons();
    void previousChecksNothing();
    void cancelRejectsAtEveryStep();
    void noParameterFile();
    void parameterFileGoneAtTheFirstStep();
    void incompleteWiring();
    void wiringIsKeptWithTheGrid();
    void orderOfTheLastChecks();
    void equalLimits();
    void nameTakenInAnotherGroup();
    void createsType();
    void createsTypeWithWiring();
    void browsedFileGoesToTheRoot();
    void greatestLimits();
    void longName();
    void editingStartsFromTheType();
    void pressingThroughWritesNothing();
    void unchangedButForTheCheckBox();
    void otherNameThanTheParameterFiles();
    void editingConfirmed();
    void editingRefused();
    void editingUnderAnotherName();
    void editingWithoutTheParameterFile();
    void editedFileDeletedOutside();
    void editingWhatHasNoRecord();
    void parameterFileVanishesBeforeOk();
    void folderVanishesBeforeOk();
    void damagedRecords_data();
    void damagedRecords();
    void withoutAHost();
    void withoutAFolder();
    void returnAndEscape();
    void focusGoesToThePage();
    void tabOrder();
    void everyControlHasAnAccessibleName();
    void followsTheLanguage();
    void parentMayEndWhileAsked();

private:
    QString addType(const QString& relative, const QString& parameterFile, const SHwRcvInCabinetInfo& label)
    {
        const QString type = m_pLibrary->addMulti(relative, parameterFile, label);
        m_pLibrary->rescan();
        m_pLibrary->handler->forgetCalls();
        return type;
    }
    static SHwRcvInCabinetInfo label()
    {
        SHwRcvInCabinetInfo record;
        record.columns = 2;
        record.rows = 2;
        record.wiringOrder = {2, 0, 1, 3};
        record.specifyOrientation = true;
        record.weight = 0.1F;
        record.power = 250;
        record.voltageMin = 110;
        record.voltageMax = 240.5F;
        return record;
    }
    QStringList writes() const { return m_pLibrary->handler->calls().filter(QStringLiteral("writeCabinetInfo")); }

    std::unique_ptr<WizardLibrary> m_pLibrary;
    QString m_card; // a parameter file at the library's root
};

void tst_CMultiRcvCabinetSetDlg::init()
{
    TestObject::init();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_pLibrary = std::make_unique<WizardLibrary>();
    m_card = m_pLibrary->add(QStringLiteral("Card.rcvp"), "card");
    m_pLibrary->rescan();
}

void tst_CMultiRcvCabinetSetDlg::cleanup()
{
    m_pLibrary.reset();
    TestObject::cleanup();
}

void tst_CMultiRcvCabinetSetDlg::appearance()
{
    const Wizard wizard(m_pLibrary->root());
    QCOMPARE(wizard.dialog.size(), QSize(520, 353));
    QCOMPARE(wizard.dialog.minimumSize(), QSize(520, 353));
    QCOMPARE(wizard.dialog.maximumSize(), QSize(520, 353));
    QCOMPARE(wizard.dialog.windowTitle(), QStringLiteral("Wizard"));
    for (const CDialog::Button button : {CDialog::Previous, CDialog::Next, CDialog::Cancel})
        QCOMPARE(wizard.dialog.button(button)->styleSheet(), QStringLiteral(".QPushButton{padding-right:10px;}"));
    QCOMPARE(wizard.dialog.button(CDialog::Ok), nullptr);
    QWidget* const area = wizard.dialog.findChild<CMultiRcvCabinetSetFirstPage*>()->parentWidget();
    QCOMPARE(area->metaObject()->className(), "QWidget"); // as its style sheet says
    QCOMPARE(area->styleSheet(),
             QStringLiteral(".QWidget{background:rgba(26,26,30,1);border:1px solid rgba(22, 22, 25, 1);}"));
    QCOMPARE(area->grab().toImage().pixelColor(5, area->height() - 5), QColor(26, 26, 30));
    QCOMPARE(area->grab().toImage().pixelColor(0, area->height() / 2), QColor(22, 22, 25));
}

void tst_CMultiRcvCabinetSetDlg::stepsAndButtons()
{
    Wizard wizard(m_pLibrary->root());
    const auto state = [&] {
        return QStringLiteral("%1 %2 %3 %4 %5")
            .arg(wizard.step())
            .arg(wizard.dialog.button(CDialog::Previous)->isEnabled())
            .arg(wizard.dialog.button(CDialog::Previous)->text(), wizard.dialog.button(CDialog::Next)->text(),
                 wizard.dialog.button(CDialog::Cancel)->text());
    };
    QCOMPARE(state(), QStringLiteral("0 0 Previous Next Cancel"));
    wizard.pick(QStringLiteral("Card"));
    wizard.next();
    QCOMPARE(state(), QStringLiteral("1 1 Previous Next Cancel"));
    wizard.next();
    QCOMPARE(state(), QStringLiteral("2 1 Previous OK Cancel"));
    wizard.press(CDialog::Previous);
    QCOMPARE(state(), QStringLiteral("1 1 Previous Next Cancel"));
    wizard.press(CDialog::Previous);
    QCOMPARE(state(), QStringLiteral("0 0 Previous Next Cancel"));
    QCOMPARE(wizard.dialog.windowTitle(), QStringLiteral("Wizard"));
}

void tst_CMultiRcvCabinetSetDlg::previousChecksNothing()
{
    Wizard wizard(m_pLibrary->root());
    ModalScript script;
    wizard.pick(QStringLiteral("Card"));
    wizard.setGrid(QStringLiteral("2 x 2"));
    wizard.next();
    QVERIFY(QFile::remove(m_card));
    wizard.press(CDialog::Previous); // with nothing wired
    QCOMPARE(wizard.step(), 0);
    QCOMPARE(script.seen(), QStringList());
}

void tst_CMultiRcvCabinetSetDlg::cancelRejectsAtEveryStep()
{
    for (int step = 0; step < 3; ++step) {
        Wizard wizard(m_pLibrary->root());
        wizard.pick(QStringLiteral("Card"));
        wizard.next(step);
        QCOMPARE(wizard.step(), step);
        wizard.press(CDialog::Cancel);
        QVERIFY(wizard.isRejected());
    }
    QCOMPARE(m_pLibrary->files(), QStringList({QStringLiteral("Card.rcvp=card")}));
}

void tst_CMultiRcvCabinetSetDlg::noParameterFile()
{
    Wizard wizard(m_pLibrary->root());
    ModalScript script;
    script.press(CDialog::Ok);
    wizard.next();
    QCOMPARE(script.seen(), QStringList({information(noFile)}));
    QCOMPARE(wizard.step(), 0);
}

void tst_CMultiRcvCabinetSetDlg::parameterFileGoneAtTheFirstStep()
{
    Wizard wizard(m_pLibrary->root());
    wizard.pick(QStringLiteral("Card"));
    QVERIFY(QFile::remove(m_card));
    ModalScript script;
    script.press(CDialog::Ok);
    wizard.next();
    QCOMPARE(script.seen(), QStringList({information(fileGone)}));
    QCOMPARE(wizard.step(), 0);
}

void tst_CMultiRcvCabinetSetDlg::incompleteWiring()
{
    Wizard wizard(m_pLibrary->root());
    wizard.pick(QStringLiteral("Card"));
    wizard.setGrid(QStringLiteral("2 x 2"));
    wizard.next();
    ModalScript script;
    script.press(CDialog::Ok).press(CDialog::Ok);
    wizard.next();
    QCOMPARE(wizard.step(), 1);
    wizard.applyTopology(QStringLiteral("right-dwon"));
    QWidget* const drawing = wizard.dialog.findChild<CabinetWiringWidget*>();
    QTest::mouseClick(drawing, Qt::RightButton, {}, QPoint(100, 40)); // one of the four is missing now
    wizard.next();
    QCOMPARE(script.seen(), QStringList({information(unwired), information(unwired)}));
    QCOMPARE(wizard.step(), 1);
    QTest::mouseClick(drawing, Qt::LeftButton, {}, QPoint(100, 40));
    wizard.next();
    QCOMPARE(wizard.step(), 2);
}

void tst_CMultiRcvCabinetSetDlg::wiringIsKeptWithTheGrid()
{
    Wizard wizard(m_pLibrary->root());
    const auto* const page = wizard.dialog.findChild<CMultiRcvCabinetSetSecondPage*>();
    wizard.pick(QStringLiteral("Card"));
    wizard.setGrid(QStringLiteral("2 x 2"));
    wizard.next();
    wizard.applyTopology(QStringLiteral("left-down"));
    QCOMPARE(page->wiring(), QList<int>({2, 0, 1, 3}));
    wizard.press(CDialog::Previous);
    wizard.next();
    QCOMPARE(page->wiring(), QList<int>({2, 0, 1, 3}));
    wizard.press(CDialog::Previous);
    wizard.setGrid(QStringLiteral("1 x 3"));
    wizard.next();
    QCOMPARE(page->wiring(), QList<int>({0, 1, 2}));
}

// Empty name, limits, name: each hides the ones after it.
void tst_CMultiRcvCabinetSetDlg::orderOfTheLastChecks()
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

void tst_CMultiRcvCabinetSetDlg::equalLimits()
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

void tst_CMultiRcvCabinetSetDlg::nameTakenInAnotherGroup()
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

void tst_CMultiRcvCabinetSetDlg::createsType()
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
    QCOMPARE(m_pLibrary->handler->calls().first(), QStringLiteral("writeCabinetInfo(%1)").arg(file));
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

void tst_CMultiRcvCabinetSetDlg::createsTypeWithWiring()
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

void tst_CMultiRcvCabinetSetDlg::browsedFileGoesToTheRoot()
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

void tst_CMultiRcvCabinetSetDlg::greatestLimits()
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
void tst_CMultiRcvCabinetSetDlg::longName()
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

void tst_CMultiRcvCabinetSetDlg::editingStartsFromTheType()
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
    QCOMPARE(wizard.name(), QStringLiteral("Cab"));
    QCOMPARE(wizard.box(0)->value(), 0.1);
    QCOMPARE(wizard.box(3)->value(), 240.5);
}

// For a type that is called like its parameter file, which lies in another group.
void tst_CMultiRcvCabinetSetDlg::pressingThroughWritesNothing()
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
void tst_CMultiRcvCabinetSetDlg::unchangedButForTheCheckBox()
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
void tst_CMultiRcvCabinetSetDlg::otherNameThanTheParameterFiles()
{
    const QString type = addType(QStringLiteral("Cab.rcvbp"), m_card, label());
    Wizard wizard(m_pLibrary->root(), type);
    ModalScript script;
    script.press(CDialog::No);
    wizard.next(3);
    QCOMPARE(script.seen(), QStringList({question(replaceIt)}));
    QCOMPARE(wizard.step(), 2);
}

void tst_CMultiRcvCabinetSetDlg::editingConfirmed()
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

void tst_CMultiRcvCabinetSetDlg::editingRefused()
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

void tst_CMultiRcvCabinetSetDlg::editingUnderAnotherName()
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

void tst_CMultiRcvCabinetSetDlg::editingWithoutTheParameterFile()
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

void tst_CMultiRcvCabinetSetDlg::editedFileDeletedOutside()
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
void tst_CMultiRcvCabinetSetDlg::editingWhatHasNoRecord()
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
void tst_CMultiRcvCabinetSetDlg::parameterFileVanishesBeforeOk()
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

void tst_CMultiRcvCabinetSetDlg::folderVanishesBeforeOk()
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

void tst_CMultiRcvCabinetSetDlg::damagedRecords_data()
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
void tst_CMultiRcvCabinetSetDlg::damagedRecords()
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

// Nothing can be saved: the wizard closes as rejected and leaves the library alone.
void tst_CMultiRcvCabinetSetDlg::withoutAHost()
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

void tst_CMultiRcvCabinetSetDlg::withoutAFolder()
{
    Wizard wizard({});
    wizard.pick(QStringLiteral("Card"));
    wizard.next(2);
    wizard.setName(QStringLiteral("settingarea-test-cabinet"));
    wizard.next();
    QVERIFY(wizard.isRejected());
    QVERIFY(!QFileInfo::exists(QStringLiteral("/settingarea-test-cabinet.rcvbp")));
}

void tst_CMultiRcvCabinetSetDlg::returnAndEscape()
{
    Wizard wizard(m_pLibrary->root());
    wizard.pick(QStringLiteral("Card"));
    QTest::keyClick(wizard.dialog.findChild<CMenuPushButton*>(), Qt::Key_Return);
    QCOMPARE(wizard.step(), 1);
    QTest::keyClick(wizard.dialog.findChild<QCheckBox*>(), Qt::Key_Return);
    QCOMPARE(wizard.step(), 2);
    QTest::keyClicks(wizard.dialog.findChild<QLineEdit*>(QStringLiteral("MultiRcvCabinet")), QStringLiteral("Cab"));
    QTest::keyClick(wizard.box(3), Qt::Key_Return);
    QVERIFY(wizard.isAccepted());
    QCOMPARE(m_pLibrary->files(),
             QStringList({QStringLiteral("Cab.rcvbp=multi card"), QStringLiteral("Card.rcvp=card")}));

    Wizard other(m_pLibrary->root());
    QTest::keyClick(other.dialog.findChild<CComboBox*>(), Qt::Key_Escape);
    QVERIFY(other.isRejected());
}

// So that Return goes on after "Previous" was clicked.
void tst_CMultiRcvCabinetSetDlg::focusGoesToThePage()
{
    Wizard wizard(m_pLibrary->root());
    QCOMPARE(wizard.dialog.focusWidget(), wizard.dialog.findChild<CMenuPushButton*>());
    wizard.pick(QStringLiteral("Card"));
    wizard.next();
    QCOMPARE(wizard.dialog.focusWidget(), wizard.dialog.findChild<QCheckBox*>());
    wizard.next();
    QCOMPARE(wizard.dialog.focusWidget(), wizard.dialog.findChild<QLineEdit*>(QStringLiteral("MultiRcvCabinet")));
    wizard.press(CDialog::Previous);
    QCOMPARE(wizard.dialog.focusWidget(), wizard.dialog.findChild<QCheckBox*>());
    QVERIFY(wizard.dialog.button(CDialog::Next)->isDefault());
}

void tst_CMultiRcvCabinetSetDlg::tabOrder()
{
    const Wizard wizard(m_pLibrary->root());
    QList<const QWidget*> order;
    const QWidget* const first = wizard.dialog.findChild<CMenuPushButton*>();
    const QWidget* next = first;
    do {
        if ((next->focusPolicy() & Qt::TabFocus) && next->isVisible() && next->isEnabled())
            order.append(next);
        next = next->nextInFocusChain();
    } while (next != first);
    QCOMPARE(order,
             QList<const QWidget*>({first, wizard.dialog.findChild<CComboBox*>(), wizard.dialog.button(CDialog::Next),
                                    wizard.dialog.button(CDialog::Cancel)}));
}

void tst_CMultiRcvCabinetSetDlg::everyControlHasAnAccessibleName()
{
    const Wizard wizard(m_pLibrary->root());
    int controls = 0;
    const auto widgets = wizard.dialog.findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        const bool partOfABox =
            qobject_cast<QAbstractSpinBox*>(widget->parentWidget()) || qobject_cast<QComboBox*>(widget->parentWidget());
        if (!(widget->focusPolicy() & Qt::TabFocus) || widget->window() != &wizard.dialog || partOfABox)
            continue;
        ++controls;
        QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(widget);
        QVERIFY2(!accessible->text(QAccessible::Name).isEmpty(), widget->metaObject()->className());
    }
    QVERIFY(controls >= 11); // two, the check box, five, and the three buttons
}

void tst_CMultiRcvCabinetSetDlg::followsTheLanguage()
{
    Wizard wizard(m_pLibrary->root());
    wizard.pick(QStringLiteral("Card"));
    wizard.next(2);
    UpperCase upper;
    QCoreApplication::installTranslator(&upper);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(wizard.dialog.windowTitle(), QStringLiteral("WIZARD"));
    QCOMPARE(wizard.dialog.button(CDialog::Previous)->text(), QStringLiteral("PREVIOUS"));
    QCOMPARE(wizard.dialog.button(CDialog::Next)->text(), QStringLiteral("OK"));
    QCOMPARE(wizard.dialog.button(CDialog::Cancel)->text(), QStringLiteral("CANCEL"));
    wizard.press(CDialog::Previous);
    QCOMPARE(wizard.dialog.button(CDialog::Next)->text(), QStringLiteral("NEXT"));
    QCoreApplication::removeTranslator(&upper);
    QCoreApplication::sendPostedEvents();
    QCOMPARE(wizard.dialog.button(CDialog::Next)->text(), QStringLiteral("Next"));
}

// The host may destroy the window behind an open question: that is no Yes.
void tst_CMultiRcvCabinetSetDlg::parentMayEndWhileAsked()
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

SETTINGAREA_TEST_MAIN(tst_CMultiRcvCabinetSetDlg, QApplication)

#include "tst_CMultiRcvCabinetSetDlg.moc"
