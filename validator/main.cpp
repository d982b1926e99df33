#include "validator/CheckChild.h"
#include "validator/Options.h"
#include "validator/RunChecks.h"

#include <QCoreApplication>
#include <QTextStream>

int main(int argc, char** argv)
{
    QStringList arguments;
    for (int i = 0; i < argc; ++i)
        arguments << QString::fromLocal8Bit(argv[i]);
    const Options options = Options::parse(arguments);
    switch (options.action) {
    case Options::Action::Say:
        QTextStream(stdout) << options.message;
        return 0;
    case Options::Action::Refuse:
        QTextStream(stderr) << options.message;
        return 2;
    case Options::Action::Child: {
        // Qt has options of its own: it gets to see none of ours.
        int count = 1;
        char* program[] = {argv[0], nullptr};
        return runCheck(options, count, program);
    }
    case Options::Action::Run:
        break;
    }
    // Without a display, whatever the user has: nothing is to appear on it, or to be clicked by hand.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Qt's own event loop does everything that waits in each of its turns, so that random use can count them.
    qputenv("QT_NO_GLIB", "1");
    const QCoreApplication application(argc, argv);
    return runChecks(options);
}
