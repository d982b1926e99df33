#include "typelibrary/CProductNameDelegate.h"

#include <widgetry/CToolTip.h>

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace {

// Around the editor, in pixels.
constexpr int editorGap = 8;         // between the icon and the editor
constexpr int editorExtraWidth = 10; // beyond the text
constexpr int editorInset = 4;       // above and below

bool endsEditing(const QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return false;
    switch (static_cast<const QKeyEvent*>(event)->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return true;
    default:
        return false;
    }
}

} // namespace

QWidget* CProductNameDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                            const QModelIndex& /*index*/) const
{
    auto* const editor = new QLineEdit(parent);
    static const QRegularExpression name(QStringLiteral(R"([^\\/:\*\?"<>\|\.]{0,64})"));
    editor->setValidator(new QRegularExpressionValidator(name, editor));
    return editor;
}

void CProductNameDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const auto* const edit = qobject_cast<QLineEdit*>(editor);
    if (!edit || !edit->isModified())
        QStyledItemDelegate::setEditorData(editor, index);
}

void CProductNameDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    auto* const edit = qobject_cast<QLineEdit*>(editor);
    if (edit && edit->text().isEmpty())
        edit->setText(index.data(Qt::EditRole).toString());
    QStyledItemDelegate::setModelData(editor, model, index);
}

void CProductNameDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                                const QModelIndex& index) const
{
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    editor->setGeometry(item.rect.left() + editorGap + item.decorationSize.width(), item.rect.top() + editorInset,
                        item.fontMetrics.horizontalAdvance(item.text) + editorExtraWidth,
                        item.rect.height() - 2 * editorInset);
}

bool CProductNameDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                     const QModelIndex& index)
{
    if (event->type() == QEvent::ToolTip && index.isValid()) {
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        if (item.fontMetrics.horizontalAdvance(item.text) > item.rect.width()) {
            CToolTip::showText(event->globalPos(), item.text, view->viewport(), item.rect);
            return true;
        }
    }
    return QStyledItemDelegate::helpEvent(event, view, option, index);
}

bool CProductNameDelegate::eventFilter(QObject* editor, QEvent* event)
{
    // A name that comes from elsewhere, with a dot in it, is not acceptable: left as it is, it would not let go.
    auto* const edit = qobject_cast<QLineEdit*>(editor);
    if (edit && endsEditing(event) && !edit->isModified() && !edit->hasAcceptableInput()) {
        Q_EMIT closeEditor(edit);
        return true;
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}
