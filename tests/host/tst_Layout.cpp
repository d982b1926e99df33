#include "host/CHost.h"
#include "host/CLibraryLoader.h"
#include "host/CMainWindow.h"
#include "host/CPlacedTypesPanel.h"
#include "host/HostPaths.h"
#include "host/PluginLibrary.h"
#include "host/typefile/TypeFile.h"
#include "plugin/interface/ISettingInterface.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "tests/host/ModalAnswer.h"
#include "tests/host/TypeFileFixture.h"
#include "tests/support/TestObject.h"

#include <QAction>
#include <QFileSystemModel>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTreeView>

// The built plug-in's type library and this host's layout together.
class tst_Layout : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aTypeOfTheTreeIsPlaced();
    void placedTypesAreKeptInTheProject();
    void anotherLibraryIsFollowed();

private:
    QString path(const char* name) const { return m_folder->filePath(QLatin1String(name)); }
    void writeType(const char* name, const QByteArray& payload);
    QAction* action(CMainWindow::Command command) const { return m_host->window()->action(command); }
    QTreeView* tree() const { return m_host->area()->widget()->findChild<QTreeView*>(QStringLiteral("TypeLibrary")); }
    void select(const char* name);
    QStringList placedTypes() const;
    bool isUsed(const char* name) const;

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CHost> m_host;
};

void tst_Layout::init()
{
    TestObject::init();
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir().mkpath(path("types/Indoor")) && QDir().mkpath(path("others")));
    writeType("types/P4.8.rcvp", "four");
    writeType("types/Indoor/P2.rcvp", "two");
    writeType("others/P9.rcvp", "nine");
    QString error;
    CommandLine commandLine;
    commandLine.settings = path("settings.json");
    commandLine.library = path("types");
    commandLine.language = QStringLiteral("en");
    m_host = std::make_unique<CHost>(commandLine);
    PluginLibrary plugin;
    QVERIFY2(plugin.load(HostPaths::pluginCandidates(), error), qPrintable(error));
    QVERIFY(m_host->start(plugin.initFunction(), plugin.path()));
    QTRY_VERIFY(!m_host->loader()->isBusy());
    action(CMainWindow::TypeLibrary)->trigger();
}

void tst_Layout::cleanup()
{
    m_host.reset();
    m_folder.reset();
    TestObject::cleanup();
}

void tst_Layout::writeType(const char* name, const QByteArray& payload)
{
    QString error;
    QVERIFY2(TypeFile::write(path(name), sampleHeader(), payload, error), qPrintable(error));
}

// Makes the entry current in the tree, once the model has read its folder.
void tst_Layout::select(const char* name)
{
    auto* const model = qobject_cast<QFileSystemModel*>(tree()->model());
    QVERIFY(model);
    const QModelIndex index = model->index(path(name));
    QVERIFY(index.isValid());
    QTRY_VERIFY(model->rowCount(index.parent()) > 0);
    tree()->setCurrentIndex(index);
}

QStringList tst_Layout::placedTypes() const
{
    auto* const list = m_host->window()->findChild<QListWidget*>(QStringLiteral("PlacedTypes"));
    QStringList names;
    for (int row = 0; row < list->count(); ++row)
        names << list->item(row)->text();
    return names;
}

bool tst_Layout::isUsed(const char* name) const
{
    const auto handler = std::dynamic_pointer_cast<ISettingInterfaceHandler>(m_host->area()->getHandler());
    auto* const model = qobject_cast<QFileSystemModel*>(tree()->model());
    return handler->isTypeUsedInLayout(model->index(path(name)).data(262).value<SMD5>());
}

void tst_Layout::aTypeOfTheTreeIsPlaced()
{
    QVERIFY(!action(CMainWindow::PlaceInLayout)->isEnabled());
    select("types/Indoor");
    QVERIFY(!action(CMainWindow::PlaceInLayout)->isEnabled());
    select("types/P4.8.rcvp");
    QVERIFY(!isUsed("types/P4.8.rcvp"));
    QTest::mouseClick(m_host->window()->placedTypes()->findChild<QPushButton*>(), Qt::LeftButton);
    QCOMPARE(placedTypes(), QStringList{QStringLiteral("P4.8")});
    QVERIFY(isUsed("types/P4.8.rcvp"));
    QVERIFY(!isUsed("types/Indoor/P2.rcvp"));
    QVERIFY(m_host->window()->isWindowModified());

    select("types/Indoor/P2.rcvp");
    QTest::keyClick(m_host->window(), Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(placedTypes(), (QStringList{QStringLiteral("P4.8"), QStringLiteral("P2")}));
    select("types/P4.8.rcvp");
    QTest::keyClick(m_host->window(), Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(placedTypes(), QStringList{QStringLiteral("P2")});
    QVERIFY(!isUsed("types/P4.8.rcvp"));
    QVERIFY(isUsed("types/Indoor/P2.rcvp"));
}

void tst_Layout::placedTypesAreKeptInTheProject()
{
    select("types/P4.8.rcvp");
    action(CMainWindow::PlaceInLayout)->trigger();
    {
        const ModalAnswer answer(path("wall.prj"));
        action(CMainWindow::SaveProject)->trigger();
    }
    QVERIFY(!m_host->window()->isWindowModified());
    action(CMainWindow::NewProject)->trigger();
    QCOMPARE(placedTypes(), QStringList());
    QVERIFY(!isUsed("types/P4.8.rcvp"));
    QVERIFY(action(CMainWindow::PlaceInLayout)->isEnabled());
    {
        const ModalAnswer answer(path("wall.prj"));
        action(CMainWindow::OpenProject)->trigger();
    }
    QCOMPARE(placedTypes(), QStringList{QStringLiteral("P4.8")});
    QVERIFY(isUsed("types/P4.8.rcvp"));
    QVERIFY(!action(CMainWindow::PlaceInLayout)->isEnabled());
}

void tst_Layout::anotherLibraryIsFollowed()
{
    for (const char* library : {"others", "types"}) {
        const ModalAnswer answer(path(library));
        action(CMainWindow::OpenLibrary)->trigger();
        QTRY_VERIFY(!m_host->loader()->isBusy());
    }
    QVERIFY(!action(CMainWindow::PlaceInLayout)->isEnabled());
    select("types/P4.8.rcvp");
    QVERIFY(action(CMainWindow::PlaceInLayout)->isEnabled());
}

SETTINGAREA_TEST_MAIN(tst_Layout, QApplication)
#include "tst_Layout.moc"
