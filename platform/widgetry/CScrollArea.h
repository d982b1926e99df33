#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QScrollArea>

// A frameless scroll area on its parent's background. [GUI thread]
class WIDGETRY_EXPORT CScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit CScrollArea(QWidget* parent = nullptr, Qt::ScrollBarPolicy horizontal = Qt::ScrollBarAsNeeded,
                         Qt::ScrollBarPolicy vertical = Qt::ScrollBarAsNeeded);
};
