// foreign_host CONTRACT: calls every operation of the interfaces that the file CONTRACT lists, and makes the settings
// area call every operation of its handler, as a user's hands do. Ends with 0 when each was called and everything that
// crossed the border arrived as it was sent.

#include "Check.h"
#include "Tour.h"

#include <SettingArea_Init.h>

#include <QApplication>
#include <QLibrary>
#include <QMainWindow>
#include <QVBoxLayout>

namespace {

QWidget* addOverlay(QMainWindow& window)
{
    window.resize(1200, 800);
    window.setCentralWidget(new QWidget);
    new QVBoxLayout(window.centralWidget());
    auto* const overlay = new QWidget(new QWidget(window.centralWidget()));
    overlay->setObjectName(QStringLiteral("OverLay"));
    overlay->parentWidget()->resize(window.size());
    overlay->resize(window.size());
    new QVBoxLayout(overlay);
    return overlay;
}

} // namespace

int main(int argc, char** argv)
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    QLibrary plugin(QStringLiteral("settingarea"));
    const auto init = reinterpret_cast<SettingArea_InitFunction>(plugin.resolve(SettingArea_InitSymbol));
    if (!init)
        qFatal("%s", qPrintable(plugin.errorString()));

    Calls calls;
    QMainWindow window;
    QWidget* const overlay = addOverlay(window);
    IAbstractControlInterface* control = nullptr;
    CHECK(!init(nullptr, &window));
    calls.note("SettingArea_Init");
    if (!init(&control, &window))
        qFatal("the settings area could not be built");
    window.centralWidget()->layout()->addWidget(control->widget());
    window.show();

    Tour tour(calls, overlay, control);
    tour.control();
    tour.settings();
    tour.library();
    tour.preferences();
    tour.shortcuts();
    tour.mail();
    tour.importFolder();
    tour.makeType();
    tour.deleteUsedType();
    tour.replaceHandler();

    const QStringList missing = calls.report(QCoreApplication::arguments().value(1));
    for (const QString& one : missing)
        check(false, qPrintable(one));
    return faults() == 0 ? 0 : 1;
}
