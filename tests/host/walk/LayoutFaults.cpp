#include "tests/host/walk/LayoutFaults.h"

#include "tests/host/walk/ShownTexts.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTabBar>

#include <algorithm>
#include <vector>

namespace {

// A line edit keeps this much free on either side of its text, in pixels.
constexpr int editMargin = 2;

int widthOf(const QWidget* widget, const QString& text)
{
    return widget->fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

int spaceIn(const QLineEdit* edit)
{
    return edit->contentsRect().width() - edit->textMargins().left() - edit->textMargins().right() - 2 * editMargin;
}

// What the style leaves for the text of the button.
int spaceIn(const QAbstractButton* button)
{
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = button->text();
    option.icon = button->icon();
    option.iconSize = button->iconSize();
    QStyle::SubElement element = QStyle::SE_PushButtonContents;
    if (qobject_cast<const QCheckBox*>(button))
        element = QStyle::SE_CheckBoxContents;
    else if (qobject_cast<const QRadioButton*>(button))
        element = QStyle::SE_RadioButtonContents;
    const int icon = button->icon().isNull() ? 0 : button->iconSize().width();
    return button->style()->subElementRect(element, &option, button).width() - icon;
}

int spaceIn(const QComboBox* box)
{
    QStyleOptionComboBox option;
    option.initFrom(box);
    return box->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box).width();
}

bool isCutOff(const QLabel* label)
{
    if (label->text().isEmpty())
        return false;
    if (label->wordWrap())
        return label->heightForWidth(label->width()) > label->height();
    const QSize wanted = label->sizeHint();
    return wanted.width() > label->width() || wanted.height() > label->height();
}

bool isCutOff(const QAbstractButton* button)
{
    if (button->text().isEmpty() || button->width() == 0)
        return false;
    if (qobject_cast<const QPushButton*>(button) || qobject_cast<const QCheckBox*>(button) ||
        qobject_cast<const QRadioButton*>(button))
        return widthOf(button, button->text()) > spaceIn(button) || button->fontMetrics().height() > button->height();
    return button->inherits("QToolButton") && button->icon().isNull() &&
           widthOf(button, button->text()) > button->width();
}

bool isCutOff(const QTabBar* tabs)
{
    const int padding = tabs->style()->pixelMetric(QStyle::PM_TabBarTabHSpace, nullptr, tabs) / 2;
    for (int i = 0; i < tabs->count(); ++i) {
        const QRect tab = tabs->tabRect(i);
        if (widthOf(tabs, tabs->tabText(i)) + padding > tab.width() || !tabs->rect().contains(tab))
            return true;
    }
    return false;
}

bool isCutOff(const QHeaderView* header)
{
    for (int i = 0; header->model() && i < header->count(); ++i) {
        const QString text = header->model()->headerData(i, header->orientation()).toString();
        if (!header->isSectionHidden(i) && !text.isEmpty() && widthOf(header, text) > header->sectionSize(i))
            return true;
    }
    return false;
}

template<typename Menu>
bool hasActionsOutside(const Menu* menu)
{
    const QList<QAction*> actions = menu->actions();
    return std::any_of(actions.begin(), actions.end(), [menu](QAction* action) {
        return action->isVisible() && !menu->rect().contains(menu->actionGeometry(action));
    });
}

bool isCutOff(const QWidget* widget)
{
    if (const auto* const label = qobject_cast<const QLabel*>(widget))
        return isCutOff(label);
    if (const auto* const button = qobject_cast<const QAbstractButton*>(widget))
        return isCutOff(button);
    if (const auto* const tabs = qobject_cast<const QTabBar*>(widget))
        return isCutOff(tabs);
    if (const auto* const header = qobject_cast<const QHeaderView*>(widget))
        return isCutOff(header);
    if (const auto* const box = qobject_cast<const QComboBox*>(widget))
        return widthOf(box, box->currentText()) > spaceIn(box);
    if (const auto* const group = qobject_cast<const QGroupBox*>(widget))
        return widthOf(group, group->title()) > group->width();
    if (const auto* const edit = qobject_cast<const QLineEdit*>(widget)) {
        const bool isFixed = qobject_cast<const QAbstractSpinBox*>(edit->parentWidget());
        return widthOf(edit, isFixed ? edit->displayText() : edit->placeholderText()) > spaceIn(edit);
    }
    if (const auto* const menu = qobject_cast<const QMenu*>(widget))
        return hasActionsOutside(menu);
    if (const auto* const bar = qobject_cast<const QMenuBar*>(widget))
        return hasActionsOutside(bar);
    return false;
}

bool hasText(const QWidget* widget)
{
    if (const auto* const label = qobject_cast<const QLabel*>(widget))
        return !label->text().isEmpty();
    return qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLineEdit*>(widget) ||
           qobject_cast<const QComboBox*>(widget) || qobject_cast<const QAbstractSpinBox*>(widget) ||
           qobject_cast<const QTabBar*>(widget) || qobject_cast<const QHeaderView*>(widget);
}

// A scroll area's content may be larger than what is seen of it.
bool scrolls(const QWidget* widget)
{
    return qobject_cast<const QAbstractScrollArea*>(widget->parentWidget()) ||
           qobject_cast<const QTabBar*>(widget); // its arrows move the tabs
}

class Inspector
{
public:
    QStringList faults;

    void inspect(const QWidget* widget)
    {
        if (isCutOff(widget))
            report("is cut off", widget);
        std::vector<const QWidget*> parts;
        for (const QObject* const child : widget->children()) {
            const auto* const part = qobject_cast<const QWidget*>(child);
            if (!part || part->isWindow() || !part->isVisible())
                continue;
            if (hasText(part)) {
                if (!scrolls(widget) && !widget->rect().contains(part->geometry()))
                    report("reaches out", part);
                for (const QWidget* const other : parts) {
                    if (other->geometry().intersects(part->geometry()))
                        report("lies over its sibling", part);
                }
                parts.push_back(part);
            }
            inspect(part);
        }
    }

private:
    void report(const char* what, const QWidget* widget)
    {
        faults << QStringLiteral("%1 (%2) %3: %4x%5 at %6, %7, wants %8x%9")
                      .arg(placeOf(widget), widget->property("text").toString(), QLatin1String(what))
                      .arg(widget->width())
                      .arg(widget->height())
                      .arg(widget->x())
                      .arg(widget->y())
                      .arg(widget->sizeHint().width())
                      .arg(widget->sizeHint().height());
    }
};

} // namespace

QStringList layoutFaults()
{
    Inspector inspector;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget* const window : windows) {
        if (window->isVisible())
            inspector.inspect(window);
    }
    return inspector.faults;
}
