#include "utilbase/SourceTree.h"

#include <QFile>

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace {

mode_t typeOf(int folder, const char* name)
{
    struct stat status = {};
    return ::fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW) == 0 ? status.st_mode & S_IFMT : 0;
}

// The directory entry's kind, which most file systems tell with its name.
mode_t typeOf(int folder, const dirent& entry)
{
    return entry.d_type == DT_UNKNOWN ? typeOf(folder, entry.d_name) : static_cast<mode_t>(DTTOIF(entry.d_type));
}

} // namespace

QByteArray canonicalPath(const QByteArray& path)
{
    char* const resolved = ::realpath(path.constData(), nullptr);
    const QByteArray result = resolved;
    std::free(resolved);
    return result;
}

CFileDescriptor SourceTree::File::open(const CFileDescriptor& folder) const
{
    // Without O_NONBLOCK opening a FIFO that has taken the file's place would wait.
    constexpr int flags = O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    return CFileDescriptor(::openat(folder.get(), (linkTarget.isEmpty() ? name : linkTarget).constData(), flags));
}

SourceTree::SourceTree(const QByteArray& root, const QStringList& nameFilters)
    : m_root(root)
{
    m_filters.reserve(static_cast<std::size_t>(nameFilters.size()));
    for (const QString& filter : nameFilters)
        m_filters.emplace_back(QRegularExpression::wildcardToRegularExpression(filter));
    m_folders.emplace_back();
    for (std::size_t i = 0; i < m_folders.size(); ++i)
        m_bComplete &= list(i);
}

bool SourceTree::hasFiles() const
{
    return std::any_of(m_folders.begin(), m_folders.end(), [](const Folder& folder) { return !folder.files.empty(); });
}

bool SourceTree::list(std::size_t index)
{
    CFileDescriptor folder(
        ::open((m_root + m_folders[index].path).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status = {};
    if (!folder.isOpen() || ::fstat(folder.get(), &status) != 0)
        return false;
    m_folders[index].mode = status.st_mode;

    struct CloseFolder
    {
        void operator()(DIR* opened) const { ::closedir(opened); }
    };
    const std::unique_ptr<DIR, CloseFolder> entries(::fdopendir(folder.get()));
    if (!entries)
        return false;
    folder.release(); // closed with the listing from now on
    errno = 0;
    while (const dirent* const entry = ::readdir(entries.get())) {
        const QByteArray name = entry->d_name;
        if (name == "." || name == "..")
            continue;
        switch (typeOf(::dirfd(entries.get()), *entry)) {
        case S_IFDIR: {
            Folder child;
            child.parent = index;
            child.path = m_folders[index].path + '/' + name;
            m_folders.push_back(std::move(child));
            break;
        }
        case S_IFREG:
            if (matches(name))
                m_folders[index].files.push_back({name, {}});
            break;
        case S_IFLNK:
            if (matches(name))
                addLink(index, name);
            break;
        default:
            break;
        }
        errno = 0;
    }
    return errno == 0;
}

void SourceTree::addLink(std::size_t index, const QByteArray& name)
{
    const QByteArray target = canonicalPath(m_root + m_folders[index].path + '/' + name);
    if (target.startsWith(m_root + '/') && typeOf(AT_FDCWD, target.constData()) == S_IFREG)
        m_folders[index].files.push_back({name, target});
}

bool SourceTree::matches(const QByteArray& name) const
{
    const QString text = QFile::decodeName(name);
    return m_filters.empty() || std::any_of(m_filters.begin(), m_filters.end(), [&](const QRegularExpression& filter) {
               return filter.match(text).hasMatch();
           });
}
