#include <widgetry/CScrollArea.h>

CScrollArea::CScrollArea(QWidget* parent, Qt::ScrollBarPolicy horizontal, Qt::ScrollBarPolicy vertical)
    : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(horizontal);
    setVerticalScrollBarPolicy(vertical);
}
