#pragma once

#include "tests/faults/Fault.h"
#include "tests/support/TestObject.h"

#include <QTemporaryDir>

#include <memory>

// Base of the tests of writes under faults: every write of a list under every fault. The derived class is given to
// SETTINGAREA_TEST_MAIN.
class FaultTest : public TestObject
{
    Q_OBJECT

protected:
    explicit FaultTest(const QList<Write>& writes);

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();

    void fault_data() const;
    void fault();

private:
    const QList<Write> m_writes;
    const QList<Fault> m_faults = allFaults();
    std::unique_ptr<QTemporaryDir> m_folder;
};
