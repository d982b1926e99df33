#include "host/settings/SettingsJson.h"

#include "host/settings/JsonReader.h"
#include "host/settings/JsonWriter.h"

#include <QHash>
#include <QJsonArray>
#include <QMap>

#include <array>
#include <limits>

namespace {

// The most keys that one sequence holds, and the longest recipient name or address.
constexpr int maxKeys = 4;
constexpr int maxRecipientLength = 64;

constexpr double minVoltage = 1.0;
constexpr double maxVoltage = 20.0;

const QLatin1String versionKey("version");
const QLatin1String layoutKey("layout");
const QLatin1String softEdgeKey("softEdge");
const QLatin1String recipientsKey("recipients");
const QLatin1String nameKey("name");
const QLatin1String addressKey("address");

// Each list names the fields of one record once, for reading and for writing.

template<typename Fields, typename Record>
void preferencesFields(Fields& fields, Record& preferences)
{
    fields.field("connectionPriority", preferences.connectionPriority, 0, 2);
    fields.field("fahrenheit", preferences.fahrenheit);
    fields.field("showProgrammingPane", preferences.showProgrammingPane);
    fields.field("showLayoutPane", preferences.showLayoutPane);
    fields.field("showSoftEdgePane", preferences.showSoftEdgePane);
    fields.field("softEdgeMode", preferences.softEdgeMode, 0, 1);
    fields.field("showColorAdjustmentPane", preferences.showColorAdjustmentPane);
    fields.field("showHealthMonitoringPane", preferences.showHealthMonitoringPane);
    fields.field("showGrid", preferences.showGrid);
    fields.field("showStringPosition", preferences.showStringPosition);
    fields.field("snapToCabinets", preferences.snapToCabinets);
    fields.field("snapSpace", preferences.snapSpace, 8, 30);
}

template<typename Fields, typename Record>
void monitoringFields(Fields& fields, Record& monitoring)
{
    fields.field("refreshInterval", monitoring.nRefreshInterval, 10, 7200);
    fields.field("videoInput", monitoring.bVideoInput);
    fields.field("freeze", monitoring.bFreeze);
    fields.field("blackout", monitoring.bBlackout);
    fields.field("zeroBrightness", monitoring.bZeroBrightness);
    fields.field("cableError", monitoring.bCableError);
    fields.field("monitorFlag1", monitoring.bMonitorFlag1);
    fields.field("temperature", monitoring.bTemperature);
    fields.field("temperatureLimit", monitoring.nTemperature, 20, 100);
    fields.field("humidity", monitoring.bHumidity);
    fields.field("humidityLimit", monitoring.nHumidity, 20, 100);
    fields.field("monitorFlag2", monitoring.bMonitorFlag2);
    fields.field("fan", monitoring.bFan);
    fields.field("monitorFlag3", monitoring.bMonitorFlag3);
    fields.field("psu1", monitoring.bPsu1);
    fields.field("psu2", monitoring.bPsu2);
    fields.field("psu3", monitoring.bPsu3);
    fields.field("psu4", monitoring.bPsu4);
    const auto voltage = [&fields](const char* lowerKey, auto& lower, const char* upperKey, auto& upper) {
        fields.range(lowerKey, lower, upperKey, upper, minVoltage, maxVoltage);
    };
    fields.field("voltage1", monitoring.bVoltage1);
    voltage("voltage1Min", monitoring.dVoltage1Min, "voltage1Max", monitoring.dVoltage1Max);
    fields.field("voltage2", monitoring.bVoltage2);
    voltage("voltage2Min", monitoring.dVoltage2Min, "voltage2Max", monitoring.dVoltage2Max);
    fields.field("voltage3", monitoring.bVoltage3);
    voltage("voltage3Min", monitoring.dVoltage3Min, "voltage3Max", monitoring.dVoltage3Max);
    // No page shows the fourth entry, so it has no range either.
    fields.field("voltage4", monitoring.bVoltage4);
    fields.field("voltage4Min", monitoring.dVoltage4Min);
    fields.field("voltage4Max", monitoring.dVoltage4Max);
    fields.field("receiverVoltage", monitoring.bRcvVoltage);
    voltage("receiverVoltageMin", monitoring.dRcvVoltageMin, "receiverVoltageMax", monitoring.dRcvVoltageMax);
    fields.field("monitorFlag4", monitoring.bMonitorFlag4);
}

template<typename Fields, typename Record>
void emailFields(Fields& fields, Record& email)
{
    fields.field("notification", email.bEmailNotification);
    fields.field("recoveryNotice", email.bRecoveryNotice);
    fields.field("alertCount", email.nAlertCount, 1, 10);
    fields.field("ssl", email.bSsl);
    fields.field("port", email.nPort, 0, 9999999);
    fields.field("senderAddress", email.strSenderAddress);
    fields.field("password", email.strPassword);
    fields.field("smtpServer", email.strSmtpServer);
}

template<typename Fields, typename Record>
void hostFields(Fields& fields, Record& host)
{
    fields.field("language", host.language);
    fields.field("libraryFolder", host.libraryFolder);
    fields.field("passwordInKeychain", host.passwordInKeychain);
    fields.field("windowGeometry", host.windowGeometry);
    fields.field("windowState", host.windowState);
}

// Calls `section(key, fields)` for every section of scalar fields.
template<typename Settings, typename Function>
void eachSection(Settings& settings, Function section)
{
    section(QLatin1String("host"), [&](auto& fields) { hostFields(fields, settings.host); });
    section(QLatin1String("preferences"),
            [&](auto& fields) { preferencesFields(fields, settings.record.preferences); });
    section(QLatin1String("monitoring"), [&](auto& fields) { monitoringFields(fields, settings.record.monitoring); });
    section(QLatin1String("email"), [&](auto& fields) { emailFields(fields, settings.record.email); });
}

// A sequence is the list of its keys, each the number of a Qt::Key with its modifiers: the portable text form knows no
// way to write a modifier alone, which a combination's second entry is.
bool readKeys(const QJsonValue& value, QKeySequence& sequence)
{
    const QJsonArray keys = value.toArray();
    if (!value.isArray() || keys.size() > maxKeys)
        return false;
    std::array<int, maxKeys> codes{};
    for (int i = 0; i < keys.size(); ++i) {
        const double code = keys.at(i).toDouble(-1);
        if (code < 1 || code > std::numeric_limits<int>::max() || code != static_cast<int>(code))
            return false;
        codes[static_cast<std::size_t>(i)] = static_cast<int>(code);
    }
    sequence = QKeySequence(codes[0], codes[1], codes[2], codes[3]);
    return true;
}

QJsonArray keysOf(const QKeySequence& sequence)
{
    QJsonArray keys;
    for (int i = 0; i < sequence.count(); ++i)
        keys.append(sequence[static_cast<uint>(i)]);
    return keys;
}

void readShortcuts(const QJsonValue& value, SSettings::ShortcutMap& shortcuts)
{
    if (!value.isObject())
        return;
    const SSettings::ShortcutMap defaults = shortcuts;
    shortcuts.clear();
    const QJsonObject object = value.toObject();
    for (auto it = object.begin(); it != object.end(); ++it) {
        bool isIndex = false;
        const int index = it.key().toInt(&isIndex);
        if (!isIndex)
            continue;
        QKeySequence sequence = defaults.value(index);
        if (readKeys(it.value(), sequence) || defaults.contains(index))
            shortcuts.insert(index, sequence);
    }
}

QJsonObject writeShortcuts(const SSettings::ShortcutMap& shortcuts, const QJsonObject& previous)
{
    QMap<QString, QJsonValue> entries;
    for (auto it = previous.begin(); it != previous.end(); ++it) {
        bool isIndex = false;
        it.key().toInt(&isIndex);
        if (!isIndex)
            entries.insert(it.key(), it.value());
    }
    for (auto it = shortcuts.begin(); it != shortcuts.end(); ++it)
        entries.insert(QString::number(it.key()), keysOf(it.value()));
    // In the order of the keys, in which the object holds them: no entry has to make room for a later one.
    QJsonObject object;
    for (auto it = entries.cbegin(); it != entries.cend(); ++it)
        object.insert(it.key(), it.value());
    return object;
}

QList<SEmailRecipient> readRecipients(const QJsonArray& array)
{
    QList<SEmailRecipient> recipients;
    for (const QJsonValue& value : array) {
        SEmailRecipient recipient;
        const JsonReader fields(value.toObject());
        fields.field(nameKey.data(), recipient.strName);
        fields.field(addressKey.data(), recipient.strAddress);
        if (recipient.strName.size() > maxRecipientLength)
            recipient.strName.clear();
        if (value.isObject() && recipient.strAddress.size() <= maxRecipientLength)
            recipients.append(recipient);
    }
    return recipients;
}

QJsonArray writeRecipients(const QList<SEmailRecipient>& recipients, const QJsonArray& previous)
{
    // The address is what tells one recipient from another: keys that are not ours stay with it.
    QHash<QString, QJsonObject> entries;
    for (const QJsonValue& value : previous) {
        const QJsonObject entry = value.toObject();
        const QString address = entry.value(addressKey).toString();
        if (!entries.contains(address))
            entries.insert(address, entry);
    }
    QJsonArray array;
    for (const SEmailRecipient& recipient : recipients) {
        JsonWriter fields(entries.value(recipient.strAddress));
        fields.field(nameKey.data(), recipient.strName);
        fields.field(addressKey.data(), recipient.strAddress);
        array.append(fields.object());
    }
    return array;
}

} // namespace

int SettingsJson::version(const QJsonObject& document)
{
    return document.value(versionKey).toInt(1);
}

StoredSettings SettingsJson::read(const QJsonObject& document)
{
    StoredSettings settings;
    eachSection(settings, [&document](QLatin1String key, auto readFields) {
        JsonReader fields(document.value(key).toObject());
        readFields(fields);
    });
    const QJsonObject shortcuts = document.value(QLatin1String("shortcuts")).toObject();
    readShortcuts(shortcuts.value(layoutKey), settings.record.layoutShortcuts);
    readShortcuts(shortcuts.value(softEdgeKey), settings.record.softEdgeShortcuts);
    const QJsonObject email = document.value(QLatin1String("email")).toObject();
    settings.record.email.lstRecipients = readRecipients(email.value(recipientsKey).toArray());
    return settings;
}

QJsonObject SettingsJson::write(const StoredSettings& settings, QJsonObject document)
{
    document.insert(versionKey, currentVersion);
    eachSection(settings, [&document](QLatin1String key, auto writeFields) {
        JsonWriter fields(document.value(key).toObject());
        writeFields(fields);
        document.insert(key, fields.object());
    });

    const QLatin1String shortcutsKey("shortcuts");
    QJsonObject shortcuts = document.value(shortcutsKey).toObject();
    shortcuts.insert(layoutKey, writeShortcuts(settings.record.layoutShortcuts, shortcuts.value(layoutKey).toObject()));
    shortcuts.insert(softEdgeKey,
                     writeShortcuts(settings.record.softEdgeShortcuts, shortcuts.value(softEdgeKey).toObject()));
    document.insert(shortcutsKey, shortcuts);

    const QLatin1String emailKey("email");
    QJsonObject email = document.value(emailKey).toObject();
    email.insert(recipientsKey,
                 writeRecipients(settings.record.email.lstRecipients, email.value(recipientsKey).toArray()));
    document.insert(emailKey, email);
    return document;
}
