#pragma once

#include "multircv/WiringGrid.h"

#include <QWidget>

// Shows how the receivers of a cabinet are wired, and lets the user wire a grid of at least two columns and two rows
// cell by cell: a left click appends a cell to the path, a right click takes it out. With the keyboard focus, arrow
// keys move a frame from cell to cell, Space or Return wires, Delete or Backspace unwires. [GUI thread]
class CabinetWiringWidget : public QWidget
{
    Q_OBJECT

public:
    // Starts with two unwired cells side by side.
    explicit CabinetWiringWidget(QWidget* parent = nullptr);

    // Lays out a fresh grid with every cell unwired, without a notification.
    void setGridSize(int columns, int rows);

    // Wires every cell along a WiringGrid::Topology, or none for Clear. Any other number only notifies.
    void setTopology(int topology);

    // Cell ids in signal order. A cell that occurs twice gets its later place, one that is absent keeps what it had.
    void setWiring(const QList<int>& ids);

    // The ids of the wired cells in signal order.
    QList<int> wiring() const { return m_grid.wiring(); }

    // Whether arrows on the path show the direction of the signal.
    void setShowDirection(bool show);

Q_SIGNALS:
    // The wiring was set or changed; true when at least one cell is wired.
    void notifyWiringCouldClear(bool couldClear);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void notify();
    bool moveCursor(int key);

    WiringGrid m_grid;
    bool m_bShowDirection = false;
    int m_cursor = 0; // the cell that keys wire
};
