#pragma once

#include <QString>
#include <QStringList>

// Brings type files from anywhere on the disk into the type library, those that it does not hold yet. What it holds is
// what the last scan has seen; the caller starts the next one. Names are base names, in the order met. [GUI thread]

struct FolderImport
{
    bool copied = false; // every type file of the folder could be copied
    int added = 0;       // type files that stay
    QStringList known;   // names of the others: the library has their content or their name
    QStringList folders; // paths of the folders that stay, each before those in it
};

// Copies the type files below `source`, in their sub-folders, to the new folder `target`, and deletes again the copies
// of those that the library holds and what is left empty by that. What could be copied before a failure stays.
FolderImport importFolder(const QString& source, const QString& target);

struct FilesImport
{
    QStringList sameContent; // names of the files whose content the library has
    QStringList sameName;    // and of those whose name it has
    bool failed = false;     // another file could not be copied, is hidden, or is no type file
};

// Copies the files into the group `folder`.
FilesImport importFiles(const QStringList& files, const QString& folder);
