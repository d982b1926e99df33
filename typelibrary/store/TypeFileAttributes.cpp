#include "typelibrary/store/TypeFileAttributes.h"

#include "plugin/SettingHandler.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "plugin/interface/SHwRcvInCabinetInfo.h"

#include <utilbase/Utils.h>

#include <algorithm>

namespace {

using NodeType = SSettings::TypeLibrary::STreeNode::NodeType;

void askHost(const QString& path, std::uint8_t attributes, ISettingInterfaceHandler& host, TypeFileInfo& info)
{
    if (attributes & TypeFileInfo::Type)
        info.nodeType = host.isMultiRcvCabinetFile(path) ? NodeType::MultiRcv : NodeType::SingleRcv;
    if (attributes & TypeFileInfo::Cabinet) {
        SHwRcvInCabinetInfo cabinet;
        host.readCabinetInfo(path, cabinet);
        const auto cells =
            std::min<std::size_t>(std::size_t{cabinet.columns} * cabinet.rows, cabinet.wiringOrder.size());
        info.cabinetList.reserve(static_cast<int>(cells));
        for (std::size_t k = 0; k < cells; ++k)
            info.cabinetList.append(cabinet.wiringOrder[k]);
        info.cabinetFlag = cabinet.specifyOrientation;
    }
    if (attributes & TypeFileInfo::Resolution)
        host.queryCabinetResolution(path, info.resolution.rwidth(), info.resolution.rheight());
    if (attributes & TypeFileInfo::Block)
        info.cabinetBlock = host.queryCabinetBlock(path);
}

TypeFileInfo infoOfFile(const QString& path, TypeFileInfo::Attribute attribute)
{
    return isTypeFile(QFileInfo(path)) ? typeFileInfo(path, attribute) : TypeFileInfo{};
}

} // namespace

bool hasTypeSuffix(const QFileInfo& file)
{
    const QString suffix = file.suffix();
    return suffix == QLatin1String("rcvp") || suffix == QLatin1String("rcvbp");
}

bool isTypeFile(const QFileInfo& file)
{
    return hasTypeSuffix(file) && file.isFile();
}

TypeFileInfo typeFileInfo(const QString& path, std::uint8_t attributes)
{
    TypeFileInfoCache& cache = TypeFileInfoCache::instance();
    TypeFileInfo info = cache.find(path);
    const auto missing = static_cast<std::uint8_t>(attributes & ~info.known);
    if (missing == 0)
        return info;

    TypeFileInfoCache::Computation computation(cache, path);
    TypeFileInfo computed;
    const auto hostsShare = static_cast<std::uint8_t>(missing & ~TypeFileInfo::Digest);
    if (hostsShare != 0) {
        if (const auto host = settingHandler()) {
            askHost(path, hostsShare, *host, computed);
            computed.known = hostsShare;
        } else if (hostsShare & TypeFileInfo::Type) {
            info.nodeType = NodeType::SingleRcv;
        }
    }
    if (missing & TypeFileInfo::Digest) {
        computed.md5 = Utils::getFileMD5(path);
        computed.known = static_cast<std::uint8_t>(computed.known | TypeFileInfo::Digest);
    }
    // What was found out about a file that is gone must not meet another one that appears under its name. A file with
    // a digest was there after the host had been asked, which saves another look at the disk.
    if (!isEmpty(computed.md5) || QFileInfo::exists(path))
        computation.commit(computed);
    info.merge(computed);
    return info;
}

NodeType typeOfFile(const QString& path)
{
    return infoOfFile(path, TypeFileInfo::Type).nodeType;
}

SMD5 md5OfFile(const QString& path)
{
    return infoOfFile(path, TypeFileInfo::Digest).md5;
}

QSize resolutionOfFile(const QString& path)
{
    return infoOfFile(path, TypeFileInfo::Resolution).resolution;
}

QList<int> cabinetListOfFile(const QString& path)
{
    return infoOfFile(path, TypeFileInfo::Cabinet).cabinetList;
}

bool cabinetFlagOfFile(const QString& path)
{
    return infoOfFile(path, TypeFileInfo::Cabinet).cabinetFlag;
}

std::array<std::int64_t, 4> cabinetBlockOfFile(const QString& path)
{
    return infoOfFile(path, TypeFileInfo::Block).cabinetBlock;
}

void removeFromCache(const QString& path)
{
    TypeFileInfoCache::instance().remove(path);
}

void removeFolderFromCache(const QString& folder)
{
    TypeFileInfoCache::instance().removeBelow(folder);
}
