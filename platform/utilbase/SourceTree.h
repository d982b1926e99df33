#pragma once

#include "utilbase/CFileDescriptor.h"

#include <QByteArray>
#include <QRegularExpression>
#include <QStringList>

#include <sys/types.h>

#include <cstddef>
#include <vector>

// `path` without links and dots; empty when it leads nowhere.
QByteArray canonicalPath(const QByteArray& path);

// What there is to copy below a folder: the regular files whose names match, and the links to such files inside of the
// folder. Links to folders, links that lead out of the folder or nowhere, and what is no file are left out.
class SourceTree
{
public:
    struct File
    {
        QByteArray name;       // in its folder
        QByteArray linkTarget; // canonical path of a link's file; empty when it is no link

        CFileDescriptor open(const CFileDescriptor& folder) const;
    };

    struct Folder
    {
        std::size_t parent = 0; // index of the folder that it lies in
        QByteArray path;        // below the root, with a leading slash; empty for the root itself
        mode_t mode = 0;
        std::vector<File> files;
    };

    // `root`: canonical path of the folder. `nameFilters`: wildcards, case-sensitive; none of them: every file.
    SourceTree(const QByteArray& root, const QStringList& nameFilters);

    const QByteArray& root() const { return m_root; }

    // The root first, and every folder before those that lie in it.
    const std::vector<Folder>& folders() const { return m_folders; }

    bool hasFiles() const;

    // False when the root or a folder below it could not be read.
    bool isComplete() const { return m_bComplete; }

private:
    bool list(std::size_t index);
    void addLink(std::size_t index, const QByteArray& name);
    bool matches(const QByteArray& name) const;

    const QByteArray m_root;
    std::vector<QRegularExpression> m_filters;
    std::vector<Folder> m_folders;
    bool m_bComplete = true;
};
