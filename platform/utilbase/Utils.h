#pragma once

#include <utilbase/SMD5.h>
#include <utilbase/UtilbaseGlobal.h>

#include <QString>
#include <QStringList>

// Helpers of the host for files. Every function is reentrant and may be called on any thread.
namespace Utils {

// The MD5 digest of the whole file `path` in lower-case hexadecimal digits. The file is read in blocks, so its size
// does not matter. The empty digest for what is not a regular file (nothing waits on a FIFO) or cannot be read.
UTILBASE_EXPORT SMD5 getFileMD5(const QString& path);

// Copies the files below `source` whose names match one of `nameFilters` (wildcards as QDir takes them, compared
// case-sensitively; no filter: every file) into the same sub-folders of `target`/`folderName`, or of `target` itself
// when `folderName` is empty. Only folders that lead to a matching file are created.
//
// A file that exists at the target is replaced, except by itself: a file copied onto itself stays as it is. A file
// appears under its name only when it is complete. It keeps its time of change and, as far as the umask lets it, its
// permissions.
//
// A link to a file below `source` is copied as that file. Links to folders, links that lead out of `source` and
// whatever is no regular file are left out: the copy never leaves the source, never loops and never waits. Copying a
// folder into itself copies what was there before the call. Where a link stands in the place of a sub-folder of the
// target, nothing is copied, since that would end elsewhere.
//
// Returns true when every matching file was copied, false when the source is no readable folder or one file or folder
// failed; the others are copied all the same.
UTILBASE_EXPORT bool RecursiveCopyDirectory(const QString& source, const QString& target,
                                            const QStringList& nameFilters = {}, const QString& folderName = {});

} // namespace Utils
