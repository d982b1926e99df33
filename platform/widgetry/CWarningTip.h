#pragma once

#include <QLabel>
#include <QPointer>
#include <QVector>

// The bubble of a CWarningTipLineEdit. It is a child of the scrolled content, or else of the window, that the edit is
// in, so that it scrolls and is cut off with the edit, and follows the edit inside of it.
class CWarningTip : public QLabel
{
    Q_OBJECT

public:
    // Null when `edit` has no ancestor to lie on.
    static QWidget* groundOf(const QWidget* edit);

    // Hidden at first. `edit` destroys the bubble, unless the ground has done so before.
    explicit CWarningTip(QWidget* edit);

    // Makes the bubble a child of `ground` and follows the edit there.
    void attach(QWidget* ground);

    void setColor(const QColor& color);

    // Puts the bubble below the edit, or above it where there is no room below. The text is wrapped where the ground
    // is narrower.
    void place();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* const m_pEdit;
    QVector<QPointer<QWidget>> m_watched; // the edit moves on the ground when one of these does
};
