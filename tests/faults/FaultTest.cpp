#include "tests/faults/FaultTest.h"

#include "host/CHostHandler.h"
#include "plugin/CSettingArea.h"
#include "tests/faults/ChildProcess.h"
#include "tests/faults/FaultRuns.h"
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

void FaultTest::addWrites() const
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < m_writes.size(); ++i)
        QTest::newRow(m_writes.at(i).name.constData()) << i;
}

const Write& FaultTest::write() const
{
    return m_writes.at(*static_cast<const int*>(QTest::qData("index", qMetaTypeId<int>())));
}

void FaultTest::verify(Fault fault) const
{
    const QString problem = fault(write(), m_folder->path(), runs());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
}

void FaultTest::fileSizeLimit()
{
    verify(&FaultRuns::fileSizeLimit);
}

void FaultTest::fullDisk()
{
    if (!PrivateDisk::isAvailable())
        QSKIP("This system does not let a test mount a disk of its own");
    verify(&FaultRuns::fullDisk);
}

void FaultTest::readOnlyDisk()
{
    if (!PrivateDisk::isAvailable())
        QSKIP("This system does not let a test mount a disk of its own");
    verify(&FaultRuns::readOnlyDisk);
}

void FaultTest::vanishedFolder()
{
    verify(&FaultRuns::vanishedFolder);
}

void FaultTest::vanishingFolder()
{
    if (write().mayAsk)
        QSKIP("The steps are done by path, and Qt asks with a box of its own when the path changes in between");
    verify(&FaultRuns::vanishingFolder);
}

void FaultTest::kill()
{
    int torn = 0;
    const QString problem = FaultRuns::kill(write(), m_folder->path(), runs(), torn);
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    qInfo("%d of %d kills left temporary files", torn, runs());
}

void FaultTest::namedTemporaries()
{
    if (!PrivateDisk::isAvailable())
        QSKIP("This system does not let a test mount a disk of its own");
    int torn = 0;
    const QString problem = FaultRuns::namedTemporaries(write(), m_folder->path(), runs(), torn);
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    qInfo("%d of %d kills left temporary files", torn, runs());
}
