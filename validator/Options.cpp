#include "validator/Options.h"

#include <QCommandLineParser>
#include <QFileInfo>

#include <limits>

namespace {

const char help[] = R"(Usage: orvel-validate PLUGIN [options]
Checks a build of the settings plug-in from outside, as a host meets it. Each
check runs in a process of its own, so that a crash is a finding.

Options:
  --strictness N     1 (loads) to 10 (200,000 random events); 5 by default.
                     Each level has the checks of those below it
  --seed N           what random use begins with; 1 by default
  --events N         length of random use, instead of the level's own
  --patience N       seconds without progress before a check counts as hanging;
                     60 by default
  -h, --help         show this text, and end
  -v, --version      show the version, and end

Prints a line for each check, and ends with 0 when all of them hold, with 1 when
one fails, and with 2 when it cannot begin.
)";

// One more than each level: what the levels from 7 on ask for.
constexpr int firstRandomLevel = 7;
constexpr int randomEvents[] = {1'000, 10'000, 50'000, 200'000};

Options refuse(const QString& reason)
{
    Options result;
    result.action = Options::Action::Refuse;
    result.message = QStringLiteral("orvel-validate: %1\nTry 'orvel-validate --help'.\n").arg(reason);
    return result;
}

// Whether the text is a whole number of the range; `value` is set when it is.
template<typename Number>
bool readNumber(const QString& text, Number lowest, Number highest, Number& value)
{
    bool isNumber = false;
    const qulonglong number = text.toULongLong(&isNumber);
    if (!isNumber || number < static_cast<qulonglong>(lowest) || number > static_cast<qulonglong>(highest))
        return false;
    value = static_cast<Number>(number);
    return true;
}

} // namespace

int Options::eventsOf(int strictness)
{
    return strictness < firstRandomLevel ? 0 : randomEvents[strictness - firstRandomLevel];
}

Options Options::parse(const QStringList& arguments)
{
    const auto valueOption = [](const char* name) {
        return QCommandLineOption(QLatin1String(name), QString(), QStringLiteral("VALUE"));
    };
    const QCommandLineOption strictness = valueOption("strictness");
    const QCommandLineOption seed = valueOption("seed");
    const QCommandLineOption events = valueOption("events");
    const QCommandLineOption patience = valueOption("patience");
    const QCommandLineOption check = valueOption("check"); // what a child is started with
    const QCommandLineOption trace = valueOption("trace");
    const QCommandLineOption showHelp(QStringList{QStringLiteral("h"), QStringLiteral("help")});
    const QCommandLineOption showVersion(QStringList{QStringLiteral("v"), QStringLiteral("version")});

    QCommandLineParser parser;
    parser.addOptions({strictness, seed, events, patience, check, trace, showHelp, showVersion});
    if (!parser.parse(arguments))
        return refuse(parser.errorText());

    Options result;
    if (parser.isSet(showHelp) || parser.isSet(showVersion)) {
        result.action = Action::Say;
        result.message =
            parser.isSet(showHelp) ? QLatin1String(help) : QStringLiteral("orvel-validate " VALIDATOR_VERSION "\n");
        return result;
    }
    const QStringList plugins = parser.positionalArguments();
    if (plugins.isEmpty())
        return refuse(QStringLiteral("No plug-in is named."));
    if (plugins.size() > 1)
        return refuse(QStringLiteral("Unexpected argument '%1'.").arg(plugins.at(1)));
    const QFileInfo file(plugins.constFirst());
    if (!file.isFile())
        return refuse(QStringLiteral("%1: no such file.").arg(plugins.constFirst()));
    result.plugin = file.absoluteFilePath();

    const auto read = [&parser](const QCommandLineOption& option, auto lowest, auto highest, auto& value) {
        return !parser.isSet(option) || readNumber(parser.value(option), lowest, highest, value);
    };
    if (!read(strictness, gentlest, strictest, result.strictness))
        return refuse(QStringLiteral("The strictness is a number from 1 to 10."));
    if (!read(seed, std::uint64_t{0}, std::numeric_limits<std::uint64_t>::max(), result.seed))
        return refuse(QStringLiteral("The seed is a number from 0 to 18446744073709551615."));
    result.events = eventsOf(result.strictness);
    if (!read(events, 0, 1'000'000'000, result.events))
        return refuse(QStringLiteral("The events are a number from 0 to 1000000000."));
    if (!read(patience, 1, 3600, result.patience))
        return refuse(QStringLiteral("The patience is a number of seconds from 1 to 3600."));
    if (parser.isSet(check)) {
        result.action = Action::Child;
        result.check = parser.value(check).toInt();
        result.trace = parser.value(trace);
    }
    return result;
}

QStringList Options::childArguments(int position, const QString& traceFile) const
{
    return {plugin,
            QStringLiteral("--strictness"),
            QString::number(strictness),
            QStringLiteral("--seed"),
            QString::number(seed),
            QStringLiteral("--events"),
            QString::number(events),
            QStringLiteral("--patience"),
            QString::number(patience),
            QStringLiteral("--check"),
            QString::number(position),
            QStringLiteral("--trace"),
            traceFile};
}
