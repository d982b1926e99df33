#pragma once

#include <QEvent>
#include <QObject>

// Installed as an event filter, counts how often the widget is painted.
class PaintCounter : public QObject
{
public:
    int paints = 0;

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint;
        return false;
    }
};
