#include "tests/faults/FaultTest.h"

#include <QApplication>

// Settings, projects, type files and the sample library.
class tst_HostFaults : public FaultTest
{
    Q_OBJECT

public:
    tst_HostFaults()
        : FaultTest(hostWrites())
    {
    }
};

SETTINGAREA_TEST_MAIN(tst_HostFaults, QApplication)
#include "tst_HostFaults.moc"
