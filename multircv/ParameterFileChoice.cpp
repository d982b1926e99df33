#include "multircv/ParameterFileChoice.h"

#include "plugin/SettingHandler.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "typelibrary/store/CTypeLibrary.h"
#include "typelibrary/store/LibraryFiles.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QFileInfo>

namespace {

using STreeNode = SSettings::TypeLibrary::STreeNode;

bool isSingleType(const QString& file)
{
    if (!isTypeFile(QFileInfo(file)))
        return false;
    const auto host = settingHandler();
    return !host || !host->isMultiRcvCabinetFile(file);
}

QString firstWithDigest(const std::vector<STreeNode>& nodes, const SMD5& md5)
{
    for (const STreeNode& node : nodes) {
        if (node.nodeType == STreeNode::SingleRcv && node.md5 == md5)
            return node.path;
        const QString below = firstWithDigest(node.children, md5);
        if (!below.isEmpty())
            return below;
    }
    return {};
}

} // namespace

ParameterFileChoice::ParameterFileChoice(const QString& file, const QString& libraryFolder)
    : m_file(file),
      m_target(libraryFolder + QLatin1Char('/') + QFileInfo(file).fileName())
{
    if (!isSingleType(file)) {
        m_kind = Kind::Unfit;
        return;
    }
    // The tree does not know what was put into the folder since the last scan, by this very wizard for instance.
    const QString unscanned = QFileInfo::exists(m_target) ? m_target : QString();
    const CTypeLibrary& library = CTypeLibrary::instance();
    removeFromCache(file); // nothing tells the cache when a file outside of the library changes
    const SMD5 md5 = md5OfFile(file);
    if (!isEmpty(md5)) { // which would be found in any entry that is no type
        m_libraryFile = library.searchSameType(md5);
        if (m_libraryFile.isEmpty() && md5OfFile(unscanned) == md5)
            m_libraryFile = unscanned;
    }
    if (!m_libraryFile.isEmpty()) {
        m_kind = Kind::SameContent;
        return;
    }
    m_libraryFile = library.searchSameName(file);
    if (m_libraryFile.isEmpty())
        m_libraryFile = unscanned;
    if (!m_libraryFile.isEmpty())
        m_kind = Kind::SameName;
}

QString ParameterFileChoice::take() const
{
    switch (m_kind) {
    case Kind::Unfit:
        break;
    case Kind::SameContent:
        return m_libraryFile;
    case Kind::SameName: {
        if (isSameFile(m_file, m_libraryFile)) {
            removeFromCache(m_libraryFile);
            return m_libraryFile;
        }
        const QString target = QFileInfo(m_libraryFile).path() + QLatin1Char('/') + QFileInfo(m_file).fileName();
        // Of two files that differ in the suffix the one that has the chosen file's makes room.
        replaceInLibrary(m_file, QFileInfo::exists(target) ? target : m_libraryFile, target);
        return target;
    }
    case Kind::New:
        copyIntoLibrary(m_file, m_target);
        return m_target;
    }
    return {};
}

QString parameterFileWithDigest(const std::vector<STreeNode>& tree, const SMD5& md5)
{
    return isEmpty(md5) ? QString() : firstWithDigest(tree, md5);
}
