#include "host/CMainWindow.h"
#include "host/CPlacedTypesPanel.h"
#include "host/CStatusBar.h"
#include "host/Catalogues.h"
#include "host/HostPaths.h"
#include "tests/host/ModalAnswer.h"
#include "tests/support/TestObject.h"

#include <widgetry/CToolTip.h>

#include <QAction>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QSignalSpy>
#include <QTemporaryDir>

class tst_CMainWindow : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void theAreaIsLaidOutBeneathTheOverlay();
    void theOverlayIsRaisedAndLowered();
    void itFitsASmallScreen();
    void thePlacedTypesCanBeHidden();
    void theMenusFollowTheLanguage();
    void noShortcutIsTakenFromThePages();
    void theStatusBarSaysWhatIsGoingOn();
    void theStatusBarSaysWhetherTheLibraryIsThere();
    void closingAsksFirst();
    void theTitleNamesTheProject();
    void aboutSaysTheVersion();
    void warningsLieOverTheOpenDialog();
};

namespace {

QString labelText(const CMainWindow& window, const char* name)
{
    return window.status()->findChild<QLabel*>(QLatin1String(name))->text();
}

} // namespace

void tst_CMainWindow::theAreaIsLaidOutBeneathTheOverlay()
{
    CMainWindow window;
    auto* const overlay = window.centralWidget()->findChild<QWidget*>(QStringLiteral("OverLay"));
    QVERIFY(overlay);
    auto* const area = new QWidget(window.dock());
    window.layOut(area);
    window.show();
    QTRY_COMPARE(area->size(), window.centralWidget()->size());
    QCOMPARE(overlay->geometry(), area->geometry());
    const QObjectList layers = window.dock()->children();
    QVERIFY(layers.indexOf(area) < layers.indexOf(overlay));
}

void tst_CMainWindow::theOverlayIsRaisedAndLowered()
{
    CMainWindow window;
    auto* const overlay = window.centralWidget()->findChild<QWidget*>(QStringLiteral("OverLay"));
    auto* const area = new QWidget(window.dock());
    window.layOut(area);
    const QObjectList& layers = window.dock()->children();
    window.setOverlayRaised(false);
    QVERIFY(layers.indexOf(overlay) < layers.indexOf(area));
    window.setOverlayRaised(true);
    QVERIFY(layers.indexOf(overlay) > layers.indexOf(area));
}

void tst_CMainWindow::itFitsASmallScreen()
{
    CMainWindow window;
    window.show();
    const int screenHeight = window.screen()->availableSize().height();
    QVERIFY2(screenHeight <= 800, "needs a screen that is too small for the whole first size");
    QVERIFY2(window.height() < screenHeight, qPrintable(QString::number(window.height()))); // a title bar has room
    window.resize(1024, 600);
    QCOMPARE(window.size(), QSize(1024, 600));
    QVERIFY(window.minimumWidth() <= 1024 && window.minimumHeight() <= 560);
}

void tst_CMainWindow::thePlacedTypesCanBeHidden()
{
    CMainWindow window;
    auto* const area = new QWidget(window.dock());
    window.layOut(area);
    window.resize(1024, 600);
    window.show();
    QAction* const shown = window.action(CMainWindow::PlacedTypes);
    QVERIFY(shown->isCheckable());
    QVERIFY(shown->isChecked());
    QVERIFY(window.placedTypes()->isVisible());
    QVERIFY2(window.placedTypes()->width() <= 240, qPrintable(QString::number(window.placedTypes()->width())));
    QTRY_VERIFY(area->width() >= 780);
    shown->trigger();
    QVERIFY(!window.placedTypes()->isVisible());
    QVERIFY(!shown->isChecked());
    QTRY_COMPARE(area->width(), 1024);
    shown->trigger();
    QVERIFY(window.placedTypes()->isVisible());
    QCOMPARE(window.placedTypes()->parentWidget()->windowTitle(), QStringLiteral("Placed types"));
    QCOMPARE(shown->text(), QStringLiteral("P&laced types"));
}

void tst_CMainWindow::theMenusFollowTheLanguage()
{
    Catalogues catalogues(HostPaths::translationsFolder());
    CMainWindow window;
    QCOMPARE(window.action(CMainWindow::FileMenu)->text(), QStringLiteral("&File"));
    QCOMPARE(window.action(CMainWindow::HealthSettings)->text(), QStringLiteral("&Health settings"));
    QCOMPARE(labelText(window, "StatusState"), QStringLiteral("Types: 0"));
    catalogues.setLocale(QLocale(QLocale::Chinese));
    QCoreApplication::sendPostedEvents();
    QCOMPARE(window.action(CMainWindow::FileMenu)->text(), QStringLiteral("\u6587\u4ef6(&F)"));
    QCOMPARE(labelText(window, "StatusState"), QStringLiteral("\u7bb1\u4f53\u7c7b\u578b\uff1a0"));
    for (int command = CMainWindow::FileMenu; command <= CMainWindow::AboutQt; ++command) {
        const QString text = window.action(static_cast<CMainWindow::Command>(command))->text();
        const auto isChinese = [](QChar c) { return c.script() == QChar::Script_Han; };
        QVERIFY2(std::any_of(text.begin(), text.end(), isChinese), qPrintable(text));
    }
}

// The type library has Ctrl+N, Ctrl+I and Ctrl+A: a key with two owners would do nothing.
void tst_CMainWindow::noShortcutIsTakenFromThePages()
{
    CMainWindow window;
    QStringList keys;
    for (int command = CMainWindow::FileMenu; command <= CMainWindow::AboutQt; ++command) {
        const QKeySequence key = window.action(static_cast<CMainWindow::Command>(command))->shortcut();
        if (!key.isEmpty())
            keys << key.toString(QKeySequence::PortableText);
    }
    keys.sort();
    QCOMPARE(keys.join(QLatin1Char(' ')),
             QStringLiteral("Ctrl+1 Ctrl+2 Ctrl+3 Ctrl+4 Ctrl+L Ctrl+O Ctrl+Q Ctrl+S Ctrl+Shift+L"));
}

void tst_CMainWindow::theStatusBarSaysWhatIsGoingOn()
{
    CMainWindow window;
    window.status()->setPlugin(QStringLiteral("/opt/lib/libsettingarea.so"));
    window.status()->setLibraryFolder(QStringLiteral("/srv/<b>wall</b>"));
    window.status()->setScanning(true);
    QCOMPARE(labelText(window, "StatusState"), QStringLiteral("Scanning the type library..."));
    window.status()->setScanning(false);
    window.status()->setTypeCount(21);
    QCOMPARE(labelText(window, "StatusState"), QStringLiteral("Types: 21"));
    QCOMPARE(labelText(window, "StatusFolder"), QStringLiteral("Type library: b> (not found)")); // plain text
    QCOMPARE(labelText(window, "StatusPlugin"), QStringLiteral("Plug-in: libsettingarea.so"));
    QCOMPARE(window.status()->findChild<QLabel*>(QStringLiteral("StatusFolder"))->textFormat(), Qt::PlainText);
    QCOMPARE(window.status()->findChild<QLabel*>(QStringLiteral("StatusPlugin"))->toolTip(),
             CToolTip::fromPlainText(QStringLiteral("/opt/lib/libsettingarea.so")));
}

void tst_CMainWindow::theStatusBarSaysWhetherTheLibraryIsThere()
{
    const QTemporaryDir disk;
    const QString library = disk.filePath(QStringLiteral("wall"));
    CMainWindow window;
    QCOMPARE(labelText(window, "StatusFolder"), QStringLiteral("Type library: none"));
    window.status()->setLibraryFolder(library);
    QCOMPARE(labelText(window, "StatusFolder"), QStringLiteral("Type library: wall (not found)"));
    QVERIFY(QDir().mkdir(library));
    window.status()->setTypeCount(0); // comes whenever the window is activated, and does not touch the disk
    QCOMPARE(labelText(window, "StatusFolder"), QStringLiteral("Type library: wall (not found)"));
    window.status()->setLibraryFolder(library);
    QCOMPARE(labelText(window, "StatusFolder"), QStringLiteral("Type library: wall"));
}

void tst_CMainWindow::closingAsksFirst()
{
    CMainWindow window;
    window.show();
    bool mayClose = false;
    int questions = 0;
    window.setCloseQuery([&] {
        ++questions;
        return mayClose;
    });
    window.action(CMainWindow::Quit)->trigger();
    QVERIFY(window.isVisible());
    mayClose = true;
    window.action(CMainWindow::Quit)->trigger();
    QVERIFY(!window.isVisible());
    QCOMPARE(questions, 2);
}

void tst_CMainWindow::theTitleNamesTheProject()
{
    CMainWindow window;
    window.setProject(QStringLiteral("Stage"), false);
    QCOMPARE(window.windowTitle(), QStringLiteral("Stage[*]"));
    QVERIFY(!window.isWindowModified());
    window.setProject(QStringLiteral("Stage"), true);
    QVERIFY(window.isWindowModified());
}

void tst_CMainWindow::aboutSaysTheVersion()
{
    CMainWindow window;
    window.show();
    const ModalAnswer answer(CDialog::Ok);
    window.action(CMainWindow::About)->trigger();
    QVERIFY(answer.wasThere());
    QCOMPARE(answer.text().section(QLatin1Char('\n'), 0, 0), QStringLiteral("Orvel " ORVEL_VERSION));
}

void tst_CMainWindow::warningsLieOverTheOpenDialog()
{
    CMainWindow window;
    window.show();
    QDialog dialog(&window);
    QWidget* owner = nullptr;
    const ModalAnswer first([&](QWidget*) {
        const ModalAnswer second([&](QWidget* box) {
            owner = box->parentWidget();
            box->close();
        });
        window.warn(QStringLiteral("no"));
        dialog.close();
    });
    dialog.exec();
    QCOMPARE(owner, &dialog);
}

SETTINGAREA_TEST_MAIN(tst_CMainWindow, QApplication)
#include "tst_CMainWindow.moc"
