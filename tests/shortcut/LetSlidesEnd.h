#pragma once

#include <widgetry/CTranslatingAnimation.h>

#include <QWidget>
#include <QtTest>

// Returns when a slide of that many milliseconds that began before the call would have ended.
inline void letSlidesEnd(int duration)
{
    QWidget ground;
    QWidget clock(&ground);
    clock.hide();
    CTranslatingAnimation animation(Qt::BottomEdge, &clock);
    animation.setDuration(duration + 100);
    animation.moveIn();
    QTRY_VERIFY(!animation.isMoving());
}
