#pragma once

#include <QSvgRenderer>
#include <QWidget>

// Three arrows from the sender of the mails to their targets. A picture only. [GUI thread]
class CSendMailArrow : public QWidget
{
    Q_OBJECT

public:
    explicit CSendMailArrow(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QSvgRenderer m_arrow;
};
