#include "tests/faults/FaultTest.h"

#include <QApplication>

// What the plug-in writes: imports, exports, the wizard's types and changes in the tree.
class tst_LibraryFaults : public FaultTest
{
    Q_OBJECT

public:
    tst_LibraryFaults()
        : FaultTest(libraryWrites() + wizardWrites() + treeWrites())
    {
    }
};

SETTINGAREA_TEST_MAIN(tst_LibraryFaults, QApplication)
#include "tst_LibraryFaults.moc"
