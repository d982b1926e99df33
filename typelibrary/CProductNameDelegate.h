#pragma once

#include <QStyledItemDelegate>

// The names in the type library's tree: the editor for a new name, and a tooltip for a name without room. [GUI thread]
class CProductNameDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    // A line edit that takes up to 64 characters which may stand in the names of files.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    // Leaves a name alone that the user has begun to type: the file may change meanwhile.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    // Writes back through the model; a name that was left empty becomes the current one again.
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;
};
