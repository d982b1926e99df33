#include "multircv/WiringGrid.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace {

struct Serpentine
{
    bool alongRows;    // the lines are rows, not columns
    bool fromLastLine; // starts at the bottom row or the right column
    bool fromLineEnd;  // the first line runs leftwards or upwards
};

constexpr std::array<Serpentine, WiringGrid::TopologyCount> serpentines{{
    {},                    // Clear
    {true, false, false},  // RightDown
    {true, false, true},   // LeftDown
    {false, false, false}, // DownRight
    {false, false, true},  // UpRight
    {true, false, false},  // RightDownDirection
    {true, false, true},   // LeftDownDirection
    {true, true, true},    // LeftUpDirection
    {true, true, false},   // RightUpDirection
    {false, false, false}, // DownRightDirection
    {false, true, false},  // DownLeftDirection
    {false, true, true},   // UpLeftDirection
    {false, false, true},  // UpRightDirection
}};

} // namespace

void WiringGrid::setGridSize(int columns, int rows, const QSize& area)
{
    m_columns = columns;
    m_rows = rows;
    m_cells.clear();
    if (rows < 1)
        return;

    // Single precision throughout: where a cell begins depends on it.
    const auto width = static_cast<float>(area.width());
    const auto height = static_cast<float>(area.height());
    const auto across = static_cast<float>(columns);
    const auto down = static_cast<float>(rows);
    const float side = columns > rows ? width / across : height / down;
    const float x0 = width * 0.5F - across * side * 0.5F;
    const float y0 = height * 0.5F - down * side * 0.5F;
    const QSize size(static_cast<int>(side), static_cast<int>(side));
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < columns; ++column) {
            const QPoint corner(static_cast<int>(static_cast<float>(column) * side + x0),
                                static_cast<int>(static_cast<float>(row) * side + y0));
            m_cells.append({QRect(corner, size), column * rows + row, unwired});
        }
    }
}

void WiringGrid::setTopology(int topology)
{
    if (topology < Clear || topology >= TopologyCount)
        return;
    const Serpentine& serpentine = serpentines[static_cast<std::size_t>(topology)];
    const int lines = serpentine.alongRows ? m_rows : m_columns;
    const int perLine = serpentine.alongRows ? m_columns : m_rows;
    for (int i = 0; i < m_cells.size(); ++i) {
        int line = serpentine.alongRows ? i / m_columns : i % m_columns;
        int step = serpentine.alongRows ? i % m_columns : i / m_columns;
        if (serpentine.fromLastLine)
            line = lines - 1 - line;
        const bool turned = line % 2 != 0;
        if (turned != serpentine.fromLineEnd)
            step = perLine - 1 - step;
        m_cells[i].signal = topology == Clear ? unwired : line * perLine + step;
    }
}

void WiringGrid::setWiring(const QList<int>& ids)
{
    for (Cell& cell : m_cells) {
        const int place = ids.lastIndexOf(cell.id);
        if (place >= 0)
            cell.signal = place;
    }
}

QList<int> WiringGrid::wiring() const
{
    QList<int> ids;
    const QVector<Cell> wired = wiredCells();
    for (const Cell& cell : wired)
        ids.append(cell.id);
    return ids;
}

QVector<QPoint> WiringGrid::path() const
{
    QVector<QPoint> centres;
    const QVector<Cell> wired = wiredCells();
    for (const Cell& cell : wired)
        centres.append(cell.box.center());
    return centres;
}

int WiringGrid::cellAt(const QPoint& point) const
{
    const auto found =
        std::find_if(m_cells.cbegin(), m_cells.cend(), [&point](const Cell& cell) { return cell.box.contains(point); });
    return found == m_cells.cend() ? -1 : static_cast<int>(found - m_cells.cbegin());
}

bool WiringGrid::wire(int cell)
{
    if (m_cells.at(cell).signal != unwired)
        return false;
    m_cells[cell].signal = lastSignal() + 1;
    return true;
}

bool WiringGrid::unwire(int cell)
{
    if (m_cells.at(cell).signal == unwired)
        return false;
    m_cells[cell].signal = unwired;
    return true;
}

QVector<WiringGrid::Cell> WiringGrid::wiredCells() const
{
    QVector<Cell> wired;
    std::copy_if(m_cells.cbegin(), m_cells.cend(), std::back_inserter(wired),
                 [](const Cell& cell) { return cell.signal != unwired; });
    std::stable_sort(wired.begin(), wired.end(), [](const Cell& a, const Cell& b) { return a.signal < b.signal; });
    return wired;
}

int WiringGrid::lastSignal() const
{
    int last = unwired;
    for (const Cell& cell : m_cells)
        last = std::max(last, cell.signal);
    return last;
}
