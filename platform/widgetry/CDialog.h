#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QDialog>
#include <QMap>

class QHBoxLayout;
class QPushButton;

// Base of the dialogs: a content area above a row of buttons, which sits at the right.
// Return presses the default button, Escape and closing the window reject.
// Style sheets reach the content area as #DialogContent, the row as #DialogButtons, and the buttons, which are plain
// QPushButtons, as #PreviousButton, #NextButton, #OkButton, #CancelButton, #YesButton and #NoButton. [GUI thread]
class WIDGETRY_EXPORT CDialog : public QDialog
{
    Q_OBJECT

public:
    // What a button does. Ok accepts the dialog and Cancel rejects it; the others do what the owner connects.
    enum Button
    {
        Previous = 0x01,
        Next = 0x02,
        Ok = 0x04,
        Cancel = 0x08,
        Yes = 0x10,
        No = 0x20,
    };
    Q_DECLARE_FLAGS(Buttons, Button)

    explicit CDialog(QWidget* parent = nullptr);

    void setTitle(const QString& title);

    // Appends a button to the row, or returns the one that is there already. It carries its standard text and follows
    // the language until its owner sets another text. Ok, or Next where there is no Ok, is the default button.
    // Owned by the dialog.
    QPushButton* addButton(Button button);

    // Null when there is no such button.
    QPushButton* button(Button button) const;

    // Where the content goes: lay it out on this widget. Owned by the dialog, never null.
    QWidget* contentWidget() const { return m_pContent; }

protected:
    // The three steps of building a dialog; each does nothing here.
    virtual void createWidgets();
    virtual void layoutWidgets();
    virtual void connectSignals();

    // Runs the three steps in that order. A subclass calls it in its constructor, where its own overrides are reached;
    // calls after the first do nothing.
    void initialize();

    void changeEvent(QEvent* event) override;

private:
    struct Entry
    {
        QPushButton* pButton = nullptr;
        QString standardText; // as last set; a button that reads otherwise got its text from its owner
    };

    QWidget* m_pContent;
    QHBoxLayout* m_pButtonRow;
    QMap<Button, Entry> m_buttons;
    bool m_bInitialized = false;
};

Q_DECLARE_OPERATORS_FOR_FLAGS(CDialog::Buttons)
