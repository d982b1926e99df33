#include "tests/faults/FaultTest.h"

#include "host/CHostHandler.h"
#include "plugin/CSettingArea.h"
#include "tests/faults/ChildProcess.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <algorithm>

namespace {

// How often each fault happens to each write: enough for every build, and FAULT_RUNS in the environment for more.
int runs()
{
    constexpr int fewRuns = 20;
    return std::max(fewRuns, qEnvironmentVariableIntValue("FAULT_RUNS"));
}

} // namespace

FaultTest::FaultTest(const QList<Write>& writes)
    : m_writes(writes)
{
}

void FaultTest::initTestCase()
{
    CSettingArea::instance().setHandler(new CHostHandler(nullptr, nullptr, {}));
}

void FaultTest::cleanupTestCase()
{
    CTypeLibrary::instance().setRootPath({});
    CSettingArea::instance().setHandler(nullptr);
}

void FaultTest::init()
{
    TestObject::init();
    // In memory where there is such a disk: what waits for a real one takes most of the time otherwise.
    const QString memory = QStringLiteral("/dev/shm/fault-XXXXXX");
    m_folder = std::make_unique<QTemporaryDir>(memory);
    if (!m_folder->isValid())
        m_folder = std::make_unique<QTemporaryDir>();
}

void FaultTest::fault_data() const
{
    QTest::addColumn<int>("faultIndex");
    QTest::addColumn<int>("writeIndex");
    for (int i = 0; i < m_faults.size(); ++i) {
        for (int j = 0; j < m_writes.size(); ++j) {
            if (m_faults.at(i).concerns(m_writes.at(j)))
                QTest::addRow("%s: %s", m_faults.at(i).name, m_writes.at(j).name.constData()) << i << j;
        }
    }
}

void FaultTest::fault()
{
    QFETCH(int, faultIndex);
    QFETCH(int, writeIndex);
    const Fault& fault = m_faults.at(faultIndex);
    if (fault.needsMounts && !PrivateDisk::isAvailable())
        QSKIP("This system does not let a test mount a disk of its own");
    const QString problem = fault.befall(m_writes.at(writeIndex), m_folder->path(), runs());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}
