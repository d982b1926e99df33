#include "monitoring/CTargetMailboxes.h"

#include "monitoring/CButtonItemDelegate.h"
#include "monitoring/CEmailEditDlg.h"
#include "monitoring/CEmailTableWidget.h"

#include <widgetry/CMessageBox.h>

#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

#include <optional>

namespace {

// What the user enters; nothing when the dialog is cancelled, or destroyed with its parent. Destroys it.
std::optional<SEmailRecipient> enteredIn(const QPointer<CEmailEditDlg>& dialog)
{
    const bool isAccepted = dialog->exec() == QDialog::Accepted;
    if (!dialog)
        return std::nullopt;
    const SEmailRecipient entered = dialog->recipient();
    delete dialog;
    return isAccepted ? std::make_optional(entered) : std::nullopt;
}

} // namespace

CTargetMailboxes::CTargetMailboxes(QWidget* parent)
    : QWidget(parent),
      m_pHeading(new QLabel(this)),
      m_pAdd(new QPushButton(this)),
      m_pTable(new CEmailTableWidget(this))
{
    m_pHeading->setObjectName(QStringLiteral("Highlight"));
    m_pAdd->setObjectName(QStringLiteral("AddEmail"));
    m_pAdd->setStyleSheet(
        QStringLiteral("QPushButton{ border: 0px; color: rgba(139, 129, 255, 1); background: transparent;}"));
    m_pAdd->installEventFilter(this);
    layOut();
    connect(m_pAdd, &QPushButton::clicked, this, &CTargetMailboxes::add);
    connect(m_pTable->buttons(), &CButtonItemDelegate::notifyBtnClicked, this,
            [this](const QModelIndex& entry, int button) {
                if (button == CButtonItemDelegate::EditButton)
                    edit(entry.row());
                else
                    remove(entry.row());
            });
    connect(m_pTable, &QTableWidget::itemSelectionChanged, this, &CTargetMailboxes::describeKeys);
    setTexts();
}

void CTargetMailboxes::setRecipients(const QList<SEmailRecipient>& recipients)
{
    m_recipients = recipients;
    m_pTable->setRecipients(recipients);
}

void CTargetMailboxes::layOut()
{
    auto* const heading = new QHBoxLayout;
    heading->addWidget(m_pHeading);
    heading->addWidget(m_pAdd);
    heading->addStretch();

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(heading);
    layout->addWidget(m_pTable);
}

void CTargetMailboxes::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QWidget::changeEvent(event);
}

// The table takes no focus: its keys are those of the button above it.
bool CTargetMailboxes::eventFilter(QObject* watched, QEvent* event)
{
    return (event->type() == QEvent::KeyPress && handleTableKey(static_cast<QKeyEvent*>(event)->key())) ||
           QWidget::eventFilter(watched, event);
}

void CTargetMailboxes::setTexts()
{
    m_pHeading->setText(tr("Target mailboxes"));
    m_pAdd->setText(tr("Add email"));
    m_pTable->setAccessibleName(m_pHeading->text());
    describeKeys();
}

void CTargetMailboxes::add()
{
    const auto entered = enteredIn(new CEmailEditDlg(&m_recipients, this));
    if (!entered)
        return;
    m_recipients.append(*entered);
    m_pTable->appendRecipient(*entered);
    Q_EMIT notifyRecipientsChanged();
}

void CTargetMailboxes::edit(int row)
{
    // Another list may be set meanwhile, whose rows are others.
    const QPersistentModelIndex entry = m_pTable->model()->index(row, 0);
    const auto entered = enteredIn(new CEmailEditDlg(&m_recipients, row, this));
    if (!entered || !entry.isValid())
        return;
    m_recipients.replace(entry.row(), *entered);
    m_pTable->setRecipient(entry.row(), *entered);
    describeKeys();
}

void CTargetMailboxes::remove(int row)
{
    const QPersistentModelIndex entry = m_pTable->model()->index(row, 0);
    const QPointer<CTargetMailboxes> self(this);
    const int answer = CMessageBox::question(this, tr("Are you sure want to delete email?"), QStringLiteral("Orvel"));
    if (!self || answer != CMessageBox::YesResult || !entry.isValid())
        return;
    const int removed = entry.row();
    m_recipients.removeAt(removed);
    m_pTable->removeRow(removed);
    describeKeys(); // the selection has told of a row that is another by now
    Q_EMIT notifyRecipientsChanged();
}

// True when the key means something to the table.
bool CTargetMailboxes::handleTableKey(int key)
{
    const int row = m_pTable->currentRow();
    const int lastRow = m_pTable->rowCount() - 1;
    if (key == Qt::Key_Up && lastRow >= 0)
        m_pTable->selectRow(std::max(row - 1, 0));
    else if (key == Qt::Key_Down && lastRow >= 0)
        m_pTable->selectRow(std::min(row + 1, lastRow));
    else if (key == Qt::Key_F2 && row >= 0)
        edit(row);
    else if (key == Qt::Key_Delete && row >= 0)
        remove(row);
    else
        return false;
    return true;
}

// Also says which recipient is selected, for those who do not see the table.
void CTargetMailboxes::describeKeys()
{
    const QString keys = tr("Up and Down select a recipient, F2 edits it, Delete deletes it.");
    m_pAdd->setToolTip(keys);
    const QString selected = m_recipients.value(m_pTable->currentRow()).strAddress;
    m_pAdd->setAccessibleDescription(selected.isEmpty() ? keys : selected + QStringLiteral(": ") + keys);
}
