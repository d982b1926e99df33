#include "multircv/CMultiRcvCabinetSetFirstPage.h"
#include "multircv/CMultiRcvCabinetSetSecondPage.h"
#include "multircv/CWizardSteps.h"
#include "multircv/CabinetWiringWidget.h"
#include "tests/multircv/Wizard.h"
#include "tests/multircv/WizardFixture.h"
#include "tests/support/ModalScript.h"
#include "tests/support/UpperCase.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>

namespace {

const char noFile[] = "Please select a parameter file.";
const char fileGone[] = "The parameter file does not exist.";
const char unwired[] = "Please complete a box of multi-card wiring.";

} // namespace

// The frame around the steps, and what holds the user back at the first two.
class tst_CMultiRcvCabinetSetDlg : public WizardFixture
{
    Q_OBJECT

private Q_SLOTS:
    void appearance();
    void stepsAndButtons();
    void headShowsTheStep();
    void previousChecksNothing();
    void cancelRejectsAtEveryStep();
    void noParameterFile();
    void parameterFileGoneAtTheFirstStep();
    void incompleteWiring();
    void wiringIsKeptWithTheGrid();
    void returnAndEscape();
    void focusGoesToThePage();
    void tabOrder();
    void everyControlHasAnAccessibleName();
    void followsTheLanguage();
};

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

void tst_CMultiRcvCabinetSetDlg::headShowsTheStep()
{
    Wizard wizard(m_pLibrary->root());
    const auto highlighted = [&wizard] {
        QStringList texts;
        const auto labels = wizard.dialog.findChild<CWizardSteps*>()->findChildren<QLabel*>();
        for (const QLabel* label : labels) {
            if (label->styleSheet() == QLatin1String("color:#8C8AFF"))
                texts.append(label->text());
        }
        return texts;
    };
    QCOMPARE(highlighted(), QStringList{QStringLiteral("Receiver information")});
    wizard.pick(QStringLiteral("Card"));
    wizard.next();
    QCOMPARE(highlighted(), QStringList{QStringLiteral("Topology selection")});
    wizard.next();
    QCOMPARE(highlighted(), QStringList{QStringLiteral("Cabinet label")});
    wizard.press(CDialog::Previous);
    QCOMPARE(highlighted(), QStringList{QStringLiteral("Topology selection")});
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

void tst_CMultiRcvCabinetSetDlg::returnAndEscape()
{
    Wizard wizard(m_pLibrary->root());
    wizard.pick(QStringLiteral("Card"));
    QTest::keyClick(wizard.dialog.findChild<CMenuPushButton*>(), Qt::Key_Return);
    QCOMPARE(wizard.step(), 1);
    QTest::keyClick(wizard.dialog.findChild<QCheckBox*>(), Qt::Key_Return);
    QCOMPARE(wizard.step(), 2);
    QTest::keyClicks(wizard.nameEdit(), QStringLiteral("Cab"));
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
    QCOMPARE(wizard.dialog.focusWidget(), wizard.nameEdit());
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
    {
        const UpperCase language;
        QCOMPARE(wizard.dialog.windowTitle(), QStringLiteral("WIZARD"));
        QCOMPARE(wizard.dialog.button(CDialog::Previous)->text(), QStringLiteral("PREVIOUS"));
        QCOMPARE(wizard.dialog.button(CDialog::Next)->text(), QStringLiteral("OK"));
        QCOMPARE(wizard.dialog.button(CDialog::Cancel)->text(), QStringLiteral("CANCEL"));
        wizard.press(CDialog::Previous);
        QCOMPARE(wizard.dialog.button(CDialog::Next)->text(), QStringLiteral("NEXT"));
    }
    QCOMPARE(wizard.dialog.button(CDialog::Next)->text(), QStringLiteral("Next"));
}

SETTINGAREA_TEST_MAIN(tst_CMultiRcvCabinetSetDlg, QApplication)
#include "tst_CMultiRcvCabinetSetDlg.moc"
