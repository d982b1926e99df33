#pragma once

#include "tests/multircv/WizardLibrary.h"
#include "tests/support/TestObject.h"

#include <memory>

// Base of the tests of the whole wizard: each test function starts with a library that holds one parameter file.
class WizardFixture : public TestObject
{
    Q_OBJECT

protected:
    // Adds a multi-receiver type that was made from the parameter file, and its record; its path.
    QString addType(const QString& relative, const QString& parameterFile, const SHwRcvInCabinetInfo& label);

    // The record of a type of 2 x 2 receivers with every value set.
    static SHwRcvInCabinetInfo label();

    // The records that the host was told to write so far.
    QStringList writes() const;

    static bool libraryHas(const QString& name);

    std::unique_ptr<WizardLibrary> m_pLibrary;
    QString m_card; // a parameter file at the library's root

protected Q_SLOTS:
    void init();
    void cleanup();
};
