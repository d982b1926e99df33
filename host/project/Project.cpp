#include "host/project/Project.h"

#include "host/files/JsonText.h"
#include "host/files/SafeFile.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr int currentVersion = 1;

const QLatin1String formatKey("format");
const QLatin1String formatName("orvel-project");
const QLatin1String versionKey("version");
const QLatin1String placedTypesKey("placedTypes");
const QLatin1String digestKey("digest");
const QLatin1String nameKey("name");

QString digestText(const SMD5& md5)
{
    return QString::fromLatin1(md5.data, static_cast<int>(qstrnlen(md5.data, sizeof(md5.data) - 1))).toLower();
}

QVector<Project::PlacedType> placedTypesFrom(const QJsonValue& list, QString& error)
{
    static const QRegularExpression digestPattern(QStringLiteral("\\A[0-9a-f]{32}\\z"));
    QVector<Project::PlacedType> types;
    QSet<QString> digests;
    if (!list.isArray())
        error = Project::tr("The list of placed types is missing.");
    const QJsonArray entries = list.toArray();
    for (const QJsonValue& entry : entries) {
        QJsonObject keys = entry.toObject();
        const QString digest = keys.take(digestKey).toString();
        const QString name = keys.take(nameKey).toString();
        const Project::PlacedType type{digest, name, keys};
        if (!digestPattern.match(digest).hasMatch()) {
            error = Project::tr("Placed type number %1 has no digest.").arg(types.size() + 1);
            break;
        }
        if (digests.contains(digest)) {
            error = Project::tr("The type %1 is placed twice.").arg(type.shownName());
            break;
        }
        digests.insert(digest);
        types.append(type);
    }
    return types;
}

// The keys of a project file that is one and that this program can read.
QJsonObject documentFrom(const QByteArray& bytes, QString& error)
{
    QJsonParseError parsing{};
    const QJsonObject keys = QJsonDocument::fromJson(bytes, &parsing).object();
    const int version = keys.value(versionKey).toInt();
    if (parsing.error != QJsonParseError::NoError)
        error = Project::tr("The file is damaged at byte %1: %2").arg(parsing.offset).arg(parsing.errorString());
    else if (keys.value(formatKey).toString() != formatName || version < 1)
        error = Project::tr("This is not a project file.");
    else if (version > currentVersion)
        error = Project::tr("The file was made by a newer program: it has format version %1, and this program reads "
                            "version %2.")
                    .arg(version)
                    .arg(currentVersion);
    return keys;
}

} // namespace

QString Project::PlacedType::shownName() const
{
    constexpr int longest = 1000; // characters; a file may hold millions, which take seconds with every paint
    return name.isEmpty() ? digest : name.left(longest);
}

Project::Project(QObject* parent)
    : QObject(parent)
{
}

QString Project::name() const
{
    return m_path.isEmpty() ? tr("Untitled") : QFileInfo(m_path).completeBaseName();
}

int Project::indexOf(const SMD5& md5) const
{
    const QString digest = digestText(md5);
    const auto hasDigest = [&digest](const PlacedType& type) { return type.digest == digest; };
    const auto found = std::find_if(m_placedTypes.begin(), m_placedTypes.end(), hasDigest);
    return found == m_placedTypes.end() ? -1 : static_cast<int>(found - m_placedTypes.begin());
}

bool Project::place(const SMD5& md5, const QString& name)
{
    const QString digest = digestText(md5);
    if (digest.isEmpty() || places(md5))
        return false;
    m_placedTypes.append({digest, name, {}});
    m_modified = true;
    Q_EMIT notifyChanged();
    return true;
}

bool Project::removeAt(int index)
{
    if (index < 0 || index >= m_placedTypes.size())
        return false;
    m_placedTypes.removeAt(index);
    m_modified = true;
    Q_EMIT notifyChanged();
    return true;
}

void Project::clear()
{
    m_placedTypes.clear();
    m_otherKeys = {};
    m_path.clear();
    m_modified = false;
    Q_EMIT notifyChanged();
}

bool Project::load(const QString& path, QString& error)
{
    error.clear();
    const auto bytes = SafeFile::read(path, maxFileSize, error);
    if (!bytes)
        return false;
    QJsonObject keys = documentFrom(*bytes, error);
    if (!error.isEmpty())
        return false;
    const QVector<PlacedType> types = placedTypesFrom(keys.take(placedTypesKey), error);
    if (!error.isEmpty())
        return false;
    m_placedTypes = types;
    m_otherKeys = keys;
    m_path = QFileInfo(path).absoluteFilePath();
    m_modified = false;
    Q_EMIT notifyChanged();
    return true;
}

bool Project::save(const QString& path, QString& error)
{
    if (path.isEmpty()) {
        error = tr("There is no file name.");
        return false;
    }
    QJsonArray entries;
    for (const PlacedType& type : qAsConst(m_placedTypes)) {
        QJsonObject keys = type.otherKeys;
        keys.insert(digestKey, type.digest);
        keys.insert(nameKey, type.name);
        entries.append(keys);
    }
    QJsonObject keys = m_otherKeys;
    keys.insert(formatKey, formatName);
    keys.insert(versionKey, currentVersion);
    keys.insert(placedTypesKey, entries);
    const QString absolutePath = QFileInfo(path).absoluteFilePath();
    const auto content = jsonText(keys, maxFileSize, error);
    if (!content || !SafeFile::replaceKeepingPrevious(absolutePath, *content, error))
        return false;
    m_path = absolutePath;
    m_modified = false;
    Q_EMIT notifyChanged();
    return true;
}
