// The start of a program with plain widgets, which knows nothing of the settings area and loads none of its libraries.
// Argument: when the process was started, for printStart().

#include "benchmarks/PaintedWindow.h"
#include "benchmarks/PlainPages.h"

#include <QApplication>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    auto* const pages = new PlainPages;
    printStart(
        pages, [pages](int tab) { pages->setCurrentIndex(tab); }, QCoreApplication::arguments().value(1));
    return 0;
}
