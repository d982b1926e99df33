#pragma once

#include <QString>

#include <optional>
#include <vector>

// One language and scale of the tour.
struct TourPass
{
    static std::vector<TourPass> all();

    // The pass with the name; nothing when there is none.
    static std::optional<TourPass> named(const QString& name);

    // For instance "en-2x": also the name of the folder its pictures are in.
    QString name() const;

    QString language; // name of a locale
    int scale = 1;    // device pixels to a logical one
};
