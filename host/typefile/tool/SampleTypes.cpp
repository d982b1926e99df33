#include "host/typefile/tool/SampleTypes.h"

#include "host/typefile/TypeFile.h"

#include <utilbase/Utils.h>

#include <QDir>
#include <QFileInfo>

#include <algorithm>
#include <array>
#include <random>

namespace {

// A receiving-card parameter file. The module is what one receiving card drives.
struct SingleType
{
    const char* path; // in the library, without suffix
    quint16 width;    // pixels
    quint16 height;
    int moduleWidth; // millimetres
    int moduleHeight;
    int scanLines; // one of so many lines is lit at a time
};

struct MultiType
{
    const char* path;
    const char* source; // the parameter file it is built from
    std::uint8_t columns;
    std::uint8_t rows;
    std::array<std::uint8_t, 10> wiring;
    bool orientation;
    float weight; // kilograms
    float power;  // watts
};

constexpr SingleType singleTypes[] = {
    {"Universal-128x128", 128, 128, 500, 500, 16},
    {"Indoor/Conference-P2-640x480", 320, 240, 640, 480, 30},
    {"Indoor/Fixed/P3-576x576", 192, 192, 576, 576, 32},
    {"Indoor/Fixed/P4-512x512", 128, 128, 512, 512, 16},
    {"Indoor/Fixed/Fine pitch/P0.9-600x337", 640, 360, 600, 337, 60},
    {"Indoor/Fixed/Fine pitch/P1.2-600x337", 480, 270, 600, 337, 45},
    {"Indoor/Fixed/Fine pitch/P1.5-600x337", 384, 216, 600, 337, 36},
    {"Outdoor/Fixed/P5-960x960", 192, 192, 960, 960, 8},
    {"Outdoor/Fixed/P8-960x960", 120, 120, 960, 960, 5},
    {"Outdoor/Fixed/P10-960x960", 96, 96, 960, 960, 2},
    {"Outdoor/Perimeter-P10-1600x900", 160, 90, 1600, 900, 2},
    {"Rental/P3-500x500", 168, 168, 500, 500, 28},
    {"Rental/P4-500x1000", 128, 256, 500, 1000, 16},
    {"工程案例/会议室一体机-P1", 480, 270, 600, 337, 27},
    {"工程案例/舞台/舞台租赁屏-P4", 128, 128, 500, 500, 16},
};

constexpr MultiType multiTypes[] = {
    {"Indoor/Fixed/Fine pitch/P0.9-1200x337-2x1", "Indoor/Fixed/Fine pitch/P0.9-600x337", 2, 1, {0, 1}, false, 14, 310},
    {"Indoor/Fixed/P3-1152x1152-2x2", "Indoor/Fixed/P3-576x576", 2, 2, {0, 2, 3, 1}, true, 46.5F, 820},
    {"Outdoor/Fixed/P5-1920x960-2x1", "Outdoor/Fixed/P5-960x960", 2, 1, {1, 0}, false, 78, 1400},
    {"Outdoor/Fixed/P10-960x3840-1x4", "Outdoor/Fixed/P10-960x960", 1, 4, {3, 2, 1, 0}, true, 148, 2600},
    {"Rental/P4-1500x1000-3x1", "Rental/P4-500x1000", 3, 1, {0, 1, 2}, false, 39.6F, 960},
    {"工程案例/舞台/舞台拼接箱-2x1", "工程案例/舞台/舞台租赁屏-P4", 2, 1, {0, 1}, true, 15.2F, 360},
};

constexpr quint32 receiverKind = 1;
constexpr std::int64_t micrometresPerMillimetre = 1000;
constexpr float mainsVoltageMin = 100; // volts
constexpr float mainsVoltageMax = 240;

TypeFileHeader headerOf(const SingleType& type)
{
    TypeFileHeader header;
    header.width = type.width;
    header.height = type.height;
    header.receiverKind = receiverKind;
    const std::int64_t width = type.moduleWidth * micrometresPerMillimetre;
    header.block = {width / type.width, width, type.moduleHeight * micrometresPerMillimetre, type.scanLines};
    return header;
}

SHwRcvInCabinetInfo recordOf(const MultiType& type, const QString& sourceFile)
{
    SHwRcvInCabinetInfo record;
    record.name = QFileInfo(sourceFile).completeBaseName();
    record.md5 = Utils::getFileMD5(sourceFile);
    record.specifyOrientation = type.orientation;
    record.columns = type.columns;
    record.rows = type.rows;
    record.wiringOrder = type.wiring;
    record.weight = type.weight;
    record.power = type.power;
    record.voltageMin = mainsVoltageMin;
    record.voltageMax = mainsVoltageMax;
    return record;
}

// The position of the type in the table is the seed of its payload.
QByteArray payloadOf(std::size_t index)
{
    constexpr quint32 smallest = 512; // bytes
    constexpr quint32 step = 128;
    return SampleTypes::payload(smallest + static_cast<quint32>(index) * step, static_cast<quint32>(index));
}

bool writeType(const QString& path, const TypeFileHeader& header, const QByteArray& payload, QString& error)
{
    QDir().mkpath(QFileInfo(path).path());
    if (TypeFile::write(path, header, payload, error))
        return true;
    error = path + QLatin1String(": ") + error;
    return false;
}

} // namespace

QByteArray SampleTypes::payload(quint32 size, quint32 seed)
{
    std::mt19937 generator(seed);
    QByteArray bytes(static_cast<int>(size), Qt::Uninitialized);
    constexpr int topByte = 24;
    std::generate(bytes.begin(), bytes.end(), [&generator] { return static_cast<char>(generator() >> topByte); });
    return bytes;
}

bool SampleTypes::write(const QString& folder, QString& error)
{
    const auto pathOf = [&folder](const char* path, const char* suffix) {
        return folder + QLatin1Char('/') + QString::fromUtf8(path) + QLatin1String(suffix);
    };
    for (std::size_t index = 0; index < std::size(singleTypes); ++index) {
        const SingleType& type = singleTypes[index];
        if (!writeType(pathOf(type.path, ".rcvp"), headerOf(type), payloadOf(index), error))
            return false;
    }
    // As the settings area makes them: the parameter file's content with the record put in.
    for (const MultiType& type : multiTypes) {
        const auto isSource = [&type](const SingleType& single) { return qstrcmp(single.path, type.source) == 0; };
        const auto source = std::find_if(std::begin(singleTypes), std::end(singleTypes), isSource);
        TypeFileHeader header = headerOf(*source);
        header.cabinet = recordOf(type, pathOf(type.source, ".rcvp"));
        const auto index = static_cast<std::size_t>(source - std::begin(singleTypes));
        if (!writeType(pathOf(type.path, ".rcvbp"), header, payloadOf(index), error))
            return false;
    }
    return true;
}
