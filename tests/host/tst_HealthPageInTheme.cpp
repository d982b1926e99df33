#include "host/CHost.h"
#include "host/CMainWindow.h"
#include "host/HostPaths.h"
#include "host/PluginLibrary.h"
#include "host/theme/Theme.h"
#include "plugin/interface/ISettingInterface.h"
#include "tests/monitoring/Controls.h"
#include "tests/support/TestObject.h"

#include <QApplication>
#include <QTabBar>
#include <QTemporaryDir>

// The built plug-in's Health settings page in this host's colours and margins.
class tst_HealthPageInTheme : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void targetsStandBesideTheSender();
};

namespace {

QRect place(const QWidget* widget)
{
    return {widget->mapToGlobal(QPoint()), widget->size()};
}

} // namespace

void tst_HealthPageInTheme::targetsStandBesideTheSender()
{
    Theme::apply();
    const QTemporaryDir folder;
    CommandLine commandLine;
    commandLine.settings = folder.filePath(QStringLiteral("settings.json"));
    commandLine.library = folder.filePath(QStringLiteral("types"));
    commandLine.language = QStringLiteral("en");
    QString error;
    PluginLibrary plugin;
    QVERIFY2(plugin.load(HostPaths::pluginCandidates(), error), qPrintable(error));
    CHost host(commandLine);
    QVERIFY(host.start(plugin.initFunction(), plugin.path()));
    host.window()->show();
    const QWidget& area = *host.area()->widget();
    area.findChild<QTabBar*>(QStringLiteral("SettingAreaTabBar"))->setCurrentIndex(2);
    QCoreApplication::processEvents();

    const auto* const sender = named<QLineEdit>(area, "Email address");
    QVERIFY(sender->isVisible());
    const QWidgetList row{withText<QLabel>(area, "Target mailboxes"), withText<QAbstractButton>(area, "Add email")};
    for (const QWidget* widget : row) {
        QCOMPARE(place(widget).top(), place(sender).top());
        QCOMPARE(place(widget).bottom(), place(sender).bottom());
    }
}

SETTINGAREA_TEST_MAIN(tst_HealthPageInTheme, QApplication)
#include "tst_HealthPageInTheme.moc"
