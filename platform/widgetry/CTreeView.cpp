#include <widgetry/CTreeView.h>

CTreeView::CTreeView(QWidget* parent)
    : QTreeView(parent)
{
    setMouseTracking(true);
    viewport()->setAttribute(Qt::WA_Hover);
}
