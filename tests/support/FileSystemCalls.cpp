#include "tests/support/FileSystemCalls.h"

#include <QFile>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>

namespace {

thread_local QStringList* heard = nullptr;

void note(const char* function, const char* path)
{
    if (QStringList* const list = heard) {
        heard = nullptr; // what it takes to note a call is not noted
        list->append(QStringLiteral("%1(%2)").arg(QLatin1String(function), QFile::decodeName(path)));
        heard = list;
    }
}

} // namespace

FileSystemCalls::FileSystemCalls()
{
    heard = new QStringList;
}

FileSystemCalls::~FileSystemCalls()
{
    delete heard;
    heard = nullptr;
}

QStringList FileSystemCalls::take()
{
    QStringList calls;
    heard->swap(calls);
    return calls;
}

// NOLINTBEGIN(readability-inconsistent-declaration-parameter-name): the C library's own names are reserved.

// The function of this name that is next in the order of the libraries.
#define NEXT(function) reinterpret_cast<decltype(&(function))>(::dlsym(RTLD_NEXT, #function))

// A function whose first argument is the path.
#define HEARD(result, function, parameters, arguments)                                                                 \
    Q_DECL_EXPORT result function parameters noexcept                                                                  \
    {                                                                                                                  \
        static const auto next = NEXT(function);                                                                       \
        note(#function, path);                                                                                         \
        return next arguments;                                                                                         \
    }

extern "C" {
HEARD(int, access, (const char* path, int mode), (path, mode))
HEARD(int, lstat64, (const char* path, struct stat64* status), (path, status))
HEARD(int, stat64, (const char* path, struct stat64* status), (path, status))
HEARD(int, lstat, (const char* path, struct stat* status), (path, status))
HEARD(int, stat, (const char* path, struct stat* status), (path, status))
HEARD(ssize_t, readlink, (const char* path, char* buffer, size_t size), (path, buffer, size))
HEARD(char*, realpath, (const char* path, char* resolved), (path, resolved))
HEARD(int, mkdir, (const char* path, mode_t mode), (path, mode))
HEARD(int, statvfs64, (const char* path, struct statvfs64* status), (path, status))
HEARD(int, unlink, (const char* path), (path))

Q_DECL_EXPORT FILE* fopen(const char* path, const char* mode)
{
    static const auto next = NEXT(fopen);
    note("fopen", path);
    return next(path, mode);
}

Q_DECL_EXPORT int inotify_add_watch(int watch, const char* path, std::uint32_t mask) noexcept
{
    static const auto next = NEXT(inotify_add_watch);
    note("inotify_add_watch", path);
    return next(watch, path, mask);
}

Q_DECL_EXPORT int renameat2(int folder, const char* path, int toFolder, const char* to, unsigned flags) noexcept
{
    static const auto next = NEXT(renameat2);
    note("renameat2", path);
    return next(folder, path, toFolder, to, flags);
}

Q_DECL_EXPORT int statx(int folder, const char* path, int flags, unsigned mask, struct statx* status) noexcept
{
    static const auto next = NEXT(statx);
    note("statx", path);
    return next(folder, path, flags, mask, status);
}

Q_DECL_EXPORT DIR* opendir(const char* path)
{
    static const auto next = NEXT(opendir);
    note("opendir", path);
    return next(path);
}

Q_DECL_EXPORT int open64(const char* path, int flags, ...)
{
    static const auto next = NEXT(open64);
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = va_arg(arguments, mode_t); // without one nobody looks at it
    va_end(arguments);
    note("open64", path);
    return next(path, flags, mode);
}

Q_DECL_EXPORT int open(const char* path, int flags, ...)
{
    static const auto next = NEXT(open);
    va_list arguments;
    va_start(arguments, flags);
    const auto mode = va_arg(arguments, mode_t);
    va_end(arguments);
    note("open", path);
    return next(path, flags, mode);
}
}

// NOLINTEND(readability-inconsistent-declaration-parameter-name)
