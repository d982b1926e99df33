#include "host/SampleLibrary.h"
#include "host/project/Project.h"
#include "host/settings/SettingsFile.h"
#include "host/settings/SettingsJson.h"
#include "host/typefile/TypeFile.h"
#include "tests/faults/Contents.h"
#include "tests/faults/Write.h"
#include "tests/host/TypeFileFixture.h"
#include "tests/support/FileFixture.h"

#include <QJsonDocument>

#include <cstdio>

namespace {

// A failure that the user is not told the reason for counts as none.
bool isDone(bool done, const QString& error)
{
    return done || error.isEmpty();
}

QString settingsPath(const WritePlace& place)
{
    return place.inWork(QStringLiteral("settings.json"));
}

// What is written through a buffer fails at another moment than what is longer.
constexpr int bufferedSize = 1000;

// Differs from turn to turn in one number, or in whether it holds a password.
StoredSettings settingsOf(int turn, bool passwordMoves, int size)
{
    StoredSettings stored;
    stored.record.monitoring.nRefreshInterval = 100 + turn % 2;
    for (int i = 0; i < 10; ++i)
        stored.record.email.lstRecipients.append({QString(size / 10, QLatin1Char('n')), QString()});
    stored.host.passwordInKeychain = passwordMoves && turn % 2 == 0;
    if (passwordMoves && turn % 2 == 1)
        stored.record.email.strPassword = QStringLiteral("secret");
    return stored;
}

bool saveSettings(const WritePlace& place, int turn, bool passwordMoves = false, int size = contentSize)
{
    SettingsFile file(settingsPath(place));
    QStringList messages;
    QString error;
    file.load(messages);
    return isDone(file.save(settingsOf(turn, passwordMoves, size), error), error);
}

QString inspectSettings(const WritePlace& place)
{
    QStringList messages;
    const int interval = SettingsFile(settingsPath(place)).load(messages).record.monitoring.nRefreshInterval;
    if (interval != 100 && interval != 101)
        messages << QStringLiteral("The settings are lost");
    return messages.join(QLatin1Char(' '));
}

Write settingsWrite(const char* name, bool passwordMoves = false, int size = contentSize)
{
    Write write;
    write.name = name;
    write.prepare = [=](const WritePlace& place) {
        saveSettings(place, 0, passwordMoves, size);
        saveSettings(place, 1, passwordMoves, size);
    };
    write.perform = [=](const WritePlace& place, int turn) { return saveSettings(place, turn, passwordMoves, size); };
    write.inspect = inspectSettings;
    write.mayLeaveOld = passwordMoves; // the file before it, which holds the password
    return write;
}

// A file that cannot be understood is set aside, and the one before it comes in its place.
Write damagedSettingsWrite()
{
    const auto damage = [](const WritePlace& place) {
        putFile(place, settingsPath(place), QByteArray(contentSize, '{'));
        takeAway(place, settingsPath(place) + QStringLiteral(".damaged"));
    };
    Write write;
    write.name = "settings, damaged";
    write.prepare = [=](const WritePlace& place) {
        saveSettings(place, 0);
        saveSettings(place, 1);
        damage(place);
    };
    write.undo = damage;
    write.perform = [=](const WritePlace& place, int /*turn*/) {
        QStringList messages;
        SettingsFile(settingsPath(place)).load(messages);
        return QFileInfo::exists(settingsPath(place) + QStringLiteral(".damaged"));
    };
    write.inspect = [](const WritePlace& place) {
        QStringList messages;
        const StoredSettings found = SettingsFile(settingsPath(place)).load(messages);
        return found.record.monitoring.nRefreshInterval == 100 ? QString() : QStringLiteral("The settings are lost");
    };
    return write;
}

// The file of a newer version is copied before it is replaced.
Write newerSettingsWrite()
{
    const auto makeNewer = [](const WritePlace& place) {
        QJsonObject document = SettingsJson::write(settingsOf(1, false, contentSize), {});
        document.insert(QStringLiteral("version"), SettingsJson::currentVersion + 1);
        putFile(place, settingsPath(place), QJsonDocument(document).toJson());
        takeAway(place, settingsPath(place) + QStringLiteral(".newer"));
        takeAway(place, settingsPath(place) + QStringLiteral(".bak"));
    };
    Write write;
    write.name = "settings, of a newer version";
    write.prepare = makeNewer;
    write.perform = [=](const WritePlace& place, int turn) { return saveSettings(place, turn); };
    write.undo = makeNewer;
    return write;
}

Write projectWrite(const char* name, int size)
{
    const auto path = [](const WritePlace& place) { return place.inWork(QStringLiteral("Stage.prj")); };
    const auto save = [=](const WritePlace& place, int turn) {
        Project project;
        for (int i = 0; i < 10; ++i) {
            SMD5 md5 = {};
            std::snprintf(md5.data, sizeof md5.data, "%032x", i);
            project.place(md5, QString(size / 10, QLatin1Char(turn % 2 == 0 ? 'e' : 'o')));
        }
        QString error;
        return isDone(project.save(path(place), error), error);
    };
    Write write;
    write.name = name;
    write.prepare = [=](const WritePlace& place) { save(place, 1); };
    write.perform = save;
    write.inspect = [=](const WritePlace& place) {
        Project project;
        QString error;
        return project.load(path(place), error) ? QString() : error;
    };
    return write;
}

QString typePath(const WritePlace& place)
{
    return place.inWork(QStringLiteral("Type.rcvp"));
}

Write typeFileWrite()
{
    const auto save = [](const WritePlace& place, int turn) { return writeTypeFile(typePath(place), turn % 2); };
    Write write;
    write.name = "type file";
    write.prepare = [=](const WritePlace& place) { save(place, 1); };
    write.perform = save;
    write.inspect = [](const WritePlace& place) { return problemOfTypeFile(typePath(place)); };
    return write;
}

Write cabinetRecordWrite()
{
    Write write;
    write.name = "record in a type file";
    write.perform = [](const WritePlace& place, int turn) {
        SHwRcvInCabinetInfo record = sampleRecord();
        record.power = float(turn % 2);
        QString error;
        return TypeFile::writeCabinet(typePath(place), record, error);
    };
    write.prepare = [perform = write.perform](const WritePlace& place) {
        writeTypeFile(typePath(place), 0);
        perform(place, 1);
    };
    write.inspect = [](const WritePlace& place) { return problemOfTypeFile(typePath(place)); };
    return write;
}

Write samplesWrite()
{
    const auto library = [](const WritePlace& place) { return place.inWork(QStringLiteral("library")); };
    Write write;
    write.name = "sample library";
    write.prepare = [](const WritePlace& place) {
        for (int i = 0; i < 3; ++i)
            writeFile(place.inSource(QStringLiteral("G/%1.rcvp").arg(i)), content(i));
    };
    write.perform = [=](const WritePlace& place, int /*turn*/) {
        return SampleLibrary::create(library(place), place.source);
    };
    write.undo = takingAway({QStringLiteral("library")});
    // There is the whole library or none.
    write.inspect = [=](const WritePlace& place) {
        const int types = QDir(library(place) + QStringLiteral("/G")).entryList(QDir::Files).size();
        return types == 3 || !QFileInfo::exists(library(place)) ? QString() : QStringLiteral("A part of the library");
    };
    return write;
}

} // namespace

QList<Write> hostWrites()
{
    return {settingsWrite("settings"),
            settingsWrite("settings, short", false, bufferedSize),
            settingsWrite("settings, password moved to the keychain", true),
            damagedSettingsWrite(),
            newerSettingsWrite(),
            projectWrite("project", contentSize),
            projectWrite("project, short", bufferedSize),
            typeFileWrite(),
            cabinetRecordWrite(),
            samplesWrite()};
}
