#include "monitoring/EditingFinished.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLineEdit>

namespace {

// A menu leaves the user in the middle of editing.
bool endsEditing(QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        return key == Qt::Key_Return || key == Qt::Key_Enter;
    }
    return event->type() == QEvent::FocusOut && static_cast<QFocusEvent*>(event)->reason() != Qt::PopupFocusReason;
}

class Watcher : public QObject
{
public:
    Watcher(QLineEdit* edit, std::function<void()> handler)
        : QObject(edit),
          m_pEdit(edit),
          m_handler(std::move(handler))
    {
        edit->installEventFilter(this);
        connect(edit, &QLineEdit::editingFinished, this, [this] { m_handler(); });
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (endsEditing(event) && !m_pEdit->hasAcceptableInput())
            m_handler();
        return QObject::eventFilter(watched, event);
    }

private:
    QLineEdit* const m_pEdit;
    const std::function<void()> m_handler;
};

} // namespace

void onEditingFinished(QLineEdit* edit, std::function<void()> handler)
{
    new Watcher(edit, std::move(handler));
}
