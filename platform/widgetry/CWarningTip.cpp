#include "widgetry/CWarningTip.h"

#include <QAbstractScrollArea>
#include <QEvent>

#include <algorithm>

namespace {

// Pixels between the edit and the bubble, and around the text in the bubble.
constexpr int gap = 2;
constexpr int padding = 3;

} // namespace

QWidget* CWarningTip::groundOf(const QWidget* edit)
{
    QWidget* ground = edit->parentWidget();
    while (ground && !ground->isWindow()) {
        QWidget* const parent = ground->parentWidget();
        const auto* const area = qobject_cast<QAbstractScrollArea*>(parent->parentWidget());
        if (area && area->viewport() == parent)
            break;
        ground = parent;
    }
    return ground;
}

CWarningTip::CWarningTip(QWidget* edit)
    : m_pEdit(edit)
{
    setObjectName(QStringLiteral("WarningTip"));
    setTextFormat(Qt::PlainText);
    setMargin(padding);
    setAutoFillBackground(true);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void CWarningTip::attach(QWidget* ground)
{
    for (QWidget* const widget : qAsConst(m_watched)) {
        if (widget)
            widget->removeEventFilter(this);
    }
    m_watched.clear();
    if (parentWidget() != ground)
        setParent(ground);
    for (QWidget* widget = m_pEdit; widget != ground; widget = widget->parentWidget())
        m_watched.append(widget);
    m_watched.append(ground);
    for (QWidget* const widget : qAsConst(m_watched))
        widget->installEventFilter(this);
}

void CWarningTip::setColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, color);
    colors.setColor(QPalette::WindowText, Qt::white);
    setPalette(colors);
}

void CWarningTip::place()
{
    QWidget* const ground = parentWidget();
    const QRect field(m_pEdit->mapTo(ground, QPoint()), m_pEdit->size());
    setWordWrap(false);
    const int width = std::min(sizeHint().width(), ground->width());
    setWordWrap(true);
    const int height = heightForWidth(width);
    const int left = std::max(0, std::min(field.left(), ground->width() - width));
    const int below = field.bottom() + 1 + gap;
    const int above = field.top() - gap - height;
    const bool fitsBelow = below + height <= ground->height() || above < 0;
    setGeometry(left, fitsBelow ? below : above, width, height);
    raise();
}

bool CWarningTip::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::LayoutRequest:
        // An edit that was taken elsewhere has no place here; it attaches the bubble anew when it is shown.
        if (parentWidget()->isAncestorOf(m_pEdit))
            place();
        break;
    default:
        break;
    }
    return QLabel::eventFilter(watched, event);
}
