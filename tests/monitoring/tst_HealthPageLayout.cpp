#include "tests/monitoring/HealthPage.h"
#include "tests/support/TestObject.h"

#include <widgetry/CSeparator.h>

#include <QApplication>
#include <QLayout>
#include <QScrollBar>

namespace {

HealthPage& settled(HealthPage& shown)
{
    QCoreApplication::processEvents();
    return shown;
}

} // namespace

class tst_HealthPageLayout : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void groups();
    void tallPage();
    void general();
    void processor();
    void receiverSections();
    void thresholds();
    void voltages();
    void heights();
    void pageScrolls();
    void valuesFit();
    void accessibleNames();
    void tabOrder();
};

void tst_HealthPageLayout::groups()
{
    HealthPage shown(watching(true));
    settled(shown);
    QLayout* const layout = shown.page.widget()->layout();
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->spacing(), 12);
    const auto groups = shown.page.widget()->findChildren<CCustomGroupBox*>(QString(), Qt::FindDirectChildrenOnly);
    QCOMPARE(groups.size(), 4);
    int bottom = -1;
    for (const CCustomGroupBox* group : groups) {
        QCOMPARE(group->x(), 0);
        QCOMPARE(group->width(), shown.page.widget()->width());
        QCOMPARE(group->y(), bottom < 0 ? 0 : bottom + 12);
        bottom = group->geometry().bottom() + 1;
    }
}

void tst_HealthPageLayout::general()
{
    HealthPage shown;
    settled(shown);
    const QRect label = shown.place(shown.labels("Refresh interval").value(0));
    const QRect edit = shown.place(shown.interval());
    const QRect range = shown.place(shown.labels("(Interval range 10s~2h)").value(0));
    const QRect title = shown.place(shown.labels("General settings").value(0));
    QCOMPARE(label.left() - title.left(), 16);
    QCOMPARE(edit.left() - label.right() - 1, 8);
    QCOMPARE(range.left() - edit.right() - 1, 8);
    QVERIFY(std::abs(label.center().y() - edit.center().y()) <= 1);
    QVERIFY(std::abs(range.center().y() - edit.center().y()) <= 1);
    QCOMPARE(shown.labels("Refresh interval").value(0)->buddy(), shown.interval());
}

void tst_HealthPageLayout::processor()
{
    HealthPage shown;
    settled(shown);
    const QLabel* const title = shown.labels("Processor settings").value(0);
    int bottom = shown.place(title).bottom();
    for (int item = 0; item < 4; ++item) {
        const QRect box = shown.place(shown.box(item));
        QCOMPARE(box.left() - shown.place(title).left(), 16);
        QVERIFY(box.top() > bottom);
        bottom = box.bottom();
    }
    QCOMPARE(bottom - shown.place(shown.box(2)).bottom(), shown.box(3)->height() + 6);
    // Four pixels further below the title than the row of the first group, which has no margin there.
    const int firstTop = shown.place(shown.box(0)).top() - shown.place(title).top();
    const QLabel* const general = shown.labels("General settings").value(0);
    QCOMPARE(firstTop - (shown.place(shown.interval()).top() - shown.place(general).top()), 4);
    const QWidget* const group = title->parentWidget();
    QCOMPARE(shown.place(group).bottom() - bottom, 4 + group->layout()->contentsMargins().bottom());
}

void tst_HealthPageLayout::tallPage()
{
    HealthPage shown(watching(true));
    shown.page.resize(1000, 3000);
    settled(shown);
    const auto groups = shown.page.widget()->findChildren<CCustomGroupBox*>(QString(), Qt::FindDirectChildrenOnly);
    for (const CCustomGroupBox* group : groups)
        QCOMPARE(group->height(), group->sizeHint().height());
    QVERIFY(groups.last()->geometry().bottom() < shown.page.widget()->height() / 2);
}

// From top to bottom: headings, what is below each, and the lines between them.
void tst_HealthPageLayout::receiverSections()
{
    HealthPage shown(watching(true));
    settled(shown);
    const QLabel* const title = shown.labels("Receiver settings").value(0);
    const auto separators = title->parentWidget()->findChildren<CSeparator*>();
    QCOMPARE(separators.size(), 3);
    for (const CSeparator* separator : separators) {
        QCOMPARE(separator->frameShape(), QFrame::HLine);
        QCOMPARE(separator->contentsMargins(), QMargins());
    }
    const auto heading = [&](const char* text) -> QWidget* {
        QLabel* const label = shown.labels(text).value(0);
        return label->objectName() == QLatin1String("Highlight") ? label : nullptr;
    };
    const QWidgetList expected{heading("Cable error"), shown.box(6),     separators.at(0),
                               heading("Receiver"),    shown.box(4),     shown.box(5),
                               shown.box(7),           separators.at(1), heading("Power supply monitoring"),
                               shown.box(8),           shown.box(9),     shown.box(10),
                               shown.box(11),          separators.at(2), heading("Voltage monitoring"),
                               shown.box(12),          shown.box(13),    shown.box(14),
                               shown.box(15)};
    int bottom = shown.place(title).bottom();
    const int left = shown.place(title).left();
    for (const QWidget* widget : expected) {
        QVERIFY(widget);
        const QRect place = shown.place(widget);
        QVERIFY(place.top() > bottom);
        QCOMPARE(place.left() - left, qobject_cast<const QCheckBox*>(widget) ? 16 : 0);
        bottom = place.bottom();
    }
    for (const int item : {9, 10, 11})
        QCOMPARE(shown.place(shown.box(item)).top() - shown.place(shown.box(item - 1)).bottom() - 1, 6);
    for (const int item : {5, 7, 13, 14, 15}) {
        const int above = item == 7 ? 5 : item - 1;
        QCOMPARE(shown.place(shown.box(item)).top() - shown.place(shown.box(above)).bottom() - 1, 4);
    }
}

void tst_HealthPageLayout::thresholds()
{
    HealthPage shown(watching(true));
    settled(shown);
    for (const int item : {temperatureItem, humidityItem}) {
        const QRect box = shown.place(shown.box(item));
        const QWidgetList dependents = shown.dependents(item);
        const QRect spinBox = shown.place(dependents.at(0));
        const QRect label = shown.place(dependents.at(1));
        QCOMPARE(spinBox.left() - box.right() - 1, 8);
        QCOMPARE(label.left() - spinBox.right() - 1, 8);
        QCOMPARE(spinBox.center().y(), box.center().y());
        QVERIFY(std::abs(label.center().y() - box.center().y()) <= 1);
    }
}

void tst_HealthPageLayout::voltages()
{
    HealthPage shown(watching(true));
    settled(shown);
    for (int range = 0; range < 4; ++range) {
        const QRect box = shown.place(shown.box(voltageItem + range));
        const QRect lower = shown.place(shown.lower(range));
        const QRect tilde = shown.place(shown.labels("~").at(range));
        const QRect upper = shown.place(shown.upper(range));
        const int gap = lower.left() - box.right() - 1;
        const int spacing = tilde.left() - lower.right() - 1;
        QCOMPARE(upper.left() - tilde.right() - 1, spacing);
        QCOMPARE(gap - spacing, range == 3 ? 30 : 35);
        QCOMPARE(lower.center().y(), box.center().y());
        QCOMPARE(box.width(), shown.box(voltageItem + range)->sizeHint().width()); // the row keeps to the left
    }
}

void tst_HealthPageLayout::heights()
{
    HealthPage shown;
    for (int item = 0; item < healthItemCount; ++item) {
        const bool isTall = item == 4 || item == 5 || item == 7 || item >= 12;
        QCOMPARE(shown.box(item)->minimumHeight(), isTall ? 24 : 0);
        QCOMPARE(shown.box(item)->maximumHeight(), isTall ? 24 : QWIDGETSIZE_MAX);
    }
}

void tst_HealthPageLayout::pageScrolls()
{
    HealthPage shown(watching(true));
    shown.page.resize(600, 400);
    settled(shown);
    QVERIFY(shown.page.verticalScrollBar()->maximum() > 0);
    QVERIFY(shown.page.horizontalScrollBar()->maximum() > 0);
    QVERIFY(shown.page.widget()->width() >= shown.page.widget()->minimumSizeHint().width());
    shown.page.resize(2000, 2000);
    settled(shown);
    QCOMPARE(shown.page.verticalScrollBar()->maximum(), 0);
    QCOMPARE(shown.page.horizontalScrollBar()->maximum(), 0);
}

// The widest values, with the buttons given up where there is no room for both.
void tst_HealthPageLayout::valuesFit()
{
    HealthPage shown(watching(true));
    QFont font = shown.page.font();
    font.setPixelSize(12);
    shown.page.setFont(font);
    shown.page.FahrenheitClicked(true);
    shown.temperature()->setValue(212);
    shown.humidity()->setValue(100);
    shown.upper(0)->setValue(20);
    settled(shown);
    for (QAbstractSpinBox* const box :
         {static_cast<QAbstractSpinBox*>(shown.temperature()), static_cast<QAbstractSpinBox*>(shown.humidity()),
          static_cast<QAbstractSpinBox*>(shown.upper(0))}) {
        const auto* const edit = box->findChild<QLineEdit*>();
        const int wanted = edit->fontMetrics().horizontalAdvance(edit->text()) + 4;
        QVERIFY2(edit->width() >= wanted, qPrintable(edit->text()));
    }
}

void tst_HealthPageLayout::accessibleNames()
{
    HealthPage shown(watching(true));
    const auto widgets = shown.page.widget()->findChildren<QWidget*>();
    int focusable = 0;
    for (const QWidget* widget : widgets) {
        if (!(widget->focusPolicy() & Qt::TabFocus) || qobject_cast<QAbstractSpinBox*>(widget->parent()))
            continue;
        ++focusable;
        const auto* const button = qobject_cast<const QAbstractButton*>(widget);
        QVERIFY2(!widget->accessibleName().isEmpty() || (button && !button->text().isEmpty()),
                 widget->metaObject()->className());
    }
    QCOMPARE(focusable, 16 + 3 + 8 + 10);
    QCOMPARE(shown.interval()->accessibleName(), QStringLiteral("Refresh interval"));
    QCOMPARE(shown.interval()->accessibleDescription(), QStringLiteral("(Interval range 10s~2h)"));
}

void tst_HealthPageLayout::tabOrder()
{
    HealthPage shown(watching(true));
    QWidgetList expected{shown.interval(), shown.box(0), shown.box(1),        shown.box(2),  shown.box(3),
                         shown.box(6),     shown.box(4), shown.temperature(), shown.box(5),  shown.humidity(),
                         shown.box(7),     shown.box(8), shown.box(9),        shown.box(10), shown.box(11)};
    for (int range = 0; range < 4; ++range)
        expected += {shown.box(voltageItem + range), shown.lower(range), shown.upper(range)};
    QWidgetList order;
    for (QWidget* next = shown.page.nextInFocusChain(); next != &shown.page; next = next->nextInFocusChain()) {
        if (expected.contains(next))
            order.append(next);
    }
    QCOMPARE(order, expected);
}

SETTINGAREA_TEST_MAIN(tst_HealthPageLayout, QApplication)

#include "tst_HealthPageLayout.moc"
