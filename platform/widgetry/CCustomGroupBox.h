#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QFrame>

class QLabel;
class QLayout;
class QVBoxLayout;

// A titled group of controls: a heading above the layouts that its owner adds.
// Style sheets reach the heading as #GroupTitle. [GUI thread]
class WIDGETRY_EXPORT CCustomGroupBox : public QFrame
{
    Q_OBJECT

public:
    explicit CCustomGroupBox(const QString& title = {}, QWidget* parent = nullptr);

    // Plain text; an ampersand stands for itself. Also the group's accessible name.
    void setTitle(const QString& title);
    QString title() const;

    // Appends `layout` below what was added before and takes ownership.
    void addCustomLayout(QLayout* layout);

private:
    QLabel* m_pTitle;
    QVBoxLayout* m_pLayout;
};
