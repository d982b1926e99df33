#include "tests/faults/Fault.h"

#include "tests/faults/ChildProcess.h"
#include "tests/faults/Stage.h"
#include "tests/support/FileFixture.h"

#include <QDirIterator>
#include <QElapsedTimer>
#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>

#include <algorithm>
#include <atomic>
#include <memory>
#include <thread>

namespace {

constexpr quint32 seed = 20'250'101;

QString described(const QString& problem, bool done, int run)
{
    return QStringLiteral("Run %1, reported as %2: %3")
        .arg(run)
        .arg(done ? QStringLiteral("done") : QStringLiteral("failed"), problem);
}

// What is wrong with a write that cannot be done.
QString problemOfImpossible(const Stage& stage, bool done, int run)
{
    const QString problem = done ? QStringLiteral("this cannot be") : stage.problemOfFailure();
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

// Repeats the write under `cut(run)`, which leaves too little room for it, each time from the start; in a child, for
// what cannot be undone.
template<typename Function>
QString repeated(const Stage& stage, int runs, Function cut)
{
    QString problem;
    for (int run = 0; run < runs && problem.isEmpty(); ++run) {
        stage.reset();
        bool done = false;
        {
            const auto fault = cut(run);
            Q_UNUSED(fault)
            done = stage.write().perform(stage.place, 0);
        }
        problem = problemOfImpossible(stage, done, run);
    }
    return problem;
}

QString limited(const Write& write, const QString& folder, int runs)
{
    const Stage stage(write, folder);
    return repeated(stage, runs, [&](int run) { return std::make_unique<DiskIsFull>(cutOf(stage, run, runs)); });
}

// Counts those kills only that hit the write itself: not what makes it possible again, nor the start of the process.
QString killed(const Write& write, const QString& folder, int runs, SharedNumber::Number& torn)
{
    constexpr unsigned longest = 5'000; // microseconds
    constexpr int mostKillsARun = 20;
    constexpr int notBegun = -1;
    QRandomGenerator random(seed);
    const Stage stage(write, folder);
    const SharedNumber turn;
    const auto forEver = [&] {
        for (int next = 0;; ++next) {
            *turn = next;
            write.take(stage.place, next);
        }
    };
    int run = 0;
    for (int kills = 0; run < runs && kills < mostKillsARun * runs; ++kills) {
        stage.reset();
        *turn = notBegun;
        if (!ChildProcess::runAndKill(forEver, random.bounded(longest)))
            return QStringLiteral("Run %1: the child ended by itself").arg(run);
        if (*turn == notBegun || !write.isWrite(*turn))
            continue;
        const FolderState found = stateOf(stage.place.work);
        const auto paths = found.keys();
        torn += std::any_of(paths.begin(), paths.end(), isTemporary) ? 1 : 0;
        QString problem = stage.allowed().problemOf(found, true);
        if (problem.isEmpty())
            problem = write.inspect(stage.place);
        if (!problem.isEmpty())
            return QStringLiteral("Run %1: %2").arg(run).arg(problem);
        ++run;
    }
    return run == runs ? QString() : QStringLiteral("Only %1 kills have hit the write").arg(run);
}

// A write that is done has made all of it in the folder that went, or all that it makes of nothing in a new one.
QString problemOfVanishing(const Stage& stage, bool done)
{
    const FolderState gone = stateOf(stage.gone());
    const FolderState anew = stateOf(stage.place.work);
    if (done && anew.isEmpty())
        return stage.problemOfSuccess(gone);
    const QString problem = stage.allowed().problemOf(gone, true);
    if (!problem.isEmpty())
        return problem;
    if (done)
        return difference(anew, stage.anew().value_or(FolderState()));
    AllowedStates any = stage.allowed();
    any.add({}); // so that nothing has to be there
    return any.problemOf(anew, false);
}

// How long the write takes, in nanoseconds, when it has been done before.
quint32 durationOf(const Stage& stage)
{
    qint64 duration = 0;
    for (int i = 0; i < 3; ++i) {
        stage.reset();
        QElapsedTimer timer;
        timer.start();
        stage.write().perform(stage.place, 0);
        duration = timer.nsecsElapsed();
    }
    return static_cast<quint32>(duration);
}

// No byte of a file beyond a limit can be written. The limits lie all over the content.
QString fileSizeLimit(const Write& write, const QString& folder, int runs)
{
    return ChildProcess::run([&] { return limited(write, folder, runs); });
}

// The disk is full, with room for a part of the content.
QString fullDisk(const Write& write, const QString& folder, int runs)
{
    return ChildProcess::run([&] {
        constexpr qint64 diskSize = 2 << 20;
        if (!PrivateDisk::mount(folder, diskSize))
            return QStringLiteral("There is no private disk");
        const Stage stage(write, folder);
        // The source is on the disk as well, so what is free is known only when all is prepared.
        return repeated(stage, runs, [&](int run) {
            struct statvfs status = {};
            ::statvfs(QFile::encodeName(folder).constData(), &status);
            const auto free = static_cast<qint64>(status.f_bavail) * static_cast<qint64>(status.f_bsize);
            return std::make_unique<Filler>(folder + QStringLiteral("/filler"), free - cutOf(stage, run, runs));
        });
    });
}

QString readOnlyDisk(const Write& write, const QString& folder, int runs)
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
            problem = problemOfImpossible(stage, done, run);
        }
        return problem;
    });
}

// The folders may not be written to, by a user who has not made them so, whatever the files in them allow.
QString readOnlyFolder(const Write& write, const QString& folder, int runs)
{
    return ChildProcess::run([&] {
        if (!ChildProcess::becomeNobody(folder))
            return QStringLiteral("root's rights cannot be given up");
        const Stage stage(write, folder);
        const auto allow = [&](mode_t mode) {
            QStringList folders{stage.place.work};
            for (QDirIterator it(stage.place.work, QDir::Dirs | QDir::NoDotAndDotDot, QDirIterator::Subdirectories);
                 it.hasNext();)
                folders.append(it.next());
            for (const QString& each : folders)
                ::chmod(QFile::encodeName(each).constData(), mode);
        };
        QString problem;
        for (int run = 0; run < runs && problem.isEmpty(); ++run) {
            stage.reset();
            allow(0555);
            const bool done = write.perform(stage.place, 0);
            allow(0755);
            problem = problemOfImpossible(stage, done, run);
        }
        return problem;
    });
}

// The folder is gone before the write begins.
QString vanishedFolder(const Write& write, const QString& folder, int runs)
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
            if (done)
                problem = stage.anew() ? difference(found, *stage.anew()) : QStringLiteral("this cannot be");
            if (!problem.isEmpty())
                problem = described(problem, done, run);
        }
        return problem;
    });
}

// The folder goes, by another name, at some moment of the write.
QString vanishingFolder(const Write& write, const QString& folder, int runs)
{
    return ChildProcess::run([&] {
        const Stage stage(write, folder);
        const quint32 duration = durationOf(stage);
        QRandomGenerator random(seed);
        QString problem;
        for (int run = 0; run < runs && problem.isEmpty(); ++run) {
            stage.reset();
            const qint64 delay = random.bounded(duration);
            const QByteArray from = QFile::encodeName(stage.place.work);
            const QByteArray to = QFile::encodeName(stage.gone());
            std::atomic<bool> hasBegun(false);
            std::thread vanishing([&] {
                while (!hasBegun)
                    std::this_thread::yield();
                QElapsedTimer timer;
                timer.start();
                while (timer.nsecsElapsed() < delay) {
                    // A thread that slept would wake up when most writes are over.
                }
                ::rename(from.constData(), to.constData());
            });
            hasBegun = true;
            const bool done = write.perform(stage.place, 0);
            vanishing.join();
            problem = problemOfVanishing(stage, done);
            if (!problem.isEmpty())
                problem = described(problem, done, run);
        }
        return problem;
    });
}

QString killedInChild(const Write& write, const QString& folder, int runs, bool namesTemporaries)
{
    const SharedNumber torn;
    const QString problem = ChildProcess::run([&] {
        return namesTemporaries && !PrivateDisk::hideProcesses() ? QStringLiteral("The processes cannot be hidden")
                                                                 : killed(write, folder, runs, *torn);
    });
    qInfo("%d of %d kills left temporary files", (*torn).load(), runs);
    return problem;
}

QString kill(const Write& write, const QString& folder, int runs)
{
    return killedInChild(write, folder, runs, false);
}

// Where the system cannot give a name to a file that has none, each file has a temporary one from the beginning.
QString limitNamed(const Write& write, const QString& folder, int runs)
{
    return ChildProcess::run([&] {
        return PrivateDisk::hideProcesses() ? limited(write, folder, runs)
                                            : QStringLiteral("The processes cannot be hidden");
    });
}

QString killNamed(const Write& write, const QString& folder, int runs)
{
    return killedInChild(write, folder, runs, true);
}

} // namespace

QList<Fault> allFaults()
{
    const auto all = [](const Write& /*write*/) { return true; };
    const auto content = [](const Write& write) { return write.writesContent; };
    const auto silent = [](const Write& write) { return !write.mayAsk; };
    return {{"file size limit", &fileSizeLimit, content, false},
            {"full disk", &fullDisk, content, true},
            {"read-only disk", &readOnlyDisk, all, true},
            {"read-only folder", &readOnlyFolder, all, false},
            {"vanished folder", &vanishedFolder, all, false},
            {"vanishing folder", &vanishingFolder, silent, false},
            {"kill", &kill, all, false},
            {"file size limit, named temporaries", &limitNamed, content, true},
            {"kill, named temporaries", &killNamed, all, true}};
}
