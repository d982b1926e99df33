#pragma once

#include "plugin/CSettingArea.h"
#include "shortcut/CShortcutPanel.h"
#include "tests/support/FakeHandler.h"
#include "tests/support/TestObject.h"

#include <QMainWindow>
#include <QTabBar>
#include <QVBoxLayout>

// Base of the tests of the settings area. There is one area in a process, so each test function starts from a record
// of defaults, no handler and no library, and ends with the area in no window.
class AreaFixture : public TestObject
{
    Q_OBJECT

protected:
    static CSettingArea& area() { return CSettingArea::instance(); }
    static QTabBar* tabBar() { return area().findChild<QTabBar*>(QStringLiteral("SettingAreaTabBar")); }

protected Q_SLOTS:
    void init();
    void cleanup();
};

// A host's window with an overlay that fills its central widget.
struct HostWindow
{
    HostWindow()
    {
        window.setCentralWidget(new QWidget);
        overlay = new QWidget(new QWidget(window.centralWidget()));
        overlay->setObjectName(QStringLiteral("OverLay"));
        overlay->parentWidget()->resize(900, 600);
        overlay->resize(900, 600);
        overlayLayout = new QVBoxLayout(overlay);
    }

    CShortcutPanel* panel() const { return overlay->findChild<CShortcutPanel*>(); }

    QMainWindow window;
    QWidget* overlay;
    QVBoxLayout* overlayLayout;
};
