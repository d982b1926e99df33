#include "tests/faults/FaultRuns.h"

#include "tests/faults/ChildProcess.h"
#include "tests/faults/FolderState.h"
#include "tests/support/FileFixture.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <memory>
#include <thread>

namespace {

constexpr quint32 seed = 20'250'101;

class Stage
{
public:
    Stage(const Write& write, const QString& folder)
        : place{folder + QStringLiteral("/work"), folder + QStringLiteral("/source"),
                folder + QStringLiteral("/trash")},
          m_write(write),
          m_gone(folder + QStringLiteral("/gone"))
    {
        // What the write does when nothing happens to it.
        reset();
        m_before = stateOf(place.work);
        m_allowed.add(m_before);
        for (int turn = 0; turn < 4; ++turn) {
            if (!write.perform(place, turn))
                qFatal("%s fails without a fault", write.name.constData());
            const FolderState state = stateOf(place.work);
            if (turn == 0)
                m_after = state;
            m_allowed.add(state);
        }
        const auto stages = write.stages(place);
        for (auto it = stages.begin(); it != stages.end(); ++it)
            m_allowed.addContent(it.key(), it.value());
    }

    const WritePlace place;

    // Makes everything as it is before the write.
    void reset() const
    {
        for (const QString& path : {place.work, place.source, place.trash, m_gone}) {
            QDir(path).removeRecursively();
            removeFolderFromCache(path);
        }
        QDir().mkpath(place.work);
        QDir().mkpath(place.source);
        QDir().mkpath(place.trash);
        m_write.prepare(place);
    }

    // What the working folder is called when it has gone.
    const QString& gone() const { return m_gone; }

    int largest() const
    {
        int size = 0;
        for (const QByteArray& content : m_after)
            size = std::max(size, content.size());
        return size;
    }

    // What is wrong after a write that has said whether it was done.
    QString problem(bool done) const
    {
        const FolderState found = stateOf(place.work);
        const QString wrong = done               ? difference(found, m_after)
                              : m_write.isAtomic ? difference(found, m_before)
                                                 : m_allowed.problemOf(found, false);
        return wrong.isEmpty() ? m_write.inspect(place) : wrong;
    }

    const Write& write() const { return m_write; }
    const FolderState& after() const { return m_after; }
    const AllowedStates& allowed() const { return m_allowed; }

private:
    const Write& m_write;
    const QString m_gone;
    FolderState m_before;
    FolderState m_after;
    AllowedStates m_allowed;
};

QString described(const QString& problem, bool done, int run)
{
    return QStringLiteral("Run %1, reported as %2: %3")
        .arg(run)
        .arg(done ? QStringLiteral("done") : QStringLiteral("failed"), problem);
}

// Performs the write once more, with what `cut` does to it.
template<typename Function>
QString faulty(const Stage& stage, int run, bool mustFail, Function cut)
{
    stage.reset();
    bool done = false;
    {
        const auto fault = cut();
        Q_UNUSED(fault)
        done = stage.write().perform(stage.place, 0);
    }
    QString problem = stage.problem(done);
    if (problem.isEmpty() && done == mustFail)
        problem = QStringLiteral("this cannot be");
    return problem.isEmpty() ? problem : described(problem, done, run);
}

// The cut in the content that belongs to the run.
int cutOf(const Stage& stage, int run, int runs)
{
    return static_cast<int>(qint64{stage.largest()} * run / runs);
}

class Filler
{
public:
    Filler(const QString& path, qint64 size)
        : m_file(path)
    {
        if (!m_file.open(QIODevice::WriteOnly) || ::posix_fallocate(m_file.handle(), 0, size) != 0)
            qFatal("The disk cannot be filled");
    }
    ~Filler() { m_file.remove(); }
    Q_DISABLE_COPY(Filler)

private:
    QFile m_file;
};

// Repeats the write under `cut(run)`, each time from the start; in a child, for what cannot be undone.
template<typename Function>
QString repeated(const Stage& stage, int runs, bool mustFail, Function cut)
{
    QString problem;
    for (int run = 0; run < runs && problem.isEmpty(); ++run)
        problem = faulty(stage, run, mustFail, [&] { return cut(run); });
    return problem;
}

QString limited(const Write& write, const QString& folder, int runs)
{
    const Stage stage(write, folder);
    return repeated(stage, runs, write.writesContent,
                    [&](int run) { return std::make_unique<DiskIsFull>(cutOf(stage, run, runs)); });
}

QString killed(const Write& write, const QString& folder, int runs, int& torn)
{
    QString problem;
    QRandomGenerator random(seed);
    const Stage stage(write, folder);
    for (int run = 0; run < runs && problem.isEmpty(); ++run) {
        stage.reset();
        constexpr unsigned longest = 5'000; // microseconds
        const auto forEver = [&] {
            for (int turn = 0;; ++turn)
                write.perform(stage.place, turn);
        };
        if (!ChildProcess::runAndKill(forEver, random.bounded(longest)))
            return QStringLiteral("Run %1: the child ended by itself").arg(run);
        const FolderState found = stateOf(stage.place.work);
        const auto paths = found.keys();
        torn += std::any_of(paths.begin(), paths.end(), isTemporary) ? 1 : 0;
        problem = stage.allowed().problemOf(found, true);
        if (problem.isEmpty())
            problem = write.inspect(stage.place);
        if (!problem.isEmpty())
            problem = QStringLiteral("Run %1: %2").arg(run).arg(problem);
    }
    return problem;
}

// A number that a child process counts up.
class SharedCounter
{
public:
    SharedCounter()
        : m_memory(::mmap(nullptr, sizeof(int), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
    {
        if (m_memory == MAP_FAILED)
            qFatal("No shared memory");
    }
    ~SharedCounter() { ::munmap(m_memory, sizeof(int)); }
    Q_DISABLE_COPY(SharedCounter)

    int& operator*() const { return *static_cast<int*>(m_memory); }

private:
    void* const m_memory;
};

} // namespace

QString FaultRuns::fileSizeLimit(const Write& write, const QString& folder, int runs)
{
    return ChildProcess::run([&] { return limited(write, folder, runs); });
}

QString FaultRuns::fullDisk(const Write& write, const QString& folder, int runs)
{
    return ChildProcess::run([&] {
        constexpr qint64 diskSize = 2 << 20;
        if (!PrivateDisk::mount(folder, diskSize))
            return QStringLiteral("There is no private disk");
        const Stage stage(write, folder);
        // The source is on the disk as well, so what is free is known only when all is prepared.
        return repeated(stage, runs, write.writesContent, [&](int run) {
            struct statvfs status = {};
            ::statvfs(QFile::encodeName(folder).constData(), &status);
            const auto free = static_cast<qint64>(status.f_bavail) * static_cast<qint64>(status.f_bsize);
            return std::make_unique<Filler>(folder + QStringLiteral("/filler"), free - cutOf(stage, run, runs));
        });
    });
}

QString FaultRuns::readOnlyDisk(const Write& write, const QString& folder, int runs)
{
    return ChildProcess::run([&] {
        constexpr qint64 diskSize = 16 << 20;
        if (!PrivateDisk::mount(folder, diskSize))
            return QStringLiteral("There is no private disk");
        const Stage stage(write, folder);
        stage.reset();
        if (!PrivateDisk::makeReadOnly(folder))
            return QStringLiteral("The disk cannot be made read-only");
        QString problem;
        for (int run = 0; run < runs && problem.isEmpty(); ++run) {
            const bool done = write.perform(stage.place, 0);
            problem = done ? QStringLiteral("this cannot be") : stage.problem(false);
            if (!problem.isEmpty())
                problem = described(problem, done, run);
        }
        return problem;
    });
}

QString FaultRuns::vanishedFolder(const Write& write, const QString& folder, int runs)
{
    return ChildProcess::run([&] {
        const Stage stage(write, folder);
        QString problem;
        for (int run = 0; run < runs && problem.isEmpty(); ++run) {
            stage.reset();
            QDir(stage.place.work).removeRecursively();
            const bool done = write.perform(stage.place, 0);
            const FolderState found = stateOf(stage.place.work);
            if (!done && QFileInfo::exists(stage.place.work))
                problem = QStringLiteral("the folder was made");
            if (done && found.isEmpty() && !stage.after().isEmpty())
                problem = QStringLiteral("there is nothing");
            for (auto it = found.begin(); done && it != found.end(); ++it) {
                if (stage.after().value(it.key(), QByteArrayLiteral("-")) != it.value())
                    problem = QStringLiteral("%1 is not new").arg(it.key());
            }
            if (!problem.isEmpty())
                problem = described(problem, done, run);
        }
        return problem;
    });
}

QString FaultRuns::vanishingFolder(const Write& write, const QString& folder, int runs)
{
    return ChildProcess::run([&] {
        const Stage stage(write, folder);
        QRandomGenerator random(seed);
        QString problem;
        for (int run = 0; run < runs && problem.isEmpty(); ++run) {
            stage.reset();
            constexpr unsigned longest = 1500; // microseconds
            const unsigned delay = random.bounded(longest);
            const QByteArray from = QFile::encodeName(stage.place.work);
            const QByteArray to = QFile::encodeName(stage.gone());
            std::thread vanishing([&] {
                ::usleep(delay);
                ::rename(from.constData(), to.constData());
            });
            const bool done = write.perform(stage.place, 0);
            vanishing.join();
            // Some writes make the folder anew.
            FolderState found = stateOf(stage.gone());
            problem = stage.allowed().problemOf(found, true);
            AllowedStates anew = stage.allowed();
            found = stateOf(stage.place.work);
            if (problem.isEmpty() && !found.isEmpty()) {
                anew.add({}); // so that nothing has to be there
                problem = anew.problemOf(found, false);
            }
            if (!problem.isEmpty())
                problem = described(problem, done, run);
        }
        return problem;
    });
}

QString FaultRuns::kill(const Write& write, const QString& folder, int runs, int& torn)
{
    const SharedCounter counter;
    const QString problem = ChildProcess::run([&] { return killed(write, folder, runs, *counter); });
    torn = *counter;
    return problem;
}

QString FaultRuns::namedTemporaries(const Write& write, const QString& folder, int runs, int& torn)
{
    const SharedCounter counter;
    const QString problem = ChildProcess::run([&] {
        if (!PrivateDisk::hideProcesses())
            return QStringLiteral("The processes cannot be hidden");
        const QString first = limited(write, folder, runs);
        return first.isEmpty() ? killed(write, folder, runs, *counter) : first;
    });
    torn = *counter;
    return problem;
}
