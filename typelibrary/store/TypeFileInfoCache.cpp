#include "typelibrary/store/TypeFileInfoCache.h"

void TypeFileInfo::merge(const TypeFileInfo& other)
{
    if (other.knows(Type))
        nodeType = other.nodeType;
    if (other.knows(Digest))
        md5 = other.md5;
    if (other.knows(Resolution))
        resolution = other.resolution;
    if (other.knows(Cabinet)) {
        cabinetList = other.cabinetList;
        cabinetFlag = other.cabinetFlag;
    }
    if (other.knows(Block))
        cabinetBlock = other.cabinetBlock;
    known = static_cast<std::uint8_t>(known | other.known);
}

TypeFileInfoCache& TypeFileInfoCache::instance()
{
    static auto* const cache = new TypeFileInfoCache;
    return *cache;
}

TypeFileInfo TypeFileInfoCache::find(const QString& path) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_entries.value(path);
}

TypeFileInfo TypeFileInfoCache::findAndShare(QString& path) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const auto found = m_entries.constFind(path);
    if (found == m_entries.cend())
        return {};
    path = found.key();
    return *found;
}

void TypeFileInfoCache::remove(const QString& path)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_entries.remove(path);
    ++m_removals;
    if (m_underWay > 0)
        m_removed[path] = m_removals;
}

void TypeFileInfoCache::removeBelow(const QString& folder)
{
    const QString prefix = folder + QLatin1Char('/');
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (auto it = m_entries.begin(); it != m_entries.end();)
        it = it.key().startsWith(prefix) ? m_entries.erase(it) : std::next(it);
    ++m_removals;
    if (m_underWay > 0)
        m_removedBelow[prefix] = m_removals;
}

std::uint64_t TypeFileInfoCache::removals() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_removals;
}

bool TypeFileInfoCache::isRemovedSince(const QString& path, std::uint64_t begun) const
{
    if (m_removed.value(path, 0) > begun)
        return true;
    for (auto it = m_removedBelow.cbegin(); it != m_removedBelow.cend(); ++it) {
        if (it.value() > begun && path.startsWith(it.key()))
            return true;
    }
    return false;
}

TypeFileInfoCache::Computation::Computation(TypeFileInfoCache& cache, const QString& path)
    : m_cache(cache),
      m_path(path)
{
    const std::lock_guard<std::mutex> lock(m_cache.m_mutex);
    m_begun = m_cache.m_removals;
    ++m_cache.m_underWay;
}

TypeFileInfoCache::Computation::~Computation()
{
    const std::lock_guard<std::mutex> lock(m_cache.m_mutex);
    if (--m_cache.m_underWay == 0) {
        m_cache.m_removed.clear();
        m_cache.m_removedBelow.clear();
    }
}

void TypeFileInfoCache::Computation::commit(const TypeFileInfo& info)
{
    const std::lock_guard<std::mutex> lock(m_cache.m_mutex);
    if (!m_cache.isRemovedSince(m_path, m_begun))
        m_cache.m_entries[m_path].merge(info);
}
