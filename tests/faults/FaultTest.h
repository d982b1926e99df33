#pragma once

#include "tests/faults/Write.h"
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

    void fileSizeLimit_data() { addWrites(); }
    void fileSizeLimit();
    void fullDisk_data() { addWrites(); }
    void fullDisk();
    void readOnlyDisk_data() { addWrites(); }
    void readOnlyDisk();
    void vanishedFolder_data() { addWrites(); }
    void vanishedFolder();
    void vanishingFolder_data() { addWrites(); }
    void vanishingFolder();
    void kill_data() { addWrites(); }
    void kill();
    void namedTemporaries_data() { addWrites(); }
    void namedTemporaries();

private:
    using Fault = QString (*)(const Write& write, const QString& folder, int runs);

    void addWrites() const;
    void verify(Fault fault) const;
    const Write& write() const;

    const QList<Write> m_writes;
    std::unique_ptr<QTemporaryDir> m_folder;
};
