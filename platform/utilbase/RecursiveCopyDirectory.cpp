#include <utilbase/Utils.h>

#include "utilbase/CFileDescriptor.h"
#include "utilbase/SourceTree.h"

#include <QDir>
#include <QFile>

#include <sys/stat.h>

#include <array>
#include <atomic>
#include <vector>

namespace {

constexpr mode_t permissions = S_IRWXU | S_IRWXG | S_IRWXO;

// A name that no file has, in any folder, for the time that the file is written.
QByteArray temporaryName()
{
    static std::atomic<unsigned> counter{0};
    return ".copy-" + QByteArray::number(::getpid()) + '-' + QByteArray::number(++counter);
}

bool copyContent(const CFileDescriptor& from, const CFileDescriptor& to)
{
    static thread_local std::array<char, 64 * 1024> buffer;
    ssize_t count = 0;
    while ((count = from.read(buffer.data(), buffer.size())) > 0) {
        if (!to.writeAll(buffer.data(), static_cast<std::size_t>(count)))
            return false;
    }
    return count == 0;
}

// Makes the file that `create` opens for the name it is given, under a name that no file has.
template<typename Create>
bool makeTemporary(QByteArray& name, Create create)
{
    bool made = false;
    do {
        name = temporaryName();
        made = create(name.constData());
    } while (!made && errno == EEXIST); // left behind by a process of the same number that was killed
    return made;
}

// Gives a name to a file that has none. False if it is taken.
bool giveName(const CFileDescriptor& file, const CFileDescriptor& folder, const char* name)
{
    const QByteArray self = "/proc/self/fd/" + QByteArray::number(file.get());
    return ::linkat(AT_FDCWD, self.constData(), folder.get(), name, AT_SYMLINK_FOLLOW) == 0;
}

// Writes a copy of the file `from` and gives it its name when it is complete. Until then it has no name, so that
// nothing is left behind by a process that is killed, or a temporary one where the file system cannot do that.
bool copyFile(const CFileDescriptor& from, const struct stat& status, const CFileDescriptor& folder, const char* name)
{
    const mode_t mode = status.st_mode & permissions;
    QByteArray temporary;
    const bool canGiveNames = ::access("/proc/self/fd", X_OK) == 0;
    CFileDescriptor to(canGiveNames ? ::openat(folder.get(), ".", O_WRONLY | O_TMPFILE | O_CLOEXEC, mode) : -1);
    const bool isUnnamed = to.isOpen();
    const auto create = [&](const char* unused) {
        to = CFileDescriptor(::openat(folder.get(), unused, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
        return to.isOpen();
    };
    if (!isUnnamed && !makeTemporary(temporary, create))
        return false;

    const std::array<timespec, 2> times = {timespec{0, UTIME_NOW}, status.st_mtim};
    bool complete = copyContent(from, to) && ::futimens(to.get(), times.data()) == 0;
    if (complete && isUnnamed) {
        if (giveName(to, folder, name))
            return true;
        complete = makeTemporary(temporary, [&](const char* unused) { return giveName(to, folder, unused); });
    }
    if (complete && to.close() && ::renameat(folder.get(), temporary.constData(), folder.get(), name) == 0)
        return true;
    if (!temporary.isEmpty())
        ::unlinkat(folder.get(), temporary.constData(), 0);
    return false;
}

class CDirectoryCopy
{
public:
    CDirectoryCopy(const SourceTree& source, const QByteArray& target)
        : m_source(source),
          m_target(target),
          m_made(source.folders().size(), NotYet)
    {
    }

    bool copyFolder(std::size_t index)
    {
        const SourceTree::Folder& folder = m_source.folders()[index];
        if (folder.files.empty())
            return true;
        const CFileDescriptor from(
            ::open((m_source.root() + folder.path).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
        if (!from.isOpen() || !makeFolder(index))
            return false;
        const CFileDescriptor to(::open((m_target + folder.path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        if (!to.isOpen())
            return false;

        bool complete = true;
        for (const SourceTree::File& file : folder.files) {
            const CFileDescriptor content = file.open(from);
            struct stat status = {};
            struct stat existing = {};
            if (!content.isOpen() || ::fstat(content.get(), &status) != 0 || !S_ISREG(status.st_mode)) {
                complete = false;
                continue;
            }
            const bool sameFile = m_made[index] == Existed &&
                                  ::fstatat(to.get(), file.name.constData(), &existing, 0) == 0 &&
                                  existing.st_dev == status.st_dev && existing.st_ino == status.st_ino;
            if (!sameFile && !copyFile(content, status, to, file.name.constData()))
                complete = false;
        }
        return complete;
    }

private:
    enum Made : char
    {
        NotYet,
        Existed,
        New, // holds nothing that a file could be copied onto
    };

    // Creates the target's folder and, before it, those that it lies in. The target itself is there.
    bool makeFolder(std::size_t index)
    {
        if (m_made[index] != NotYet)
            return true;
        const SourceTree::Folder& folder = m_source.folders()[index];
        if (index > 0) {
            if (!makeFolder(folder.parent))
                return false;
            if (::mkdir((m_target + folder.path).constData(), (folder.mode & permissions) | S_IRWXU) == 0) {
                m_made[index] = New;
                return true;
            }
            // What a link leads to is not the target's.
            struct stat status = {};
            if (errno != EEXIST || ::lstat((m_target + folder.path).constData(), &status) != 0 ||
                !S_ISDIR(status.st_mode))
                return false;
        }
        m_made[index] = Existed;
        return true;
    }

    const SourceTree& m_source;
    const QByteArray m_target;
    std::vector<Made> m_made; // by folder of the source
};

} // namespace

bool Utils::RecursiveCopyDirectory(const QString& source, const QString& target, const QStringList& nameFilters,
                                   const QString& folderName)
{
    // An empty name would stand for the working directory, a zero would cut the name short.
    if (source.isEmpty() || target.isEmpty() || (source + target + folderName).contains(QChar::Null))
        return false;
    const QString folder = folderName.isEmpty() ? target : target + QLatin1Char('/') + folderName;

    // Listed as a whole before anything is written, so that the copy never meets itself.
    const SourceTree tree(canonicalPath(QFile::encodeName(source)), nameFilters);
    if (!tree.hasFiles())
        return tree.isComplete();
    if ((!folderName.isEmpty() && QFileInfo(folder).isSymLink()) || !QDir().mkpath(folder))
        return false;
    const QByteArray canonicalTarget = canonicalPath(QFile::encodeName(folder));
    if (canonicalTarget.isEmpty()) // It has gone again. What comes below it would go to the root folder.
        return false;

    CDirectoryCopy copy(tree, canonicalTarget);
    const std::size_t count = tree.folders().size();
    const bool intoItself = canonicalTarget.startsWith(tree.root() + '/');
    bool complete = tree.isComplete();
    // A copy inside the source may replace files of the source, always ones that lie deeper than their originals.
    for (std::size_t i = 0; i < count; ++i)
        complete &= copy.copyFolder(intoItself ? count - 1 - i : i);
    return complete;
}
