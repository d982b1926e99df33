#include "host/typefile/CabinetSection.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QTextCodec>

#include <algorithm>
#include <cmath>

namespace {

constexpr int digestLength = 32;    // hexadecimal digits; zero bytes when there is no digest
constexpr quint32 fixedLength = 61; // bytes before the name
constexpr int maxNameLength = 1024; // bytes of UTF-8; four times what a file name may have
constexpr int utf8Mib = 106;

struct Text
{
    Q_DECLARE_TR_FUNCTIONS(CabinetSection)
};

bool isDigest(const char* digest)
{
    const auto isZero = [](char c) { return c == 0; };
    const auto isHex = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
    };
    return std::all_of(digest, digest + digestLength, isZero) || std::all_of(digest, digest + digestLength, isHex);
}

bool isPermutation(const SHwRcvInCabinetInfo& info)
{
    unsigned seen = 0;
    const unsigned cells = unsigned{info.columns} * info.rows;
    for (unsigned k = 0; k < cells; ++k) {
        if (info.wiringOrder[k] >= cells)
            return false;
        seen |= 1U << info.wiringOrder[k];
    }
    return seen == (1U << cells) - 1;
}

bool isLabelValue(float value)
{
    return std::isfinite(value) && value >= 0;
}

} // namespace

QString CabinetSection::problemOf(const SHwRcvInCabinetInfo& info)
{
    const auto cells = std::size_t{info.columns} * info.rows;
    if (cells < 1 || cells > info.wiringOrder.size())
        return Text::tr("The record has %1 x %2 receivers; 1 to 10 are possible.").arg(info.columns).arg(info.rows);
    if (!isPermutation(info))
        return Text::tr("The record's wiring does not pass through every receiver once.");
    if (!isDigest(info.md5.data))
        return Text::tr("The record's digest is not made of hexadecimal digits.");
    if (!isLabelValue(info.weight) || !isLabelValue(info.power) || !isLabelValue(info.voltageMin) ||
        !isLabelValue(info.voltageMax))
        return Text::tr("The record's weight, power or voltage is negative or not a number.");
    if (info.voltageMin > info.voltageMax)
        return Text::tr("The record's lower voltage limit is above the upper one.");
    if (info.name.toUtf8().size() > maxNameLength)
        return Text::tr("The record's name is too long.");
    return {};
}

void CabinetSection::write(QDataStream& out, const SHwRcvInCabinetInfo& info)
{
    const QByteArray name = info.name.toUtf8();
    out.writeRawData(tag, tagSize);
    out << fixedLength + static_cast<quint32>(name.size());
    out << info.weight << info.power << info.voltageMin << info.voltageMax;
    out.writeRawData(info.md5.data, digestLength);
    out << info.columns << info.rows;
    for (const std::uint8_t cell : info.wiringOrder)
        out << cell;
    out << static_cast<quint8>(info.specifyOrientation);
    out.writeRawData(name.constData(), name.size());
}

std::optional<SHwRcvInCabinetInfo> CabinetSection::read(QDataStream& in, quint32 length, QString& error)
{
    if (length < fixedLength || length > fixedLength + maxNameLength) {
        error = Text::tr("The record is %1 bytes long; %2 to %3 are possible.")
                    .arg(length)
                    .arg(fixedLength)
                    .arg(fixedLength + maxNameLength);
        return std::nullopt;
    }
    SHwRcvInCabinetInfo info;
    in >> info.weight >> info.power >> info.voltageMin >> info.voltageMax;
    in.readRawData(info.md5.data, digestLength);
    in >> info.columns >> info.rows;
    for (std::uint8_t& cell : info.wiringOrder)
        in >> cell;
    quint8 orientation = 0;
    in >> orientation;
    info.specifyOrientation = orientation != 0;
    QByteArray name(static_cast<int>(length - fixedLength), Qt::Uninitialized);
    in.readRawData(name.data(), name.size());
    QTextCodec::ConverterState decoding;
    info.name = QTextCodec::codecForMib(utf8Mib)->toUnicode(name.constData(), name.size(), &decoding);

    if (decoding.invalidChars > 0 || decoding.remainingChars > 0)
        error = Text::tr("The record's name is not UTF-8.");
    else if (orientation > 1)
        error = Text::tr("The record's orientation is neither yes nor no.");
    else
        error = problemOf(info);
    return error.isEmpty() ? std::make_optional(info) : std::nullopt;
}
