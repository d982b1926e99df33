#include <utilbase/Utils.h>

#include "utilbase/CFileDescriptor.h"

#include <QCryptographicHash>
#include <QFile>

#include <sys/stat.h>

#include <algorithm>
#include <array>

SMD5 Utils::getFileMD5(const QString& path)
{
    SMD5 md5;
    if (path.contains(QChar::Null)) // the system would take what stands before it for the path
        return md5;
    // Without O_NONBLOCK opening a FIFO waits for its writer.
    const CFileDescriptor file(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status = {};
    if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode))
        return md5;

    static thread_local std::array<char, 64 * 1024> buffer;
    static thread_local QCryptographicHash hash(QCryptographicHash::Md5);
    hash.reset();
    off_t left = status.st_size; // 0 of a file whose size the system does not know before it is read
    ssize_t count = 0;
    do {
        count = file.read(buffer.data(), buffer.size());
        if (count < 0)
            return md5;
        hash.addData(buffer.data(), static_cast<int>(count));
        left -= count;
    } while (count > 0 && left != 0); // most types are read by one call, and none to learn that they have ended
    const QByteArray digits = hash.result().toHex();
    std::copy(digits.begin(), digits.end(), md5.data);
    return md5;
}
