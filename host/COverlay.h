#pragma once

#include <QWidget>

// A layer over its parent on which panels slide in. It takes the mouse only where a panel is, so that the pages beneath
// stay usable whether a panel is out or in. Panels are added to its vertical layout and gather at the bottom edge.
// [GUI thread]
class COverlay : public QWidget
{
    Q_OBJECT

public:
    // Covers `parent` from now on, and follows its size.
    explicit COverlay(QWidget* parent);

protected:
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void followPanels();
};
