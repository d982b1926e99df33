#pragma once

#include "multircv/CMultiRcvCabinetSetSecondPage.h"
#include "multircv/CabinetWiringWidget.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QImage>
#include <QLabel>
#include <QToolButton>

#include <algorithm>

using Ids = QList<int>;

// The record of a stored type.
inline SHwRcvInCabinetInfo makeRecord(int columns, int rows, const std::array<std::uint8_t, 10>& wiring,
                                      bool specifyOrientation = false)
{
    SHwRcvInCabinetInfo record;
    std::fill_n(record.md5.data, 32, 'a');
    record.columns = static_cast<std::uint8_t>(columns);
    record.rows = static_cast<std::uint8_t>(rows);
    record.wiringOrder = wiring;
    record.specifyOrientation = specifyOrientation;
    return record;
}

// The page and its controls.
struct SecondPage : CMultiRcvCabinetSetSecondPage
{
    explicit SecondPage(const SHwRcvInCabinetInfo& record = {})
        : CMultiRcvCabinetSetSecondPage(record)
    {
    }

    QCheckBox* orientation = findChild<QCheckBox*>();
    QButtonGroup* group = findChild<QButtonGroup*>();
    CabinetWiringWidget* grid = findChild<CabinetWiringWidget*>();
    QLabel* hint = findChild<QLabel*>();

    QToolButton* button(int id) const { return qobject_cast<QToolButton*>(group->button(id)); }

    Ids shownButtons() const
    {
        Ids ids;
        for (int id = 0; id < 13; ++id) {
            if (!button(id)->isHidden())
                ids.append(id);
        }
        return ids;
    }

    bool canClear() const { return button(0)->isEnabled(); }

    // Whether the grid shows arrows: they cover more of it than lines do.
    bool showsDirection() const
    {
        QImage shown(grid->size(), QImage::Format_RGB32);
        grid->render(&shown);
        CabinetWiringWidget other;
        const QSize size = gridSize;
        other.setGridSize(size.width(), size.height());
        other.setWiring(grid->wiring());
        QImage plain(grid->size(), QImage::Format_RGB32);
        other.render(&plain);
        other.setShowDirection(true);
        QImage directed(grid->size(), QImage::Format_RGB32);
        other.render(&directed);
        if (plain == directed || (shown != plain && shown != directed))
            qFatal("The picture tells nothing about the arrows");
        return shown == directed;
    }

    void setSize(int columns, int rows)
    {
        gridSize = QSize(columns, rows);
        setGridSize(gridSize);
    }

    QSize gridSize;
};

// What a grid of at least two columns and rows offers without orientation, and with it.
inline Ids plainButtons()
{
    return {0, 1, 2, 3, 4};
}

inline Ids directionButtons()
{
    return {0, 5, 6, 7, 8, 9, 10, 11, 12};
}
