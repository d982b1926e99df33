#pragma once

#include "plugin/interface/SHwRcvInCabinetInfo.h"

#include <QList>
#include <QSize>
#include <QString>

// What the wizard's pages hold when the user finishes.
struct CabinetEdit
{
    QSize grid;                      // receivers: columns x rows
    bool specifyOrientation = false; // the wiring was made with orientation
    QList<int> wiring;               // cell ids in signal order
    QString typeName;
    double weight = 0;     // kilograms
    double power = 0;      // watts
    double voltageMin = 0; // volts
    double voltageMax = 0; // volts
};

// Whether the record describes no type yet: the wizard makes one instead of editing one.
bool isNew(const SHwRcvInCabinetInfo& record);

// Whether saving `edit` would write what the edited type's record holds already. A new record is never unchanged.
// The name compared is the one the record keeps, the parameter file's, with the type's: a type that is not called like
// its parameter file always counts as changed. The last entry of the wiring is not compared: it is the cell that the
// others leave over.
bool isUnchanged(const SHwRcvInCabinetInfo& record, const CabinetEdit& edit);

// Fills the record from the finished edit and the parameter file that the type is built from. Entries of the wiring
// beyond the grid's cells keep their values; the four label values are narrowed to float.
void fillRecord(SHwRcvInCabinetInfo& record, const QString& parameterFile, const SMD5& md5, const CabinetEdit& edit);
