#include <widgetry/CTranslatingAnimation.h>

#include <QEvent>
#include <QWidget>

#include <utility>

CTranslatingAnimation::CTranslatingAnimation(Qt::Edge edge, QWidget* widget)
    : QObject(widget),
      m_edge(edge),
      m_pWidget(widget)
{
    m_progress.setStartValue(0.0);
    m_progress.setEndValue(1.0);
    m_progress.setEasingCurve(QEasingCurve::OutCubic);
    m_progress.setDuration(m_nDuration);
    connect(&m_progress, &QVariantAnimation::valueChanged, this, &CTranslatingAnimation::place);
    connect(&m_progress, &QVariantAnimation::finished, this, &CTranslatingAnimation::complete);
    widget->installEventFilter(this);
}

void CTranslatingAnimation::moveIn()
{
    if (m_state == State::Resting ? m_pWidget->isHidden() : m_state == State::MovingOut)
        start(State::MovingIn);
}

void CTranslatingAnimation::moveOut()
{
    if (m_state == State::Resting ? !m_pWidget->isHidden() : m_state == State::MovingIn)
        start(State::MovingOut);
}

void CTranslatingAnimation::stop()
{
    if (m_state != State::Resting)
        rest(m_state == State::MovingIn);
}

void CTranslatingAnimation::setMoveInCompleteCallback(std::function<void()> callback)
{
    m_moveInComplete = std::move(callback);
}

void CTranslatingAnimation::setMoveOutCompleteCallback(std::function<void()> callback)
{
    m_moveOutComplete = std::move(callback);
}

void CTranslatingAnimation::setDuration(int milliseconds)
{
    m_nDuration = milliseconds;
    m_progress.setDuration(milliseconds);
}

void CTranslatingAnimation::start(State direction)
{
    const bool turnsBack = m_state != State::Resting;
    m_progress.setDirection(direction == State::MovingIn ? QAbstractAnimation::Forward : QAbstractAnimation::Backward);
    if (turnsBack) {
        m_state = direction; // the running animation goes on from where it is
        return;
    }
    if (direction == State::MovingIn)
        m_pWidget->show(); // the layout places it now, before it is painted for the first time
    m_place = m_pWidget->pos();
    m_state = direction;
    m_progress.setCurrentTime(direction == State::MovingIn ? 0 : m_nDuration);
    place();
    m_progress.start(); // may end at once, and with it this object
}

// Ends a slide with the widget in its place.
void CTranslatingAnimation::rest(bool visible)
{
    m_state = State::Resting;
    m_progress.stop();
    m_pWidget->setVisible(visible);
    m_pWidget->move(m_place);
    m_pWidget->updateGeometry();
}

void CTranslatingAnimation::complete()
{
    // An animation that is stopped at the end it is going to, where the slide has turned back, has finished for Qt.
    if (m_state == State::Resting)
        return;
    const bool in = m_state == State::MovingIn;
    rest(in);
    const std::function<void()> callback = in ? m_moveInComplete : m_moveOutComplete;
    if (callback)
        callback();
}

void CTranslatingAnimation::place()
{
    if (m_state == State::Resting)
        return;
    m_bPlacing = true;
    m_pWidget->move(m_place + offset());
    m_bPlacing = false;
}

// From the widget's place to where it is now.
QPoint CTranslatingAnimation::offset() const
{
    const QSize parent = m_pWidget->parentWidget()->size();
    const double out = 1.0 - m_progress.currentValue().toDouble();
    switch (m_edge) {
    case Qt::TopEdge:
        return {0, -qRound(out * (m_place.y() + m_pWidget->height()))};
    case Qt::LeftEdge:
        return {-qRound(out * (m_place.x() + m_pWidget->width())), 0};
    case Qt::RightEdge:
        return {qRound(out * (parent.width() - m_place.x())), 0};
    case Qt::BottomEdge:
        break;
    }
    return {0, qRound(out * (parent.height() - m_place.y()))};
}

bool CTranslatingAnimation::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_pWidget && m_state != State::Resting && !m_bPlacing) {
        switch (event->type()) {
        case QEvent::Move: // by the layout: the slide goes on relative to the new place
            m_place = m_pWidget->pos();
            place();
            break;
        case QEvent::Resize:
            place();
            break;
        case QEvent::Hide:
            if (m_pWidget->isHidden())
                rest(false);
            break;
        default:
            break;
        }
    }
    return QObject::eventFilter(watched, event);
}
