#include <widgetry/CSeparator.h>

#include <QPainter>

CSeparator::CSeparator(int margin, QFrame::Shape shape, QWidget* parent)
    : QFrame(parent)
{
    setFrameShape(shape);
    setFrameShadow(QFrame::Plain);
    if (shape == QFrame::VLine) {
        setContentsMargins(0, margin, 0, margin);
        setFixedWidth(1);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    } else {
        setContentsMargins(margin, 0, margin, 0);
        setFixedHeight(1);
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }
}

void CSeparator::paintEvent(QPaintEvent* /*event*/)
{
    // Where a style sheet says how the line looks, it has been painted as the background.
    if (!testAttribute(Qt::WA_StyledBackground))
        QPainter(this).fillRect(contentsRect(), palette().mid());
}
