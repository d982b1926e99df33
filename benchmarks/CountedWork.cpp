#include "benchmarks/CountedWork.h"

#include "benchmarks/PaintedWindow.h"
#include "benchmarks/Rows.h"
#include "benchmarks/Stage.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <QMainWindow>
#include <QScrollBar>
#include <QTreeView>

#include <array>

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#else
#define CALLGRIND_START_INSTRUMENTATION qFatal("valgrind's headers were not there when this was built: build anew")
#define CALLGRIND_STOP_INSTRUMENTATION
#endif

namespace {

template<typename Function>
void count(Function work)
{
    CALLGRIND_START_INSTRUMENTATION;
    work();
    CALLGRIND_STOP_INSTRUMENTATION;
}

// From nothing to the first painted page. What Qt and the fonts need for any window is there before.
void start(const QString& /*files*/)
{
    QMainWindow plain;
    plain.show();
    paintNow(&plain);
    QMainWindow window;
    count([&] {
        window.setCentralWidget(settingArea().widget());
        settingArea().setSettings(SSettings());
        window.resize(1280, 800);
        window.show();
        paintNow(&window);
    });
    window.takeCentralWidget()->hide();
}

void coldScan(const QString& files)
{
    settingArea();
    const QString folder = LibraryFiles{2'000, 40, 2'000, 60'000}.path(files);
    CTypeLibrary library;
    library.setRootPath(QString());
    count([&] { library.setRootPath(folder); });
}

void rescan(const QString& files)
{
    settingArea();
    CTypeLibrary library;
    library.setRootPath(lightLibrary(10'000).path(files));
    count([&] { library.updateLibrary(); });
}

// A step down in the tree, with a group open.
void repaint(const QString& files)
{
    const LibraryFiles light = lightLibrary(10'000);
    settingArea().setTypeLibraryPath(light.path(files));
    QMainWindow window;
    window.setCentralWidget(settingArea().widget());
    settingArea().setCurrentTab(1);
    window.resize(1280, 800);
    window.show();
    auto* const tree = window.findChild<QTreeView*>(QStringLiteral("TypeLibrary"));
    waitForRows(*tree->model(), tree->rootIndex(), light.groups);
    const QPersistentModelIndex group = tree->model()->index(0, 0, tree->rootIndex());
    tree->expand(group);
    waitForRows(*tree->model(), group, light.types / light.groups);
    for (int i = 0; i < 3; ++i) {
        tree->verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepAdd);
        paintNow(tree->viewport());
    }
    tree->verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepAdd);
    count([&] { paintNow(tree->viewport()); });
    window.takeCentralWidget()->hide();
}

struct Work
{
    const char* name;
    void (*run)(const QString& files);
};

constexpr std::array works{
    Work{"start", start},
    Work{"cold-scan", coldScan},
    Work{"rescan", rescan},
    Work{"repaint", repaint},
};

} // namespace

void runCountedWork(const QString& name, const QString& files)
{
    for (const Work& work : works) {
        if (name == QLatin1String(work.name))
            return work.run(files);
    }
    qFatal("There is no work %s", qPrintable(name));
}
