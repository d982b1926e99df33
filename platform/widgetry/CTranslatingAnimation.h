#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QObject>
#include <QPoint>
#include <QVariantAnimation>

#include <functional>

class QWidget;

// Slides a widget in from, and out to, one edge of its parent. Its place is where the parent's layout puts it, or,
// without a layout, where its owner has put it; the layout may change that place during a slide. The widget is visible
// from the start of a slide in to the end of a slide out. Hiding it ends a slide. [GUI thread]
class WIDGETRY_EXPORT CTranslatingAnimation : public QObject
{
    Q_OBJECT

public:
    // The animation belongs to `widget`, which has a parent by the time it slides.
    CTranslatingAnimation(Qt::Edge edge, QWidget* widget);

    // Starts a slide and returns. Nothing happens where the widget is, or is on its way, there already; a slide the
    // other way is turned back from where it is, without its callback.
    void moveIn();
    void moveOut();

    // Ends a slide at once, without a callback: a widget on its way in stands in its place, one on its way out is
    // hidden.
    void stop();

    bool isMoving() const { return m_state != State::Resting; }

    // Called once at the end of every completed slide, as the last thing the animation does: the callback may destroy
    // the widget. Empty: nothing is called.
    void setMoveInCompleteCallback(std::function<void()> callback);
    void setMoveOutCompleteCallback(std::function<void()> callback);

    // Milliseconds of a whole slide, 0 or more. With 0 a slide is over, and its callback called, when moveIn() or
    // moveOut() returns.
    void setDuration(int milliseconds);
    int duration() const { return m_nDuration; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class State
    {
        Resting,
        MovingIn,
        MovingOut,
    };

    void start(State direction);
    void rest(bool visible);
    void complete();
    void place();
    QPoint offset() const;

    const Qt::Edge m_edge;
    QWidget* const m_pWidget;
    QVariantAnimation m_progress; // 0 out, 1 in
    State m_state = State::Resting;
    QPoint m_place; // of the widget when it is in, in the parent's coordinates; valid during a slide
    bool m_bPlacing = false;
    int m_nDuration = 250;
    std::function<void()> m_moveInComplete;
    std::function<void()> m_moveOutComplete;
};
