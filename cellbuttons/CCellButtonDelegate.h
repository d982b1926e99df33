#pragma once

#include <QIcon>
#include <QPersistentModelIndex>
#include <QStyledItemDelegate>
#include <QVector>

class QAbstractItemView;
class QMouseEvent;

// Base of the delegates that draw a row of small buttons into every cell that they serve, and nothing else there. A
// button is clicked when the left mouse button is pressed and released inside it; the press also makes the row current,
// as anywhere else in the view. [GUI thread]
class CCellButtonDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    // `icons`: one per button, from left to right, with pictures for QIcon::Normal and QIcon::Active (under the mouse),
    // and for QIcon::On (pressed) where that differs from the latter. `view`: the one that the delegate is set on; it
    // owns the delegate.
    CCellButtonDelegate(const QVector<QIcon>& icons, QAbstractItemView* view);

    // Makes all buttons work, as they do at first, or shows them dimmed and deaf.
    void setEnabled(bool enabled);
    bool isEnabled() const { return m_bEnabled; }

    // Where a button, counted from 0, is in a cell; both in pixels of the viewport.
    static QRect buttonRect(const QRect& cell, int button);

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    // Handles press, release and move of the mouse; true when the view must not see the event.
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;
    bool eventFilter(QObject* watched, QEvent* event) override; // of the viewport

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

    // The icon made of the pictures "normal", "hover" and "pressed" of an operation, for instance "edit".
    static QIcon operationIcon(const QString& operation);

    virtual QString toolTip(int button) const = 0; // in the current language
    // A button was clicked. Whatever this leads to may destroy the view.
    virtual void clicked(const QModelIndex& index, int button) = 0;

private:
    int buttonAt(const QPoint& position, const QRect& cell) const; // -1: none
    QModelIndex cellAt(const QPoint& position) const;              // invalid: none that this delegate serves
    void setMousePosition(const QPoint& position);
    void setPressed(const QModelIndex& index, int button);

    const QVector<QIcon> m_icons;
    QAbstractItemView* const m_pView;
    QWidget* const m_pViewport;
    bool m_bEnabled = true;
    QPoint m_mouse; // where it was last, in the viewport
    QPersistentModelIndex m_pressedIndex;
    int m_nPressedButton = -1; // none
};
