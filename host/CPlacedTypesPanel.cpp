#include "host/CPlacedTypesPanel.h"

#include <widgetry/CToolTip.h>

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace {

constexpr int margin = 8;
constexpr int digestRole = Qt::UserRole;

void follow(QPushButton* button, QAction* command)
{
    const auto enable = [button, command] { button->setEnabled(command->isEnabled()); };
    QObject::connect(command, &QAction::changed, button, enable);
    QObject::connect(button, &QPushButton::clicked, command, &QAction::trigger);
    enable();
}

} // namespace

CPlacedTypesPanel::CPlacedTypesPanel(QWidget* parent)
    : QWidget(parent),
      m_pList(new QListWidget(this)),
      m_pEmpty(new QLabel(this)),
      m_pPlace(new QPushButton(this)),
      m_pRemove(new QPushButton(this))
{
    setObjectName(QStringLiteral("PlacedTypesPanel"));
    m_pList->setObjectName(QStringLiteral("PlacedTypes"));
    m_pList->setUniformItemSizes(true);
    m_pList->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff); // long names are elided
    m_pList->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_pEmpty->setObjectName(QStringLiteral("NoPlacedTypes"));
    m_pEmpty->setTextFormat(Qt::PlainText);
    m_pEmpty->setWordWrap(true);
    m_pEmpty->setAlignment(Qt::AlignLeft | Qt::AlignTop);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(margin);
    layout->addWidget(m_pList, 1);
    layout->addWidget(m_pEmpty, 1);
    layout->addWidget(m_pPlace);
    layout->addWidget(m_pRemove);
    connect(m_pList, &QListWidget::currentRowChanged, this, &CPlacedTypesPanel::notifyCurrentChanged);
    setTypes({});
    setTexts();
}

void CPlacedTypesPanel::setCommands(QAction* place, QAction* remove)
{
    follow(m_pPlace, place);
    follow(m_pRemove, remove);
    m_pList->addAction(remove);
    auto* const deleteKey = new QShortcut(QKeySequence::Delete, m_pList, nullptr, nullptr, Qt::WidgetShortcut);
    connect(deleteKey, &QShortcut::activated, remove, [remove] {
        if (remove->isEnabled()) // an action that is triggered does not look
            remove->trigger();
    });
}

void CPlacedTypesPanel::setTypes(const QVector<Project::PlacedType>& types)
{
    const QListWidgetItem* const current = m_pList->currentItem();
    const QString digest = current ? current->data(digestRole).toString() : QString();
    {
        const QSignalBlocker blocker(m_pList);
        m_pList->clear();
        for (const Project::PlacedType& type : types) {
            const QString name = type.shownName();
            auto* const item = new QListWidgetItem(name, m_pList);
            item->setData(digestRole, type.digest);
            item->setToolTip(CToolTip::fromPlainText(name));
            if (type.digest == digest)
                m_pList->setCurrentItem(item);
        }
    }
    m_pList->setVisible(!types.isEmpty());
    m_pEmpty->setVisible(types.isEmpty());
    Q_EMIT notifyCurrentChanged();
}

int CPlacedTypesPanel::currentRow() const
{
    return m_pList->currentRow();
}

void CPlacedTypesPanel::setCurrentRow(int row)
{
    m_pList->setCurrentRow(row);
}

void CPlacedTypesPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QWidget::changeEvent(event);
}

void CPlacedTypesPanel::setTexts()
{
    m_pList->setAccessibleName(tr("Placed types"));
    m_pEmpty->setText(tr("The layout has no types yet. Select a type in the type library and place it."));
    m_pPlace->setText(tr("Place in layout"));
    m_pRemove->setText(tr("Remove from layout"));
}
