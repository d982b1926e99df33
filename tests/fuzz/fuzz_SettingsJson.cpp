// The input is a settings file.

#include "host/settings/SettingsJson.h"
#include "tests/fuzz/Expect.h"
#include "tests/fuzz/IgnoredLeaks.h"

#include <QJsonDocument>

#include <cmath>

namespace {

QJsonObject parsedObject(const QByteArray& bytes)
{
    const IgnoredLeaks ignored;
    return QJsonDocument::fromJson(bytes).object();
}

void expectRange(double lower, double upper)
{
    EXPECT(1.0 <= lower && lower <= upper && upper <= 20.0);
}

void expectLimits(const StoredSettings& settings)
{
    const SSettings::Preferences& preferences = settings.record.preferences;
    EXPECT(preferences.connectionPriority >= 0 && preferences.connectionPriority <= 2);
    EXPECT(preferences.softEdgeMode == 0 || preferences.softEdgeMode == 1);
    EXPECT(preferences.snapSpace >= 8 && preferences.snapSpace <= 30);

    const SMonitorSettings& monitoring = settings.record.monitoring;
    EXPECT(monitoring.nRefreshInterval >= 10 && monitoring.nRefreshInterval <= 7200);
    EXPECT(monitoring.nTemperature >= 20 && monitoring.nTemperature <= 100);
    EXPECT(monitoring.nHumidity >= 20 && monitoring.nHumidity <= 100);
    expectRange(monitoring.dVoltage1Min, monitoring.dVoltage1Max);
    expectRange(monitoring.dVoltage2Min, monitoring.dVoltage2Max);
    expectRange(monitoring.dVoltage3Min, monitoring.dVoltage3Max);
    expectRange(monitoring.dRcvVoltageMin, monitoring.dRcvVoltageMax);
    EXPECT(std::isfinite(monitoring.dVoltage4Min) && std::isfinite(monitoring.dVoltage4Max));

    const SEmailSettings& email = settings.record.email;
    EXPECT(email.nAlertCount >= 1 && email.nAlertCount <= 10);
    EXPECT(email.nPort >= 0);
    for (const SEmailRecipient& recipient : email.lstRecipients)
        EXPECT(recipient.strName.size() <= 64 && recipient.strAddress.size() <= 64);
    for (const SSettings::ShortcutMap& shortcuts :
         {settings.record.layoutShortcuts, settings.record.softEdgeShortcuts}) {
        for (const QKeySequence& keys : shortcuts)
            EXPECT(keys.count() <= 4);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QJsonObject given = parsedObject(bytes);
    const StoredSettings settings = SettingsJson::read(given);
    expectLimits(settings);

    const QByteArray file = QJsonDocument(SettingsJson::write(settings, given)).toJson();
    const QJsonObject parsed = parsedObject(file);
    EXPECT(!parsed.isEmpty());
    // Every value is in the file, so that an equal file stands for equal settings. The order of keys is left out: where
    // they hold zeros, as Qt's reader lets them, it is not the same in what was read and what was put together.
    const StoredSettings again = SettingsJson::read(parsed);
    EXPECT(parsedObject(QJsonDocument(SettingsJson::write(again, parsed)).toJson()) == parsed);
    return 0;
}
