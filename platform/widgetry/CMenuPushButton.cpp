#include <widgetry/CMenuPushButton.h>

#include <widgetry/CToolTip.h>

#include <QActionEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QStyleOptionButton>
#include <QStylePainter>

namespace {

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
    setText(QString(text).replace(QLatin1Char('&'), QLatin1String("&&")));
}

QString CMenuPushButton::displayText() const
{
    return withoutMnemonics(text());
}

QSize CMenuPushButton::sizeHint() const
{
    return QPushButton::sizeHint();
}

QSize CMenuPushButton::minimumSizeHint() const
{
    return QPushButton::sizeHint();
}

bool CMenuPushButton::event(QEvent* event)
{
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

void CMenuPushButton::paintEvent(QPaintEvent* event)
{
    QPushButton::paintEvent(event);
}

void CMenuPushButton::showAction(QAction* action)
{
    if (m_bActionSync)
        setDisplayText(withoutMnemonics(action->text().section(QLatin1Char('\t'), 0, 0)));
}
