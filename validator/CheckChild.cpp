#include "validator/CheckChild.h"

#include "validator/Checks.h"
#include "validator/Report.h"
#include "validator/Trace.h"

#include <QApplication>
#include <QProxyStyle>
#include <QStyleFactory>
#include <QTemporaryDir>

#include <cstdio>

namespace {

Report* theReport = nullptr;
QtMessageHandler previousHandler = nullptr;

// How the display stand-in's words on windows, menus and tooltips begin, whatever the program does.
const QLatin1String harmlessWarning("This plugin does not support ");

// What Qt warns of is a mistake in the use of it.
void handleMessage(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (message.startsWith(harmlessWarning))
        return;
    if (type == QtWarningMsg || type == QtCriticalMsg)
        theReport->fail(QStringLiteral("Qt warns: %1").arg(message));
    previousHandler(type, context, message);
}

// A style that waits for nothing, so that what happens does not hang on how fast the machine is.
class PromptStyle : public QProxyStyle
{
public:
    PromptStyle()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("fusion")))
    {
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        switch (hint) {
        case SH_Menu_SubMenuPopupDelay:
        case SH_Widget_Animation_Duration:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, data);
        }
    }
};

// Folders of its own, so that no dialog looks into the user's.
void liveIn(const QString& home)
{
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, home.toLocal8Bit());
}

} // namespace

int runCheck(const Options& options, int argc, char** argv)
{
    const QTemporaryDir home;
    liveIn(home.path());
    Trace trace(options.trace, false);
    Report report(trace);
    theReport = &report;
    previousHandler = qInstallMessageHandler(handleMessage);

    // A dialog of the desktop could not be driven, and would show the user's files.
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setStyle(new PromptStyle);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    QApplication::setCursorFlashTime(0);
    QApplication::setKeyboardInputInterval(-1);
    QLocale::setDefault({QLocale::English, QLocale::UnitedStates});

    const auto position = static_cast<std::size_t>(options.check);
    if (options.check < 0 || position >= checks().size()) {
        report.fail(QStringLiteral("there is no check %1").arg(options.check));
        return 1;
    }
    checks()[position].run(options, report);
    qInstallMessageHandler(previousHandler);
    return report.hasFailed() ? 1 : 0;
}
