#include "benchmarks/PaintedWindow.h"
#include "benchmarks/Rows.h"
#include "benchmarks/Stage.h"
#include "typelibrary/CProductTreeView.h"

#include <QCoreApplication>
#include <QFileSystemModel>
#include <QScrollBar>

namespace {

constexpr int openGroups = 40;
constexpr int frames = 300; // scrolled by a row each

struct Times
{
    double firstPaint = 0;
    Samples frames;
};

// `open` shows the library in the view; `view` has its model by then.
template<typename Open>
Times timesOf(QTreeView& view, const LibraryFiles& files, Open open)
{
    view.resize(1000, 700);
    view.show();
    paintNow(&view);
    Times times;
    times.firstPaint = secondsOf([&] {
        open();
        waitForRows(*view.model(), view.rootIndex(), files.groups);
        paintNow(&view);
    });
    const QAbstractItemModel& model = *view.model();
    for (int group = 0; group < std::min(openGroups, files.groups); ++group) {
        const QPersistentModelIndex index = model.index(group, 0, view.rootIndex());
        view.expand(index);
        waitForRows(model, index, files.types / files.groups);
    }
    paintNow(&view);
    for (int i = 0; i < frames; ++i) {
        times.frames.add(secondsOf([&] {
            view.verticalScrollBar()->triggerAction(QScrollBar::SliderSingleStepAdd);
            paintNow(view.viewport());
        }));
    }
    return times;
}

Times timesOfOurs(const QString& folder, const LibraryFiles& files)
{
    CProductTreeView view;
    return timesOf(view, files, [&] { view.setRootPath(folder); });
}

Times timesOfStock(const QString& folder, const LibraryFiles& files)
{
    QFileSystemModel model;
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setModel(&model);
    return timesOf(view, files, [&] { view.setRootIndex(model.setRootPath(folder)); });
}

} // namespace

std::vector<Measurement> measureTree(const BenchOptions& options)
{
    const LibraryFiles files = lightLibrary(options.types(100'000));
    const QString folder = files.path(options.files);
    settingArea().setTypeLibraryPath(folder);

    Measurement first(QStringLiteral("first paint of the tree of 100,000 types in 400 groups, beside QTreeView"));
    Measurement usual(QStringLiteral("- a scrolled frame with 40 groups open, median"));
    Measurement rare(QStringLiteral("- 99th percentile"), Measurement::Value, 0.016);
    for (int i = 0; i < options.repeat; ++i) {
        const Times ours = timesOfOurs(folder, files);
        const Times stock = timesOfStock(folder, files);
        first.add(ours.firstPaint, stock.firstPaint);
        usual.add(ours.frames.median(), stock.frames.median());
        rare.add(ours.frames.percentile(0.99), stock.frames.percentile(0.99));
    }
    settingArea().setTypeLibraryPath({});
    return {first, usual, rare};
}
