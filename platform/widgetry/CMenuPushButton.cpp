#include <widgetry/CMenuPushButton.h>

#include <widgetry/CToolTip.h>

#include <QActionEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

namespace {

// Characters that the button offers room for, and asks for at the least.
constexpr int longestHint = 40;
constexpr int shortestHint = 8;
// Pixels between icon and text, as styles leave them.
constexpr int iconGap = 4;

QString escapeMnemonics(QString text)
{
    return text.replace(QLatin1Char('&'), QLatin1String("&&"));
}

// What the user reads of a text with mnemonics: "&&" is an ampersand, another "&" is not shown.
QString withoutMnemonics(const QString& text)
{
    QString shown;
    shown.reserve(text.size());
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) == QLatin1Char('&') && ++i == text.size())
            break;
        shown.append(text.at(i));
    }
    return shown;
}

} // namespace

CMenuPushButton::CMenuPushButton(QWidget* parent)
    : QPushButton(parent)
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void CMenuPushButton::setActionSync(bool sync)
{
    m_bActionSync = sync;
}

void CMenuPushButton::setDisplayText(const QString& text)
{
    setText(escapeMnemonics(text));
}

QString CMenuPushButton::displayText() const
{
    return withoutMnemonics(text());
}

QSize CMenuPushButton::sizeHint() const
{
    return sizeHintWith(longestHint);
}

QSize CMenuPushButton::minimumSizeHint() const
{
    return sizeHintWith(shortestHint);
}

// The size for the text, or for a text of that many characters where it is longer.
QSize CMenuPushButton::sizeHintWith(int characters) const
{
    QSize hint = QPushButton::sizeHint();
    const int width = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    hint.rwidth() -= std::max(0, width - characters * fontMetrics().averageCharWidth());
    return hint;
}

// The text as it is painted: with mnemonics, and shortened to the room that there is.
QString CMenuPushButton::fittingText(const QStyleOptionButton& option) const
{
    int room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).width();
    if (menu())
        room -= style()->pixelMetric(QStyle::PM_MenuButtonIndicator, &option, this);
    if (!icon().isNull())
        room -= iconSize().width() + iconGap;
    const QString whole = displayText();
    if (fontMetrics().horizontalAdvance(whole) <= room)
        return text();
    return escapeMnemonics(fontMetrics().elidedText(whole, Qt::ElideMiddle, room));
}

bool CMenuPushButton::event(QEvent* event)
{
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
        QStyleOptionButton option;
        initStyleOption(&option);
        const bool whole = fittingText(option) == text();
        CToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), whole ? QString() : displayText(), this);
        return true;
    }
    return QPushButton::event(event);
}

// The menu's own action is added and removed with it.
void CMenuPushButton::actionEvent(QActionEvent* event)
{
    QPushButton::actionEvent(event);
    QMenu* const menu = event->action()->menu();
    if (!menu)
        return;
    // A menu reports the actions of its submenus too.
    if (event->type() == QEvent::ActionAdded)
        connect(menu, &QMenu::triggered, this, &CMenuPushButton::showAction);
    else if (event->type() == QEvent::ActionRemoved)
        disconnect(menu, &QMenu::triggered, this, &CMenuPushButton::showAction);
}

void CMenuPushButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Down && menu())
        showMenu();
    else
        QPushButton::keyPressEvent(event);
}

void CMenuPushButton::paintEvent(QPaintEvent* /*event*/)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    option.text = fittingText(option);
    QStylePainter(this).drawControl(QStyle::CE_PushButton, option);
}

void CMenuPushButton::showAction(QAction* action)
{
    if (m_bActionSync)
        setDisplayText(withoutMnemonics(action->text().section(QLatin1Char('\t'), 0, 0)));
}
