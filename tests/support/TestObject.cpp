#include "tests/support/TestObject.h"

#include <mutex>

namespace {

// Warnings come from any thread.
struct Warnings
{
    std::mutex mutex; // guards the lists
    QStringList unexpected;
    QList<QRegularExpression> expected;
};

Warnings& warnings()
{
    static Warnings seen;
    return seen;
}

QtMessageHandler previousHandler = nullptr;

// How the display stand-in's words on windows, menus and tooltips begin, whatever the program does.
const QLatin1String harmlessWarning("This plugin does not support ");

void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith(harmlessWarning))
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg) {
        Warnings& seen = warnings();
        const std::lock_guard<std::mutex> lock(seen.mutex);
        for (int i = 0; i < seen.expected.size(); ++i) {
            if (seen.expected.at(i).match(message).hasMatch()) {
                seen.expected.removeAt(i);
                return;
            }
        }
        seen.unexpected.append(message);
    }
    previousHandler(type, context, message);
}

} // namespace

void TestObject::expectWarning(const QRegularExpression& pattern)
{
    Warnings& seen = warnings();
    const std::lock_guard<std::mutex> lock(seen.mutex);
    seen.expected.append(pattern);
}

void TestObject::init()
{
    warnings().unexpected.clear();
    warnings().expected.clear();
    previousHandler = qInstallMessageHandler(handleMessage);
}

void TestObject::cleanup()
{
    qInstallMessageHandler(previousHandler);
    Warnings& seen = warnings();
    const std::lock_guard<std::mutex> lock(seen.mutex);
    QVERIFY2(seen.unexpected.isEmpty(), qPrintable(seen.unexpected.join(QLatin1Char('\n'))));
    for (const QRegularExpression& pattern : qAsConst(seen.expected))
        QFAIL(qPrintable(QStringLiteral("No warning matched ") + pattern.pattern()));
}
