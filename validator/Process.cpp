#include "validator/Process.h"

#include "validator/Trace.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <vector>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int glance = 100; // milliseconds between two looks at a child

struct Pipe
{
    Pipe()
    {
        if (::pipe2(ends, O_CLOEXEC) != 0)
            qFatal("No pipe: %s", std::strerror(errno));
    }
    ~Pipe()
    {
        closeEnd(0);
        closeEnd(1);
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    void closeEnd(int end)
    {
        if (ends[end] >= 0)
            ::close(ends[end]);
        ends[end] = -1;
    }

    // Takes what there is; closes the pipe at its end.
    void drainInto(QByteArray& text)
    {
        char block[4096];
        const ssize_t size = ::read(ends[0], block, sizeof(block));
        if (size > 0)
            text.append(block, static_cast<int>(size));
        else
            closeEnd(0);
    }

    int ends[2] = {-1, -1};
};

pid_t start(const QStringList& arguments, const Pipe& output, const Pipe& errors)
{
    std::vector<QByteArray> words{QFile::encodeName(QCoreApplication::applicationFilePath())};
    for (const QString& argument : arguments)
        words.push_back(QFile::encodeName(argument));
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (QByteArray& word : words)
        argv.push_back(word.data());
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_adddup2(&actions, output.ends[1], STDOUT_FILENO);
    ::posix_spawn_file_actions_adddup2(&actions, errors.ends[1], STDERR_FILENO);
    pid_t child = -1;
    const int error = ::posix_spawn(&child, argv[0], &actions, nullptr, argv.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        qFatal("%s: %s", argv[0], std::strerror(error));
    return child;
}

QString inWords(int status)
{
    if (WIFSIGNALED(status)) {
        const int number = WTERMSIG(status);
        return QStringLiteral("ended by signal %1 (%2)").arg(number).arg(QString::fromLocal8Bit(::strsignal(number)));
    }
    return QStringLiteral("ended with code %1").arg(WEXITSTATUS(status));
}

} // namespace

ProcessEnd runProcess(const QStringList& arguments, const Trace& trace, int patience)
{
    ProcessEnd result;
    Pipe output;
    Pipe errors;
    const pid_t child = start(arguments, output, errors);
    output.closeEnd(1);
    errors.closeEnd(1);

    QElapsedTimer sinceSign;
    sinceSign.start();
    std::uint64_t signs = trace.signs();
    bool isHanging = false;
    int status = 0;
    pid_t ended = 0;
    // A grandchild may hold the pipes open, so that their end is not the child's.
    while ((ended = ::waitpid(child, &status, WNOHANG)) == 0) {
        pollfd pipes[] = {{output.ends[0], POLLIN, 0}, {errors.ends[0], POLLIN, 0}};
        ::poll(pipes, 2, glance);
        if (pipes[0].revents != 0)
            output.drainInto(result.output);
        if (pipes[1].revents != 0)
            errors.drainInto(result.errors);
        if (trace.signs() != signs) {
            signs = trace.signs();
            sinceSign.restart();
        } else if (!isHanging && sinceSign.hasExpired(1000 * qint64{patience})) {
            isHanging = true;
            ::kill(child, SIGKILL);
        }
    }
    const int error = errno;
    for (Pipe* const pipe : {&output, &errors}) {
        pollfd rest{pipe->ends[0], POLLIN, 0};
        while (pipe->ends[0] >= 0 && ::poll(&rest, 1, 0) > 0)
            pipe->drainInto(pipe == &output ? result.output : result.errors);
    }
    if (ended != child) {
        result.manner =
            QStringLiteral("ended in a way that is not known: %1").arg(QString::fromLocal8Bit(std::strerror(error)));
        return result;
    }
    result.isClean = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    result.manner = isHanging ? QStringLiteral("hung: no sign of life for %1 s").arg(patience) : inWords(status);
    return result;
}
