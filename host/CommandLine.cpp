#include "host/CommandLine.h"

#include "host/Catalogues.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace {

// Values that are no option's value are refused: the program takes no other arguments.
CommandLine refuse(const QString& reason)
{
    CommandLine result;
    result.action = CommandLine::Action::Refuse;
    result.message = QStringLiteral("orvel: %1\nTry 'orvel --help'.\n").arg(reason);
    return result;
}

QString absolute(const QString& path)
{
    return path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
}

const char help[] = R"(Usage: orvel [options]
Opens the Orvel window with the settings area.

Options:
  --plugin FILE      load this plug-in instead of the one beside the program or
                     the installed one
  --library DIR      open this type library instead of the one in the settings
  --settings FILE    keep the settings in this file
  --language LOCALE  start in this language: en or zh_CN
  --hide-priority-connection
                     do not let the user choose how processors are looked for
  --smtp-ca FILE     trust the authorities in this PEM file as well, when the
                     mail server shows its certificate
  --tour DIR         save a picture of every page and dialog, in every language
                     and at scale 1 and 2, in this folder, and end
  -h, --help         show this text, and end
  -v, --version      show the version, and end

Environment:
  QT_LOGGING_RULES="orvel.*=true"  tell on the standard error what is going on
)";

} // namespace

CommandLine CommandLine::parse(const QStringList& arguments)
{
    const auto valueOption = [](const char* name) {
        return QCommandLineOption(QLatin1String(name), QString(), QStringLiteral("VALUE"));
    };
    const QCommandLineOption plugin = valueOption("plugin");
    const QCommandLineOption library = valueOption("library");
    const QCommandLineOption settings = valueOption("settings");
    const QCommandLineOption language = valueOption("language");
    const QCommandLineOption smtpCa = valueOption("smtp-ca");
    const QCommandLineOption tour = valueOption("tour");
    const QCommandLineOption tourPass = valueOption("tour-pass"); // what a tour starts its passes with
    const QCommandLineOption hidePriority(QStringLiteral("hide-priority-connection"));
    const QCommandLineOption showHelp(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption showVersion(QStringList{QStringLiteral("v"), QStringLiteral("version")});

    QCommandLineParser parser;
    parser.addOptions(
        {plugin, library, settings, language, smtpCa, tour, tourPass, hidePriority, showHelp, showVersion});
    if (!parser.parse(arguments))
        return refuse(parser.errorText());
    if (!parser.positionalArguments().isEmpty())
        return refuse(QStringLiteral("Unexpected argument '%1'.").arg(parser.positionalArguments().constFirst()));
    for (const QCommandLineOption& option : {plugin, library, settings, language, smtpCa, tour, tourPass}) {
        if (parser.isSet(option) && parser.value(option).isEmpty())
            return refuse(QStringLiteral("Missing value after '--%1'.").arg(option.names().constFirst()));
    }

    CommandLine result;
    result.plugin = absolute(parser.value(plugin));
    result.library = absolute(parser.value(library));
    result.settings = absolute(parser.value(settings));
    result.language = parser.value(language);
    result.smtpCa = absolute(parser.value(smtpCa));
    result.tour = absolute(parser.value(tour));
    result.tourPass = parser.value(tourPass);
    result.hidePriorityConnection = parser.isSet(hidePriority);
    if (parser.isSet(language) && !Catalogues::speaks(QLocale(result.language)))
        return refuse(QStringLiteral("Unknown language '%1': use en or zh_CN.").arg(result.language));

    if (parser.isSet(showHelp) || parser.isSet(showVersion)) {
        result.action = Action::Say;
        result.message = parser.isSet(showHelp) ? QLatin1String(help) : QStringLiteral("orvel " ORVEL_VERSION "\n");
    } else if (parser.isSet(tourPass)) {
        result.action = Action::TourPass;
    } else if (parser.isSet(tour)) {
        result.action = Action::Tour;
    }
    return result;
}
