#include <widgetry/CTreeView.h>

CTreeView::CTreeView(QWidget* parent)
    : QTreeView(parent)
{
    setMouseTracking(true);
}
