#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QScrollArea>

// A scroll area without a frame. [GUI thread]
class WIDGETRY_EXPORT CScrollArea : public QScrollArea
{
    Q_OBJECT

public:
    explicit CScrollArea(QWidget* parent = nullptr, Qt::ScrollBarPolicy horizontal = Qt::ScrollBarAsNeeded,
                         Qt::ScrollBarPolicy vertical = Qt::ScrollBarAsNeeded);
};
