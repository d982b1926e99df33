#pragma once

#include "cellbuttons/CCellButtonDelegate.h"

#include <QAbstractItemView>
#include <QColor>
#include <QStandardItemModel>

#include <functional>
#include <memory>

// The colors that fill a button's pictures.
inline constexpr QColor normalColor(200, 0, 0);
inline constexpr QColor hoverColor(0, 200, 0);
inline constexpr QColor pressedColor(0, 0, 200);

// A delegate that notes the clicks on its buttons.
class RecordingDelegate : public CCellButtonDelegate
{
public:
    using CCellButtonDelegate::CCellButtonDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    std::function<void()> whenClicked = [] {};
    QStringList clicks; // as "row: button"

protected:
    QString toolTip(int button) const override;
    void clicked(const QModelIndex& index, int button) override;
};

// Four rows: a name and a cell of buttons 0 and 1, the second without a picture of its own for pressed. Positions are
// those of the viewport.
struct CellButtonTable
{
    // Takes the view over.
    explicit CellButtonTable(QAbstractItemView* itemView);

    void show() const;
    QWidget* viewport() const { return view->viewport(); }
    QRect cell(int row, int column = 1) const { return view->visualRect(model.index(row, column)); }
    QRect button(int row, int number) const { return CCellButtonDelegate::buttonRect(cell(row), number); }
    QPoint middle(int row, int number) const { return button(row, number).center(); }
    int currentRow() const { return view->currentIndex().row(); }

    // From elsewhere: where the mouse is already, it does not move.
    void moveMouse(const QPoint& to) const;
    // Sends what the window system sends when the mouse moves, with the left button held down.
    void drag(const QPoint& to) const;

    // What is painted there, and in the middle of a button.
    QColor colorAt(const QPoint& position) const;
    QColor color(int row, int number) const { return colorAt(middle(row, number)); }

    std::unique_ptr<QAbstractItemView> view;
    QStandardItemModel model;
    RecordingDelegate* delegate; // owned by the view
};
