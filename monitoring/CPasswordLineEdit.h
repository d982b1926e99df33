#pragma once

#include <QLineEdit>

// An edit for a password of letters and digits, which are shown while they are typed and masked otherwise. Input
// methods do not reach it. [GUI thread]
class CPasswordLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit CPasswordLineEdit(QWidget* parent = nullptr);

protected:
    void focusOutEvent(QFocusEvent* event) override;
};
