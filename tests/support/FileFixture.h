#pragma once

#include <QDir>
#include <QFile>
#include <QString>

#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <csignal>
#include <cstring>

// Files and circumstances that file functions meet in practice.

inline bool writeFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    return QDir().mkpath(QFileInfo(path).path()) && file.open(QIODevice::WriteOnly) &&
           file.write(content) == content.size();
}

// The content, or "(none)" when the file cannot be read.
inline QByteArray readFile(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArrayLiteral("(none)");
}

inline bool makeFifo(const QString& path)
{
    return ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0;
}

inline bool makeSocket(const QString& path)
{
    const QByteArray name = QFile::encodeName(path);
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (static_cast<std::size_t>(name.size()) >= sizeof address.sun_path)
        return false;
    std::memcpy(address.sun_path, name.constData(), static_cast<std::size_t>(name.size()));
    const int fd = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const bool bound = ::bind(fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
    ::close(fd);
    return bound;
}

inline bool makeLink(const QString& target, const QString& path)
{
    return QFile::link(target, path);
}

// While it lives, file permissions count, also for root.
class PermissionsApply
{
public:
    PermissionsApply()
        : m_user(::geteuid())
    {
        if (m_user == 0 && ::seteuid(nobody) != 0)
            qFatal("Cannot give up root's rights");
    }
    ~PermissionsApply()
    {
        if (m_user == 0 && ::seteuid(m_user) != 0)
            qFatal("Cannot take root's rights back");
    }
    Q_DISABLE_COPY(PermissionsApply)

private:
    static constexpr uid_t nobody = 65534;
    const uid_t m_user;
};

// While it lives, writing a file beyond `bytes` fails as it does on a full disk.
class DiskIsFull
{
public:
    explicit DiskIsFull(rlim_t bytes)
        : m_signal(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        rlimit limit = m_before;
        limit.rlim_cur = bytes;
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~DiskIsFull()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_signal);
    }
    Q_DISABLE_COPY(DiskIsFull)

private:
    rlimit m_before = {};
    void (*m_signal)(int);
};
