#include "host/COverlay.h"

#include <QChildEvent>
#include <QVBoxLayout>

COverlay::COverlay(QWidget* parent)
    : QWidget(parent)
{
    setObjectName(QStringLiteral("OverLay"));
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addStretch();
    parent->installEventFilter(this);
    resize(parent->size());
    followPanels();
}

void COverlay::childEvent(QChildEvent* event)
{
    if (event->added() && event->child()->isWidgetType())
        event->child()->installEventFilter(this);
    else if (event->removed())
        followPanels();
    QWidget::childEvent(event);
}

bool COverlay::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parent()) {
        if (event->type() == QEvent::Resize)
            resize(parentWidget()->size());
        return false;
    }
    switch (event->type()) {
    case QEvent::Show:
        raise();
        followPanels();
        break;
    case QEvent::Hide:
    case QEvent::Move:
    case QEvent::Resize:
        followPanels();
        break;
    default:
        break;
    }
    return false;
}

void COverlay::followPanels()
{
    QRegion panels;
    const auto children = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* panel : children) {
        if (!panel->isHidden())
            panels += panel->geometry();
    }
    // An empty mask would be no mask.
    setAttribute(Qt::WA_TransparentForMouseEvents, panels.isEmpty());
    setMask(panels);
}
