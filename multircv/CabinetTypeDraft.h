#pragma once

#include "multircv/CabinetRecord.h"

#include <QString>

// The type that the wizard makes or edits: where it goes, what it was before, and how it is saved. [GUI thread]
class CabinetTypeDraft
{
public:
    // `folder` is where the type is saved; `editedFile` the type file that is edited, empty for a new type. The record
    // of an edited type is read through the host; it stays a new one when it cannot be read.
    CabinetTypeDraft(const QString& folder, const QString& editedFile);

    const SHwRcvInCabinetInfo& record() const { return m_record; }

    // The name of the edited type; empty for a new one.
    QString ownName() const;

    // Whether another type has the name, anywhere in the library.
    bool isNameTaken(const QString& name) const;

    // Whether saving under the name deletes the edited file.
    bool replacesOldFile(const QString& name) const;

    // Without a host nobody writes records, and without a folder there is no place for the file.
    bool canBeSaved() const;

    // Copies the parameter file, in place of the edited file where that is replaced, and has the host write the record
    // into the copy. Where the copy fails, all files stay as they are.
    void save(const QString& parameterFile, const CabinetEdit& edit);

private:
    QString fileOf(const QString& name) const;

    const QString m_folder;
    const QString m_editedFile;
    SHwRcvInCabinetInfo m_record;
};
