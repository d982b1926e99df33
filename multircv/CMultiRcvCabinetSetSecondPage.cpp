#include "multircv/CMultiRcvCabinetSetSecondPage.h"

#include "multircv/CabinetRecord.h"
#include "multircv/CabinetWiringWidget.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace {

struct Topology
{
    const char* name; // of the button and of its icon
    const char* toolTip;
};

// Index: WiringGrid::Topology. One name is misspelt and one tooltip names another way than the button goes: both stay.
constexpr std::array<Topology, WiringGrid::TopologyCount> topologies{{
    {"clear", QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "Clear")},
    {"right-dwon", QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "S topology with first right and then down")},
    {"left-down", QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "S topology with first left and then down")},
    {"down-right", QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "S topology with first down and then right")},
    {"up-right", QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "S topology with first up and then right")},
    {"right-down-direction",
     QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "S topology with first right and then down")},
    {"left-down-direction",
     QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "S topology with first left and then down")},
    {"left-up-direction", QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "S topology with first left and then up")},
    {"right-up-direction",
     QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "S topology with first right and then up")},
    {"down-right-direction",
     QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "S topology with first down and then right")},
    {"down-left-direction",
     QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "S topology with first up and then left")},
    {"up-left-direction", QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "S topology with first up and then left")},
    {"up-right-direction",
     QT_TRANSLATE_NOOP("CMultiRcvCabinetSetSecondPage", "S topology with first up and then right")},
}};

constexpr int buttonSize = 18;
constexpr int buttonSpacing = 8;

// Whether there is more than one way to wire the grid.
bool hasChoice(const QSize& grid)
{
    return grid.width() > 1 && grid.height() > 1;
}

// Whether the page offers the topology for a grid of that size.
bool isOffered(int topology, const QSize& grid, bool specifyOrientation)
{
    if (!specifyOrientation)
        return topology <= WiringGrid::UpRight && hasChoice(grid);
    if (topology < WiringGrid::RightDownDirection)
        return topology == WiringGrid::Clear;
    if (grid.height() == 1)
        return topology == WiringGrid::RightDownDirection || topology == WiringGrid::LeftDownDirection;
    if (grid.width() == 1)
        return topology == WiringGrid::DownRightDirection || topology == WiringGrid::UpRightDirection;
    return true;
}

} // namespace

CMultiRcvCabinetSetSecondPage::CMultiRcvCabinetSetSecondPage(const SHwRcvInCabinetInfo& record, QWidget* parent)
    : QWidget(parent),
      m_record(record),
      m_pOrientation(new QCheckBox(this)),
      m_pTopologies(new QButtonGroup(this)),
      m_pHint(new QLabel(this))
{
    createTopologyButtons();
    m_pGrid = new CabinetWiringWidget(this); // behind the buttons for the Tab key
    layoutWidgets();
    updateButtons();
    setTexts();

    connect(m_pOrientation, &QCheckBox::toggled, this, &CMultiRcvCabinetSetSecondPage::onOrientationToggled);
    connect(m_pTopologies, &QButtonGroup::idClicked, m_pGrid, &CabinetWiringWidget::setTopology);
    connect(m_pGrid, &CabinetWiringWidget::notifyWiringCouldClear, m_pTopologies->button(WiringGrid::Clear),
            &QWidget::setEnabled);
}

void CMultiRcvCabinetSetSecondPage::createTopologyButtons()
{
    for (int id = 0; id < WiringGrid::TopologyCount; ++id) {
        const auto name = QString::fromLatin1(topologies[static_cast<std::size_t>(id)].name);
        auto* const button = new QToolButton(this);
        button->setObjectName(name);
        button->setIcon(QIcon(QStringLiteral(":/Image/SettingArea/TypeLibrary/MultiCardWizard/Topology/") + name +
                              QStringLiteral(".svg")));
        button->setFixedSize(buttonSize, buttonSize);
        button->setIconSize(QSize(16, 16));
        // Whatever the application's style pads its tool buttons with, it would leave too little of so small a one.
        button->setStyleSheet(QStringLiteral("padding:0px;"));
        button->setAutoRaise(true);
        m_pTopologies->addButton(button, id);
    }
}

void CMultiRcvCabinetSetSecondPage::layoutWidgets()
{
    auto* const buttons = new QHBoxLayout;
    buttons->setSpacing(buttonSpacing);
    const QList<QAbstractButton*> all = m_pTopologies->buttons();
    for (QAbstractButton* const button : all)
        buttons->addWidget(button);

    auto* const head = new QHBoxLayout;
    head->addWidget(m_pOrientation);
    head->addStretch();
    head->addLayout(buttons);

    m_pHint->setHidden(true);
    QSizePolicy policy = m_pHint->sizePolicy();
    policy.setRetainSizeWhenHidden(true); // the grid stays in its place
    m_pHint->setSizePolicy(policy);

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4); // the wizard's height leaves little beside the grid
    layout->setSpacing(4);
    layout->addLayout(head);
    layout->addStretch();
    layout->addWidget(m_pGrid, 0, Qt::AlignHCenter);
    layout->addWidget(m_pHint, 0, Qt::AlignHCenter);
    layout->addStretch();
}

void CMultiRcvCabinetSetSecondPage::setGridSize(const QSize& size)
{
    if (size == m_gridSize)
        return;
    m_gridSize = size;
    updateButtons();
    m_pHint->setVisible(hasChoice(size));
    m_pGrid->setGridSize(size.width(), size.height());
    m_pTopologies->button(WiringGrid::Clear)->setEnabled(false);
    if (isRecordOfGrid())
        applyRecord();
    else
        wireSingleLine();
}

bool CMultiRcvCabinetSetSecondPage::specifyOrientation() const
{
    return m_pOrientation->isChecked();
}

QList<int> CMultiRcvCabinetSetSecondPage::wiring() const
{
    return m_pGrid->wiring();
}

void CMultiRcvCabinetSetSecondPage::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QWidget::changeEvent(event);
}

void CMultiRcvCabinetSetSecondPage::setTexts()
{
    m_pOrientation->setText(tr("Specify orientation"));
    m_pHint->setText(tr("Left-click to select, right-click to unselect"));
    m_pGrid->setAccessibleName(tr("Receiver wiring"));
    const QList<QAbstractButton*> buttons = m_pTopologies->buttons();
    for (QAbstractButton* const button : buttons) {
        const int id = m_pTopologies->id(button);
        button->setToolTip(tr(topologies[static_cast<std::size_t>(id)].toolTip));
        // Who cannot see the icon is told the way that the button goes, and apart from its neighbour.
        button->setAccessibleName(id == WiringGrid::DownLeftDirection ? tr("S topology with first down and then left")
                                                                      : button->toolTip());
    }
}

void CMultiRcvCabinetSetSecondPage::updateButtons()
{
    const QList<QAbstractButton*> buttons = m_pTopologies->buttons();
    for (QAbstractButton* const button : buttons)
        button->setVisible(isOffered(m_pTopologies->id(button), m_gridSize, specifyOrientation()));
}

void CMultiRcvCabinetSetSecondPage::onOrientationToggled(bool specify)
{
    updateButtons();
    m_pGrid->setShowDirection(specify);
    if (wiring().isEmpty())
        wireSingleLine();
}

bool CMultiRcvCabinetSetSecondPage::isRecordOfGrid() const
{
    return !isNew(m_record) && QSize(m_record.columns, m_record.rows) == m_gridSize;
}

void CMultiRcvCabinetSetSecondPage::applyRecord()
{
    {
        // Not as if the user had toggled it: what a damaged record leaves out must not get wired here.
        const QSignalBlocker blocker(m_pOrientation);
        m_pOrientation->setChecked(m_record.specifyOrientation);
    }
    updateButtons();
    // Entries beyond the cells are left over from another grid.
    const int cells = std::min(m_gridSize.width() * m_gridSize.height(), int(m_record.wiringOrder.size()));
    m_pGrid->setWiring(QList<int>(m_record.wiringOrder.cbegin(), m_record.wiringOrder.cbegin() + cells));
    m_pGrid->setShowDirection(m_record.specifyOrientation);
}

// A single row or column can be wired in one order only, along its ids; it needs no clicks.
void CMultiRcvCabinetSetSecondPage::wireSingleLine()
{
    if (std::min(m_gridSize.width(), m_gridSize.height()) != 1)
        return;
    QList<int> ids;
    for (int id = 0; id < m_gridSize.width() * m_gridSize.height(); ++id)
        ids.append(id);
    m_pGrid->setWiring(ids);
}
