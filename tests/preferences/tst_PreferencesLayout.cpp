#include "tests/preferences/PreferencesPage.h"
#include "tests/support/TestObject.h"

#include <widgetry/CCustomGroupBox.h>

#include <QApplication>
#include <QButtonGroup>
#include <QLayout>
#include <QSvgWidget>

// Where the controls of the page are, and what they look like without a theme.
class tst_PreferencesLayout : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void page();
    void controls();
    void groups();
    void generalSettings();
    void softwareModules();
    void layoutOptions();
    void hiddenPriorityLeavesNoGap();
    void exclusiveGroups();
    void tabKeyGoesDownThePage();
    void smallPageScrolls();
};

void tst_PreferencesLayout::page()
{
    const PreferencesPage shown;
    QVERIFY(shown.page->widgetResizable());
    QCOMPARE(shown.page->frameShape(), QFrame::NoFrame);
    QCOMPARE(shown.page->widget()->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(shown.page->widget()->layout()->spacing(), 12);
    QCOMPARE(shown.page->widget()->layout()->count(), 4);
    QVERIFY(shown.page->widget()->layout()->itemAt(3)->spacerItem());
    QCOMPARE(shown.page->widget()->width(), shown.page->width());
}

void tst_PreferencesLayout::controls()
{
    const PreferencesPage shown;
    QCOMPARE(shown.page->findChildren<QCheckBox*>().size(), 8);
    QCOMPARE(shown.page->findChildren<QRadioButton*>().size(), 9);
    QCOMPARE(shown.page->findChildren<QLabel*>(QStringLiteral("Highlight")).size(), 4);
    for (int number = firstLabel; number < firstLabel + 4; ++number)
        QCOMPARE(shown.control(number)->objectName(), QStringLiteral("Highlight"));

    const CSpinBox* const space = shown.space();
    QCOMPARE(space->minimum(), 8);
    QCOMPARE(space->maximum(), 30);
    QCOMPARE(space->suffix(), QStringLiteral("px"));
    QCOMPARE(space->singleStep(), 1);
    QCOMPARE(space->value(), 20);
    QCOMPARE(space->minimumSize(), QSize(56, 24));
    QCOMPARE(space->maximumSize(), QSize(56, 24));
    QCOMPARE(shown.shortcuts()->minimumSize(), QSize(201, 24));
    QCOMPARE(shown.shortcuts()->maximumSize(), QSize(201, 24));
    QCOMPARE(int(shown.label("Space")->alignment()), 0x85);
    QCOMPARE(shown.label("Space")->buddy(), static_cast<const QWidget*>(space));

    const auto tips = shown.page->findChildren<QSvgWidget*>();
    QCOMPARE(tips.size(), 3);
    for (const QSvgWidget* tip : tips) {
        QCOMPARE(tip->minimumSize(), QSize(12, 12));
        QCOMPARE(tip->maximumSize(), QSize(12, 12));
    }
}

void tst_PreferencesLayout::groups()
{
    const PreferencesPage shown;
    const auto groups = shown.page->findChildren<CCustomGroupBox*>();
    QCOMPARE(groups.size(), 3);
    QCOMPARE(groups[0]->title(), QStringLiteral("General settings"));
    QCOMPARE(groups[1]->title(), QStringLiteral("Software modules"));
    QCOMPARE(groups[2]->title(), QStringLiteral("Layout options"));
    QCOMPARE(groups[0]->y(), 0);
    for (int i = 1; i < 3; ++i)
        QCOMPARE(groups[i]->y(), groups[i - 1]->geometry().bottom() + 1 + 12);
    for (const CCustomGroupBox* group : groups) {
        QCOMPARE(group->x(), 0);
        QCOMPARE(group->width(), shown.page->viewport()->width());
    }
}

namespace {

// Whether the controls lie under each other at this distance from the left, in this order.
bool isColumn(const PreferencesPage& shown, const QWidgetList& controls, int left)
{
    for (int i = 0; i < controls.size(); ++i) {
        const QRect place = shown.place(controls[i]);
        if (place.left() != left || (i > 0 && place.top() != shown.place(controls[i - 1]).bottom() + 1 + 4)) {
            qWarning() << controls[i] << place << (i > 0 ? shown.place(controls[i - 1]) : QRect());
            return false;
        }
    }
    return true;
}

} // namespace

void tst_PreferencesLayout::generalSettings()
{
    const PreferencesPage shown;
    QWidgetList column;
    for (const int number : {17, 8, 9, 18, 10, 11, 12, 19, 13, 14, 20})
        column.append(shown.control(number));
    column.append(shown.shortcuts());
    QVERIFY(isColumn(shown, column, 16));
    for (int priority = 0; priority < 3; ++priority) {
        const QRect radio = shown.place(shown.priority(priority));
        const QRect tip = shown.place(shown.tip(priority));
        QCOMPARE(tip.left(), radio.right() + 1 + 8);
        QVERIFY(qAbs(tip.center().y() - radio.center().y()) <= 1);
    }
}

void tst_PreferencesLayout::softwareModules()
{
    const PreferencesPage shown;
    const auto control = [&shown](int number) { return shown.control(number); };
    QVERIFY(isColumn(shown, {control(3), control(4), control(5)}, 16));
    QVERIFY(isColumn(shown, {control(15), control(16)}, 16 + 8));
    QVERIFY(isColumn(shown, {control(6), control(7)}, 16));
    QCOMPARE(shown.place(control(15)).top(), shown.place(control(5)).bottom() + 1 + 4);
    QCOMPARE(shown.place(control(6)).top(), shown.place(control(16)).bottom() + 1 + 4);
}

void tst_PreferencesLayout::layoutOptions()
{
    const PreferencesPage shown;
    QVERIFY(isColumn(shown, {shown.control(0), shown.control(1)}, 16));
    const QRect box = shown.place(shown.control(2));
    const QRect label = shown.place(shown.label("Space"));
    const QRect space = shown.place(shown.space());
    QCOMPARE(box.left(), 16);
    QVERIFY(qAbs(space.top() - (shown.place(shown.control(1)).bottom() + 1 + 4)) <= 1);
    for (const QRect& other : {box, label})
        QVERIFY(qAbs(space.center().y() - other.center().y()) <= 1);
    QCOMPARE(label.left(), box.right() + 1 + 10);
    QCOMPARE(space.left(), label.right() + 1 + 4);
    QVERIFY(space.right() < 400); // what is left over is at the right
}

void tst_PreferencesLayout::hiddenPriorityLeavesNoGap()
{
    const PreferencesPage shown;
    for (const int number : {18, 10, 11, 12})
        shown.control(number)->hide();
    for (int priority = 0; priority < 3; ++priority)
        shown.tip(priority)->hide();
    QTRY_COMPARE(shown.place(shown.control(19)).top(), shown.place(shown.control(9)).bottom() + 1 + 4);
}

void tst_PreferencesLayout::exclusiveGroups()
{
    const PreferencesPage shown;
    const QList<QVector<int>> choices{{8, 9}, {10, 11, 12}, {13, 14}, {15, 16}};
    for (const QVector<int>& choice : choices) {
        const QButtonGroup* const group = shown.radio(preferenceTexts[choice.first()])->group();
        QVERIFY(group);
        QVERIFY(group->exclusive());
        QList<QAbstractButton*> expected;
        for (const int number : choice)
            expected.append(shown.radio(preferenceTexts[number]));
        QCOMPARE(group->buttons(), expected);
    }
}

void tst_PreferencesLayout::tabKeyGoesDownThePage()
{
    const PreferencesPage shown;
    QWidgetList expected;
    for (int number = 8; number <= 14; ++number)
        expected.append(shown.control(number));
    expected.append(shown.shortcuts());
    for (const int number : {3, 4, 5, 15, 16, 6, 7, 0, 1, 2})
        expected.append(shown.control(number));
    expected.append(shown.space());
    QWidgetList order;
    for (QWidget* next = shown.page->nextInFocusChain(); next != shown.page; next = next->nextInFocusChain()) {
        if (expected.contains(next))
            order.append(next);
    }
    QCOMPARE(order, expected);
}

void tst_PreferencesLayout::smallPageScrolls()
{
    const PreferencesPage shown;
    shown.page->resize(700, 300);
    QCOMPARE(shown.page->widget()->height(), shown.page->widget()->sizeHint().height());
    QVERIFY(shown.page->widget()->height() > 300);
    shown.page->ensureWidgetVisible(shown.space());
    QVERIFY(!shown.space()->visibleRegion().isEmpty());
}

SETTINGAREA_TEST_MAIN(tst_PreferencesLayout, QApplication)
#include "tst_PreferencesLayout.moc"
