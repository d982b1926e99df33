#include "tests/faults/ChildProcess.h"

#include <QByteArray>
#include <QFile>

#include <grp.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <new>
#include <optional>

namespace {

constexpr unsigned childSeconds = 250; // by then it hangs

void showFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    if (type == QtFatalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

template<typename Function>
pid_t fork(Function function)
{
    std::signal(SIGCHLD, SIG_DFL); // a child whose end is ignored leaves no status
    const pid_t child = ::fork();
    if (child < 0)
        qFatal("No child process");
    if (child == 0) {
        for (const int crash : {SIGSEGV, SIGABRT, SIGBUS, SIGFPE, SIGILL})
            std::signal(crash, SIG_DFL);   // not Qt Test's, which attaches a debugger
        qInstallMessageHandler(showFatal); // what the program complains about is what is to be
        ::alarm(childSeconds);
        function();
        ::_exit(0);
    }
    return child;
}

// How the child ended; nothing if that cannot be told.
std::optional<int> statusOf(pid_t child)
{
    int status = 0;
    return ::waitpid(child, &status, 0) == child ? std::optional<int>(status) : std::nullopt;
}

bool writeText(const char* path, const QByteArray& text)
{
    QFile file(QString::fromLatin1(path));
    return file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(text) == text.size();
}

// Gives the process mounts of its own; a user who is not root becomes root of a world of its own for that.
bool leaveMounts()
{
    const uid_t user = ::getuid();
    const gid_t group = ::getgid();
    if (::unshare(CLONE_NEWNS) != 0) {
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return false;
        writeText("/proc/self/setgroups", "deny");
        if (!writeText("/proc/self/uid_map", "0 " + QByteArray::number(user) + " 1") ||
            !writeText("/proc/self/gid_map", "0 " + QByteArray::number(group) + " 1"))
            return false;
    }
    return ::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

} // namespace

QString ChildProcess::run(const std::function<QString()>& function)
{
    std::array<int, 2> pipe{};
    if (::pipe(pipe.data()) != 0)
        qFatal("No pipe");
    const pid_t child = fork([&] {
        const QByteArray result = function().toUtf8();
        QFile out;
        if (!out.open(pipe[1], QIODevice::WriteOnly | QIODevice::Unbuffered) || out.write(result) != result.size())
            std::abort();
    });
    ::close(pipe[1]);
    QFile in;
    QByteArray result;
    if (in.open(pipe[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle))
        result = in.readAll();
    const auto status = statusOf(child);
    if (status != 0) // nor is nothing
        return QStringLiteral("The child ended with status %1").arg(status.value_or(-1));
    return QString::fromUtf8(result);
}

bool ChildProcess::runAndKill(const std::function<void()>& function, unsigned microseconds)
{
    const pid_t child = fork(function);
    ::usleep(microseconds);
    ::kill(child, SIGKILL);
    const auto status = statusOf(child);
    return status && WIFSIGNALED(*status) && WTERMSIG(*status) == SIGKILL;
}

bool ChildProcess::becomeNobody(const QString& folder)
{
    constexpr uid_t nobody = 65534;
    if (::getuid() != 0)
        return true;
    return ::chown(QFile::encodeName(folder).constData(), nobody, nobody) == 0 && ::setgroups(0, nullptr) == 0 &&
           ::setgid(nobody) == 0 && ::setuid(nobody) == 0;
}

SharedNumber::SharedNumber()
    : m_memory(::mmap(nullptr, sizeof(Number), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
{
    if (m_memory == MAP_FAILED)
        qFatal("No shared memory");
    new (m_memory) Number(0);
}

SharedNumber::~SharedNumber()
{
    ::munmap(m_memory, sizeof(Number));
}

bool PrivateDisk::isAvailable()
{
    return ChildProcess::run([] { return mount(QStringLiteral("/tmp"), 1 << 20) ? QString() : QStringLiteral("no"); })
        .isEmpty();
}

bool PrivateDisk::mount(const QString& folder, qint64 bytes)
{
    const QByteArray options = "size=" + QByteArray::number(bytes);
    return leaveMounts() &&
           ::mount("tmpfs", QFile::encodeName(folder).constData(), "tmpfs", 0, options.constData()) == 0;
}

bool PrivateDisk::makeReadOnly(const QString& folder)
{
    return ::mount(nullptr, QFile::encodeName(folder).constData(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0;
}

bool PrivateDisk::hideProcesses()
{
    return mount(QStringLiteral("/proc"), 1 << 20);
}
