#include "tests/support/TestObject.h"

#include <mutex>

namespace {

std::mutex messageMutex; // guards the lists below: warnings come from any thread
QStringList unexpectedWarnings;
QList<QRegularExpression> expectedWarnings;
QtMessageHandler previousHandler = nullptr;

// What the display stand-in says of every window, whatever the program does.
const QLatin1String harmlessWarning("This plugin does not support propagateSizeHints()");

void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message == harmlessWarning)
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        const std::lock_guard<std::mutex> lock(messageMutex);
        for (int i = 0; i < expectedWarnings.size(); ++i) {
            if (expectedWarnings.at(i).match(message).hasMatch()) {
                expectedWarnings.removeAt(i);
                return;
            }
        }
        unexpectedWarnings.append(message);
    }
    previousHandler(type, context, message);
}

} // namespace

void TestObject::expectWarning(const QRegularExpression& pattern)
{
    const std::lock_guard<std::mutex> lock(messageMutex);
    expectedWarnings.append(pattern);
}

void TestObject::init()
{
    unexpectedWarnings.clear();
    expectedWarnings.clear();
    previousHandler = qInstallMessageHandler(handleMessage);
}

void TestObject::cleanup()
{
    qInstallMessageHandler(previousHandler);
    const std::lock_guard<std::mutex> lock(messageMutex);
    QVERIFY2(unexpectedWarnings.isEmpty(), qPrintable(unexpectedWarnings.join(QLatin1Char('\n'))));
    for (const QRegularExpression& pattern : qAsConst(expectedWarnings))
        QFAIL(qPrintable(QStringLiteral("No warning matched ") + pattern.pattern()));
}
