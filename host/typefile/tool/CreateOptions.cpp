#include "host/typefile/tool/CreateOptions.h"

#include "host/typefile/tool/SampleTypes.h"

#include <utilbase/Utils.h>

#include <QFileInfo>

#include <algorithm>
#include <limits>
#include <numeric>
#include <type_traits>

namespace {

template<typename Number>
bool parse(const QString& text, Number& value)
{
    bool ok = false;
    if constexpr (std::is_floating_point_v<Number>) {
        value = text.toFloat(&ok);
    } else {
        const qint64 number = text.toLongLong(&ok);
        using Limits = std::numeric_limits<Number>;
        ok = ok && number >= qint64{Limits::min()} && number <= qint64{Limits::max()};
        value = static_cast<Number>(number);
    }
    return ok;
}

// Reads the values of options and remembers the first that cannot be used.
class Values
{
public:
    explicit Values(const QCommandLineParser& parser)
        : m_parser(parser)
    {
    }

    // False, and `value` stays, when the option is not given.
    template<typename Number>
    bool take(const char* option, Number& value)
    {
        return takeList(option, &value, 1);
    }

    // The same for `count` numbers with commas between them.
    template<typename Number>
    bool takeList(const char* option, Number* values, int count)
    {
        const QString name = QLatin1String(option);
        if (!m_parser.isSet(name))
            return false;
        const QStringList texts = m_parser.value(name).split(QLatin1Char(','));
        bool usable = texts.size() == count;
        for (int i = 0; i < count && usable; ++i)
            usable = parse(texts.at(i), values[i]);
        if (!usable && m_problem.isEmpty())
            m_problem = CreateOptions::tr("The value of --%1 cannot be used: %2").arg(name, m_parser.value(name));
        return true;
    }

    QString problem() const { return m_problem; }

private:
    const QCommandLineParser& m_parser;
    QString m_problem;
};

// True when the options give a record.
bool takeRecord(Values& values, const QCommandLineParser& parser, SHwRcvInCabinetInfo& record)
{
    record.columns = 1;
    record.rows = 1;
    const bool columnsGiven = values.take("columns", record.columns);
    const bool rowsGiven = values.take("rows", record.rows);
    if (!columnsGiven && !rowsGiven)
        return false;
    const auto cells = std::min<std::size_t>(std::size_t{record.columns} * record.rows, record.wiringOrder.size());
    std::iota(record.wiringOrder.begin(), record.wiringOrder.begin() + cells, std::uint8_t{0});
    values.takeList("wiring", record.wiringOrder.data(), static_cast<int>(cells));
    record.specifyOrientation = parser.isSet(QStringLiteral("orientation"));
    values.take("weight", record.weight);
    values.take("power", record.power);
    std::array<float, 2> voltage{};
    values.takeList("voltage", voltage.data(), 2);
    record.voltageMin = voltage[0];
    record.voltageMax = voltage[1];
    return true;
}

} // namespace

QList<QCommandLineOption> CreateOptions::list()
{
    const auto option = [](const char* name, const QString& value, const QString& text) {
        return QCommandLineOption(QLatin1String(name), text, value);
    };
    return {
        option("width", tr("pixels"), tr("Width that one receiving card drives (1 to 65535).")),
        option("height", tr("pixels"), tr("Height that one receiving card drives (1 to 65535).")),
        option("kind", tr("number"), tr("Model number of the receiving card.")),
        option("block", QStringLiteral("a,b,c,d"), tr("Four 64-bit numbers of the host's own.")),
        option("columns", tr("count"), tr("Receivers side by side; gives the file a multi-receiver record.")),
        option("rows", tr("count"), tr("Receivers one above the other; the same.")),
        option("wiring", QStringLiteral("0,1,..."), tr("Cell ids in signal order; by default in their own order.")),
        option("orientation", {}, tr("The wiring was made with orientation.")),
        option("source", tr("file"), tr("Parameter file whose name and digest the record gets.")),
        option("weight", tr("kilograms"), tr("Weight on the cabinet's label.")),
        option("power", tr("watts"), tr("Power on the cabinet's label.")),
        option("voltage", tr("min,max"), tr("Working voltage on the cabinet's label, in volts.")),
        option("payload-size", tr("bytes"), tr("Length of the payload; 0 by default.")),
        option("seed", tr("number"), tr("What the payload's bytes are made from; 0 by default.")),
    };
}

QString CreateOptions::read(const QCommandLineParser& parser)
{
    Values values(parser);
    values.take("width", header.width);
    values.take("height", header.height);
    values.take("kind", header.receiverKind);
    values.takeList("block", header.block.data(), static_cast<int>(header.block.size()));
    SHwRcvInCabinetInfo record;
    if (takeRecord(values, parser, record))
        header.cabinet = record;
    const QString source = parser.value(QStringLiteral("source"));
    if (header.cabinet && !source.isEmpty()) {
        header.cabinet->name = QFileInfo(source).completeBaseName();
        header.cabinet->md5 = Utils::getFileMD5(source);
        if (header.cabinet->md5.data[0] == '\0')
            return tr("The file %1 cannot be read.").arg(source);
    }
    quint32 payloadSize = 0;
    quint32 seed = 0;
    values.take("payload-size", payloadSize);
    values.take("seed", seed);
    if (!values.problem().isEmpty())
        return values.problem();
    if (payloadSize > TypeFileHeader::maxPayloadSize)
        return tr("A payload has at most %1 bytes.").arg(TypeFileHeader::maxPayloadSize);
    payload = SampleTypes::payload(payloadSize, seed);
    return {};
}
