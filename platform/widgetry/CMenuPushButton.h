#pragma once

#include <widgetry/WidgetryGlobal.h>

#include <QPushButton>

class QAction;

// A push button that opens a menu, also with the Down key. With action sync on it reads what was chosen last: the text
// of the triggered action, also of one in a submenu at any depth, however late that was filled. A text that does not
// fit is shortened in the middle and shown whole in a tooltip. Takes the menu with QPushButton::setMenu(). [GUI thread]
class WIDGETRY_EXPORT CMenuPushButton : public QPushButton
{
    Q_OBJECT

public:
    explicit CMenuPushButton(QWidget* parent = nullptr);

    // Off at construction. An action that only asks for something, like "Browse...", becomes the text too: its owner
    // sets the text afterwards.
    void setActionSync(bool sync);
    bool isActionSync() const { return m_bActionSync; }

    // The text as the user reads it: ampersands stand for themselves, where setText() and text() take them for
    // mnemonics.
    void setDisplayText(const QString& text);
    QString displayText() const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void actionEvent(QActionEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    QSize sizeHintWith(int characters) const;
    QString fittingText(const QStyleOptionButton& option) const;
    void showAction(QAction* action);

    bool m_bActionSync = false;
};
