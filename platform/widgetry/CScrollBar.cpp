#include <widgetry/CScrollBar.h>

#include <QEvent>

CScrollBar::CScrollBar(Qt::Orientation orientation, QWidget* parent)
    : QScrollBar(orientation, parent)
{
    resize(sizeHint());
}

void CScrollBar::ConnectWithOtheBar(QScrollBar* bar, Qt::ScrollBarPolicy policy)
{
    if (m_pOther) {
        disconnect(m_pOther, nullptr, this, nullptr);
        disconnect(this, nullptr, m_pOther, nullptr);
    }
    m_pOther = bar;
    m_policy = policy;
    if (!bar)
        return;
    connect(bar, &QScrollBar::valueChanged, this, &CScrollBar::takeOver);
    connect(bar, &QScrollBar::rangeChanged, this, &CScrollBar::takeOver);
    // Item views set the page step after the range, which no signal tells.
    connect(bar, &QScrollBar::rangeChanged, this, &CScrollBar::takeOver, Qt::QueuedConnection);
    connect(bar, &QObject::destroyed, this, &QWidget::hide);
    connect(this, &QScrollBar::valueChanged, bar, [this, bar](int newValue) {
        if (!m_bTakingOver)
            bar->setValue(newValue);
    });
    connect(this, &QScrollBar::rangeChanged, bar, [this, bar](int newMinimum, int newMaximum) {
        if (!m_bTakingOver)
            bar->setRange(newMinimum, newMaximum);
    });
    takeOver();
}

void CScrollBar::ConnectWithParent(QWidget* parent)
{
    if (m_pFollowed)
        m_pFollowed->removeEventFilter(this);
    m_pFollowed = parent;
    if (parentWidget() != parent)
        setParent(parent);
    parent->installEventFilter(this);
    placeOnParent();
    updateVisibility();
}

void CScrollBar::takeOver()
{
    if (!m_pOther || m_bTakingOver)
        return;
    m_bTakingOver = true;
    setSingleStep(m_pOther->singleStep());
    setPageStep(m_pOther->pageStep());
    setRange(m_pOther->minimum(), m_pOther->maximum());
    setValue(m_pOther->value());
    m_bTakingOver = false;
    updateVisibility();
}

void CScrollBar::updateVisibility()
{
    if (!m_pOther)
        return;
    const bool overflows = maximum() > minimum();
    const bool wanted = m_policy == Qt::ScrollBarAlwaysOn || (m_policy == Qt::ScrollBarAsNeeded && overflows);
    if (wanted == isHidden()) {
        setVisible(wanted);
        raise();
    }
}

// The right edge of a vertical bar, or the bottom edge of a horizontal one, stays where it is.
void CScrollBar::adjustThickness()
{
    QRect place = geometry();
    if (orientation() == Qt::Vertical)
        place.setLeft(place.right() + 1 - sizeHint().width());
    else
        place.setTop(place.bottom() + 1 - sizeHint().height());
    setGeometry(place);
}

void CScrollBar::placeOnParent()
{
    if (orientation() == Qt::Vertical)
        setGeometry(m_pFollowed->width() - width(), 0, width(), m_pFollowed->height());
    else
        setGeometry(0, m_pFollowed->height() - height(), m_pFollowed->width(), height());
}

bool CScrollBar::event(QEvent* event)
{
    const bool result = QScrollBar::event(event);
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange)
        adjustThickness();
    return result;
}

bool CScrollBar::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == m_pFollowed && event->type() == QEvent::Resize)
        placeOnParent();
    return QScrollBar::eventFilter(watched, event);
}

void CScrollBar::sliderChange(SliderChange change)
{
    QScrollBar::sliderChange(change);
    if (change == SliderStepsChange && m_pOther && !m_bTakingOver) {
        m_pOther->setSingleStep(singleStep());
        m_pOther->setPageStep(pageStep());
    }
}
