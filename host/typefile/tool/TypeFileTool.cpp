#include "host/typefile/tool/TypeFileTool.h"

#include "host/typefile/TypeFile.h"
#include "host/typefile/tool/CreateOptions.h"
#include "host/typefile/tool/SampleTypes.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QTextStream>

#include <algorithm>

namespace {

enum ExitCode : int
{
    Done,
    FileFailed,
    WrongArguments,
};

int fail(ExitCode code, const QString& reason)
{
    QTextStream(stderr) << QStringLiteral("orvel-typefile: ") << reason << '\n';
    return code;
}

int failFile(const QString& path, const QString& reason)
{
    return fail(FileFailed, path + QStringLiteral(": ") + reason);
}

void showRecord(QTextStream& out, const SHwRcvInCabinetInfo& record)
{
    out << "receivers:    " << record.columns << " x " << record.rows << ", wired";
    for (int k = 0; k < record.columns * record.rows; ++k)
        out << ' ' << record.wiringOrder[static_cast<std::size_t>(k)];
    out << (record.specifyOrientation ? " with orientation\n" : "\n");
    out << "source:       " << record.name << ", digest " << record.md5.data << '\n';
    out << "label:        " << record.weight << " kg, " << record.power << " W, " << record.voltageMin << " to "
        << record.voltageMax << " V\n";
}

int create(const QStringList& paths, const QCommandLineParser& parser)
{
    const QString& path = paths.first();
    CreateOptions options;
    QString error = options.read(parser);
    if (!error.isEmpty())
        return fail(WrongArguments, error);
    if (QFileInfo::exists(path))
        return failFile(path, TypeFileTool::tr("The file exists already."));
    return TypeFile::write(path, options.header, options.payload, error) ? Done : failFile(path, error);
}

int show(const QStringList& paths, const QCommandLineParser& /*parser*/)
{
    const QString& path = paths.first();
    QString error;
    const auto header = TypeFile::readHeader(path, error);
    if (!header)
        return failFile(path, error);
    QTextStream out(stdout);
    out << "format:       " << header->majorVersion << '.' << header->minorVersion << '\n';
    out << "kind:         " << (header->isMultiReceiver() ? "multi-receiver" : "single-receiver") << '\n';
    out << "cabinet:      " << header->cabinetSize().width() << " x " << header->cabinetSize().height() << " pixels\n";
    out << "receiver:     " << header->width << " x " << header->height << " pixels, model " << header->receiverKind
        << '\n';
    out << "block:       ";
    for (const std::int64_t value : header->block)
        out << ' ' << value;
    out << "\npayload:      " << header->payloadSize << " bytes\n";
    if (header->cabinet)
        showRecord(out, *header->cabinet);
    return Done;
}

int check(const QStringList& paths, const QCommandLineParser& /*parser*/)
{
    int result = Done;
    for (const QString& path : paths) {
        QString error;
        if (TypeFile::verify(path, error))
            QTextStream(stdout) << path << QStringLiteral(": ") << TypeFileTool::tr("sound") << '\n';
        else
            result = failFile(path, error);
    }
    return result;
}

int writeSamples(const QStringList& paths, const QCommandLineParser& /*parser*/)
{
    QString error;
    return SampleTypes::write(paths.first(), error) ? Done : fail(FileFailed, error);
}

struct Command
{
    const char* name;
    bool takesOptions;
    bool takesManyPaths;
    int (*run)(const QStringList& paths, const QCommandLineParser& parser);
};

constexpr Command commands[] = {
    {"create", true, false, create},
    {"show", false, false, show},
    {"check", false, true, check},
    {"samples", false, false, writeSamples},
};

} // namespace

int TypeFileTool::run(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(tr("Makes, shows and checks type files.\n\n"
                                        "Commands:\n"
                                        "  create FILE   makes a type file; only this command takes options\n"
                                        "  show FILE     prints what the header says\n"
                                        "  check FILE... reads the whole files and compares their checksums\n"
                                        "  samples DIR   writes the sample library into the folder"));
    // Not the parser's own, which comes with another one about the options of Qt.
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, tr("Prints this text."));
    parser.addOption(help);
    const QCommandLineOption version = parser.addVersionOption();
    parser.addOptions(CreateOptions::list());
    parser.addPositionalArgument(QStringLiteral("command"), tr("One of the above."));
    parser.addPositionalArgument(QStringLiteral("path"), tr("Files or folder."), QStringLiteral("path..."));
    if (!parser.parse(arguments))
        return fail(WrongArguments, parser.errorText());
    if (parser.isSet(help) || parser.isSet(version)) {
        const QString versionText = QCoreApplication::applicationName() + QLatin1Char(' ') +
                                    QCoreApplication::applicationVersion() + QLatin1Char('\n');
        QTextStream(stdout) << (parser.isSet(help) ? parser.helpText() : versionText);
        return Done;
    }
    QStringList paths = parser.positionalArguments();
    const QString name = paths.isEmpty() ? QString() : paths.takeFirst();
    const auto hasName = [&name](const Command& command) { return name == QLatin1String(command.name); };
    const auto command = std::find_if(std::begin(commands), std::end(commands), hasName);
    if (command == std::end(commands))
        return fail(WrongArguments, tr("There is no command \"%1\"; --help lists them.").arg(name));
    // An empty one would be the root folder to "samples".
    if (paths.isEmpty() || paths.contains(QString()))
        return fail(WrongArguments, tr("\"%1\" needs a path.").arg(name));
    if (paths.size() > 1 && !command->takesManyPaths)
        return fail(WrongArguments, tr("\"%1\" takes one path.").arg(name));
    if (!parser.optionNames().isEmpty() && !command->takesOptions)
        return fail(WrongArguments, tr("\"%1\" takes no options.").arg(name));
    return command->run(paths, parser);
}
