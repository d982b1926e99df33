#pragma once

#include "plugin/interface/SSettings.h"
#include "tests/support/FakeHandler.h"

#include <QTemporaryDir>

#include <array>
#include <atomic>

// A library whose files are replaced again and again, each time with the next version of its content. Both the digest
// and the host's answers tell the version. For any number of threads, of which one changes.
class VersionedLibrary
{
public:
    static constexpr int groups = 4;
    static constexpr int filesPerGroup = 6;
    static constexpr int files = groups * filesPerGroup;

    using Versions = std::array<int, files>;

    VersionedLibrary();

    QString root() const { return m_folder.path(); }
    QString path(int file) const { return m_paths.at(std::size_t(file)); }
    QString group(int file) const { return root() + QLatin1Char('/') + QString::number(file % groups); }

    // Replaces the file by its next version and has the store forget it, by its path or with its folder.
    void change(int file, bool wholeFolder);

    // The versions that nobody may fall behind who asks from now on.
    Versions forgotten() const;

    // What is wrong with what was computed for a file, if before that `forgotten` was its version; empty if nothing.
    QString problemOfDigest(int file, const SMD5& md5, int forgotten) const;
    QString problemOfVersion(int file, int version, int forgotten) const;
    // The same for all types of a tree, which must hold every file.
    QString problemOfTree(const std::vector<SSettings::TypeLibrary::STreeNode>& nodes, const Versions& forgotten) const;

    // A host that reads the version out of the file: it is the width of the cabinet.
    static ISettingInterfaceHandler* newHandler();

private:
    QString problemOfNodes(const std::vector<SSettings::TypeLibrary::STreeNode>& nodes, const Versions& forgotten,
                           int& found) const;

    const QTemporaryDir m_folder;
    std::array<QString, files> m_paths;
    std::array<std::atomic<int>, files> m_written{};   // versions that the disk may have
    std::array<std::atomic<int>, files> m_forgotten{}; // versions before which nothing is remembered
};
