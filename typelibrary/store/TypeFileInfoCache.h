#pragma once

#include "plugin/interface/SSettings.h"

#include <QHash>
#include <QString>

#include <cstdint>
#include <mutex>
#include <optional>

// What is known about one type file. A bit in `known` says for each attribute whether it has been computed.
struct TypeFileInfo
{
    using NodeType = SSettings::TypeLibrary::STreeNode::NodeType;

    enum Attribute : std::uint8_t
    {
        Type = 1,
        Digest = 2,
        Resolution = 4,
        Cabinet = 8, // list and flag, which come from one record
        Block = 16,
        All = 31,
    };

    NodeType nodeType = NodeType::None;
    SMD5 md5;
    QSize resolution;
    QList<int> cabinetList;
    bool cabinetFlag = false;
    std::array<std::int64_t, 4> cabinetBlock{};
    std::uint8_t known = 0;

    bool knows(std::uint8_t attributes) const { return (known & attributes) == attributes; }

    // Takes over the attributes that `other` knows.
    void merge(const TypeFileInfo& other);
};

// The attributes of type files by their path, process-wide, for the model, the wizard and every scan. A file that is
// changed in place keeps its old attributes until its path is removed, so whoever writes a type file removes it here.
// Thread-safe. The mutex guards all members and is held for map look-ups only, never while a file is read or the host
// is asked. The one instance is never destroyed: a scan may outlive the process's static objects.
class TypeFileInfoCache
{
public:
    static TypeFileInfoCache& instance();

    // What is known about the file; nothing if it was never asked about.
    TypeFileInfo find(const QString& path) const;

    // The same, and lets `path` share the memory of the cache's own copy of it.
    TypeFileInfo findAndShare(QString& path) const;

    void remove(const QString& path);

    // Removes every path below the folder, whether a file is there or not. Looks at each path of the cache once.
    void removeBelow(const QString& folder);

    // How often something was removed so far.
    std::uint64_t removals() const;

    // One computation of attributes. Begin it before the file is touched and commit the result: if the path was
    // removed in between, the result is older than the change that the removal announced and is not kept.
    class Computation
    {
    public:
        Computation(TypeFileInfoCache& cache, const QString& path);
        ~Computation();
        Q_DISABLE_COPY(Computation)

        void commit(const TypeFileInfo& info);

    private:
        TypeFileInfoCache& m_cache;
        const QString m_path;
        std::uint64_t m_begun; // m_removals when this computation began
    };

private:
    bool isRemovedSince(const QString& path, std::uint64_t begun) const;

    mutable std::mutex m_mutex;
    QHash<QString, TypeFileInfo> m_entries;
    std::uint64_t m_removals = 0;                 // number of removals so far
    QHash<QString, std::uint64_t> m_removed;      // by path, the last removal while a computation was under way
    QHash<QString, std::uint64_t> m_removedBelow; // the same by folder, which ends in a slash
    int m_underWay = 0;                           // computations begun and not ended
};
