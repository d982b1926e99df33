#include "tests/faults/Contents.h"

#include "host/typefile/Crc32.h"
#include "host/typefile/TypeFile.h"
#include "tests/host/TypeFileFixture.h"
#include "tests/support/FileFixture.h"

#include <cstdio>

namespace {

QByteArray payloadOf(int number)
{
    QByteArray payload;
    payload.fill(static_cast<char>('a' + number % 26), contentSize + number);
    return payload;
}

QByteArray trashName(const WritePlace& place)
{
    static int counter = 0;
    return QFile::encodeName(place.trash + QStringLiteral("/%1-%2").arg(::getpid()).arg(++counter));
}

} // namespace

QByteArray content(int number)
{
    const QByteArray payload = payloadOf(number);
    TypeFileHeader header = sampleHeader();
    header.payloadSize = static_cast<quint32>(payload.size());
    header.payloadChecksum = Crc32::of(payload);
    QString error;
    return header.toBytes(error).value() + payload;
}

void putFile(const WritePlace& place, const QString& path, const QByteArray& bytes)
{
    const QByteArray whole = trashName(place);
    writeFile(QFile::decodeName(whole), bytes);
    std::rename(whole.constData(), QFile::encodeName(path).constData());
}

void takeAway(const WritePlace& place, const QString& path)
{
    const QByteArray away = trashName(place);
    if (std::rename(QFile::encodeName(path).constData(), away.constData()) != 0)
        return;
    const QFileInfo taken(QFile::decodeName(away));
    taken.isDir() ? QDir(taken.filePath()).removeRecursively() : QFile::remove(taken.filePath());
}

std::function<void(const WritePlace&)> takingAway(const QStringList& names)
{
    return [names](const WritePlace& place) {
        for (const QString& name : names)
            takeAway(place, place.inWork(name));
    };
}

bool writeTypeFile(const QString& path, int number)
{
    QString error;
    return TypeFile::write(path, sampleHeader(), payloadOf(number), error);
}

QString problemOfTypeFile(const QString& path)
{
    QString error;
    return !QFileInfo::exists(path) || TypeFile::verify(path, error) ? QString() : error;
}
