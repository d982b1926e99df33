#include "monitoring/CEmailEditDlg.h"
#include "plugin/interface/ISettingInterface.h"
#include "shortcut/CShortcutPanel.h"
#include "tests/multircv/Wizard.h"
#include "tests/support/AreaFixture.h"
#include "tests/support/FileFixture.h"
#include "tests/support/FileSystemCalls.h"

#include <QApplication>
#include <QFileSystemWatcher>
#include <QHelpEvent>
#include <QHoverEvent>
#include <QScrollBar>
#include <QStorageInfo>
#include <QTemporaryDir>
#include <QTreeView>

// What is known is not asked of the disk again: a disk that is slow, or gone, must not hold up a paint.
class tst_DiskOfTheGuiThread : public AreaFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void whatIsHeard();
    void handlingWithoutTheDisk_data();
    void handlingWithoutTheDisk();
    void wizardWithoutTheDisk();
    void recipientDialogWithoutTheDisk();
    void shortcutPanelWithoutTheDisk();

private:
    void expandGroups();

    std::unique_ptr<QTemporaryDir> m_library;
    QTreeView* m_pTree = nullptr;
    std::unique_ptr<QWidget> m_window;
};

namespace {

constexpr int groups = 8;
constexpr int typesInGroup = 30;

void paint(QWidget& window)
{
    window.repaint();
    QCoreApplication::sendPostedEvents();
}

void resize(QWidget& window)
{
    for (const QSize size : {QSize(700, 400), QSize(1300, 900), QSize(1000, 700)}) {
        window.resize(size);
        paint(window);
    }
}

// Moves the pointer over the window in steps that leave out no row and no button.
template<typename Function>
void forEachSpot(QWidget& window, Function function)
{
    for (int y = 0; y < window.height(); y += 9) {
        for (int x = 0; x < window.width(); x += 45) {
            const QPoint spot(x, y);
            if (QWidget* const child = window.childAt(spot))
                function(*child, child->mapFrom(&window, spot), window.mapToGlobal(spot));
        }
    }
}

void hover(QWidget& window)
{
    forEachSpot(window, [&window](QWidget& child, const QPoint& spot, const QPoint& global) {
        QMouseEvent move(QEvent::MouseMove, spot, global, Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QHoverEvent over(QEvent::HoverMove, spot, spot - QPoint(1, 1));
        QCoreApplication::sendEvent(&child, &move);
        QCoreApplication::sendEvent(&child, &over);
        paint(window);
    });
}

void askForTooltips(QWidget& window)
{
    forEachSpot(window, [](QWidget& child, const QPoint& spot, const QPoint& global) {
        QHelpEvent help(QEvent::ToolTip, spot, global);
        QCoreApplication::sendEvent(&child, &help);
        QCoreApplication::sendPostedEvents();
    });
}

void scroll(QWidget& window)
{
    const auto bars = window.findChildren<QScrollBar*>();
    for (QScrollBar* const bar : bars) {
        for (int i = 0; i < 30 && bar->isVisible(); ++i) {
            bar->triggerAction(i < 15 ? QScrollBar::SliderPageStepAdd : QScrollBar::SliderPageStepSub);
            paint(window);
        }
    }
}

using Handling = void (*)(QWidget& window);

// What a shown window asks of the disk when it is handled in every way.
QString callsOf(QWidget& window)
{
    paint(window); // Qt looks for the fonts on the disk
    FileSystemCalls calls;
    for (const Handling handling : {&paint, &resize, &hover, &askForTooltips, &scroll})
        handling(window);
    return calls.take().join(QLatin1Char('\n'));
}

} // namespace

Q_DECLARE_METATYPE(Handling)

void tst_DiskOfTheGuiThread::initTestCase()
{
    AreaFixture::init();
    m_library = std::make_unique<QTemporaryDir>();
    for (int group = 0; group < groups; ++group) {
        for (int type = 0; type < typesInGroup; ++type) {
            const QString name = QStringLiteral("/Group %1/Type %2.%3").arg(group).arg(type);
            writeFile(m_library->path() + name.arg(QLatin1String(type % 3 == 0 ? "rcvbp" : "rcvp")), name.toUtf8());
        }
    }
    writeFile(m_library->path() + QStringLiteral("/Card.rcvp"), "card");
    static_cast<ISettingInterface&>(area()).setHandler(new FakeHandler);
    area().setTypeLibraryPath(m_library->path());
    AreaFixture::cleanup();
}

void tst_DiskOfTheGuiThread::init()
{
    AreaFixture::init();
    static_cast<ISettingInterface&>(area()).setHandler(new FakeHandler);
    area().setTypeLibraryPath(m_library->path());
    m_window = std::make_unique<QWidget>();
    m_window->setLayout(new QVBoxLayout);
    m_window->layout()->addWidget(&area());
    m_window->resize(1000, 700);
    m_window->show();
    m_pTree = area().findChild<QTreeView*>(QStringLiteral("TypeLibrary"));
    // Once sorted, the types come behind the groups.
    QTRY_COMPARE(m_pTree->model()->index(groups, 0, m_pTree->rootIndex()).data().toString(),
                 QStringLiteral("Card.rcvp"));
}

void tst_DiskOfTheGuiThread::cleanup()
{
    area().setParent(nullptr);
    m_window.reset();
    AreaFixture::cleanup();
}

// Every second one.
void tst_DiskOfTheGuiThread::expandGroups()
{
    const QAbstractItemModel& model = *m_pTree->model();
    for (int group = 0; group < groups; group += 2) {
        const QPersistentModelIndex index = model.index(group, 0, m_pTree->rootIndex());
        m_pTree->expand(index);
        QTRY_COMPARE(model.rowCount(index), typesInGroup);
    }
}

void tst_DiskOfTheGuiThread::whatIsHeard()
{
    FileSystemCalls calls;
    QVERIFY(calls.take().isEmpty());
    QVERIFY(QFileInfo::exists(m_library->path()));
    QVERIFY(!calls.take().isEmpty());
    QVERIFY(!QDir(m_library->path()).isEmpty());
    QVERIFY(calls.take().contains(QStringLiteral("opendir(%1)").arg(m_library->path())));
    QFile file(m_library->path() + QStringLiteral("/Group 0/Type 1.rcvp"));
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(calls.take().value(0), QStringLiteral("open64(%1)").arg(file.fileName()));
    QVERIFY(!QStorageInfo(m_library->path()).device().isEmpty());
    QVERIFY(!calls.take().filter(QStringLiteral("statvfs64(")).isEmpty());
    const QString made = m_library->path() + QStringLiteral("/Group 0/made");
    QVERIFY(QDir().mkdir(made));
    QCOMPARE(calls.take(), QStringList({QStringLiteral("mkdir(%1)").arg(made)}));
    QVERIFY(QFileSystemWatcher().addPath(made));
    QVERIFY(calls.take().contains(QStringLiteral("inotify_add_watch(%1)").arg(made)));
    QVERIFY(QDir().rename(made, made + QLatin1Char('2')));
    QVERIFY(calls.take().contains(QStringLiteral("renameat2(%1)").arg(made)));
    QVERIFY(QDir().rmdir(made + QLatin1Char('2')));
}

void tst_DiskOfTheGuiThread::handlingWithoutTheDisk_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<Handling>("handling");
    const QStringList tabs = {QStringLiteral("preferences"), QStringLiteral("library"), QStringLiteral("health")};
    for (int tab = 0; tab < tabs.size(); ++tab) {
        const auto row = [&](const char* name) -> QTestData& {
            return QTest::addRow("%s, %s", qPrintable(tabs[tab]), name) << tab;
        };
        row("paint") << &paint;
        row("resize") << &resize;
        row("hover") << &hover;
        row("tooltip") << &askForTooltips;
        row("scroll") << &scroll;
    }
}

void tst_DiskOfTheGuiThread::handlingWithoutTheDisk()
{
    QFETCH(int, tab);
    QFETCH(Handling, handling);
    area().setCurrentTab(tab);
    expandGroups();
    paint(*m_window); // Qt looks for the fonts on the disk
    FileSystemCalls calls;
    handling(*m_window);
    QCOMPARE(calls.take().join(QLatin1Char('\n')), QString());
}

void tst_DiskOfTheGuiThread::wizardWithoutTheDisk()
{
    Wizard wizard(m_library->path());
    QCOMPARE(callsOf(wizard.dialog), QString());
    wizard.pick(QStringLiteral("Card"));
    wizard.next();
    QCOMPARE(wizard.step(), 1);
    QCOMPARE(callsOf(wizard.dialog), QString());
    wizard.applyTopology(QStringLiteral("left-down"));
    wizard.next();
    QCOMPARE(wizard.step(), 2);
    QCOMPARE(callsOf(wizard.dialog), QString());
}

void tst_DiskOfTheGuiThread::recipientDialogWithoutTheDisk()
{
    const QList<SEmailRecipient> recipients{{QStringLiteral("Bob"), QStringLiteral("bob@host.com")}};
    CEmailEditDlg dialog(&recipients, 0, nullptr);
    dialog.show();
    QCOMPARE(callsOf(dialog), QString());
}

void tst_DiskOfTheGuiThread::shortcutPanelWithoutTheDisk()
{
    QWidget overlay;
    CShortcutPanel panel(&overlay);
    const SSettings defaults;
    panel.setShortcuts(defaults.layoutShortcuts, defaults.softEdgeShortcuts);
    panel.setGeometry(0, 0, 1000, 245);
    panel.show();
    overlay.resize(1000, 245);
    overlay.show();
    QCOMPARE(callsOf(overlay), QString());
}

SETTINGAREA_TEST_MAIN(tst_DiskOfTheGuiThread, QApplication)
#include "tst_DiskOfTheGuiThread.moc"
