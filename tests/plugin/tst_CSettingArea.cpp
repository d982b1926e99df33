#include "monitoring/CMonitoringSettings.h"
#include "plugin/SettingHandler.h"
#include "preferences/CPreferencesSettings.h"
#include "tests/support/AreaFixture.h"
#include "tests/support/FileFixture.h"
#include "tests/support/PaintCounter.h"
#include "tests/support/UpperCase.h"
#include "typelibrary/CTypeLibrarySetting.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFileSystemModel>
#include <QPainter>
#include <QShortcut>
#include <QStackedLayout>
#include <QTemporaryDir>
#include <QTreeView>

#include <atomic>
#include <memory>
#include <thread>

namespace {

QStackedLayout* pageStack()
{
    return CSettingArea::instance().findChild<QStackedLayout*>();
}

// A handler of a kind that the settings area does not know.
class OtherHandler : public IAbstractInterfaceHandler
{
};

} // namespace

class tst_CSettingArea : public AreaFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void basesAndNames();
    void tabsInOrder();
    void geometry();
    void tabSwitchesPage();
    void setCurrentTabOutOfRangeChangesNothing();
    void languageChangeRetitlesTheTabs();
    void styleSheetPaintsTheBackground();
    void alwaysValid();
    void getSettingsRescansTheLibrary();
    void setSettingsRescansTheLibrary();
    void handlerIsOwnedAndReplaced();
    void sameHandlerTwice();
    void otherHandlerIsNeverCalled();
    void everyHandlerRepaintsTheTree();
    void typeLibraryPathFromAWorker();
    void missingLibraryFolderShowsNothing();
    void pathsThatOverlap();
    void pushDoesNotWaitForTheFirstScan();
    void noExceptionReachesTheHost();
    void typeLibraryPathOnTheGuiThread();
    void controlsEnabledReachTheTree();
};

void tst_CSettingArea::initTestCase()
{
    QVERIFY(QApplication::topLevelWidgets().isEmpty());
}

void tst_CSettingArea::basesAndNames()
{
    QCOMPARE(area().objectName(), QStringLiteral("SettingArea"));
    QCOMPARE(area().widget(), static_cast<QWidget*>(&area()));
    QVERIFY(dynamic_cast<ISettingInterface*>(area().widget()));
    QVERIFY(dynamic_cast<CSingleton<CSettingArea>*>(area().widget()));
    auto* const background = area().findChild<QWidget*>(QStringLiteral("TabBarBackground"));
    QVERIFY(background);
    QCOMPARE(tabBar()->parentWidget(), background);
    QCOMPARE(tabBar()->drawBase(), false);
}

void tst_CSettingArea::tabsInOrder()
{
    QCOMPARE(tabBar()->count(), 3);
    QCOMPARE(tabBar()->tabText(0), QStringLiteral("Preferences"));
    QCOMPARE(tabBar()->tabText(1), QStringLiteral("Type library"));
    QCOMPARE(tabBar()->tabText(2), QStringLiteral("Health settings"));
    QCOMPARE(pageStack()->count(), 3);
    QVERIFY(qobject_cast<CPreferencesSettings*>(pageStack()->widget(0)));
    QVERIFY(qobject_cast<CTypeLibrarySetting*>(pageStack()->widget(1)));
    QVERIFY(qobject_cast<CMonitoringSettings*>(pageStack()->widget(2)));
    QCOMPARE(tabBar()->currentIndex(), 0);
    QCOMPARE(pageStack()->currentIndex(), 0);
}

void tst_CSettingArea::geometry()
{
    QCOMPARE(area().layout()->contentsMargins(), QMargins(37, 24, 0, 0));
    QCOMPARE(area().layout()->spacing(), 0);
    QCOMPARE(pageStack()->contentsMargins(), QMargins(0, 22, 0, 0));
    auto* const background = tabBar()->parentWidget();
    QCOMPARE(background->layout()->contentsMargins(), QMargins(0, 0, 0, 0));
    QCOMPARE(background->layout()->spacing(), 0);

    area().resize(1000, 700);
    area().show();
    QCOMPARE(background->geometry().topLeft(), QPoint(37, 24));
    QCOMPARE(tabBar()->geometry().left(), 0);
    for (int tab = 0; tab < 3; ++tab) {
        area().setCurrentTab(tab);
        QTRY_COMPARE(pageStack()->currentWidget()->geometry().topLeft(),
                     QPoint(37, background->geometry().bottom() + 1 + 20 + 22));
        QCOMPARE(pageStack()->currentWidget()->geometry().bottomRight(), QPoint(999, 699));
    }
    area().hide();
}

void tst_CSettingArea::tabSwitchesPage()
{
    area().show();
    QTest::mouseClick(tabBar(), Qt::LeftButton, {}, tabBar()->tabRect(1).center());
    QCOMPARE(pageStack()->currentIndex(), 1);
    QTest::keyClick(tabBar(), Qt::Key_Right);
    QCOMPARE(pageStack()->currentIndex(), 2);
    area().setCurrentTab(0);
    QCOMPARE(tabBar()->currentIndex(), 0);
    QCOMPARE(pageStack()->currentIndex(), 0);
    QVERIFY(pageStack()->widget(0)->isVisible());
    QVERIFY(!pageStack()->widget(2)->isVisible());
    area().hide();
}

void tst_CSettingArea::setCurrentTabOutOfRangeChangesNothing()
{
    area().setCurrentTab(2);
    for (const int index : {3, -1, 1000}) {
        area().setCurrentTab(index);
        QCOMPARE(tabBar()->currentIndex(), 2);
        QCOMPARE(pageStack()->currentIndex(), 2);
    }
}

void tst_CSettingArea::languageChangeRetitlesTheTabs()
{
    area().setCurrentTab(1);
    {
        const UpperCase language;
        QCOMPARE(tabBar()->tabText(0), QStringLiteral("PREFERENCES"));
        QCOMPARE(tabBar()->tabText(1), QStringLiteral("TYPE LIBRARY"));
        QCOMPARE(tabBar()->tabText(2), QStringLiteral("HEALTH SETTINGS"));
        QCOMPARE(tabBar()->currentIndex(), 1);
    }
    QCOMPARE(tabBar()->tabText(0), QStringLiteral("Preferences"));
}

void tst_CSettingArea::styleSheetPaintsTheBackground()
{
    area().setStyleSheet(QStringLiteral("#SettingArea{background:rgb(12,34,56);}"));
    area().resize(400, 300);
    QImage picture(area().size(), QImage::Format_RGB32);
    picture.fill(Qt::white);
    area().render(&picture, {}, {}, {});
    QCOMPARE(picture.pixelColor(5, 5), QColor(12, 34, 56));
}

void tst_CSettingArea::alwaysValid()
{
    QVERIFY(area().initialize());
    QVERIFY(area().isValid());
}

void tst_CSettingArea::getSettingsRescansTheLibrary()
{
    QTemporaryDir library;
    area().setTypeLibraryPath(library.path());
    QVERIFY(area().getSettings()->typeLibraryTree.empty());
    const QString file = library.filePath(QStringLiteral("a.rcvp"));
    QVERIFY(writeFile(file, {}));
    QCOMPARE(area().getTypeLibrary().size(), std::size_t(0));
    QCOMPARE(area().getSettings()->typeLibraryTree.size(), std::size_t(1));
    QCOMPARE(area().getSettings()->typeLibraryTree[0].path, file);
    QCOMPARE(area().getTypeLibrary().size(), std::size_t(1));
}

void tst_CSettingArea::setSettingsRescansTheLibrary()
{
    QTemporaryDir library;
    area().setTypeLibraryPath(library.path());
    QVERIFY(writeFile(library.filePath(QStringLiteral("a.rcvp")), {}));
    area().setSettings(SSettings());
    QCOMPARE(area().getTypeLibrary().size(), std::size_t(1));
}

void tst_CSettingArea::handlerIsOwnedAndReplaced()
{
    QVERIFY(!area().getHandler());
    QVERIFY(!settingHandler());
    int deleted = 0;
    auto* const first = new FakeHandler;
    first->destroyed = [&] { ++deleted; };
    area().setHandler(first);
    QCOMPARE(area().getHandler().get(), static_cast<IAbstractInterfaceHandler*>(first));
    QCOMPARE(settingHandler().get(), static_cast<ISettingInterfaceHandler*>(first));
    auto held = settingHandler();
    area().setHandler(new FakeHandler);
    QCOMPARE(deleted, 0); // an operation still uses it
    QVERIFY(settingHandler() != held);
    held.reset();
    QCOMPARE(deleted, 1);
    area().setHandler(nullptr);
    QVERIFY(!settingHandler());
}

void tst_CSettingArea::sameHandlerTwice()
{
    int deleted = 0;
    auto* const handler = new FakeHandler;
    handler->destroyed = [&] { ++deleted; };
    area().setHandler(handler);
    area().setHandler(handler);
    QCOMPARE(deleted, 0);
    area().setHandler(nullptr);
    QCOMPARE(deleted, 1);
}

void tst_CSettingArea::otherHandlerIsNeverCalled()
{
    area().setHandler(new OtherHandler);
    QVERIFY(area().getHandler());
    QVERIFY(!settingHandler());
    QCOMPARE(area().getHandler().use_count(), 2L); // the area's and the one just asked for
    HostWindow host;
    area().attachShortcutPanel();
    host.window.show();
    host.panel()->show();
    area().closeShortcutPanel();
    QVERIFY(!host.panel()->isVisible());
}

void tst_CSettingArea::everyHandlerRepaintsTheTree()
{
    QTemporaryDir library;
    area().setTypeLibraryPath(library.path());
    area().setCurrentTab(1);
    area().show();
    PaintCounter counter;
    area().findChild<QTreeView*>(QStringLiteral("TypeLibrary"))->viewport()->installEventFilter(&counter);
    // Often enough for whatever else paints the tree to be over.
    for (int i = 0; i < 20; ++i) {
        counter.paints = 0;
        std::thread([] { area().setHandler(new FakeHandler); }).join();
        QTRY_VERIFY(counter.paints > 0);
        QCoreApplication::processEvents();
    }
    area().hide();
}

void tst_CSettingArea::typeLibraryPathFromAWorker()
{
    QTemporaryDir library;
    QVERIFY(writeFile(library.filePath(QStringLiteral("a.rcvp")), {}));
    auto* const handler = new FakeHandler;
    // While the scan runs the library is not ready.
    handler->isMulti = [](const QString&) { return !area().isTypeLibraryReady(); };
    area().setHandler(handler);

    auto* const tree = area().findChild<QTreeView*>(QStringLiteral("TypeLibrary"));
    struct Seen
    {
        std::atomic_bool shown{false};
        std::atomic_bool readyWhileShown{false};
    };
    const auto seen = std::make_shared<Seen>();
    const auto whenShown = connect(tree->findChild<QFileSystemModel*>(), &QFileSystemModel::rootPathChanged, this, [=] {
        seen->shown = true;
        seen->readyWhileShown = area().isTypeLibraryReady();
    });
    std::atomic_int result{-1};
    std::atomic_bool shownOnReturn{false};
    std::thread worker([&] {
        const bool done = area().setTypeLibraryPath(library.path());
        shownOnReturn = seen->shown.load();
        result = done;
    });
    QTRY_COMPARE(result.load(), 1);
    worker.join();
    disconnect(whenShown);
    QVERIFY(shownOnReturn);
    QVERIFY(!seen->readyWhileShown);
    QVERIFY(area().isTypeLibraryReady());
    QCOMPARE(area().getTypeLibrary().at(0).nodeType, SSettings::TypeLibrary::STreeNode::MultiRcv);
    QTRY_COMPARE(tree->model()->rowCount(tree->rootIndex()), 1);
    QVERIFY(!handler->queryThreads().contains(QThread::currentThread()));
}

void tst_CSettingArea::missingLibraryFolderShowsNothing()
{
    QTemporaryDir library;
    const QString file = library.filePath(QStringLiteral("a.rcvp"));
    QVERIFY(writeFile(file, {}));
    auto* const tree = area().findChild<QTreeView*>(QStringLiteral("TypeLibrary"));
    for (const QString& missing : {library.filePath(QStringLiteral("nowhere")), file, QString()}) {
        QVERIFY(area().setTypeLibraryPath(missing));
        QVERIFY(!tree->model());
        QVERIFY(area().getTypeLibrary().empty());
        QVERIFY(area().setTypeLibraryPath(library.path()));
        QVERIFY(tree->model());
        QTRY_COMPARE(tree->model()->rowCount(tree->rootIndex()), 1);
    }
}

void tst_CSettingArea::pathsThatOverlap()
{
    // A worker scans the first folder while the GUI thread sets the second: the store and the tab end on the same one.
    QTemporaryDir first;
    QTemporaryDir second;
    for (const QTemporaryDir* library : {&first, &second}) {
        QVERIFY(writeFile(library->filePath(QStringLiteral("a.rcvp")), {}));
    }
    auto* const handler = new FakeHandler;
    std::atomic_bool scanning{false};
    std::atomic_bool secondAsked{false};
    handler->isMulti = [&](const QString& path) {
        if (path.startsWith(first.path())) {
            scanning = true;
            QElapsedTimer patience;
            patience.start();
            while (!secondAsked && patience.elapsed() < 10'000)
                std::this_thread::yield();
        }
        return false;
    };
    area().setHandler(handler);
    std::atomic_int result{-1};
    std::thread worker([&] { result = area().setTypeLibraryPath(first.path()); });
    QTRY_VERIFY(scanning.load());
    secondAsked = true;
    QVERIFY(area().setTypeLibraryPath(second.path()));
    const bool firstIsUnderWay = result < 0;
    QCOMPARE(area().isTypeLibraryReady(), !firstIsUnderWay);
    QTRY_COMPARE(result.load(), 1);
    worker.join();
    QVERIFY(area().isTypeLibraryReady());
    auto* const tree = area().findChild<QTreeView*>(QStringLiteral("TypeLibrary"));
    const auto* const model = qobject_cast<QFileSystemModel*>(tree->model());
    QVERIFY(model);
    QCOMPARE(area().getTypeLibrary().size(), std::size_t(1));
    QCOMPARE(QFileInfo(area().getTypeLibrary()[0].path).path(), model->rootPath());
}

void tst_CSettingArea::pushDoesNotWaitForTheFirstScan()
{
    QTemporaryDir library;
    QVERIFY(writeFile(library.filePath(QStringLiteral("a.rcvp")), {}));
    auto* const handler = new FakeHandler;
    std::atomic_bool scanning{false};
    std::atomic_bool pushed{false};
    handler->isMulti = [&](const QString&) {
        scanning = true;
        QElapsedTimer patience;
        patience.start();
        while (!pushed && patience.elapsed() < 10'000)
            std::this_thread::yield();
        return pushed.load();
    };
    area().setHandler(handler);
    std::atomic_int result{-1};
    std::thread worker([&] { result = area().setTypeLibraryPath(library.path()); });
    QTRY_VERIFY(scanning.load());
    area().setSettings(SSettings());
    pushed = true;
    QTRY_COMPARE(result.load(), 1);
    worker.join();
    QCOMPARE(area().getTypeLibrary().at(0).nodeType, SSettings::TypeLibrary::STreeNode::MultiRcv);
}

void tst_CSettingArea::noExceptionReachesTheHost()
{
    QTemporaryDir library;
    QVERIFY(writeFile(library.filePath(QStringLiteral("a.rcvp")), {}));
    QVERIFY(area().getSettings()->typeLibraryTree.empty()); // what the record is to keep
    auto* const handler = new FakeHandler;
    handler->isMulti = [](const QString&) -> bool { throw std::bad_alloc(); };
    area().setHandler(handler);
    QVERIFY(!area().setTypeLibraryPath(library.path()));
    QVERIFY(area().isTypeLibraryReady());
    QVERIFY(area().getSettings()->typeLibraryTree.empty());
    area().setSettings(SSettings());

    handler->isMulti = [](const QString&) { return true; };
    QCOMPARE(area().getSettings()->typeLibraryTree.size(), std::size_t(1));
}

void tst_CSettingArea::typeLibraryPathOnTheGuiThread()
{
    QTemporaryDir library;
    QVERIFY(writeFile(library.filePath(QStringLiteral("a.rcvp")), {}));
    QVERIFY(area().setTypeLibraryPath(library.path()));
    QVERIFY(area().isTypeLibraryReady());
    QCOMPARE(area().getTypeLibrary().size(), std::size_t(1));

    QVERIFY(area().setTypeLibraryPath(QString()));
    QVERIFY(area().getTypeLibrary().empty());
    auto* const tree = area().findChild<QTreeView*>(QStringLiteral("TypeLibrary"));
    QVERIFY(!tree->model());
}

void tst_CSettingArea::controlsEnabledReachTheTree()
{
    auto* const tree = area().findChild<QTreeView*>(QStringLiteral("TypeLibrary"));
    const QList<QShortcut*> keys = tree->findChildren<QShortcut*>();
    QCOMPARE(keys.size(), 2); // to rename and to delete
    for (const bool enabled : {false, true}) {
        area().setControlsEnabled(enabled);
        for (const QShortcut* key : keys)
            QCOMPARE(key->isEnabled(), enabled);
    }
}

SETTINGAREA_TEST_MAIN(tst_CSettingArea, QApplication)
#include "tst_CSettingArea.moc"
