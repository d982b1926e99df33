#include "plugin/CSettingArea.h"
#include "tests/support/TestObject.h"
#include "tests/typelibrary/VersionedLibrary.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QApplication>
#include <QElapsedTimer>

#include <mutex>
#include <random>
#include <thread>

namespace {

#if defined(__SANITIZE_THREAD__) || defined(__SANITIZE_ADDRESS__)
constexpr int changes = 100;
#else
constexpr int changes = 1'000;
#endif

// Runs functions again and again, each on a thread of its own, until they are stopped or find a problem.
class Bustle
{
public:
    using Work = std::function<QString(std::mt19937& random)>;

    ~Bustle() { stop(); }

    void start(const Work& work)
    {
        const auto seed = static_cast<unsigned>(m_threads.size() + 1);
        std::atomic<int>& rounds = m_rounds.at(m_threads.size());
        m_threads.emplace_back([this, work, seed, &rounds] {
            std::mt19937 random(seed);
            while (!m_bStopped) {
                const QString problem = work(random);
                ++rounds;
                if (!problem.isEmpty())
                    report(problem);
            }
        });
    }

    void stop()
    {
        m_bStopped = true;
        for (std::thread& thread : m_threads)
            thread.join();
        m_threads.clear();
    }

    void report(const QString& problem)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_problem.isEmpty())
            m_problem = problem;
        m_bStopped = true;
    }

    bool isStopped() const { return m_bStopped; }
    int rounds(std::size_t thread) const { return m_rounds.at(thread); }
    const QString& problem() const { return m_problem; } // when stopped

private:
    std::vector<std::thread> m_threads;
    std::array<std::atomic<int>, 8> m_rounds{}; // by thread
    std::atomic<bool> m_bStopped{false};
    std::mutex m_mutex; // guards what follows
    QString m_problem;  // the first one
};

} // namespace

// Everything that may be asked of the store at once, while files change under it: for so many changes, or for
// STORE_STRESS_SECONDS where the environment has that.
class tst_StoreStress : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void nothingForgottenComesBack();

private:
    static QString scan(const VersionedLibrary& library, std::mt19937& random);
    static QString ask(const VersionedLibrary& library, std::mt19937& random);
    static QString search(const VersionedLibrary& library, std::mt19937& random);
};

QString tst_StoreStress::scan(const VersionedLibrary& library, std::mt19937& random)
{
    CTypeLibrary& store = CTypeLibrary::instance();
    const auto forgotten = library.forgotten();
    switch (random() % 3) {
    case 0:
        store.startUpdate();
        return {};
    case 1:
        store.setRootPath(library.root());
        break;
    default:
        store.updateLibrary();
    }
    return library.problemOfTree(store.nodes(), forgotten);
}

QString tst_StoreStress::ask(const VersionedLibrary& library, std::mt19937& random)
{
    const int file = static_cast<int>(random() % VersionedLibrary::files);
    const int forgotten = library.forgotten().at(std::size_t(file));
    return random() % 2 == 0 ? library.problemOfDigest(file, md5OfFile(library.path(file)), forgotten)
                             : library.problemOfVersion(file, resolutionOfFile(library.path(file)).width(), forgotten);
}

// The tree is never seen half-built.
QString tst_StoreStress::search(const VersionedLibrary& library, std::mt19937& random)
{
    const CTypeLibrary& store = CTypeLibrary::instance();
    const int file = static_cast<int>(random() % VersionedLibrary::files);
    const QString byName = store.searchSameName(QString::number(file));
    if (byName != library.path(file))
        return QStringLiteral("File %1 was found as \"%2\"").arg(QString::number(file), byName);
    const QString byContent = store.searchSameTypeOfFile(library.path(file)); // none if it has changed since the scan
    if (!byContent.isEmpty() && byContent != library.path(file))
        return QStringLiteral("The content of file %1 was found as \"%2\"").arg(QString::number(file), byContent);
    return store.rootPath() == library.root() ? QString() : QStringLiteral("Another root");
}

void tst_StoreStress::nothingForgottenComesBack()
{
    VersionedLibrary library;
    CSettingArea& area = CSettingArea::instance();
    area.setHandler(VersionedLibrary::newHandler());
    CTypeLibrary::instance().setRootPath(library.root());

    Bustle bustle;
    for (int i = 0; i < 3; ++i)
        bustle.start([&](std::mt19937& random) { return scan(library, random); });
    bustle.start([&](std::mt19937& random) { return ask(library, random); });
    bustle.start([&](std::mt19937& random) { return search(library, random); });
    bustle.start([&](std::mt19937& random) {
        library.change(static_cast<int>(random() % VersionedLibrary::files), random() % 4 == 0);
        return QString();
    });
    constexpr std::size_t changing = 5;

    const int milliseconds = qEnvironmentVariableIntValue("STORE_STRESS_SECONDS") * 1000;
    QElapsedTimer timer;
    timer.start();
    int collections = 0;
    const auto isOver = [&] {
        return milliseconds > 0 ? timer.elapsed() >= milliseconds : bustle.rounds(changing) >= changes;
    };
    while (!bustle.isStopped() && !isOver()) {
        const auto forgotten = library.forgotten();
        const QString problem = library.problemOfTree(area.getSettings()->typeLibraryTree, forgotten);
        ++collections;
        if (!problem.isEmpty())
            bustle.report(QStringLiteral("getSettings: ") + problem);
    }
    bustle.stop();
    CTypeLibrary::instance().setRootPath({}); // waits for the last scan
    area.setHandler(nullptr);
    qInfo("%lld ms: %d scans, %d questions, %d searches, %d changes, %d collections", timer.elapsed(),
          bustle.rounds(0) + bustle.rounds(1) + bustle.rounds(2), bustle.rounds(3), bustle.rounds(4),
          bustle.rounds(changing), collections);
    QVERIFY2(bustle.problem().isEmpty(), qPrintable(bustle.problem()));
}

SETTINGAREA_TEST_MAIN(tst_StoreStress, QApplication)
#include "tst_StoreStress.moc"
