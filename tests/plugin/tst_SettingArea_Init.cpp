// The built plug-in as a host sees it: loaded at run time, known by its interfaces only.

#include "plugin/interface/ISettingInterface.h"
#include "plugin/interface/SettingArea_Init.h"
#include "tests/support/FakeHandler.h"
#include "tests/support/FileFixture.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLibrary>
#include <QMainWindow>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTimer>

#include <thread>

#include <dlfcn.h>

namespace {

QWidget* addOverlay(QMainWindow& window)
{
    window.setCentralWidget(new QWidget);
    auto* const overlay = new QWidget(window.centralWidget());
    overlay->setObjectName(QStringLiteral("OverLay"));
    return overlay;
}

} // namespace

class tst_SettingArea_Init : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void nullControlCreatesNothing();
    void docksInItsParent();
    void givesTheSameAreaEveryTime();
    void handlerCrossesTheBoundary();
    void handlerOfAnotherKindIsKept();
    void everyOperation();
    void libraryFromAWorkerThread();
    void queryMayCallBack();
    void guiThreadStaysAliveDuringAScan();
    void handlerReplacedDuringAScan();
    void staysLoaded();

private:
    QString plugin() const { return QCoreApplication::applicationDirPath() + QStringLiteral("/libsettingarea.so"); }

    // Sets the library folder from a worker thread, as hosts do, with the event loop running.
    bool setTypeLibraryPath(const QString& path);

    SettingArea_InitFunction init = nullptr;
    ISettingInterface* area = nullptr;
};

void tst_SettingArea_Init::initTestCase()
{
    QLibrary library(plugin());
    QVERIFY2(library.load(), qPrintable(library.errorString()));
    init = reinterpret_cast<SettingArea_InitFunction>(library.resolve(SettingArea_InitSymbol));
    QVERIFY2(init, qPrintable(library.errorString()));
}

bool tst_SettingArea_Init::setTypeLibraryPath(const QString& path)
{
    std::atomic_int result{-1};
    std::thread worker([&] { result = area->setTypeLibraryPath(path); });
    const bool returned = QTest::qWaitFor([&] { return result >= 0; }, 30'000);
    worker.join();
    return returned && result == 1;
}

void tst_SettingArea_Init::nullControlCreatesNothing()
{
    QWidget window;
    QVERIFY(!init(nullptr, &window));
    QVERIFY(window.children().isEmpty());
    QCOMPARE(QApplication::allWidgets().size(), 1);
}

void tst_SettingArea_Init::docksInItsParent()
{
    QMainWindow window;
    QWidget* const overlay = addOverlay(window);
    IAbstractControlInterface* control = nullptr;
    QVERIFY(init(&control, &window));
    QVERIFY(control);
    QVERIFY(overlay->findChild<QWidget*>(QStringLiteral("ShortcutPanel")));
    QVERIFY(!control->getHandler());
    QCOMPARE(control->widget()->objectName(), QStringLiteral("SettingArea"));
    QCOMPARE(control->widget()->parentWidget(), &window);
    QVERIFY(control->initialize());
    QVERIFY(control->isValid());
    area = dynamic_cast<ISettingInterface*>(control);
    QVERIFY(area);
    QVERIFY(!area->isTypeLibraryReady());
    QVERIFY(area->getTypeLibrary().empty());
    QCOMPARE(area->getSettings()->preferences.snapSpace, 20);
    QCOMPARE(area->getSettings()->layoutShortcuts.size(), 10);
    QVERIFY(area->getSettings()->typeLibraryTree.empty());
}

void tst_SettingArea_Init::givesTheSameAreaEveryTime()
{
    QMainWindow first;
    QWidget* const overlay = addOverlay(first);
    QWidget second;
    IAbstractControlInterface* control = nullptr;
    QVERIFY(init(&control, &first));
    // The panel on the window before is gone with it.
    QVERIFY(overlay->findChild<QWidget*>(QStringLiteral("ShortcutPanel")));
    QCOMPARE(control, static_cast<IAbstractControlInterface*>(area));
    control = nullptr;
    QVERIFY(init(&control, &second));
    QCOMPARE(control, static_cast<IAbstractControlInterface*>(area));
    QCOMPARE(area->widget()->parentWidget(), &second);
    QVERIFY(init(&control, nullptr));
    QVERIFY(!area->widget()->parentWidget());
}

void tst_SettingArea_Init::handlerCrossesTheBoundary()
{
    QTemporaryDir library;
    QVERIFY(writeFile(library.filePath(QStringLiteral("a.rcvp")), {}));

    int deleted = 0;
    auto* const handler = new FakeHandler;
    handler->destroyed = [&] { ++deleted; };
    handler->isMulti = [](const QString&) { return true; };
    area->setHandler(handler);
    QCOMPARE(area->getHandler().get(), static_cast<IAbstractInterfaceHandler*>(handler));
    QVERIFY(setTypeLibraryPath(library.path()));
    QCOMPARE(area->getTypeLibrary().at(0).nodeType, SSettings::TypeLibrary::STreeNode::MultiRcv);
    QCOMPARE(area->getTypeLibrary().at(0).cabinetBlock, handler->block);
    area->setHandler(nullptr);
    QCOMPARE(deleted, 1);
    QVERIFY(!area->getHandler());
}

void tst_SettingArea_Init::handlerOfAnotherKindIsKept()
{
    class Other : public IAbstractInterfaceHandler
    {
    };
    auto* const other = new Other;
    area->setHandler(other);
    QCOMPARE(area->getHandler().get(), static_cast<IAbstractInterfaceHandler*>(other));
    area->closeShortcutPanel();
    area->refreshPreferences();
    area->setHandler(nullptr);
}

void tst_SettingArea_Init::everyOperation()
{
    area->syncLanguageWithLocale();
    SSettings settings;
    settings.monitoring.nTemperature = 55;
    area->setSettings(settings);
    QCOMPARE(area->getSettings()->monitoring.nTemperature, 55);
    area->setCurrentTab(2);
    auto* const tabs = area->widget()->findChild<QTabBar*>(QStringLiteral("SettingAreaTabBar"));
    QCOMPARE(tabs->currentIndex(), 2);
    area->setCurrentTab(0);
    area->setControlsEnabled(false);
    area->setControlsEnabled(true);
    area->closeShortcutPanel();
    area->refreshPreferences();
}

void tst_SettingArea_Init::libraryFromAWorkerThread()
{
    QVERIFY(setTypeLibraryPath(QStringLiteral("/nowhere/at/all")));
    QVERIFY(area->isTypeLibraryReady());
    QVERIFY(area->getTypeLibrary().empty());
}

void tst_SettingArea_Init::queryMayCallBack()
{
    QTemporaryDir library;
    QVERIFY(writeFile(library.filePath(QStringLiteral("a.rcvp")), {}));
    auto* const handler = new FakeHandler;
    handler->isMulti = [this](const QString&) {
        return area->getTypeLibrary().empty() && !area->isTypeLibraryReady() && area->getHandler();
    };
    area->setHandler(handler);
    QVERIFY(setTypeLibraryPath(library.path()));
    QCOMPARE(area->getTypeLibrary().at(0).nodeType, SSettings::TypeLibrary::STreeNode::MultiRcv);
    area->setHandler(nullptr);
}

void tst_SettingArea_Init::guiThreadStaysAliveDuringAScan()
{
    QTemporaryDir library;
    for (int i = 0; i < 3; ++i) {
        QVERIFY(writeFile(library.filePath(QStringLiteral("%1.rcvp").arg(i)), {}));
    }
    // Each query waits until the GUI thread has run its loop once more.
    std::atomic_int rounds{0};
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] { ++rounds; });
    timer.start(0);
    auto* const handler = new FakeHandler;
    handler->isMulti = [&](const QString&) {
        const int before = rounds;
        QElapsedTimer patience;
        patience.start();
        while (rounds == before && patience.elapsed() < 10'000)
            std::this_thread::yield();
        return rounds > before;
    };
    area->setHandler(handler);
    QVERIFY(setTypeLibraryPath(library.path()));
    for (const auto& node : area->getTypeLibrary())
        QCOMPARE(node.nodeType, SSettings::TypeLibrary::STreeNode::MultiRcv);
    area->setHandler(nullptr);
}

void tst_SettingArea_Init::handlerReplacedDuringAScan()
{
    QTemporaryDir library;
    for (int i = 0; i < 50; ++i) {
        QVERIFY(writeFile(library.filePath(QStringLiteral("%1.rcvp").arg(i)), {}));
    }
    std::atomic_int deleted{0};
    const auto installNew = [&] {
        auto* const handler = new FakeHandler;
        handler->destroyed = [&] { ++deleted; };
        area->setHandler(handler);
    };
    installNew();
    int replaced = 0;
    QTimer timer;
    connect(&timer, &QTimer::timeout, this, [&] {
        installNew();
        ++replaced;
    });
    timer.start(0);
    QVERIFY(setTypeLibraryPath(library.path()));
    timer.stop();
    QCOMPARE(area->getTypeLibrary().size(), std::size_t(50));
    QCOMPARE(deleted.load(), replaced);
    area->setHandler(nullptr);
    QCOMPARE(deleted.load(), replaced + 1);
}

void tst_SettingArea_Init::staysLoaded()
{
    QLibrary library(plugin());
    QVERIFY(library.load());
    library.unload();
    QVERIFY(area->isValid());
    void* const loaded = ::dlopen(qPrintable(plugin()), RTLD_LAZY | RTLD_NOLOAD);
    QVERIFY(loaded);
    ::dlclose(loaded);
    ::dlclose(loaded);
    QVERIFY(area->isValid());
    QCOMPARE(area->widget()->objectName(), QStringLiteral("SettingArea"));
}

SETTINGAREA_TEST_MAIN(tst_SettingArea_Init, QApplication)
#include "tst_SettingArea_Init.moc"
