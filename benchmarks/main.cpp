#include "benchmarks/CountedWork.h"
#include "benchmarks/Rows.h"
#include "typelibrary/store/TypeFileAttributes.h"

#include <QApplication>
#include <QCommandLineParser>

#include <algorithm>
#include <array>
#include <cstdio>

namespace {

struct Row
{
    const char* name;
    std::vector<Measurement> (*measure)(const BenchOptions& options);
};

constexpr std::array rows{
    Row{"cold-scan", measureColdScan},
    Row{"rescan", measureRescan},
    Row{"get-settings", measureGetSettings},
    Row{"searches", measureSearches},
    Row{"model", measureModel},
    Row{"stall", measureStall},
    Row{"import-files", measureImportFiles},
    Row{"import-folder", measureImportFolder},
    Row{"export-all", measureExportAll},
    Row{"delete-group", measureDeleteGroup},
    Row{"wizard-menu", measureWizardMenu},
    Row{"start", measureStart},
    Row{"language", measureLanguageSwitch},
    Row{"record", measureRecord},
    Row{"address", measureAddressCheck},
    Row{"wizard", measureWizard},
    Row{"tree", measureTree},
    Row{"growth", measureGrowth},
};

QStringList rowNames()
{
    QStringList names;
    for (const Row& row : rows)
        names.append(QLatin1String(row.name));
    return names;
}

void print(const QString& line)
{
    std::printf("%s\n", qPrintable(line));
    std::fflush(stdout);
}

// What the display stand-in says about every dialog would only hide the table.
QtMessageHandler printMessage = nullptr;
void skipStandIn(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(QLatin1String("This plugin does not support ")))
        printMessage(type, context, message);
}

// Measures the rows and prints the table line by line; false when a row gave no number.
bool printTable(const QStringList& names, const BenchOptions& options, bool markdown)
{
    bool sound = true;
    print(tableHead(markdown));
    for (const Row& row : rows) {
        if (!names.contains(QLatin1String(row.name)))
            continue;
        removeFolderFromCache(QString()); // the libraries of the rows before
        for (const Measurement& line : row.measure(options)) {
            sound &= line.isSound();
            print(tableLine(line, markdown));
        }
    }
    return sound;
}

} // namespace

int main(int argc, char** argv)
{
    // Windows are painted into memory: the numbers do not depend on a display.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // As the reference host has it, for the peers as well.
    qputenv("QT_ENABLE_REGEXP_JIT", "0");
    printMessage = qInstallMessageHandler(skipStandIn);
    const QApplication application(argc, argv);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Measures the settings area and, by turns with it, programs that do comparable work. Prints "
                       "medians with their spread, the ratio of the two, and what the ratio or the time is to reach.\n"
                       "Rows: %1")
            .arg(rowNames().join(QStringLiteral(", "))));
    parser.addHelpOption();
    const QCommandLineOption rowsOption(QStringLiteral("rows"), QStringLiteral("Measure only these rows."),
                                        QStringLiteral("name,..."));
    const QCommandLineOption repeatOption(QStringLiteral("repeat"), QStringLiteral("Measure each row n times."),
                                          QStringLiteral("n"), QStringLiteral("7"));
    const QCommandLineOption quickOption(QStringLiteral("quick"),
                                         QStringLiteral("Use small libraries, to see that every row runs."));
    const QCommandLineOption markdownOption(QStringLiteral("markdown"), QStringLiteral("Print a Markdown table."));
    const QCommandLineOption filesOption(
        QStringLiteral("files"), QStringLiteral("Keep the generated libraries, up to 1 GB, in this folder."),
        QStringLiteral("folder"), QCoreApplication::applicationDirPath() + QStringLiteral("/../bench-files"));
    QCommandLineOption growthOption(QStringLiteral("growth-of"), {}, QStringLiteral("folder"));
    QCommandLineOption startOption(QStringLiteral("start"), {}, QStringLiteral("nanoseconds"));
    QCommandLineOption countedOption(QStringLiteral("counted-work"), {}, QStringLiteral("work"));
    for (QCommandLineOption* const own : {&growthOption, &startOption, &countedOption})
        own->setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOptions(
        {rowsOption, repeatOption, quickOption, markdownOption, filesOption, growthOption, startOption, countedOption});
    parser.process(application);
    if (!parser.positionalArguments().isEmpty())
        parser.showHelp(2);

    if (parser.isSet(growthOption)) {
        printGrowth(parser.value(growthOption));
        return 0;
    }
    if (parser.isSet(startOption)) {
        printOurStart(parser.value(startOption));
        return 0;
    }
    if (parser.isSet(countedOption)) {
        runCountedWork(parser.value(countedOption), parser.value(filesOption));
        return 0;
    }

    QStringList names = rowNames();
    if (parser.isSet(rowsOption)) {
        const QStringList wanted = parser.value(rowsOption).split(QLatin1Char(','));
        for (const QString& name : wanted) {
            if (!names.contains(name)) {
                std::fprintf(stderr, "There is no row %s. Rows: %s\n", qPrintable(name),
                             qPrintable(names.join(QStringLiteral(", "))));
                return 2;
            }
        }
        names = wanted;
    }
    BenchOptions options;
    options.files = parser.value(filesOption);
    options.repeat = std::max(1, parser.value(repeatOption).toInt());
    options.quick = parser.isSet(quickOption);
    return printTable(names, options, parser.isSet(markdownOption)) ? 0 : 1;
}
