#include "host/settings/SettingsFile.h"

#include "host/files/JsonText.h"
#include "host/files/SafeFile.h"
#include "host/settings/SettingsJson.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

#include <fcntl.h>
#include <unistd.h>

namespace {

// Far more than the settings with thousands of recipients need.
constexpr qint64 maxFileSize = 4 << 20;

constexpr auto ownerOnly = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

// A folder or a device was never settings: somebody has named it by mistake, and it stays where it is.
bool isFile(const QString& path)
{
    return QFileInfo(path).isFile();
}

// Calls `take(name)` with the first name made of `path` and `suffix` that no file has; empty when that fails.
template<typename Function>
QString firstFree(const QString& path, const QString& suffix, Function take)
{
    QString name = path + suffix;
    for (int number = 2; QFileInfo::exists(name); ++number)
        name = path + suffix + QLatin1Char('-') + QString::number(number);
    return take(name) ? name : QString();
}

} // namespace

SettingsFile::SettingsFile(const QString& path)
    : m_path(path)
{
}

StoredSettings SettingsFile::load(QStringList& messages)
{
    m_document = QJsonObject();
    QString error;
    switch (inspect(m_path, m_document, error)) {
    case State::Missing:
    case State::Sound:
        break;
    case State::Damaged: {
        messages << tr("The settings file %1 cannot be used: %2").arg(QDir::toNativeSeparators(m_path), error);
        QString reason;
        QString ignored;
        const bool restored = inspect(m_path + QLatin1String(".bak"), m_document, ignored) == State::Sound;
        if (isFile(m_path)) {
            const auto content = restored ? jsonText(m_document, maxFileSize, ignored) : std::nullopt;
            const QString aside = content ? replaceDamaged(*content, reason) : moveAside(reason);
            messages << (aside.isEmpty() ? tr("It could not be moved aside: %1").arg(reason)
                                         : tr("It was kept as %1.").arg(QDir::toNativeSeparators(aside)));
        }
        messages << (restored ? tr("The settings saved before it are used instead.")
                              : tr("All settings start from their defaults."));
        break;
    }
    }
    if (SettingsJson::version(m_document) > SettingsJson::currentVersion)
        messages << tr("The settings were saved by a newer version of Orvel. What this version does not know is kept.");
    return SettingsJson::read(m_document);
}

bool SettingsFile::save(const StoredSettings& settings, QString& error)
{
    const QString folder = QFileInfo(m_path).absolutePath();
    if (!QDir().mkpath(folder)) {
        error = tr("The folder %1 cannot be created.").arg(QDir::toNativeSeparators(folder));
        return false;
    }
    const QJsonObject document = SettingsJson::write(settings, m_document);
    const auto content = jsonText(document, maxFileSize, error);
    if (!content)
        return false;

    // The file may have changed since it was loaded.
    QJsonObject present;
    QString reason;
    const State state = inspect(m_path, present, reason);
    if (state == State::Damaged && !isFile(m_path)) {
        error = reason;
        return false;
    }
    if (state == State::Sound && present == document)
        return closeToOthers(error);
    if (state == State::Sound && SettingsJson::version(present) > SettingsJson::currentVersion && !keepNewer(error))
        return false;
    const bool passwordMoves = settings.host.passwordInKeychain && holdsPassword(present);
    const bool saved =
        state == State::Damaged ? !replaceDamaged(*content, error).isEmpty() : replace(*content, !passwordMoves, error);
    if (saved)
        m_document = document;
    return saved;
}

bool SettingsFile::replace(const QByteArray& content, bool keepPrevious, QString& error) const
{
    if (keepPrevious)
        return SafeFile::replaceKeepingPrevious(m_path, content, error, ownerOnly);
    if (!write(content, error))
        return false;
    QFile::remove(m_path + QLatin1String(".bak"));
    return true;
}

bool SettingsFile::write(const QByteArray& content, QString& error) const
{
    const auto writeContent = [&](QIODevice& device, QString& reason) {
        return SafeFile::write(device, content, reason);
    };
    return SafeFile::replace(m_path, writeContent, error, ownerOnly);
}

bool SettingsFile::closeToOthers(QString& error) const
{
    QFile file(m_path);
    const bool closed = file.setPermissions(ownerOnly);
    if (!closed)
        error = file.errorString();
    return closed;
}

bool SettingsFile::holdsPassword(const QJsonObject& document)
{
    return !SettingsJson::read(document).record.email.strPassword.isEmpty();
}

SettingsFile::State SettingsFile::inspect(const QString& path, QJsonObject& document, QString& error)
{
    if (!QFileInfo::exists(path))
        return State::Missing;
    const auto content = SafeFile::read(path, maxFileSize, error);
    if (!content)
        return State::Damaged;
    QJsonParseError parseError = {};
    const QJsonDocument parsed = QJsonDocument::fromJson(*content, &parseError);
    if (!parsed.isObject()) {
        error = parseError.error != QJsonParseError::NoError
                    ? tr("it is not valid JSON at byte %1 (%2).").arg(parseError.offset).arg(parseError.errorString())
                    : tr("it is not a JSON object.");
        return State::Damaged;
    }
    document = parsed.object();
    return State::Sound;
}

// Renames the file; its new name, or nothing with the reason in `error`.
QString SettingsFile::moveAside(QString& error) const
{
    QFile file(m_path);
    const QString name =
        firstFree(m_path, QStringLiteral(".damaged"), [&](const QString& to) { return file.rename(to); });
    if (name.isEmpty())
        error = file.errorString();
    return name;
}

// Keeps the file under a name of its own and puts the content in its place. Where the disk can, the file has both
// names for a moment: there is never none, so that a process that ends here is not taken for a first run by the next.
// The new name, or nothing with the reason in `error`; the file is then where it was.
QString SettingsFile::replaceDamaged(const QByteArray& content, QString& error) const
{
    const auto link = [this](const QString& to) {
        // Not of a link itself, which would lead to the new content.
        return ::linkat(AT_FDCWD, QFile::encodeName(m_path).constData(), AT_FDCWD, QFile::encodeName(to).constData(),
                        AT_SYMLINK_FOLLOW) == 0;
    };
    QString name = firstFree(m_path, QStringLiteral(".damaged"), link);
    const bool linked = !name.isEmpty();
    if (!linked)
        name = moveAside(error);
    if (name.isEmpty() || write(content, error))
        return name;
    if (linked)
        QFile::remove(name);
    else
        QFile::rename(name, m_path);
    return {};
}

// Copies the file of a newer version, once.
bool SettingsFile::keepNewer(QString& error)
{
    if (m_bNewerKept)
        return true;
    const auto copy = [&](const QString& to) {
        QFile file;
        const auto write = [&file](QIODevice& device, QString& reason) { return SafeFile::copy(file, device, reason); };
        return SafeFile::openForReading(file, m_path, error) && SafeFile::replace(to, write, error, ownerOnly);
    };
    const QString name = firstFree(m_path, QStringLiteral(".newer"), copy);
    m_bNewerKept = !name.isEmpty();
    return m_bNewerKept;
}
