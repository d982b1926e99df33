// Leaves the process by one of its ways out while detached scans are under way. Arguments: library folder, way (0 to
// 4), and the number of microseconds that the scans get before it leaves. With an odd number the host takes its time
// for an answer.

#include "plugin/SettingHandler.h"
#include "tests/support/FakeHandler.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <QCoreApplication>

#include <chrono>
#include <thread>

namespace {

// As the plug-in keeps it: never destroyed.
std::shared_ptr<FakeHandler>& handler()
{
    static auto* const instance = new std::shared_ptr<FakeHandler>(new FakeHandler);
    return *instance;
}

// A host that looks at its data once more when it is told to end.
void askAtExit()
{
    CTypeLibrary& store = CTypeLibrary::instance();
    store.updateLibrary();
    if (store.nodes().size() > 1'000 || !store.searchSameName(QStringLiteral("nobody's")).isEmpty())
        std::abort();
}

} // namespace

std::shared_ptr<ISettingInterfaceHandler> settingHandler()
{
    return handler();
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    if (argc != 4)
        return 2;
    const QStringList arguments = QCoreApplication::arguments();

    const int microseconds = arguments.at(3).toInt();
    if (microseconds % 2 == 1) {
        handler()->resolution = [](const QString&) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            return QSize(1, 1);
        };
    }
    const int way = arguments.at(2).toInt();
    if (way == 4)
        std::atexit(askAtExit);

    CTypeLibrary& store = CTypeLibrary::instance();
    std::thread([&store, folder = arguments.at(1)] { store.setRootPath(folder); }).detach();
    store.startUpdate();
    std::this_thread::sleep_for(std::chrono::microseconds(microseconds));

    switch (way) {
    case 0:
    case 4:
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
