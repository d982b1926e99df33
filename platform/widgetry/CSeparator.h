#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QFrame>

// A line one pixel thick, which fills the other direction of its layout. A style sheet that matches it,
// application-wide or its own, replaces the painting; otherwise the line has the palette's Mid colour. [GUI thread]
class WIDGETRY_EXPORT CSeparator : public QFrame
{
    Q_OBJECT

public:
    // `margin`: pixels left free at both ends of the line, 0 or more. `shape`: QFrame::HLine or QFrame::VLine.
    explicit CSeparator(int margin = 0, QFrame::Shape shape = QFrame::HLine, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};
