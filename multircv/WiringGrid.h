#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QVector>

// The receivers of a cabinet as a grid of cells, and the order in which the data signal passes through them.
class WiringGrid
{
public:
    static constexpr int unwired = -1;

    struct Cell
    {
        QRect box;            // pixels
        int id = 0;           // ids run down each column first: column * rows + row
        int signal = unwired; // the cells of the path carry ascending numbers, which may have gaps
    };

    // Serpentines are named after the way that they run along the first line, and the way to the next line. Those with
    // orientation are made for arrows; the first, second, fifth and eighth of them number as the four without do.
    enum Topology
    {
        Clear,
        RightDown,
        LeftDown,
        DownRight,
        UpRight,
        RightDownDirection,
        LeftDownDirection,
        LeftUpDirection,
        RightUpDirection,
        DownRightDirection,
        DownLeftDirection,
        UpLeftDirection,
        UpRightDirection,
        TopologyCount
    };

    // Lays out fresh, unwired square cells in the middle of an area of that many pixels. A grid with more columns than
    // rows is as wide as the area, and may be higher; every other one is as high. Without a row there is no cell.
    void setGridSize(int columns, int rows, const QSize& area);

    int columns() const { return m_columns; }
    int rows() const { return m_rows; }

    // Row by row from the top, each from the left. The functions below take a place in this list.
    const QVector<Cell>& cells() const { return m_cells; }

    // Wires all cells along the serpentine, or none for Clear. Any other number changes nothing.
    void setTopology(int topology);

    // Numbers every cell that the list names by its place there, the last if it has several. Other cells keep theirs.
    void setWiring(const QList<int>& ids);

    // The ids of the wired cells in signal order.
    QList<int> wiring() const;

    // The centres of the wired cells in signal order.
    QVector<QPoint> path() const;

    bool hasWiredCell() const { return lastSignal() != unwired; }

    // Whether there is more than one way to wire the grid: only then it is up to the user, cell by cell.
    bool hasChoice() const { return m_columns > 1 && m_rows > 1; }

    // The first cell that contains the point, or -1.
    int cellAt(const QPoint& point) const;

    // Wires an unwired cell behind the last one of the path. False if nothing changed.
    bool wire(int cell);

    // Takes a wired cell out of the path; the others keep their numbers. False if nothing changed.
    bool unwire(int cell);

private:
    QVector<Cell> wiredCells() const;
    int lastSignal() const;

    int m_columns = 0;
    int m_rows = 0;
    QVector<Cell> m_cells;
};
