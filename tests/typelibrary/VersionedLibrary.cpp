#include "tests/typelibrary/VersionedLibrary.h"

#include "tests/support/FileFixture.h"
#include "typelibrary/store/Md5.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QCryptographicHash>

#include <cstdio>

namespace {

// Long enough for a file to be replaced while it is hashed.
QByteArray contentOf(int file, int version)
{
    constexpr int size = 40'000;
    QByteArray content = QByteArray::number(version) + ' ' + QByteArray::number(file) + ' ';
    content.append(size - content.size(), 'x');
    return content;
}

bool isDigestOf(const SMD5& md5, const QByteArray& content)
{
    const QByteArray digest = QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex();
    return std::memcmp(md5.data, digest.constData(), md5Length) == 0;
}

class VersionHandler : public FakeHandler
{
    bool isMultiRcvCabinetFile(const QString& /*path*/) override { return false; }
    void readCabinetInfo(const QString& /*path*/, SHwRcvInCabinetInfo& /*info*/) override {}
    void queryCabinetResolution(const QString& path, int& width, int& height) override
    {
        const QList<QByteArray> words = readFile(path).split(' ');
        width = words.value(0).toInt();
        height = words.value(1).toInt();
    }
    std::array<std::int64_t, 4> queryCabinetBlock(const QString& /*path*/) override { return {}; }
};

} // namespace

VersionedLibrary::VersionedLibrary()
{
    for (int file = 0; file < files; ++file) {
        m_paths.at(std::size_t(file)) = group(file) + QStringLiteral("/%1.rcvp").arg(file);
        if (!writeFile(path(file), contentOf(file, 0)))
            qFatal("Cannot write %s", qPrintable(path(file)));
    }
}

void VersionedLibrary::change(int file, bool wholeFolder)
{
    const auto i = std::size_t(file);
    const int version = m_written.at(i) + 1;
    m_written.at(i) = version;
    const QString next = group(file) + QStringLiteral("/.next");
    if (!writeFile(next, contentOf(file, version)) ||
        std::rename(QFile::encodeName(next).constData(), QFile::encodeName(path(file)).constData()) != 0)
        qFatal("Cannot replace %s", qPrintable(path(file)));
    if (wholeFolder)
        removeFolderFromCache(group(file));
    else
        removeFromCache(path(file));
    m_forgotten.at(i) = version;
}

VersionedLibrary::Versions VersionedLibrary::forgotten() const
{
    Versions versions{};
    for (std::size_t i = 0; i < files; ++i)
        versions.at(i) = m_forgotten.at(i);
    return versions;
}

QString VersionedLibrary::problemOfDigest(int file, const SMD5& md5, int forgotten) const
{
    const int written = m_written.at(std::size_t(file));
    for (int version = written; version >= forgotten; --version) {
        if (isDigestOf(md5, contentOf(file, version)))
            return {};
    }
    return QStringLiteral("The digest of file %1 is not of a version from %2 to %3")
        .arg(file)
        .arg(forgotten)
        .arg(written);
}

QString VersionedLibrary::problemOfVersion(int file, int version, int forgotten) const
{
    const int written = m_written.at(std::size_t(file));
    if (version >= forgotten && version <= written)
        return {};
    return QStringLiteral("The host's answer for file %1 has version %2, not one from %3 to %4")
        .arg(file)
        .arg(version)
        .arg(forgotten)
        .arg(written);
}

QString VersionedLibrary::problemOfTree(const std::vector<SSettings::TypeLibrary::STreeNode>& nodes,
                                        const Versions& forgotten) const
{
    int found = 0;
    const QString problem = problemOfNodes(nodes, forgotten, found);
    return problem.isEmpty() && found != files ? QStringLiteral("%1 types of %2").arg(found).arg(files) : problem;
}

QString VersionedLibrary::problemOfNodes(const std::vector<SSettings::TypeLibrary::STreeNode>& nodes,
                                         const Versions& forgotten, int& found) const
{
    for (const auto& node : nodes) {
        QString problem;
        if (node.nodeType == SSettings::TypeLibrary::STreeNode::Group) {
            problem = problemOfNodes(node.children, forgotten, found);
        } else {
            ++found;
            const int file = node.name.toInt();
            const int from = forgotten.at(std::size_t(file));
            problem = problemOfDigest(file, node.md5, from);
            if (problem.isEmpty())
                problem = problemOfVersion(file, node.resolution.width(), from);
        }
        if (!problem.isEmpty())
            return QStringLiteral("In the tree: ") + problem;
    }
    return {};
}

ISettingInterfaceHandler* VersionedLibrary::newHandler()
{
    return new VersionHandler;
}
