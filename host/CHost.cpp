#include "host/CHost.h"

#include "host/CHostHandler.h"
#include "host/CLayoutCommands.h"
#include "host/CLibraryLoader.h"
#include "host/CMainWindow.h"
#include "host/CProgress.h"
#include "host/CProgressDisplay.h"
#include "host/CStatusBar.h"
#include "host/HostPaths.h"
#include "host/Logging.h"
#include "host/MailService.h"
#include "host/SampleLibrary.h"
#include "plugin/interface/ISettingInterface.h"

#include <widgetry/CMessageBox.h>

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QTreeView>

#include <utility>

namespace {

// How long changes on the pages may take to reach the file while the program runs.
constexpr int saveDelayMs = 60000;

// How long the closed program waits for a scan, so that the pages' last values can be collected after it.
constexpr int closeTimeoutMs = 10000;

// After a dialog was closed the plug-in scans the library anew on a thread of its own: the time that may take to begin.
constexpr int countDelayMs = 500;

} // namespace

CHost::CHost(const CommandLine& commandLine, std::unique_ptr<IKeychain> keychain)
    : m_commandLine(commandLine),
      m_file(commandLine.settings.isEmpty() ? HostPaths::settingsFile() : commandLine.settings),
      m_password(std::move(keychain)),
      m_catalogues(HostPaths::translationsFolder()),
      m_bPriorityConnectionHidden(commandLine.hidePriorityConnection)
{
    m_saveTimer.setObjectName(QStringLiteral("SaveTimer"));
    m_saveTimer.setInterval(saveDelayMs);
    m_saveTimer.setSingleShot(true);
    connect(&m_saveTimer, &QTimer::timeout, this, &CHost::saveUnlessBusy);
    m_countTimer.setInterval(countDelayMs);
    m_countTimer.setSingleShot(true);
    m_closeTimer.setInterval(closeTimeoutMs);
    m_closeTimer.setSingleShot(true);
    connect(&m_closeTimer, &QTimer::timeout, this, &CHost::finish);
    // Queued: the message box would hold up the start.
    connect(
        this, &CHost::notifyTroubled, this, [this](const QString& text) { m_pWindow->warn(text); },
        Qt::QueuedConnection);
}

CHost::~CHost() = default;

bool CHost::isBusy() const
{
    return m_password.isBusy() || (m_pMail && m_pMail->isBusy()) || (m_pLoader && m_pLoader->isBusy());
}

bool CHost::start(SettingArea_InitFunction init, const QString& path)
{
    QStringList messages;
    m_settings = m_file.load(messages);
    m_password.complete(m_settings, messages);
    const QString language = m_commandLine.language.isEmpty() ? m_settings.host.language : m_commandLine.language;
    m_catalogues.setLocale(language.isEmpty() ? QLocale::system() : QLocale(language));

    m_pWindow = std::make_unique<CMainWindow>();
    IAbstractControlInterface* control = nullptr;
    if (!init(&control, m_pWindow->dock()) || !control->initialize() || !control->isValid())
        return false;
    m_pArea = static_cast<ISettingInterface*>(control);
    m_pLoader = new CLibraryLoader(m_pArea, this);

    openWindow();
    m_pWindow->status()->setPlugin(path);
    m_pWindow->show();
    const QString library = firstLibrary();
    if (library.isEmpty())
        messages << tr("The folder for the type library cannot be created: %1").arg(HostPaths::defaultLibraryFolder());
    m_pLoader->load(library);
    qApp->installEventFilter(this);
    if (!messages.isEmpty())
        Q_EMIT notifyTroubled(messages.join(QLatin1Char('\n')));
    return true;
}

// The pages' values are only to be had together with a scan of the library, on this thread. So they are not collected
// every so often but only after the user has done something, which is what changes them.
bool CHost::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::MouseButtonRelease:
    case QEvent::Wheel:
    case QEvent::InputMethod:
        if (!m_saveTimer.isActive())
            m_saveTimer.start();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void CHost::saveUnlessBusy()
{
    QString error;
    // Values must not be taken from under a dialog that is about to change them.
    if (QApplication::activeModalWidget() || QApplication::activePopupWidget() || m_pLoader->isLoading())
        m_saveTimer.start();
    else if (!save(error))
        qCWarning(logSettings, "not saved: %ls", qUtf16Printable(error));
}

void CHost::openWindow()
{
    m_pWindow->layOut(m_pArea->widget());
    installHandler();
    m_pArea->setSettings(m_settings.record);
    m_pArea->refreshPreferences();
    m_pWindow->restoreGeometry(m_settings.host.windowGeometry);
    m_pWindow->restoreState(m_settings.host.windowState);
    m_pWindow->setCloseQuery([this] { return queryClose(); });

    connectWindow();
    showProject();
}

void CHost::connectWindow()
{
    CMainWindow* const window = m_pWindow.get();
    const auto onCommand = [this, window](CMainWindow::Command command, auto function) {
        connect(window->action(command), &QAction::triggered, this, function);
    };
    m_pProjectCommands = std::make_unique<ProjectCommands>(m_project, *window);
    onCommand(CMainWindow::NewProject, [this] { m_pProjectCommands->create(); });
    onCommand(CMainWindow::OpenProject, [this] { m_pProjectCommands->open(); });
    onCommand(CMainWindow::SaveProject, [this] { m_pProjectCommands->save(); });
    onCommand(CMainWindow::SaveProjectAs, [this] { m_pProjectCommands->saveAs(); });
    onCommand(CMainWindow::OpenLibrary, [this] { chooseLibrary(); });
    onCommand(CMainWindow::Preferences, [this] { m_pArea->setCurrentTab(0); });
    onCommand(CMainWindow::TypeLibrary, [this] { m_pArea->setCurrentTab(1); });
    onCommand(CMainWindow::HealthSettings, [this] { m_pArea->setCurrentTab(2); });
    connect(&m_project, &Project::notifyChanged, this, &CHost::showProject);
    auto* const tree = m_pArea->widget()->findChild<QTreeView*>(QStringLiteral("TypeLibrary"));
    m_pLayoutCommands = std::make_unique<CLayoutCommands>(m_project, *window, tree);
    connect(m_pLoader, &CLibraryLoader::notifyLoaded, m_pLayoutCommands.get(), &CLayoutCommands::followLibrary);

    CStatusBar* const status = window->status();
    connect(m_pLoader, &CLibraryLoader::notifyLoading, status, [status](const QString& folder) {
        status->setLibraryFolder(folder);
        status->setScanning(true);
    });
    connect(m_pLoader, &CLibraryLoader::notifyLoaded, status, [status] { status->setScanning(false); });
    connect(m_pLoader, &CLibraryLoader::notifyFailed, this, [this](const QString& folder, const QString& reason) {
        Q_EMIT notifyTroubled(
            tr("The type library %1 was not loaded: %2").arg(QDir::toNativeSeparators(folder), reason));
    });
    connect(m_pLoader, &CLibraryLoader::notifyCounted, status, &CStatusBar::setTypeCount);
    connect(window, &CMainWindow::notifyActivated, &m_countTimer, qOverload<>(&QTimer::start));
    connect(&m_countTimer, &QTimer::timeout, m_pLoader, &CLibraryLoader::count);
}

void CHost::installHandler()
{
    CHostHandler::Services services;
    services.shortcutPanelVisible = [this](bool visible) { m_pWindow->setOverlayRaised(visible); };
    services.connectionPriority = [this](int priority) {
        m_settings.record.preferences.connectionPriority = priority;
        remember();
    };
    services.language = [this](const QLocale& locale) { setLanguage(locale); };
    services.isPriorityConnectionHidden = [this] { return m_bPriorityConnectionHidden; };
    CProgressDisplay* const progress = m_pWindow->status()->progress();
    services.showProgress = [progress](const QString& text, int durationMs, const QEasingCurve& curve) {
        return progress->start(text, durationMs, curve);
    };
    services.endProgress = [progress](const QObject* run) { progress->end(run); };
    m_pMail = std::make_unique<MailService>(SmtpSender::Options{m_commandLine.smtpCa}, m_pWindow->status());
    services.sendEmail = [this](QList<int>& failedPositions, const SEmailSettings& settings, const QString& body) {
        return m_pMail->send(failedPositions, settings, body);
    };
    services.saveFailed = [this](const QString& text) { m_pWindow->warn(text); };
    m_pArea->setHandler(new CHostHandler(&m_project, m_pWindow.get(), services));
}

// The folder to start with; empty when there is none and none could be made.
QString CHost::firstLibrary()
{
    if (!m_commandLine.library.isEmpty())
        return m_commandLine.library;
    if (!m_settings.host.libraryFolder.isEmpty())
        return m_settings.host.libraryFolder;
    const QString folder = HostPaths::defaultLibraryFolder();
    return SampleLibrary::create(folder, HostPaths::samplesFolder()) ? folder : QString();
}

void CHost::chooseLibrary()
{
    const QString folder = QFileDialog::getExistingDirectory(m_pWindow.get(), tr("Open type library"));
    if (folder.isEmpty())
        return;
    m_settings.host.libraryFolder = folder;
    m_pLoader->load(folder);
}

void CHost::showProject()
{
    m_pWindow->setProject(m_project.name(), m_project.isModified());
}

void CHost::setLanguage(const QLocale& locale)
{
    m_catalogues.setLocale(locale);
    m_pArea->syncLanguageWithLocale();
    showProject(); // a project without a file has a translated name
    m_settings.host.language = m_catalogues.locale().name();
    remember();
}

void CHost::setPriorityConnectionHidden(bool hidden)
{
    m_bPriorityConnectionHidden = hidden;
    m_pArea->refreshPreferences();
}

bool CHost::save(QString& error)
{
    if (m_pLoader->isLoading())
        return true;
    m_settings.record = *m_pArea->getSettings();
    m_settings.record.typeLibraryTree.clear(); // large, and not kept
    return write(error);
}

bool CHost::write(QString& error)
{
    m_settings.host.windowGeometry = m_pWindow->saveGeometry();
    m_settings.host.windowState = m_pWindow->saveState();
    return m_file.save(m_password.forFile(m_settings), error);
}

// What the user has chosen is kept at once, whatever becomes of the program. The pages are not asked: they are in the
// middle of their own call.
void CHost::remember()
{
    QString error;
    if (!write(error))
        qCWarning(logSettings, "not saved: %ls", qUtf16Printable(error));
}

bool CHost::queryClose()
{
    if (!m_bClosing) {
        if (!m_pProjectCommands->mayClose())
            return false;
        if (m_pLoader->isLoading()) {
            // The worker needs this thread's event loop to come to its end, so the program goes on without a window.
            m_bClosing = true;
            m_pWindow->hide();
            connect(m_pLoader, &CLibraryLoader::notifyLoaded, this, &CHost::finish);
            m_closeTimer.start();
            return false;
        }
    }
    return finish(); // asked again while waiting: now
}

bool CHost::finish()
{
    m_closeTimer.stop();
    disconnect(m_pLoader, &CLibraryLoader::notifyLoaded, this, &CHost::finish);
    m_bClosing = saveOrAsk();
    if (m_bClosing)
        Q_EMIT notifyFinished();
    return m_bClosing;
}

bool CHost::saveOrAsk()
{
    QString error;
    // After the time-out the values of the last collection are what there is.
    if (m_pLoader->isLoading() ? write(error) : save(error))
        return true;
    m_pWindow->show(); // it may be waiting for the end of a scan
    const QString text = tr("The settings could not be saved: %1\nQuit anyway?").arg(error);
    return CMessageBox::question(m_pWindow.get(), text, QStringLiteral("Orvel"), CMessageBox::Yes | CMessageBox::No,
                                 CMessageBox::No) == CMessageBox::YesResult;
}
