#include "shortcut/CShortcutPanel.h"

#include "plugin/SettingHandler.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "shortcut/CShortCutTabBar.h"
#include "shortcut/CShortcutLabel.h"
#include "shortcut/ShortcutActions.h"

#include <widgetry/CTranslatingAnimation.h>

#include <QGridLayout>
#include <QKeyEvent>
#include <QStackedLayout>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

enum Tab
{
    LayoutTab,
    SoftEdgeTab,
};

// In pixels.
constexpr int columnSpacing = 120;
constexpr int rowSpacing = 12;
constexpr int closeIconSize = 16;

// Of the tab bar in the header.
constexpr int leftStretch = 12;
constexpr int rightStretch = 9;

void tellHost(bool visible)
{
    if (const auto handler = settingHandler())
        handler->notifyShortcutPanelVisible(visible);
}

} // namespace

CShortcutPanel::CShortcutPanel(QWidget* parent)
    : QFrame(parent),
      m_pAnimation(new CTranslatingAnimation(Qt::BottomEdge, this)),
      m_pTabBar(new CShortCutTabBar(this)),
      m_pClose(new QToolButton(this)),
      m_pPages(new QStackedLayout)
{
    setObjectName(QStringLiteral("ShortcutPanel"));
    setStyleSheet(QStringLiteral("#ShortcutPanel{background:rgb(41,41,45);}"));
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    setAttribute(Qt::WA_TransparentForMouseEvents, false);
    hide();

    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(createHeader());
    layout->addLayout(m_pPages);
    addPage(ShortcutActions::layout());
    addPage(ShortcutActions::softEdge());

    connect(m_pTabBar, &QTabBar::currentChanged, m_pPages, &QStackedLayout::setCurrentIndex);
    connect(m_pClose, &QToolButton::clicked, m_pAnimation, &CTranslatingAnimation::moveOut);
    m_pAnimation->setMoveInCompleteCallback([] { tellHost(true); });
    m_pAnimation->setMoveOutCompleteCallback([] { tellHost(false); });
    setTexts();
}

QWidget* CShortcutPanel::createHeader()
{
    auto* const header = new QWidget(this);
    header->setStyleSheet(QStringLiteral(".QWidget{border-bottom:1px solid rgba(115,115,128, 40%);}"));

    // The current tab is open below: the bar hides the header's line and draws its own.
    QPalette palette = m_pTabBar->palette();
    palette.setColor(QPalette::Window, QColor(41, 41, 45));
    m_pTabBar->setPalette(palette);
    m_pTabBar->setAutoFillBackground(true);

    QIcon icon(QStringLiteral(":/Image/SettingArea/Shortcut/close_normal.svg"));
    icon.addFile(QStringLiteral(":/Image/SettingArea/Shortcut/close_hover.svg"), {}, QIcon::Active);
    m_pClose->setIcon(icon);
    m_pClose->setIconSize({closeIconSize, closeIconSize});
    m_pClose->setAutoRaise(true);

    auto* const layout = new QHBoxLayout(header);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addStretch(leftStretch);
    layout->addWidget(m_pTabBar);
    layout->addStretch(rightStretch);
    layout->addWidget(m_pClose);
    return header;
}

void CShortcutPanel::addPage(const QVector<ShortcutAction>& actions)
{
    auto* const page = new QFrame(this);
    page->setObjectName(QStringLiteral("ShortcutPage"));
    auto* const layout = new QHBoxLayout(page);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addStretch();
    auto* const grid = new QGridLayout;
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSizeConstraint(QLayout::SetFixedSize);
    grid->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    grid->setHorizontalSpacing(columnSpacing);
    grid->setVerticalSpacing(rowSpacing);
    layout->addLayout(grid);

    m_pTabBar->addTab(QString());
    m_pPages->addWidget(page);
    m_pages.append({actions, grid, {}});
}

void CShortcutPanel::setShortcuts(const SSettings::ShortcutMap& layout, const SSettings::ShortcutMap& softEdge)
{
    setKeys(m_pages[LayoutTab], layout);
    setKeys(m_pages[SoftEdgeTab], softEdge);
}

void CShortcutPanel::setKeys(Page& page, const SSettings::ShortcutMap& keys)
{
    for (const ShortcutAction& action : page.actions) {
        delete page.rows.value(action.index);
        auto* const row = new CShortcutLabel(tr(action.name), keys.value(action.index));
        row->setMaximumWidth(row->sizeHint().width()); // Qt heeds a size constraint in the layout of a widget only
        page.pGrid->addWidget(row, action.row, action.column);
        page.rows.insert(action.index, row);
    }
}

void CShortcutPanel::setTexts()
{
    setAccessibleName(tr("Keyboard shortcuts"));
    m_pTabBar->setTabText(LayoutTab, tr("Layout"));
    m_pTabBar->setTabText(SoftEdgeTab, tr("Soft edge"));
    m_pClose->setToolTip(tr("Close"));
    m_pClose->setAccessibleName(tr("Close"));
    for (const Page& page : qAsConst(m_pages)) {
        for (const ShortcutAction& action : page.actions) {
            if (CShortcutLabel* const row = page.rows.value(action.index))
                row->setText(tr(action.name));
        }
    }
}

void CShortcutPanel::moveIn()
{
    const bool wasOut = isHidden();
    if (wasOut)
        m_pFocusBefore = window()->focusWidget();
    m_pAnimation->moveIn();
    if (wasOut)
        m_pTabBar->setFocus();
}

QSize CShortcutPanel::sizeHint() const
{
    return {1600, 245};
}

void CShortcutPanel::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QFrame::changeEvent(event);
}

void CShortcutPanel::hideEvent(QHideEvent* event)
{
    QFrame::hideEvent(event);
    if (!isHidden())
        return; // only the window is
    if (m_pFocusBefore && m_pFocusBefore->isVisible() && isAncestorOf(window()->focusWidget()))
        m_pFocusBefore->setFocus();
    m_pFocusBefore = nullptr;
}

void CShortcutPanel::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier)
        m_pAnimation->moveOut();
    else
        QFrame::keyPressEvent(event);
}
