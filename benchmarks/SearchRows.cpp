#include "benchmarks/Rows.h"
#include "benchmarks/Stage.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <random>

namespace {

constexpr int searchCount = 10'000; // by name, and as many by digest

// A library and what is looked for in it: types that it has, in no order.
class Searches
{
public:
    explicit Searches(const QString& folder)
    {
        m_library.setRootPath(folder);
        collect(m_library.nodes());
        if (m_names.empty())
            qFatal("No types in %s", qPrintable(folder));
    }

    double run() const
    {
        std::mt19937 random(1);
        std::vector<std::size_t> order(searchCount);
        for (std::size_t& index : order)
            index = random() % m_names.size();
        int found = 0;
        const double seconds = secondsOf([&] {
            for (const std::size_t index : order)
                found += m_library.searchSameName(m_names[index]).isEmpty() ? 0 : 1;
            for (const std::size_t index : order)
                found += m_library.searchSameType(m_digests[index]).isEmpty() ? 0 : 1;
        });
        if (found != 2 * searchCount)
            qFatal("Only %d of %d types were found", found, 2 * searchCount);
        return seconds;
    }

private:
    void collect(const std::vector<CTypeLibrary::STreeNode>& nodes)
    {
        for (const auto& node : nodes) {
            if (node.children.empty()) {
                m_names.push_back(node.name);
                m_digests.push_back(node.md5);
            }
            collect(node.children);
        }
    }

    CTypeLibrary m_library;
    std::vector<QString> m_names;
    std::vector<SMD5> m_digests;
};

} // namespace

std::vector<Measurement> measureSearches(const BenchOptions& options)
{
    settingArea();
    const Searches usual(lightLibrary(options.types(10'000)).path(options.files));
    const Searches large(lightLibrary(options.types(100'000)).path(options.files));

    Measurement time(QStringLiteral("10,000 searches by name and by digest"), Measurement::Value, 0.02);
    Measurement growth(QStringLiteral("the same in 100,000 types, beside 10,000 types"), Measurement::Ratio, 2);
    measureByTurns(
        options.repeat, growth, [&] { return large.run(); }, [&] { return usual.run(); });
    time.ours = growth.peer;
    return {time, growth};
}
