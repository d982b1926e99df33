#pragma once

#include <QTabBar>

// Tabs on a line that runs up and around the current tab, which so opens into the page below. [GUI thread]
class CShortCutTabBar : public QTabBar
{
    Q_OBJECT

public:
    explicit CShortCutTabBar(QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    QSize tabSizeHint(int index) const override;
};
