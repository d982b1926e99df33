#include <widgetry/CSeparator.h>

#include <QPainter>
#include <QStyle>

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
    // Where a style sheet says how the line looks, it has been painted as the background. The attribute alone does not
    // tell: it stays when the style sheet is taken away.
    if (!testAttribute(Qt::WA_StyledBackground) || !style()->inherits("QStyleSheetStyle"))
        QPainter(this).fillRect(contentsRect(), palette().mid());
}
