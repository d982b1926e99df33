// The input is a project file.

#include "host/project/Project.h"
#include "tests/fuzz/Expect.h"
#include "tests/fuzz/IgnoredLeaks.h"

#include <QFile>
#include <QJsonDocument>
#include <QSet>
#include <QTemporaryDir>

#include <algorithm>

namespace {

bool isDigest(const QString& text)
{
    const auto isDigit = [](QChar c) {
        return (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || (c >= QLatin1Char('a') && c <= QLatin1Char('f'));
    };
    return text.size() == 32 && std::all_of(text.begin(), text.end(), isDigit);
}

bool load(Project& project, const QString& path, QString& error)
{
    const IgnoredLeaks ignored;
    return project.load(path, error);
}

// The keys as a file holds them, whose order and numbers are one thing for all: Qt (5.15.8) sorts keys with zeros in
// one way when it reads them and in another when they are inserted, and keeps the digits of an integer past 2^53, which
// it writes as a double, until then.
QByteArray textOf(const QJsonObject& keys)
{
    return QJsonDocument(QJsonObject::fromVariantMap(keys.toVariantMap())).toJson();
}

bool areEqual(const Project& one, const Project& other)
{
    const auto same = [](const Project::PlacedType& a, const Project::PlacedType& b) {
        return a.digest == b.digest && a.name == b.name && textOf(a.otherKeys) == textOf(b.otherKeys);
    };
    return std::equal(one.placedTypes().begin(), one.placedTypes().end(), other.placedTypes().begin(),
                      other.placedTypes().end(), same);
}

QJsonDocument contentOf(const QString& path)
{
    const IgnoredLeaks ignored;
    QFile file(path);
    EXPECT(file.open(QIODevice::ReadOnly));
    return QJsonDocument::fromJson(file.readAll());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const QTemporaryDir folder;
    static const QString given = folder.filePath(QStringLiteral("given.prj"));
    static const QString saved = folder.filePath(QStringLiteral("saved.prj"));

    QFile file(given);
    EXPECT(file.open(QIODevice::WriteOnly));
    EXPECT(file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size)) == static_cast<qint64>(size));
    file.close();

    Project project;
    QString error;
    if (!load(project, given, error)) {
        EXPECT(!error.isEmpty());
        EXPECT(project.placedTypes().isEmpty() && project.path().isEmpty());
        return 0;
    }
    EXPECT(!project.isModified());
    QSet<QString> digests;
    for (const Project::PlacedType& type : project.placedTypes()) {
        EXPECT(isDigest(type.digest));
        EXPECT(!digests.contains(type.digest));
        digests.insert(type.digest);
    }

    EXPECT(project.save(saved, error));
    const QJsonDocument content = contentOf(saved);
    Project again;
    EXPECT(load(again, saved, error));
    EXPECT(areEqual(project, again));
    EXPECT(again.save(saved, error));
    EXPECT(contentOf(saved) == content); // also what the program does not know
    return 0;
}
