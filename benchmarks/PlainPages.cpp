#include "benchmarks/PlainPages.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QFileSystemModel>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScrollArea>
#include <QTableWidget>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace {

template<typename Widget>
void add(QBoxLayout* layout, int count)
{
    for (int i = 0; i < count; ++i)
        layout->addWidget(new Widget);
}

template<typename Widget>
void addTexts(QBoxLayout* layout, int count)
{
    for (int i = 0; i < count; ++i)
        layout->addWidget(new Widget(QStringLiteral("Text %1").arg(i)));
}

QScrollArea* scrolled(QWidget* content)
{
    auto* const area = new QScrollArea;
    area->setWidget(content);
    area->setWidgetResizable(true);
    return area;
}

} // namespace

PlainPages::PlainPages(QWidget* parent)
    : QTabWidget(parent)
{
    addTab(preferences(), QStringLiteral("One"));
    addTab(typeLibrary(), QStringLiteral("Two"));
    addTab(healthSettings(), QStringLiteral("Three"));
}

QWidget* PlainPages::preferences()
{
    auto* const page = new QWidget;
    auto* const layout = new QVBoxLayout(page);
    addTexts<QLabel>(layout, 5);
    addTexts<QRadioButton>(layout, 9);
    addTexts<QCheckBox>(layout, 8);
    add<QSpinBox>(layout, 1);
    return scrolled(page);
}

QWidget* PlainPages::typeLibrary()
{
    auto* const page = new QWidget;
    auto* const layout = new QVBoxLayout(page);
    add<QToolButton>(layout, 5);
    auto* const tree = new QTreeView;
    tree->setModel(new QFileSystemModel(tree));
    layout->addWidget(tree);
    return page;
}

QWidget* PlainPages::healthSettings()
{
    auto* const page = new QWidget;
    auto* const layout = new QVBoxLayout(page);
    addTexts<QLabel>(layout, 20);
    addTexts<QCheckBox>(layout, 19);
    add<QSpinBox>(layout, 4);
    add<QDoubleSpinBox>(layout, 8);
    add<QLineEdit>(layout, 4);
    m_pTable = new QTableWidget(0, 2);
    layout->addWidget(m_pTable);
    return scrolled(page);
}

void PlainPages::setRecipients(const QList<SEmailRecipient>& recipients)
{
    m_pTable->setRowCount(recipients.size());
    for (int row = 0; row < recipients.size(); ++row) {
        m_pTable->setItem(row, 0, new QTableWidgetItem(recipients[row].strName));
        m_pTable->setItem(row, 1, new QTableWidgetItem(recipients[row].strAddress));
    }
}

QList<SEmailRecipient> PlainPages::recipients() const
{
    QList<SEmailRecipient> recipients;
    for (int row = 0; row < m_pTable->rowCount(); ++row)
        recipients.append({m_pTable->item(row, 0)->text(), m_pTable->item(row, 1)->text()});
    return recipients;
}

// Sets every text again, as pages do that follow the language.
void PlainPages::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        const auto buttons = findChildren<QAbstractButton*>();
        for (QAbstractButton* const button : buttons)
            button->setText(button->text() + QLatin1Char('.'));
        const auto labels = findChildren<QLabel*>();
        for (QLabel* const label : labels)
            label->setText(label->text() + QLatin1Char('.'));
    }
    QTabWidget::changeEvent(event);
}
