#include "host/CHost.h"
#include "host/CLibraryLoader.h"
#include "host/CMainWindow.h"
#include "host/HostPaths.h"
#include "host/PluginLibrary.h"
#include "host/theme/Theme.h"
#include "plugin/interface/ISettingInterface.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QTabBar>
#include <QTemporaryDir>
#include <QToolButton>

#include <algorithm>

// The built plug-in's shortcut panel in this host's window.
class tst_PanelInWindow : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void overlayIsRaisedAndLowered();
    void pageIsUsableWhileThePanelIsOut();
    void pageIsUsableAboveThePanel();
    void closedByTheHost();
    void panelComesInTheNextHostsWindow();
    void languageChangesWhileThePanelIsIn();
    void nothingIsCutOff_data();
    void nothingIsCutOff();
    void keysLookLikeCaps();

private:
    std::unique_ptr<CHost> startHost() const;
    CMainWindow* window() const { return m_host->window(); }
    QWidget* named(const char* name) const { return window()->findChild<QWidget*>(QLatin1String(name)); }
    QWidget* panel() const { return named("ShortcutPanel"); }
    QTabBar* panelTabs() const { return window()->findChild<QTabBar*>(QStringLiteral("ShortCut")); }
    QTabBar* areaTabs() const { return window()->findChild<QTabBar*>(QStringLiteral("SettingAreaTabBar")); }
    std::shared_ptr<ISettingInterfaceHandler> handler() const;
    bool isOverlayOnTop() const;
    bool belongsTo(const QPoint& point, const QWidget* owner) const;
    void click(const QPoint& point) const;
    void slideIn();

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<CHost> m_host;
};

void tst_PanelInWindow::initTestCase()
{
    Theme::apply();
}

void tst_PanelInWindow::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_folder->path()).mkpath(QStringLiteral("types")));
    m_host = startHost();
    QTRY_VERIFY(!m_host->loader()->isBusy());
    m_host->area()->setCurrentTab(0);
}

std::unique_ptr<CHost> tst_PanelInWindow::startHost() const
{
    CommandLine commandLine;
    commandLine.settings = m_folder->filePath(QStringLiteral("settings.json"));
    commandLine.library = m_folder->filePath(QStringLiteral("types"));
    commandLine.language = QStringLiteral("en");
    auto host = std::make_unique<CHost>(commandLine);
    QString error;
    PluginLibrary plugin;
    if (!plugin.load(HostPaths::pluginCandidates(), error) || !host->start(plugin.initFunction(), plugin.path()))
        qFatal("%s", qPrintable(error));
    return host;
}

void tst_PanelInWindow::cleanup()
{
    m_host.reset();
    m_folder.reset();
    TestObject::cleanup();
}

std::shared_ptr<ISettingInterfaceHandler> tst_PanelInWindow::handler() const
{
    return std::dynamic_pointer_cast<ISettingInterfaceHandler>(m_host->area()->getHandler());
}

bool tst_PanelInWindow::isOverlayOnTop() const
{
    const QObjectList layers = window()->dock()->children();
    return layers.indexOf(named("OverLay")) > layers.indexOf(m_host->area()->widget());
}

// Whether what takes the mouse at the point of the dock is the widget or a child of it.
bool tst_PanelInWindow::belongsTo(const QPoint& point, const QWidget* owner) const
{
    const QWidget* const found = window()->dock()->childAt(point);
    return found && (found == owner || owner->isAncestorOf(found));
}

// As the window system does it: by the place alone.
void tst_PanelInWindow::click(const QPoint& point) const
{
    QTest::mouseClick(window()->windowHandle(), Qt::LeftButton, {}, window()->dock()->mapTo(window(), point));
}

// Presses the button on the Preferences page, where the page is shown.
void tst_PanelInWindow::slideIn()
{
    m_host->area()->setCurrentTab(0);
    const auto pages = m_host->area()->widget()->findChildren<QScrollArea*>();
    const auto page = std::find_if(pages.begin(), pages.end(),
                                   [](const QScrollArea* area) { return area->inherits("CPreferencesSettings"); });
    QVERIFY(page != pages.end());
    QWidget* const button = (*page)->findChild<QPushButton*>();
    (*page)->ensureWidgetVisible(button);
    click(button->mapTo(window()->dock(), button->rect().center()));
    QTRY_COMPARE(panel()->geometry().bottom(), named("OverLay")->rect().bottom());
    QVERIFY(panel()->isVisible());
}

void tst_PanelInWindow::overlayIsRaisedAndLowered()
{
    slideIn();
    QVERIFY(isOverlayOnTop());
    handler()->notifyShortcutPanelVisible(false);
    QVERIFY(!isOverlayOnTop());
    handler()->notifyShortcutPanelVisible(true);
    QVERIFY(isOverlayOnTop());
    QTest::mouseClick(panel()->findChild<QToolButton*>(), Qt::LeftButton);
    QVERIFY(isOverlayOnTop()); // the panel is still to be seen
    QTRY_VERIFY(!isOverlayOnTop());
    QVERIFY(!panel()->isVisible());

    slideIn(); // it comes above the page again
    QVERIFY(isOverlayOnTop());
    QVERIFY(belongsTo(panel()->geometry().center(), panel()));
}

void tst_PanelInWindow::pageIsUsableWhileThePanelIsOut()
{
    const QWidget* const area = m_host->area()->widget();
    const QPoint low(100, window()->dock()->height() - 100); // where the panel will be
    QVERIFY(belongsTo(low, area));
    slideIn();
    QVERIFY(belongsTo(low, panel()));
    m_host->area()->closeShortcutPanel();
    QVERIFY(!isOverlayOnTop());
    QVERIFY(belongsTo(low, area));
    const QPoint tab = areaTabs()->mapTo(window()->dock(), areaTabs()->tabRect(2).center());
    click(tab);
    QCOMPARE(areaTabs()->currentIndex(), 2);
    QTest::keyClick(areaTabs(), Qt::Key_Left);
    QCOMPARE(areaTabs()->currentIndex(), 1);
}

void tst_PanelInWindow::pageIsUsableAboveThePanel()
{
    slideIn();
    click(areaTabs()->mapTo(window()->dock(), areaTabs()->tabRect(1).center()));
    QCOMPARE(areaTabs()->currentIndex(), 1);
    QTest::keyClick(areaTabs(), Qt::Key_Left);
    QCOMPARE(areaTabs()->currentIndex(), 0);
    QVERIFY(panel()->isVisible());

    click(panelTabs()->mapTo(window()->dock(), panelTabs()->tabRect(1).center()));
    QCOMPARE(panelTabs()->currentIndex(), 1);
    click(panel()->findChild<QToolButton*>()->mapTo(window()->dock(), QPoint(8, 8)));
    QTRY_VERIFY(!panel()->isVisible());
}

void tst_PanelInWindow::closedByTheHost()
{
    slideIn();
    m_host->area()->closeShortcutPanel();
    QVERIFY(!panel()->isVisible());
    QVERIFY(!isOverlayOnTop());
    m_host->area()->closeShortcutPanel();
    slideIn();
    QVERIFY(isOverlayOnTop());
}

// The next host has its window before the one that has the panel ends.
void tst_PanelInWindow::panelComesInTheNextHostsWindow()
{
    slideIn();
    m_host = startHost();
    QTRY_VERIFY(!m_host->loader()->isBusy());
    QVERIFY(!panel());
    slideIn();
    QVERIFY(isOverlayOnTop());
    m_host->area()->closeShortcutPanel();
    QVERIFY(!isOverlayOnTop());
}

void tst_PanelInWindow::languageChangesWhileThePanelIsIn()
{
    slideIn();
    const auto texts = [this] {
        QStringList names;
        QStringList keys;
        const auto labels = panel()->findChildren<QLabel*>();
        for (const QLabel* label : labels)
            (label->objectName() == QLatin1String("Shortcut") ? keys : names).append(label->text());
        return std::pair(names, keys);
    };
    const auto english = texts();
    QCOMPARE(english.first.size(), 20);
    QCOMPARE(english.second.size(), 24);
    QCOMPARE(panelTabs()->tabText(0), QStringLiteral("Layout"));

    handler()->setLanguage(QLocale(QStringLiteral("zh_CN")));
    QTRY_COMPARE(panelTabs()->tabText(0), QString::fromUtf8("布局"));
    QCOMPARE(panelTabs()->tabText(1), QString::fromUtf8("修缝"));
    const auto chinese = texts();
    for (int i = 0; i < 20; ++i)
        QVERIFY2(chinese.first.at(i) != english.first.at(i), qPrintable(english.first.at(i)));
    QCOMPARE(chinese.second, english.second);
    QVERIFY(panel()->isVisible());

    handler()->setLanguage(QLocale(QStringLiteral("en")));
    QTRY_COMPARE(panelTabs()->tabText(0), QStringLiteral("Layout"));
    QCOMPARE(texts(), english);
}

void tst_PanelInWindow::nothingIsCutOff_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QSize>("size");
    for (const char* language : {"en", "zh_CN"}) {
        for (const QSize size : {QSize(960, 540), QSize(1024, 600), QSize(1280, 800), QSize(1920, 1080)})
            QTest::addRow("%s %d", language, size.width()) << QString::fromLatin1(language) << size;
    }
}

void tst_PanelInWindow::nothingIsCutOff()
{
    QFETCH(QString, language);
    QFETCH(QSize, size);
    handler()->setLanguage(QLocale(language));
    window()->resize(size);
    slideIn();
    QCOMPARE(window()->size(), size);
    QCOMPARE(panel()->size(), QSize(window()->dock()->width(), 245));
    for (int tab = 0; tab < 2; ++tab) {
        panelTabs()->setCurrentIndex(tab);
        QCoreApplication::processEvents();
        int shown = 0;
        const auto labels = panel()->findChildren<QLabel*>();
        for (const QLabel* label : labels) {
            if (!label->isVisible())
                continue;
            ++shown;
            const QSize needed = label->sizeHint();
            QVERIFY2(label->width() >= needed.width() && label->height() >= needed.height(), qPrintable(label->text()));
            const QRect place(label->mapTo(panel(), QPoint()), label->size());
            QVERIFY2(panel()->rect().contains(place), qPrintable(label->text()));
        }
        QCOMPARE(shown, tab == 0 ? 24 : 20);
        const QToolButton* const close = panel()->findChild<QToolButton*>();
        QVERIFY(panel()->rect().contains(QRect(close->mapTo(panel(), QPoint()), close->size())));
        QCOMPARE(panelTabs()->width(), panelTabs()->sizeHint().width());
    }
}

void tst_PanelInWindow::keysLookLikeCaps()
{
    slideIn();
    const auto caps = panel()->findChildren<QLabel*>(QStringLiteral("Shortcut"));
    for (QLabel* cap : caps) {
        if (!cap->isVisible())
            continue;
        QCOMPARE(cap->height(), 24);
        QVERIFY(cap->width() >= cap->height());
        const QImage picture = cap->grab().toImage();
        QCOMPARE(picture.pixelColor(cap->width() / 2, 0), QColor(115, 115, 128));  // edge
        QCOMPARE(picture.pixelColor(3, 10), QColor(57, 57, 64));                   // face
        QCOMPARE(picture.pixelColor(cap->width() / 2, 21), QColor(115, 115, 128)); // side
        QVERIFY(picture.pixelColor(0, 0) != QColor(115, 115, 128));                // rounded
    }
}

SETTINGAREA_TEST_MAIN(tst_PanelInWindow, QApplication)
#include "tst_PanelInWindow.moc"
