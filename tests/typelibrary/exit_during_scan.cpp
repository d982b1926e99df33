// Leaves the process by one of its ways out while detached scans are under way. Arguments: library folder, way (0 to
// 3), and the number of microseconds that the scans get before it leaves.

#include "plugin/SettingHandler.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <QCoreApplication>

#include <chrono>
#include <thread>

std::shared_ptr<ISettingInterfaceHandler> settingHandler()
{
    return nullptr;
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc != 4)
        return 2;
    const QStringList arguments = QCoreApplication::arguments();

    CTypeLibrary& store = CTypeLibrary::instance();
    std::thread([&store, folder = arguments.at(1)] { store.setRootPath(folder); }).detach();
    store.startUpdate();
    std::this_thread::sleep_for(std::chrono::microseconds(arguments.at(3).toInt()));

    switch (arguments.at(2).toInt()) {
    case 0:
        return 0;
    case 1:
        std::exit(0);
    case 2: {
        // A store of the host's own that goes away with everything it holds.
        CTypeLibrary passing;
        passing.startUpdate();
        return 0;
    }
    default:
        std::quick_exit(0);
    }
}
