#include "benchmarks/Peer.h"

#include "benchmarks/Measurement.h"

#include <QDirIterator>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace {

// Not QProcess: it copies this process's page tables to start another one, and that would count against the peer.
int runToEnd(const std::vector<QByteArray>& arguments, const QByteArray& folder)
{
    std::vector<char*> argv;
    argv.reserve(arguments.size() + 1);
    for (const QByteArray& argument : arguments)
        argv.push_back(const_cast<char*>(argument.constData())); // NOLINT: the call does not write to it
    argv.push_back(nullptr);

    posix_spawn_file_actions_t actions;
    ::posix_spawn_file_actions_init(&actions);
    ::posix_spawn_file_actions_addchdir_np(&actions, folder.constData());
    ::posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int error = ::posix_spawnp(&child, argv[0], &actions, nullptr, argv.data(), environ);
    ::posix_spawn_file_actions_destroy(&actions);
    if (error != 0)
        qFatal("%s: %s", argv[0], std::strerror(error));
    int status = -1;
    ::waitpid(child, &status, 0);
    return status;
}

} // namespace

Peer::Peer(std::vector<QByteArray> arguments, const QString& folder)
    : m_arguments(std::move(arguments)),
      m_folder(QFile::encodeName(folder))
{
}

double Peer::run() const
{
    int status = 0;
    const double seconds = secondsOf([&] { status = runToEnd(m_arguments, m_folder); });
    if (status != 0)
        qFatal("%s failed", m_arguments.front().constData());
    return seconds;
}

Peer findSizes(const QString& folder)
{
    return {{"find", ".", "-type", "f", "-printf", "%s\n"}, folder};
}

Peer md5sumOfAll(const QString& folder)
{
    std::vector<QByteArray> arguments{"md5sum"};
    QDirIterator files(folder, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        arguments.push_back(QFile::encodeName(files.next().mid(folder.size() + 1)));
    std::sort(arguments.begin() + 1, arguments.end());
    return {std::move(arguments), folder};
}
