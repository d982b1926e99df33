#include "monitoring/CPasswordLineEdit.h"

#include <QRegularExpressionValidator>

CPasswordLineEdit::CPasswordLineEdit(QWidget* parent)
    : QLineEdit(parent)
{
    setEchoMode(PasswordEchoOnEdit);
    setAttribute(Qt::WA_InputMethodEnabled, false); // the echo mode has switched them on
    setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("^[A-Za-z0-9]*")), this));
}

void CPasswordLineEdit::setPassword(const QString& password)
{
    if (password == text())
        return;
    setEchoMode(Password); // ends the editing
    setEchoMode(PasswordEchoOnEdit);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setText(password);
}

void CPasswordLineEdit::focusOutEvent(QFocusEvent* event)
{
    QLineEdit::focusOutEvent(event);
    setAttribute(Qt::WA_InputMethodEnabled, false); // masking the text again has switched them on
}
