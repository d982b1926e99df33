#include "benchmarks/Rows.h"
#include "benchmarks/Stage.h"
#include "benchmarks/StallMeter.h"
#include "typelibrary/CProductTreeModel.h"
#include "typelibrary/store/LibraryScan.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QFileIconProvider>
#include <QScrollBar>
#include <QTreeView>

namespace {

constexpr int settleTime = 300; // milliseconds for what comes after the last file: sorting, icons, layout
constexpr int pages = 20;       // scrolled through for a repaint's time

// One icon for everything, at hand.
class TrivialIconProvider : public QFileIconProvider
{
public:
    TrivialIconProvider()
    {
        QPixmap pixmap(16, 16);
        pixmap.fill(Qt::gray);
        m_icon = QIcon(pixmap);
    }
    QIcon icon(IconType /*type*/) const override { return m_icon; }
    QIcon icon(const QFileInfo& /*info*/) const override { return m_icon; }

private:
    QIcon m_icon;
};

struct Times
{
    double total;
    double stall;
    double repaint;
};

// Shows the folder in a tree view, from setting the root until all its files are painted, and scrolls through it.
Times timesOf(QFileSystemModel& model, const QString& folder, int count)
{
    QTreeView view;
    view.setUniformRowHeights(true);
    view.resize(800, 600);
    view.setModel(&model);
    view.show();
    processEventsFor(settleTime);

    Times times{};
    StallMeter meter;
    times.total = secondsOf([&] {
        QEventLoop loop;
        QObject::connect(&model, &QFileSystemModel::directoryLoaded, &loop, [&](const QString& loaded) {
            if (loaded == folder)
                loop.quit();
        });
        view.setRootIndex(model.setRootPath(folder));
        loop.exec();
        QCoreApplication::processEvents(); // sorted now
        view.viewport()->repaint();
    });
    processEventsFor(settleTime);
    times.stall = meter.stop().percentile(1);
    if (model.rowCount(view.rootIndex()) != count)
        qFatal("%d of %d files are shown", model.rowCount(view.rootIndex()), count);

    Samples repaints;
    for (int i = 0; i < pages; ++i) {
        repaints.add(secondsOf([&] {
            view.verticalScrollBar()->triggerAction(QScrollBar::SliderPageStepAdd);
            view.viewport()->repaint();
        }));
    }
    times.repaint = repaints.median();
    return times;
}

Times timesOfOurs(const QString& folder, int count)
{
    CProductTreeModel model;
    return timesOf(model, folder, count);
}

Times timesOfStock(const QString& folder, int count, const QStringList& nameFilters = {})
{
    TrivialIconProvider icons;
    QFileSystemModel model;
    model.setIconProvider(&icons);
    model.setNameFilters(nameFilters);
    model.setNameFilterDisables(false);
    return timesOf(model, folder, count);
}

} // namespace

std::vector<Measurement> measureModel(const BenchOptions& options)
{
    settingArea();
    const int count = options.types(10'000);
    const LibraryFiles files{count, 1, 256, 1024};
    const QString folder = files.path(options.files) + QStringLiteral("/Group 000");
    scanLibrary(folder);

    Measurement total(QStringLiteral("model shows 10,000 files, beside QFileSystemModel"), Measurement::Ratio, 1.5);
    Measurement stall(QStringLiteral("- longest stall of the GUI thread"), Measurement::Ratio, 1.3);
    Measurement repaint(QStringLiteral("- scrolled repaint"), Measurement::Ratio, 1.5);
    // The stock model compiles a pattern for each filter and file.
    Measurement filtered(QStringLiteral("- in all, beside QFileSystemModel with our name filters"));
    Measurement filteredStall(QStringLiteral("- longest stall, beside the same"));
    const QStringList nameFilters = CProductTreeModel().nameFilters();
    for (int i = 0; i < options.repeat; ++i) {
        const Times ours = timesOfOurs(folder, count);
        const Times stock = timesOfStock(folder, count);
        total.add(ours.total, stock.total);
        stall.add(ours.stall, stock.stall);
        repaint.add(ours.repaint, stock.repaint);
        const Times alike = timesOfStock(folder, count, nameFilters);
        filtered.add(ours.total, alike.total);
        filteredStall.add(ours.stall, alike.stall);
    }
    return {total, stall, repaint, filtered, filteredStall};
}
