#pragma once

#include <widgetry/CDialog.h>

#include <QStyle>

class QTextEdit;

// Modal message boxes. The text is shown as it stands, never as markup, and scrolls when it does not fit the screen.
// The caller waits until the box is answered; `parent` may be null, and may be destroyed meanwhile.
// Tests find the open box with QApplication::activeModalWidget(), read text() and press button().
// Style sheets reach the text as #MessageText and the icon as #MessageIcon. [GUI thread]
class WIDGETRY_EXPORT CMessageBox : public CDialog
{
    Q_OBJECT

public:
    // How a box was answered. Closing it, Escape, and the end of its parent count as Cancel where the box has that
    // button, else as No, else as Ok; never as Yes.
    enum Result
    {
        YesResult = 0,
        NoResult = 1,
        CancelResult = 2,
        OkResult = 3,
    };

    // `buttons` is any combination of Yes, No, Ok and Cancel, which is also their order; none of them means Ok.
    // Return presses `defaultButton`, or the first button if that one is not there.
    static int information(QWidget* parent, const QString& text, const QString& title, Buttons buttons = Ok,
                           Button defaultButton = Ok);
    static int warning(QWidget* parent, const QString& text, const QString& title, Buttons buttons = Ok,
                       Button defaultButton = Ok);
    static int question(QWidget* parent, const QString& text, const QString& title, Buttons buttons = Buttons(Yes | No),
                        Button defaultButton = Yes);

    QString text() const;

    void reject() override;

protected:
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    CMessageBox(QWidget* parent, QStyle::StandardPixmap icon, const QString& text, Buttons buttons,
                Button defaultButton);

    static int run(QWidget* parent, QStyle::StandardPixmap icon, const QString& text, const QString& title,
                   Buttons buttons, Button defaultButton);
    void fitText();

    QTextEdit* m_pText;
    int m_nResult; // the answer so far: what closing the box means
};
