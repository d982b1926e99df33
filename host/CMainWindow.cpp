#include "host/CMainWindow.h"

#include "host/COverlay.h"
#include "host/CPlacedTypesPanel.h"
#include "host/CStatusBar.h"

#include <widgetry/CMessageBox.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>

namespace {

constexpr QSize smallestSize(960, 540); // fits a screen of 1024 x 600 with a panel and a title bar
constexpr QSize firstSize(1280, 800);
constexpr int sideWidth = 220; // leaves room for the columns of the type library in a window of the first size

QKeySequence ctrl(Qt::Key key)
{
    return {static_cast<int>(Qt::CTRL) | key};
}

} // namespace

CMainWindow::CMainWindow(QWidget* parent)
    : QMainWindow(parent),
      m_pDock(new QWidget(this)),
      m_pOverlay(new COverlay(m_pDock)), // before the area, which looks for it when it is docked
      m_pStatus(new CStatusBar(this)),
      m_pPlacedTypes(new CPlacedTypesPanel(this)),
      m_pSide(new QDockWidget(this))
{
    setObjectName(QStringLiteral("MainWindow"));
    setMinimumSize(smallestSize);
    const QSize titleBar(0, style()->pixelMetric(QStyle::PM_TitleBarHeight));
    resize(firstSize.boundedTo(screen()->availableSize() - titleBar));

    m_pDock->setObjectName(QStringLiteral("Dock"));
    auto* const layout = new QVBoxLayout(m_pDock);
    layout->setContentsMargins(0, 0, 0, 0);
    setCentralWidget(m_pDock);
    setStatusBar(m_pStatus);
    createSide();
    createMenus();
    setTexts();
}

void CMainWindow::layOut(QWidget* area)
{
    m_pDock->layout()->addWidget(area);
    area->lower(); // beneath the overlay
    area->show();
}

void CMainWindow::setOverlayRaised(bool raised)
{
    if (raised)
        m_pOverlay->raise();
    else
        m_pOverlay->lower();
}

void CMainWindow::setCloseQuery(std::function<bool()> query)
{
    m_closeQuery = std::move(query);
}

void CMainWindow::warn(const QString& text)
{
    QWidget* const modal = QApplication::activeModalWidget();
    CMessageBox::warning(modal ? modal : this, text, QStringLiteral("Orvel"));
}

void CMainWindow::createSide()
{
    m_pSide->setObjectName(QStringLiteral("PlacedTypesDock"));
    m_pSide->setWidget(m_pPlacedTypes);
    m_pSide->setFeatures(QDockWidget::DockWidgetClosable | QDockWidget::DockWidgetMovable);
    m_pSide->setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    addDockWidget(Qt::RightDockWidgetArea, m_pSide);
    resizeDocks({m_pSide}, {sideWidth}, Qt::Horizontal);
}

void CMainWindow::createMenus()
{
    m_actions.insert(PlacedTypes, m_pSide->toggleViewAction());
    addMenu(FileMenu, {NewProject, OpenProject, SaveProject, SaveProjectAs, OpenLibrary, Quit});
    addMenu(ViewMenu, {Preferences, TypeLibrary, HealthSettings, PlacedTypes});
    addMenu(LayoutMenu, {PlaceInLayout, RemoveFromLayout});
    addMenu(HelpMenu, {About, AboutQt});
    QMenu* const file = action(FileMenu)->menu();
    file->insertSeparator(action(OpenLibrary));
    file->insertSeparator(action(Quit));
    action(ViewMenu)->menu()->insertSeparator(action(PlacedTypes));
    m_pPlacedTypes->setCommands(action(PlaceInLayout), action(RemoveFromLayout));

    // Not Ctrl+N, Ctrl+I and Ctrl+A: they belong to the type library.
    action(OpenProject)->setShortcut(QKeySequence::Open);
    action(SaveProject)->setShortcut(QKeySequence::Save);
    action(Quit)->setShortcut(ctrl(Qt::Key_Q));
    action(Preferences)->setShortcut(ctrl(Qt::Key_1));
    action(TypeLibrary)->setShortcut(ctrl(Qt::Key_2));
    action(HealthSettings)->setShortcut(ctrl(Qt::Key_3));
    action(PlacedTypes)->setShortcut(ctrl(Qt::Key_4));
    action(PlaceInLayout)->setShortcut(ctrl(Qt::Key_L));
    action(RemoveFromLayout)->setShortcut({static_cast<int>(Qt::CTRL) | static_cast<int>(Qt::SHIFT) | Qt::Key_L});

    connect(action(Quit), &QAction::triggered, this, &QWidget::close);
    connect(action(About), &QAction::triggered, this, &CMainWindow::showAbout);
    connect(action(AboutQt), &QAction::triggered, this, [this] { QMessageBox::aboutQt(this); });
}

void CMainWindow::addMenu(Command menu, const QVector<Command>& commands)
{
    QMenu* const popup = menuBar()->addMenu(QString());
    m_actions.insert(menu, popup->menuAction());
    for (const Command command : commands) {
        if (!m_actions.contains(command))
            m_actions.insert(command, new QAction(this));
        popup->addAction(action(command));
    }
}

void CMainWindow::setTexts()
{
    m_pSide->setWindowTitle(tr("Placed types")); // also the text of the action that shows it, up to the next lines
    // Qt names the button once, in the language of that moment.
    auto* const close = m_pSide->findChild<QAbstractButton*>(QStringLiteral("qt_dockwidget_closebutton"));
    close->setAccessibleName(tr("Close"));
    close->setAccessibleDescription(tr("Hides the list of placed types."));
    for (auto it = m_actions.constBegin(); it != m_actions.constEnd(); ++it)
        it.value()->setText(text(it.key()));
}

QString CMainWindow::text(Command command)
{
    switch (command) {
    case FileMenu:
        return tr("&File");
    case NewProject:
        return tr("&New project");
    case OpenProject:
        return tr("&Open project...");
    case SaveProject:
        return tr("&Save project");
    case SaveProjectAs:
        return tr("Save project &as...");
    case OpenLibrary:
        return tr("Open type &library...");
    case Quit:
        return tr("&Quit");
    case ViewMenu:
        return tr("&View");
    case Preferences:
        return tr("&Preferences");
    case TypeLibrary:
        return tr("&Type library");
    case HealthSettings:
        return tr("&Health settings");
    case PlacedTypes:
        return tr("P&laced types");
    case LayoutMenu:
        return tr("&Layout");
    case PlaceInLayout:
        return tr("&Place in layout");
    case RemoveFromLayout:
        return tr("&Remove from layout");
    case HelpMenu:
        return tr("&Help");
    case About:
        return tr("&About Orvel");
    case AboutQt:
        return tr("About &Qt");
    }
    return {};
}

void CMainWindow::setProject(const QString& name, bool modified)
{
    setWindowTitle(name + QLatin1String("[*]"));
    setWindowModified(modified);
}

void CMainWindow::showAbout()
{
    const QString text = tr("Orvel %1\n\nConfigures LED display systems: processors, receiving cards and the layout of "
                            "cabinets on the screen.")
                             .arg(QStringLiteral(ORVEL_VERSION));
    CMessageBox::information(this, text, tr("About Orvel"));
}

void CMainWindow::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    else if (event->type() == QEvent::ActivationChange && isActiveWindow())
        Q_EMIT notifyActivated();
    QMainWindow::changeEvent(event);
}

void CMainWindow::closeEvent(QCloseEvent* event)
{
    event->setAccepted(!m_closeQuery || m_closeQuery());
}
