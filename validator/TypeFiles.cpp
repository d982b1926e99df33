#include "validator/TypeFiles.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace {

const char mark[] = "orvel-validate";

} // namespace

QByteArray TypeFiles::textOf(const Content& content)
{
    QList<QByteArray> words{mark, QByteArray::number(content.width), QByteArray::number(content.height),
                            QByteArray::number(content.serial)};
    if (content.cabinet) {
        const SHwRcvInCabinetInfo& cabinet = *content.cabinet;
        words << QByteArray::number(cabinet.columns) << QByteArray::number(cabinet.rows)
              << QByteArray::number(int{cabinet.specifyOrientation});
        for (const std::uint8_t cell : cabinet.wiringOrder)
            words << QByteArray::number(cell);
        for (const float value : {cabinet.weight, cabinet.power, cabinet.voltageMin, cabinet.voltageMax})
            words << QByteArray::number(static_cast<double>(value), 'g', 9);
        words << QByteArray(cabinet.md5.data) << cabinet.name.toUtf8().toHex();
    }
    return words.join(';') + '\n';
}

TypeFiles::Content TypeFiles::numbered(int serial)
{
    Content content;
    content.serial = serial;
    content.width = 16 * (1 + serial % 20);
    content.height = 16 * (1 + serial % 7);
    if (serial % 3 == 0) {
        content.cabinet.emplace();
        content.cabinet->columns = static_cast<std::uint8_t>(1 + serial % 5);
        content.cabinet->rows = 2;
        for (std::uint8_t cell = 0; cell < content.cabinet->columns * 2; ++cell)
            content.cabinet->wiringOrder[cell] = cell;
    }
    return content;
}

std::optional<TypeFiles::Content> TypeFiles::read(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QList<QByteArray> words = file.readLine(4096).trimmed().split(';');
    constexpr int plain = 4; // words
    constexpr int order = plain + 3;
    constexpr int numbers = order + 10;
    constexpr int all = numbers + 6;
    if (words.constFirst() != mark || (words.size() != plain && words.size() != all))
        return std::nullopt;
    Content content;
    content.width = words[1].toInt();
    content.height = words[2].toInt();
    content.serial = words[3].toInt();
    if (words.size() == plain)
        return content;
    SHwRcvInCabinetInfo& cabinet = content.cabinet.emplace();
    cabinet.columns = static_cast<std::uint8_t>(words[plain].toUInt());
    cabinet.rows = static_cast<std::uint8_t>(words[plain + 1].toUInt());
    cabinet.specifyOrientation = words[plain + 2] == "1";
    for (int k = 0; k < 10; ++k)
        cabinet.wiringOrder[static_cast<std::size_t>(k)] = static_cast<std::uint8_t>(words[order + k].toUInt());
    cabinet.weight = words[numbers].toFloat();
    cabinet.power = words[numbers + 1].toFloat();
    cabinet.voltageMin = words[numbers + 2].toFloat();
    cabinet.voltageMax = words[numbers + 3].toFloat();
    qstrncpy(cabinet.md5.data, words[numbers + 4].constData(), sizeof(cabinet.md5.data));
    cabinet.name = QString::fromUtf8(QByteArray::fromHex(words[numbers + 5]));
    return content;
}

bool TypeFiles::write(const QString& path, const QByteArray& text)
{
    // Not QSaveFile, which waits for the disk: nobody needs these files after a power failure.
    const QString unfinished = QFileInfo(path).path() + QStringLiteral("/.unfinished");
    QFile file(unfinished);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        return false;
    file.close();
    return std::rename(QFile::encodeName(unfinished).constData(), QFile::encodeName(path).constData()) == 0;
}

QByteArray TypeFiles::digestOf(const QString& path)
{
    QFile file(path);
    QCryptographicHash hash(QCryptographicHash::Md5);
    return file.open(QIODevice::ReadOnly) && hash.addData(&file) ? hash.result().toHex() : QByteArray();
}

bool TypeFiles::isTypeName(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix();
    return suffix == QLatin1String("rcvp") || suffix == QLatin1String("rcvbp");
}
