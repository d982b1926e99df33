#include <widgetry/CWarningTipLineEdit.h>

#include "widgetry/CWarningTip.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace {

constexpr double cornerRadius = 2.0; // pixels

} // namespace

CWarningTipLineEdit::CWarningTipLineEdit(QWidget* parent)
    : QLineEdit(parent),
      m_warningColor(0xd9, 0x30, 0x25)
{
}

CWarningTipLineEdit::~CWarningTipLineEdit()
{
    delete m_pTip;
}

void CWarningTipLineEdit::setTipText(const QString& text)
{
    m_tipText = text;
    if (m_bWarning)
        setAccessibleDescription(text);
    updateTip();
}

void CWarningTipLineEdit::showWarning()
{
    setWarning(true);
}

void CWarningTipLineEdit::clearWarning()
{
    setWarning(false);
}

void CWarningTipLineEdit::setWarning(bool warning)
{
    if (m_bWarning == warning)
        return;
    m_bWarning = warning;
    if (warning)
        m_description = accessibleDescription();
    setAccessibleDescription(warning ? m_tipText : m_description);
    // Style sheets look at the property only when they are applied.
    style()->unpolish(this);
    style()->polish(this);
    update();
    updateTip();
    Q_EMIT notifyWarningChanged();
}

void CWarningTipLineEdit::setWarningColor(const QColor& color)
{
    if (m_warningColor == color)
        return;
    m_warningColor = color;
    if (m_pTip)
        m_pTip->setColor(color);
    update();
    Q_EMIT notifyWarningChanged();
}

// Only shows and hides: the edit's window may be walking through its children right now.
void CWarningTipLineEdit::updateTip()
{
    QWidget* const ground = CWarningTip::groundOf(this);
    if (!ground || !m_bWarning || m_tipText.isEmpty() || !isEnabled() || !isVisible()) {
        if (m_pTip)
            m_pTip->hide();
        return;
    }
    if (!m_pTip)
        m_pTip = new CWarningTip(this);
    m_pTip->attach(ground);
    m_pTip->setColor(m_warningColor);
    m_pTip->setText(m_tipText);
    m_pTip->place();
    m_pTip->show();
}

bool CWarningTipLineEdit::event(QEvent* event)
{
    const bool result = QLineEdit::event(event);
    switch (event->type()) {
    case QEvent::Show:
    case QEvent::Hide:
    case QEvent::EnabledChange:
        updateTip();
        break;
    default:
        break;
    }
    return result;
}

void CWarningTipLineEdit::paintEvent(QPaintEvent* event)
{
    QLineEdit::paintEvent(event);
    if (!m_bWarning)
        return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_warningColor);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), cornerRadius, cornerRadius);
}
