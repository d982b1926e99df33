#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QTreeView>

// A tree view whose rows follow the mouse, so that style sheets and delegates can show the row under it.
// [GUI thread]
class WIDGETRY_EXPORT CTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit CTreeView(QWidget* parent = nullptr);
};
