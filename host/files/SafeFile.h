#pragma once

#include <QByteArray>
#include <QFileDevice>
#include <QString>

#include <functional>
#include <optional>

class QFile;
class QIODevice;

// Reading files that may be anything, and replacing files so that a reader, and whoever looks after a crash, finds the
// old content or the new one, whole. `error` gets the reason for a failure, without the path, for the user.
// Reentrant. [any thread]
namespace SafeFile {

// Opens the regular file `path`, through links, for unbuffered reading. Nothing else is opened, and nothing waits.
bool openForReading(QFile& file, const QString& path, QString& error);

// The content of the regular file `path`; nothing when it is longer than `limit` bytes.
std::optional<QByteArray> read(const QString& path, qint64 limit, QString& error);

// Writes all bytes.
bool write(QIODevice& device, const QByteArray& bytes, QString& error);

// Copies from the position of `from` to its end.
bool copy(QIODevice& from, QIODevice& to, QString& error);

// Writes the new content; false with the reason in `error` gives the replacement up.
using Writer = std::function<bool(QIODevice& device, QString& error)>;

// Puts what `write` writes in the place of the file `path`, or creates it. Of a link the file it leads to is replaced.
// The file gets `permissions`; with none given it keeps those it has. On failure the old file stays untouched.
bool replace(const QString& path, const Writer& write, QString& error, QFileDevice::Permissions permissions = {});

// The same with the content at hand; what was there before is kept as `path` with ".bak" appended, with the same
// permissions as the new file, in the place of what was kept before.
bool replaceKeepingPrevious(const QString& path, const QByteArray& content, QString& error,
                            QFileDevice::Permissions permissions = {});

} // namespace SafeFile
