#pragma once

#include <QLineEdit>

// An edit for a password of letters and digits, which are shown while they are typed and masked otherwise. Input
// methods do not reach it. [GUI thread]
class CPasswordLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit CPasswordLineEdit(QWidget* parent = nullptr);

    // Shows a password that nobody types here, masked even while the user is typing another. The one that is shown
    // already disturbs nobody.
    void setPassword(const QString& password);

protected:
    void focusOutEvent(QFocusEvent* event) override;
};
