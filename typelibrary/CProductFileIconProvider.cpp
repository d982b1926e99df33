#include "typelibrary/CProductFileIconProvider.h"

#include "typelibrary/store/TypeFileAttributes.h"

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
        return m_group;
    const bool isMulti = isTypeFile(info) && typeFileInfo(info.filePath(), TypeFileInfo::Type).nodeType ==
                                                 SSettings::TypeLibrary::STreeNode::MultiRcv;
    return isMulti ? m_multi : m_single;
}
