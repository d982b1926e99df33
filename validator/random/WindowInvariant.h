#pragma once

#include <QString>

class QWidget;

// Whether each window that is open has an owner. [GUI thread]
class WindowInvariant
{
public:
    // The first dialog or menu that is visible and belongs to no docked area, in words; empty when there is none.
    // `mayHaveDialogs` is false when all of them must be closed.
    static QString difference(const QWidget& area, bool mayHaveDialogs);
};
