#pragma once

#include "typelibrary/store/Md5.h"
#include "typelibrary/store/TypeFileInfoCache.h"

#include <QFileInfo>

// The attributes of type files, by path. Each getter gives the empty value for what is no existing regular file with
// the suffix "rcvp" or "rcvbp" (capitals are no type file's), looks into TypeFileInfoCache next, and only then hashes
// the file or asks the host, on the calling thread. Without a host handler the host's answers are the ones for a
// plain single-receiver file of unknown size, and are not kept. [any thread]

// Whether the suffix is a type file's. Does not touch the disk.
bool hasTypeSuffix(const QFileInfo& file);

// Whether the path is that of an existing type file.
bool isTypeFile(const QFileInfo& file);

SSettings::TypeLibrary::STreeNode::NodeType typeOfFile(const QString& path); // None if empty
SMD5 md5OfFile(const QString& path);                                         // all zero if empty or unreadable
QSize resolutionOfFile(const QString& path);                                 // pixels, (-1, -1) if empty
QList<int> cabinetListOfFile(const QString& path);                           // cell ids in signal order
bool cabinetFlagOfFile(const QString& path);                                 // wired with orientation
std::array<std::int64_t, 4> cabinetBlockOfFile(const QString& path);         // zero if empty

// Forgets everything about the path. Whoever has written, renamed or deleted a type file calls it before a rescan.
void removeFromCache(const QString& path);

// The same for all paths below a folder that was deleted, renamed or written into.
void removeFolderFromCache(const QString& folder);

// For callers that know the file to be a type file, because they have just listed it: the attributes without another
// look at the disk. Computes those of `attributes` (TypeFileInfo::Attribute) that the cache lacks.
TypeFileInfo typeFileInfo(const QString& path, std::uint8_t attributes);
