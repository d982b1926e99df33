#include "host/CTerminationSignals.h"

#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::array<int, 3> terminating{SIGINT, SIGTERM, SIGHUP};

int readEnd = -1;
int writeEnd = -1; // all that the handler touches

extern "C" void passOn(int /*signal*/)
{
    const int error = errno;
    const char byte = 0;
    // A full pipe has enough to say already.
    [[maybe_unused]] const auto written = ::write(writeEnd, &byte, 1);
    errno = error;
}

} // namespace

CTerminationSignals::CTerminationSignals(QObject* parent)
    : QObject(parent)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return; // the signals go on ending the process
    readEnd = ends[0];
    writeEnd = ends[1];
    auto* const notifier = new QSocketNotifier(readEnd, QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, [this] {
        char byte = 0;
        while (::read(readEnd, &byte, 1) > 0) {
        }
        Q_EMIT notifyTerminate();
    });
    for (const int signal : terminating) {
        if (std::signal(signal, passOn) == SIG_IGN)
            std::signal(signal, SIG_IGN); // as nohup wants it
    }
}

CTerminationSignals::~CTerminationSignals()
{
    if (readEnd < 0)
        return;
    for (const int signal : terminating)
        std::signal(signal, SIG_DFL);
    ::close(readEnd);
    ::close(writeEnd);
    readEnd = writeEnd = -1;
}
