#include "typelibrary/CProductFileIconProvider.h"

#include "typelibrary/store/TypeFileAttributes.h"

using NodeType = SSettings::TypeLibrary::STreeNode::NodeType;

CProductFileIconProvider::CProductFileIconProvider()
    : m_group(QStringLiteral(":/Image/SettingArea/TypeLibrary/group-folder.svg")),
      m_multi(QStringLiteral(":/Image/SettingArea/TypeLibrary/product-multi.svg")),
      m_single(QStringLiteral(":/Image/SettingArea/TypeLibrary/product-single.svg"))
{
}

QIcon CProductFileIconProvider::icon(IconType type) const
{
    return type == Folder ? m_group : QFileIconProvider::icon(type);
}

QIcon CProductFileIconProvider::icon(const QFileInfo& info) const
{
    if (info.isDir())
        return iconOf(NodeType::Group);
    return iconOf(isTypeFile(info) ? typeFileInfo(info.filePath(), TypeFileInfo::Type).nodeType : NodeType::None);
}

QIcon CProductFileIconProvider::iconOf(NodeType type) const
{
    switch (type) {
    case NodeType::Group:
        return m_group;
    case NodeType::MultiRcv:
        return m_multi;
    case NodeType::None:
    case NodeType::SingleRcv:
        break;
    }
    return m_single;
}
