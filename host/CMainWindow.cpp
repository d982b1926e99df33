#include "host/CMainWindow.h"

#include "host/COverlay.h"
#include "host/CStatusBar.h"

#include <widgetry/CMessageBox.h>

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QVBoxLayout>

namespace {

constexpr QSize smallestSize(960, 540); // fits a screen of 1024 x 600 with a panel and a title bar
constexpr QSize firstSize(1280, 800);

} // namespace

CMainWindow::CMainWindow(QWidget* parent)
    : QMainWindow(parent),
      m_pDock(new QWidget(this)),
      m_pStatus(new CStatusBar(this))
{
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(QStringLiteral("Orvel"));
    setMinimumSize(smallestSize);
    resize(firstSize);

    m_pDock->setObjectName(QStringLiteral("Dock"));
    auto* const layout = new QVBoxLayout(m_pDock);
    layout->setContentsMargins(0, 0, 0, 0);
    new COverlay(m_pDock); // before the area, which looks for it when it is docked
    setCentralWidget(m_pDock);
    setStatusBar(m_pStatus);
    createMenus();
    setTexts();
}

void CMainWindow::layOut(QWidget* area)
{
    m_pDock->layout()->addWidget(area);
    area->lower(); // beneath the overlay
    area->show();
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

void CMainWindow::createMenus()
{
    QMenu* const file = addMenu(FileMenu);
    connect(addAction(file, OpenLibrary, QKeySequence::Open), &QAction::triggered, this, &CMainWindow::chooseLibrary);
    file->addSeparator();
    connect(addAction(file, Quit, QKeySequence(Qt::CTRL + Qt::Key_Q)), &QAction::triggered, this, &QWidget::close);

    QMenu* const view = addMenu(ViewMenu);
    int tab = 0;
    for (const Text id : {Preferences, TypeLibrary, HealthSettings}) {
        QAction* const action = addAction(view, id, QKeySequence(Qt::CTRL + Qt::Key_1 + tab));
        connect(action, &QAction::triggered, this, [this, tab] { Q_EMIT notifyTabRequested(tab); });
        ++tab;
    }

    QMenu* const help = addMenu(HelpMenu);
    connect(addAction(help, About), &QAction::triggered, this, &CMainWindow::showAbout);
    connect(addAction(help, AboutQt), &QAction::triggered, this, [this] { QMessageBox::aboutQt(this); });
    m_actions.value(Quit)->setMenuRole(QAction::QuitRole);
    m_actions.value(About)->setMenuRole(QAction::AboutRole);
    m_actions.value(AboutQt)->setMenuRole(QAction::AboutQtRole);
}

QMenu* CMainWindow::addMenu(Text id)
{
    QMenu* const menu = menuBar()->addMenu(QString());
    m_actions.insert(id, menu->menuAction());
    return menu;
}

QAction* CMainWindow::addAction(QMenu* menu, Text id, const QKeySequence& shortcut)
{
    QAction* const action = menu->addAction(QString());
    action->setShortcut(shortcut);
    m_actions.insert(id, action);
    return action;
}

void CMainWindow::setTexts()
{
    for (auto it = m_actions.constBegin(); it != m_actions.constEnd(); ++it)
        it.value()->setText(text(static_cast<Text>(it.key())));
}

QString CMainWindow::text(Text id) const
{
    switch (id) {
    case FileMenu:
        return tr("&File");
    case ViewMenu:
        return tr("&View");
    case HelpMenu:
        return tr("&Help");
    case OpenLibrary:
        return tr("&Open type library...");
    case Quit:
        return tr("&Quit");
    case Preferences:
        return tr("&Preferences");
    case TypeLibrary:
        return tr("&Type library");
    case HealthSettings:
        return tr("&Health settings");
    case About:
        return tr("&About Orvel");
    case AboutQt:
        return tr("About &Qt");
    }
    return {};
}

void CMainWindow::chooseLibrary()
{
    const QString folder = QFileDialog::getExistingDirectory(this, tr("Open type library"));
    if (!folder.isEmpty())
        Q_EMIT notifyLibraryChosen(folder);
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
