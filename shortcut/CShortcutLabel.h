#pragma once

#include <QWidget>

class QKeySequence;
class QLabel;

// A row of the shortcut panel: the name of an action at the left, the caps of its keys at the right. The caps have the
// object name "Shortcut", by which a style sheet gives them their look. [GUI thread]
class CShortcutLabel : public QWidget
{
    Q_OBJECT

public:
    // `text` is the translated name of the action. Without keys the row has no caps.
    CShortcutLabel(const QString& text, const QKeySequence& keys, QWidget* parent = nullptr);

    // Another name; the keys stay.
    void setText(const QString& text);

    QSize sizeHint() const override;

private:
    QLabel* m_pName;
};
