#include "host/files/SafeFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>

namespace {

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(SafeFile)
};

QString kindProblem()
{
    return Text::tr("This is not a regular file.");
}

// Qt does not know why when a part of the bytes could still be written.
QString writeProblem()
{
    return Text::tr("The file could not be written whole; perhaps the disk is full.");
}

bool succeeded(int result, QString& error)
{
    if (result < 0)
        error = qt_error_string(errno);
    return result >= 0;
}

bool isRegular(const struct stat& status, QString& error)
{
    const bool regular = S_ISREG(status.st_mode);
    if (!regular)
        error = kindProblem();
    return regular;
}

// Writes the new file, does what has to come between that and the change of names, and puts the new file in place.
bool replaceAfter(const std::function<bool()>& step, const QString& path, const SafeFile::Writer& write, QString& error,
                  QFileDevice::Permissions permissions)
{
    const QFileInfo old(path);
    if (old.exists() && !old.isFile()) {
        error = kindProblem();
        return false;
    }
    QSaveFile file(path); // follows links
    if (!file.open(QIODevice::WriteOnly)) {
        error = file.errorString();
        return false;
    }
    // What QFileInfo and QSaveFile take for the permissions contains what this user may do, which is everything for
    // root.
    constexpr QFileDevice::Permissions thisUser = QFileDevice::ReadUser | QFileDevice::WriteUser | QFileDevice::ExeUser;
    if (permissions || old.exists())
        file.setPermissions((permissions ? permissions : old.permissions()) & ~thisUser);
    if (!write(file, error))
        return false;
    // commit() alone puts a file that is cut off in place when the disk is full.
    if (!file.flush() || file.error() != QFileDevice::NoError) {
        error = writeProblem();
        return false;
    }
    if (!step())
        return false;
    if (!file.commit()) {
        error = file.errorString();
        return false;
    }
    return true;
}

} // namespace

bool SafeFile::openForReading(QFile& file, const QString& path, QString& error)
{
    const QByteArray name = QFile::encodeName(path);
    struct stat status = {};
    // Opening a device can set it off, so the kind is looked at first; the name may be given to something else before
    // it is opened, so that neither waits and the kind is looked at again.
    if (!succeeded(::stat(name.constData(), &status), error) || !isRegular(status, error))
        return false;
    const int descriptor = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (!succeeded(descriptor, error))
        return false;
    file.setFileName(path);
    if (!file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle)) {
        error = file.errorString();
        return false;
    }
    return succeeded(::fstat(descriptor, &status), error) && isRegular(status, error);
}

std::optional<QByteArray> SafeFile::read(const QString& path, qint64 limit, QString& error)
{
    QFile file;
    if (!openForReading(file, path, error))
        return std::nullopt;
    if (file.size() > limit) {
        error = Text::tr("The file is longer than %1 bytes.").arg(limit);
        return std::nullopt;
    }
    const QByteArray content = file.read(file.size());
    if (file.error() != QFileDevice::NoError) {
        error = file.errorString();
        return std::nullopt;
    }
    return content;
}

bool SafeFile::write(QIODevice& device, const QByteArray& bytes, QString& error)
{
    const bool written = device.write(bytes) == bytes.size();
    if (!written)
        error = writeProblem();
    return written;
}

bool SafeFile::copy(QIODevice& from, QIODevice& to, QString& error)
{
    constexpr qint64 blockSize = 64 * 1024;
    QByteArray block(blockSize, Qt::Uninitialized);
    qint64 size = 0;
    while ((size = from.read(block.data(), block.size())) > 0) {
        if (to.write(block.constData(), size) != size) {
            error = writeProblem();
            return false;
        }
    }
    if (size < 0)
        error = from.errorString();
    return size == 0;
}

bool SafeFile::replace(const QString& path, const Writer& write, QString& error, QFileDevice::Permissions permissions)
{
    return replaceAfter([] { return true; }, path, write, error, permissions);
}

bool SafeFile::replaceKeepingPrevious(const QString& path, const QByteArray& content, QString& error,
                                      QFileDevice::Permissions permissions)
{
    const auto writeContent = [&content](QIODevice& device, QString& reason) { return write(device, content, reason); };
    const auto keepPrevious = [&] {
        if (!QFileInfo::exists(path))
            return true;
        QFile old;
        const auto copyOld = [&old](QIODevice& device, QString& reason) { return copy(old, device, reason); };
        return openForReading(old, path, error) &&
               replace(path + QLatin1String(".bak"), copyOld, error, permissions ? permissions : old.permissions());
    };
    return replaceAfter(keepPrevious, path, writeContent, error, permissions);
}
