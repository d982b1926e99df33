#include "monitoring/CEmailTableWidget.h"

#include "monitoring/CButtonItemDelegate.h"
#include "monitoring/ShownText.h"

#include <widgetry/CScrollBar.h>
#include <widgetry/CToolTip.h>

#include <QEvent>
#include <QHeaderView>
#include <QTextDocument>

namespace {

// In pixels.
constexpr QSize tableSize(402, 173);
constexpr int columnWidths[CEmailTableWidget::ColumnCount] = {135, 131, 116};
constexpr int rowSize = 28;

constexpr int longestLine = 64; // characters that a tooltip shows in one line

// The text as a tooltip that shows it as it stands.
QString toolTipOf(const QString& text)
{
    return text.size() > longestLine || Qt::mightBeRichText(text) ? CToolTip::fromPlainText(text) : text;
}

QTableWidgetItem* itemWith(const QString& text)
{
    const QString shown = shownText(text);
    auto* const item = new QTableWidgetItem(shown);
    item->setToolTip(toolTipOf(shown));
    return item;
}

} // namespace

CEmailTableWidget::CEmailTableWidget(QWidget* parent)
    : QTableWidget(0, ColumnCount, parent),
      m_pButtons(new CButtonItemDelegate(this)),
      m_pScrollBar(new CScrollBar(Qt::Vertical, this))
{
    setObjectName(QStringLiteral("RecevierMail"));
    setFixedSize(tableSize);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setShowGrid(false);
    setWordWrap(false);
    setFocusPolicy(Qt::NoFocus);
    setItemDelegateForColumn(OperationColumn, m_pButtons);

    verticalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(rowSize);
    for (int column = 0; column < ColumnCount; ++column)
        setColumnWidth(column, columnWidths[column]);
    horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setStretchLastSection(true);

    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_pScrollBar->hide();
    m_pScrollBar->ConnectWithOtheBar(verticalScrollBar(), Qt::ScrollBarAsNeeded);
    m_pScrollBar->ConnectWithParent(this);
    setTexts();
}

void CEmailTableWidget::setRecipients(const QList<SEmailRecipient>& recipients)
{
    setRowCount(0); // what refers to a row of the old list is void
    setRowCount(recipients.size());
    for (int row = 0; row < recipients.size(); ++row)
        setRecipient(row, recipients.at(row));
}

void CEmailTableWidget::appendRecipient(const SEmailRecipient& recipient)
{
    insertRow(rowCount());
    setRecipient(rowCount() - 1, recipient);
}

void CEmailTableWidget::setRecipient(int row, const SEmailRecipient& recipient)
{
    setItem(row, NameColumn, itemWith(recipient.strName));
    setItem(row, AddressColumn, itemWith(recipient.strAddress));
}

void CEmailTableWidget::AdjustScrollBarGeometry()
{
    const int headerHeight = horizontalHeader()->height();
    const int barWidth = m_pScrollBar->width();
    m_pScrollBar->setGeometry(width() - barWidth - 2, headerHeight + 1, barWidth, height() - headerHeight - 3);
}

void CEmailTableWidget::resizeEvent(QResizeEvent* event)
{
    AdjustScrollBarGeometry();
    QTableWidget::resizeEvent(event);
}

void CEmailTableWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QTableWidget::changeEvent(event);
}

void CEmailTableWidget::updateGeometries()
{
    QTableWidget::updateGeometries();
    AdjustScrollBarGeometry(); // the header may have another height
}

void CEmailTableWidget::setTexts()
{
    setHorizontalHeaderLabels({tr("Name"), tr("Email address"), QString()});
}
