#include <widgetry/CSeparator.h>

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

CSeparator::CSeparator(int margin, QFrame::Shape shape, QWidget* parent)
    : QFrame(parent)
{
    setFrameStyle(shape | QFrame::Plain);
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
    QPainter painter(this);
    if (testAttribute(Qt::WA_StyleSheetTarget)) {
        QStyleOption option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_Widget, &option, &painter, this);
    } else {
        painter.fillRect(rect().marginsRemoved(contentsMargins()), palette().mid());
    }
}
