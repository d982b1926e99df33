#include "validator/Stage.h"

#include "validator/LoadedPlugin.h"
#include "validator/Options.h"
#include "validator/Report.h"
#include "validator/Trace.h"
#include "validator/TypeFiles.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QVBoxLayout>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <thread>

#include <sys/stat.h>

namespace {

constexpr QSize windowSize(1280, 860);

// A widget with an overlay, as the shortcut panel looks for it.
QWidget* newCentral(QWidget* window)
{
    auto* const central = new QWidget(window);
    auto* const layout = new QVBoxLayout(central);
    layout->setContentsMargins(0, 0, 0, 0);
    auto* const overlay = new QWidget(central);
    overlay->setObjectName(QStringLiteral("OverLay"));
    overlay->setGeometry(0, windowSize.height() - 300, windowSize.width(), 300);
    auto* const overlayLayout = new QVBoxLayout(overlay);
    overlayLayout->setContentsMargins(0, 0, 0, 0);
    return central;
}

} // namespace

Stage::Stage(const Options& options, Report& report)
    : m_report(report),
      m_patience(options.halfPatience()),
      m_root(QFileInfo(m_folder.path()).canonicalFilePath()),
      m_pHost(std::make_shared<HostState>(report))
{
    QString error;
    m_init = loadPlugin(options.plugin, error);
    if (!m_init) {
        report.fail(QStringLiteral("cannot be loaded: %1").arg(error));
        return;
    }
    dock();
    if (!m_pSettings)
        return;
    m_pSettings->setHandler(new CheckingHandler(m_pHost));
    m_baseThreads = threads();
}

Stage::~Stage()
{
    undock();
    if (m_baseThreads > 0 && !await([this] { return isQuiet(); }))
        m_report.fail(QStringLiteral("%1 threads have not ended").arg(threads() - m_baseThreads));
}

void Stage::dock()
{
    auto* const window = new QMainWindow;
    window->setCentralWidget(newCentral(window));
    window->resize(windowSize);
    m_pWindow = window;
    m_pOverlay = window->centralWidget()->findChild<QWidget*>(QStringLiteral("OverLay"));

    IAbstractControlInterface* control = nullptr;
    if (!m_init(&control, window->centralWidget()) || !control) {
        m_report.fail(QStringLiteral("SettingArea_Init gave no settings area"));
        return;
    }
    auto* const settings = dynamic_cast<ISettingInterface*>(control);
    if (!settings) {
        m_report.fail(QStringLiteral("SettingArea_Init gave something that is no ISettingInterface"));
        return;
    }
    m_pSettings = settings;
    QWidget* const area = settings->widget();
    if (!area) {
        m_report.fail(QStringLiteral("the settings area has no widget"));
        return;
    }
    window->centralWidget()->layout()->addWidget(area);
    m_pOverlay->raise();
    area->show();
    window->show();
    window->activateWindow();
    fitOverlay();
}

void Stage::undock()
{
    delete m_pWindow;
}

QString Stage::folder(const QString& name) const
{
    const QString path = m_root + QLatin1Char('/') + name;
    QDir().mkpath(path);
    return path;
}

void Stage::fill(const QString& folder, int count, int first)
{
    for (int serial = first; serial < first + count; ++serial) {
        const QString group = serial % 4 == 0 ? folder : QStringLiteral("%1/Group %2").arg(folder).arg(serial % 4);
        QDir().mkpath(group);
        const TypeFiles::Content content = TypeFiles::numbered(serial);
        TypeFiles::write(QStringLiteral("%1/Type %2.%3")
                             .arg(group)
                             .arg(serial, 6, 10, QLatin1Char('0'))
                             .arg(QLatin1String(content.cabinet ? "rcvbp" : "rcvp")),
                         TypeFiles::textOf(content));
    }
}

bool Stage::setLibrary(const QString& path)
{
    std::atomic<bool> isDone{false};
    bool isShown = false;
    std::thread worker([&] {
        isShown = m_pSettings->setTypeLibraryPath(path);
        isDone = true;
    });
    if (!await([&] { return isDone.load(); })) {
        m_report.fail(QStringLiteral("setTypeLibraryPath does not come back"));
        worker.detach();
        std::_Exit(1);
    }
    worker.join();
    return isShown;
}

bool Stage::await(const std::function<bool()>& condition)
{
    QElapsedTimer clock;
    clock.start();
    while (!condition()) {
        if (clock.hasExpired(m_patience))
            return false;
        work();
        std::this_thread::sleep_for(std::chrono::milliseconds(1)); // the other threads want the processor too
    }
    return true;
}

void Stage::work()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    m_report.trace().touch();
}

void Stage::fitOverlay()
{
    if (!m_pOverlay)
        return;
    const auto panels = m_pOverlay->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    const bool isEmpty =
        std::none_of(panels.begin(), panels.end(), [](const QWidget* panel) { return panel->isVisible(); });
    m_pOverlay->setAttribute(Qt::WA_TransparentForMouseEvents, isEmpty);
}

bool Stage::isQuiet() const
{
    // A folder has a link for each in it, besides its own two: cheaper than looking at all of them.
    struct stat tasks = {};
    if (::stat("/proc/self/task", &tasks) == 0 && static_cast<int>(tasks.st_nlink) - 2 <= m_baseThreads)
        return true;
    return threads() <= m_baseThreads;
}

int Stage::threads()
{
    int count = 0;
    const QStringList tasks = QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    for (const QString& task : tasks) {
        QFile name(QStringLiteral("/proc/self/task/%1/comm").arg(task));
        if (name.open(QIODevice::ReadOnly) && !name.readAll().startsWith("QFileInfoGather"))
            ++count;
    }
    return count;
}
