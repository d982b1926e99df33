#include "plugin/CSettingArea.h"

#include "monitoring/CMonitoringSettings.h"
#include "plugin/SettingHandler.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "preferences/CPreferencesSettings.h"
#include "shortcut/CShortcutPanel.h"
#include "typelibrary/CTypeLibrarySetting.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QHBoxLayout>
#include <QMainWindow>
#include <QStackedLayout>
#include <QStyleOption>
#include <QStylePainter>
#include <QTabBar>
#include <QThread>
#include <QVBoxLayout>

namespace {

enum Tab
{
    PreferencesTab,
    TypeLibraryTab,
    HealthSettingsTab,
};

// Gap between the tabs and the pages, in pixels.
constexpr int tabSpacing = 20;

// The pages, one above the other. QStackedLayout itself takes no notice of its margins when it places them.
class PageStack : public QStackedLayout
{
public:
    void setGeometry(const QRect& rect) override
    {
        QStackedLayout::setGeometry(rect.marginsRemoved(contentsMargins()));
    }
};

// The host's overlay; null when there is none.
QWidget* hostOverlay()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        if (auto* const mainWindow = qobject_cast<QMainWindow*>(window)) {
            QWidget* const central = mainWindow->centralWidget();
            return central ? central->findChild<QWidget*>(QStringLiteral("OverLay")) : nullptr;
        }
    }
    return nullptr;
}

// Runs what may throw, for want of memory or because a host query did. The host is another build than the plug-in, so
// no exception may reach it; what was not finished is made up for by the next scan.
template<typename Function>
void withinHost(Function function) noexcept
{
    try {
        function();
    } catch (...) {
        // Nobody to tell: the host sees it by the result, the user by the tree.
    }
}

} // namespace

std::shared_ptr<ISettingInterfaceHandler> settingHandler()
{
    return std::dynamic_pointer_cast<ISettingInterfaceHandler>(CSettingArea::instance().getHandler());
}

CSettingArea::CSettingArea()
{
    setObjectName(QStringLiteral("SettingArea"));
    createPages();
    layOut();
    connectPages();
    setTexts();
    attachShortcutPanel();
}

void CSettingArea::createPages()
{
    m_pTabBar = new QTabBar(this);
    m_pTabBar->setObjectName(QStringLiteral("SettingAreaTabBar"));
    m_pTabBar->setDrawBase(false);
    m_pPreferences = new CPreferencesSettings(this);
    m_pTypeLibrary = new CTypeLibrarySetting(this);
    m_pMonitoring = new CMonitoringSettings(this);
}

void CSettingArea::layOut()
{
    auto* const tabBackground = new QWidget(this);
    tabBackground->setObjectName(QStringLiteral("TabBarBackground"));
    auto* const tabLayout = new QHBoxLayout(tabBackground);
    tabLayout->setContentsMargins(0, 0, 0, 0);
    tabLayout->setSpacing(0);
    tabLayout->addWidget(m_pTabBar);
    tabLayout->addStretch();

    auto* const pages = new PageStack;
    pages->setContentsMargins(0, 22, 0, 0);
    for (QWidget* page : {static_cast<QWidget*>(m_pPreferences), static_cast<QWidget*>(m_pTypeLibrary),
                          static_cast<QWidget*>(m_pMonitoring)}) {
        m_pTabBar->addTab(QString());
        pages->addWidget(page);
    }
    connect(m_pTabBar, &QTabBar::currentChanged, pages, &QStackedLayout::setCurrentIndex);
    m_pTabBar->setCurrentIndex(PreferencesTab);

    auto* const layout = new QVBoxLayout(this);
    layout->setSpacing(0);
    layout->setContentsMargins(37, 24, 0, 0);
    layout->addWidget(tabBackground);
    layout->addSpacing(tabSpacing);
    layout->addLayout(pages);
}

void CSettingArea::connectPages()
{
    connect(m_pPreferences, &CPreferencesSettings::notifyFahrenheitClicked, m_pMonitoring,
            &CMonitoringSettings::FahrenheitClicked);
    connect(m_pPreferences, &CPreferencesSettings::notifyShortcutClicked, this, [this] {
        attachShortcutPanel(); // the window that had the panel may be gone
        if (m_pShortcutPanel)
            m_pShortcutPanel->moveIn();
    });
}

void CSettingArea::setTexts()
{
    m_pTabBar->setTabText(PreferencesTab, tr("Preferences"));
    m_pTabBar->setTabText(TypeLibraryTab, tr("Type library"));
    m_pTabBar->setTabText(HealthSettingsTab, tr("Health settings"));
}

void CSettingArea::attachShortcutPanel()
{
    if (m_pShortcutPanel)
        return;
    QWidget* const overlay = hostOverlay();
    if (!overlay)
        return;
    m_pShortcutPanel = new CShortcutPanel(overlay);
    m_pShortcutPanel->setShortcuts(m_settings.layoutShortcuts, m_settings.softEdgeShortcuts);
    if (auto* const layout = qobject_cast<QVBoxLayout*>(overlay->layout()))
        layout->addWidget(m_pShortcutPanel, 0, Qt::AlignBottom);
}

void CSettingArea::setHandler(IAbstractInterfaceHandler* handler)
{
    ISettingInterface::setHandler(handler);
    // What the tree shows of a type may be the new handler's to say.
    withinHost([this] {
        const auto repaint = [page = m_pTypeLibrary] {
            const auto views = page->findChildren<QAbstractItemView*>();
            for (QAbstractItemView* view : views)
                view->viewport()->update();
        };
        QMetaObject::invokeMethod(m_pTypeLibrary, repaint, Qt::QueuedConnection);
    });
}

void CSettingArea::setSettings(const SSettings& settings)
{
    // What no page shows stays in the held record until the host asks for it.
    m_settings.layoutShortcuts = settings.layoutShortcuts;
    m_settings.softEdgeShortcuts = settings.softEdgeShortcuts;
    m_settings.monitoring.bVoltage4 = settings.monitoring.bVoltage4;
    m_settings.monitoring.dVoltage4Min = settings.monitoring.dVoltage4Min;
    m_settings.monitoring.dVoltage4Max = settings.monitoring.dVoltage4Max;

    m_pPreferences->setPreferences(settings);
    m_pMonitoring->setSettings(settings.monitoring, settings.email);
    if (m_pShortcutPanel)
        m_pShortcutPanel->setShortcuts(settings.layoutShortcuts, settings.softEdgeShortcuts);

    // While a worker is still in setTypeLibraryPath(), its scan is the fresh one and the GUI thread need not wait.
    if (isTypeLibraryReady())
        withinHost([] { CTypeLibrary::instance().updateLibrary(); });
}

SSettings* CSettingArea::getSettings()
{
    m_settings.preferences = m_pPreferences->preferences();

    // The fourth voltage entry is the host's: the held record keeps what the host last set.
    SMonitorSettings monitoring = m_pMonitoring->monitorSettings();
    monitoring.bVoltage4 = m_settings.monitoring.bVoltage4;
    monitoring.dVoltage4Min = m_settings.monitoring.dVoltage4Min;
    monitoring.dVoltage4Max = m_settings.monitoring.dVoltage4Max;
    m_settings.monitoring = monitoring;
    m_settings.email = m_pMonitoring->emailSettings();

    withinHost([this] {
        CTypeLibrary& library = CTypeLibrary::instance();
        library.updateLibrary();
        m_settings.typeLibraryTree = library.nodes();
    });
    return &m_settings;
}

bool CSettingArea::setTypeLibraryPath(const QString& path)
{
    ++m_nPathsUnderWay;
    bool shown = false;
    withinHost([&] {
        CTypeLibrary& library = CTypeLibrary::instance();
        library.setRootPath(path);
        // On the GUI thread itself a blocking queued call would wait for ever.
        const auto type = QThread::currentThread() == thread() ? Qt::DirectConnection : Qt::BlockingQueuedConnection;
        // Another thread may set another folder meanwhile: whoever shows a folder last shows the store's.
        QString shownPath;
        do {
            shownPath = library.rootPath();
            shown = QMetaObject::invokeMethod(m_pTypeLibrary, "setData", type, Q_ARG(QString, shownPath));
        } while (shown && library.rootPath() != shownPath);
    });
    m_bTypeLibraryReady = true;
    --m_nPathsUnderWay;
    return shown;
}

bool CSettingArea::isTypeLibraryReady()
{
    return m_bTypeLibraryReady && m_nPathsUnderWay == 0;
}

void CSettingArea::setCurrentTab(int index)
{
    m_pTabBar->setCurrentIndex(index);
}

std::vector<SSettings::TypeLibrary::STreeNode> CSettingArea::getTypeLibrary()
{
    std::vector<SSettings::TypeLibrary::STreeNode> nodes;
    withinHost([&] { nodes = CTypeLibrary::instance().nodes(); });
    return nodes;
}

void CSettingArea::syncLanguageWithLocale()
{
    m_pPreferences->syncLanguageWithLocale();
}

void CSettingArea::setControlsEnabled(bool enabled)
{
    m_pPreferences->setControlsEnabled(enabled);
    m_pTypeLibrary->setEditable(enabled);
}

void CSettingArea::refreshPreferences()
{
    m_pPreferences->refreshPreferences();
}

void CSettingArea::closeShortcutPanel()
{
    if (!m_pShortcutPanel || !m_pShortcutPanel->isVisible())
        return;
    m_pShortcutPanel->hide();
    if (const auto handler = settingHandler())
        handler->notifyShortcutPanelVisible(false);
}

bool CSettingArea::event(QEvent* event)
{
    switch (event->type()) {
    case QEvent::ParentChange:
        followParent();
        break;
    case QEvent::DeferredDelete:
        return true; // QMainWindow does this to a central widget or dock that it replaces
    default:
        break;
    }
    return QWidget::event(event);
}

void CSettingArea::followParent()
{
    disconnect(m_parentDestroyed);
    if (!parentWidget())
        return;
    // Qt deletes children with their parent; the signal comes before it does.
    m_parentDestroyed = connect(parentWidget(), &QObject::destroyed, this, [this] {
        hide();
        setParent(nullptr);
    });
}

void CSettingArea::paintEvent(QPaintEvent* /*event*/)
{
    QStyleOption option;
    option.initFrom(this);
    QStylePainter(this).drawPrimitive(QStyle::PE_Widget, option);
}

void CSettingArea::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    QWidget::changeEvent(event);
}
