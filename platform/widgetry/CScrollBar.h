#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QPointer>
#include <QScrollBar>

// A scroll bar that stands in for another one, for instance for the switched-off bar of a table, and lies over the edge
// of a widget. [GUI thread]
class WIDGETRY_EXPORT CScrollBar : public QScrollBar
{
    Q_OBJECT

public:
    explicit CScrollBar(Qt::Orientation orientation, QWidget* parent = nullptr);

    // Takes over range, steps and value of `bar` and keeps them equal both ways. From then on `policy` decides whether
    // this bar is visible: as needed means while there is something to scroll. A bar connected before is let go; null
    // only does that. The other bar may be destroyed at any time, which hides this one.
    void ConnectWithOtheBar(QScrollBar* bar, Qt::ScrollBarPolicy policy);

    // Makes this bar a child of `parent` and keeps it along the right edge (a horizontal one along the bottom edge)
    // when the parent is resized; the parent's own resizeEvent() comes after that and may put it elsewhere.
    void ConnectWithParent(QWidget* parent);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void sliderChange(SliderChange change) override;

private:
    void takeOver();
    void updateVisibility();
    void adjustThickness();
    void placeOnParent();

    QPointer<QScrollBar> m_pOther;
    QPointer<QWidget> m_pFollowed;
    Qt::ScrollBarPolicy m_policy = Qt::ScrollBarAsNeeded;
    bool m_bTakingOver = false;
};
