#pragma once

#include "plugin/CSingleton.h"
#include "plugin/interface/SSettings.h"

#include <QString>

#include <memory>
#include <vector>

// The library folder in memory: a tree of its groups and types, and the two searches that keep duplicates out.
// The store only reads the folder, and only when told to: there is no watcher.
// Every function may be called on any thread. A scan holds the write lock from beginning to end, so that searches
// wait for it; two scans run one after the other and the later one wins; those asked for before the later one begins
// share it. A host query may call back into the store on
// the thread that scans: it is answered at once, from the empty tree. Once the process has begun to end no scan starts
// any more, and a question that would have to wait is answered as if the library were empty.
class CTypeLibrary : public CSingleton<CTypeLibrary>
{
public:
    using STreeNode = SSettings::TypeLibrary::STreeNode;

    CTypeLibrary();
    ~CTypeLibrary() override; // does not wait for scans on other threads

    // Makes `folder` the library folder and scans it on the calling thread. Empty: no library, an empty tree.
    void setRootPath(const QString& folder);

    // Builds the tree anew from the folder, on the calling thread.
    void updateLibrary();

    // Does the same on a detached thread of its own and returns at once.
    void startUpdate();

    // Absolute path of the library folder; empty until it is set.
    QString rootPath() const;

    // A copy of the tree.
    std::vector<STreeNode> nodes() const;

    // Path of the first type file in tree order with this digest, empty if there is none.
    QString searchSameType(const SMD5& md5) const;

    // The same for the digest of `file`, which need not lie in the library; empty if it is no readable type file.
    QString searchSameTypeOfFile(const QString& file) const;

    // Path of the first entry in tree order that is no group and has the same name as `fileOrName`; folder and last
    // suffix of the argument do not count, case does. Empty if there is none.
    QString searchSameName(const QString& fileOrName) const;

private:
    struct State;
    std::shared_ptr<State> m_pState; // shared with the detached scans
};
