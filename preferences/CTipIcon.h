#pragma once

#include <QSvgWidget>

// A small sign that there is something to explain: its tooltip, which is wrapped and shown as it stands. [GUI thread]
class CTipIcon : public QSvgWidget
{
    Q_OBJECT

public:
    explicit CTipIcon(QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;
};
