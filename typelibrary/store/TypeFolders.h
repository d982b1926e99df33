#pragma once

#include <QString>

#include <sys/types.h>

#include <ctime>

// Which folders of the library get an expander in the tree. [any thread]

// The state of a folder's list of entries: it changes with every entry that comes, goes or gets another name.
struct FolderStamp
{
    dev_t device = 0;
    ino_t inode = 0;
    timespec changed{};
};

// The folder's stamp now. To be taken before the folder is listed.
FolderStamp folderStamp(const QString& folder);

// Remembers that a listing, begun after `stamp` was taken, found something worth an expander in the folder. What a
// link stands for does not count: it may be something else without a change of the folder.
void rememberTypesIn(const QString& folder, const FolderStamp& stamp);

// Whether nothing in the folder is worth an expander: no sub-folder, whatever is in it, and no file named like a type.
// Lists the folder unless it is remembered and has not changed since.
bool isFreeOfTypes(const QString& folder);
