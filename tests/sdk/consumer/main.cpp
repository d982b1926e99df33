#include "QuietHandler.h"

#include <ISettingInterface.h>
#include <SettingArea_Init.h>

#include <QApplication>
#include <QLibrary>
#include <QMainWindow>

#include <thread>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QLibrary plugin(QStringLiteral("settingarea"));
    const auto init = reinterpret_cast<SettingArea_InitFunction>(plugin.resolve(SettingArea_InitSymbol));
    if (!init)
        qFatal("%s", qPrintable(plugin.errorString()));

    QMainWindow window;
    IAbstractControlInterface* control = nullptr;
    if (!init(&control, &window))
        qFatal("The settings area could not be built");
    auto* const settings = static_cast<ISettingInterface*>(control);
    settings->setHandler(new QuietHandler); // the settings area owns it from here on
    settings->setSettings(SSettings());     // the record that the last session stored
    std::thread([=, path = application.arguments().value(1)] { settings->setTypeLibraryPath(path); }).detach();

    window.setCentralWidget(settings->widget());
    window.show();
    return application.exec();
}
