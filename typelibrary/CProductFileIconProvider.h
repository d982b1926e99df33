#pragma once

#include "plugin/interface/SSettings.h"

#include <QFileIconProvider>
#include <QIcon>

// Icons of the type library's tree: groups, multi-receiver types and all other types. QFileSystemModel asks once for
// each file, on the GUI thread.
class CProductFileIconProvider : public QFileIconProvider
{
public:
    CProductFileIconProvider();

    QIcon icon(IconType type) const override;
    QIcon icon(const QFileInfo& info) const override;

    QIcon iconOf(SSettings::TypeLibrary::STreeNode::NodeType type) const;

private:
    // Shared by all rows, so that an icon's pixmaps are rendered once.
    const QIcon m_group;
    const QIcon m_multi;
    const QIcon m_single;
};
