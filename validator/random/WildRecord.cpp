#include "validator/random/WildRecord.h"

#include <limits>

namespace {

std::int32_t anyNumber(Random& random, int lowest, int highest)
{
    switch (random.below(12)) {
    case 0:
        return std::numeric_limits<std::int32_t>::min();
    case 1:
        return std::numeric_limits<std::int32_t>::max();
    case 2:
        return -1;
    case 3:
        return 0;
    default:
        return lowest + random.below(highest - lowest + 1);
    }
}

double anyVoltage(Random& random)
{
    switch (random.below(12)) {
    case 0:
        return std::numeric_limits<double>::quiet_NaN();
    case 1:
        return std::numeric_limits<double>::infinity();
    case 2:
        return -std::numeric_limits<double>::infinity();
    case 3:
        return std::numeric_limits<double>::max();
    case 4:
        return -0.0;
    default:
        return static_cast<double>(10 + random.below(191)) / 10;
    }
}

QString anyText(Random& random)
{
    switch (random.below(8)) {
    case 0:
        return {};
    case 1:
        return QStringLiteral("<h1>text</h1>");
    case 2:
        return QString::fromUtf8("\xe5\xb1\x8f\xe5\xb9\x95 \xf0\x9f\x98\x80");
    case 3:
        return QString().fill(QLatin1Char('x'), random.below(40'000));
    case 4:
        return QStringLiteral("two\nlines\t%1 %n");
    default:
        return QStringLiteral("Name%1").arg(random.below(100));
    }
}

QString anyAddress(Random& random)
{
    return random.oneIn(4) ? anyText(random) : QStringLiteral("user%1@example.com").arg(random.below(100));
}

QKeySequence anyKeys(Random& random)
{
    switch (random.below(5)) {
    case 0:
        return {};
    case 1:
        return {Qt::Key_unknown, Qt::CTRL, Qt::SHIFT, Qt::ALT};
    case 2:
        return {Qt::CTRL + Qt::Key_Plus};
    default:
        return {Qt::Key_A + random.below(26), Qt::CTRL};
    }
}

SSettings::ShortcutMap anyShortcuts(Random& random)
{
    SSettings::ShortcutMap result;
    for (int action = -1; action < 12; ++action) {
        if (!random.oneIn(4))
            result.insert(action, anyKeys(random));
    }
    return result;
}

void makeWild(SSettings::Preferences& preferences, Random& random)
{
    preferences.connectionPriority = anyNumber(random, 0, 2);
    preferences.softEdgeMode = anyNumber(random, 0, 1);
    preferences.snapSpace = anyNumber(random, 8, 30);
    for (bool* const flag :
         {&preferences.fahrenheit, &preferences.showProgrammingPane, &preferences.showLayoutPane,
          &preferences.showSoftEdgePane, &preferences.showColorAdjustmentPane, &preferences.showHealthMonitoringPane,
          &preferences.showGrid, &preferences.showStringPosition, &preferences.snapToCabinets})
        *flag = random.oneIn(2);
}

void makeWild(SMonitorSettings& monitoring, Random& random)
{
    monitoring.nRefreshInterval = anyNumber(random, 10, 7200);
    monitoring.nTemperature = anyNumber(random, 20, 100);
    monitoring.nHumidity = anyNumber(random, 20, 100);
    for (bool* const flag :
         {&monitoring.bVideoInput,   &monitoring.bFreeze,       &monitoring.bBlackout,     &monitoring.bZeroBrightness,
          &monitoring.bCableError,   &monitoring.bMonitorFlag1, &monitoring.bTemperature,  &monitoring.bHumidity,
          &monitoring.bMonitorFlag2, &monitoring.bFan,          &monitoring.bMonitorFlag3, &monitoring.bPsu1,
          &monitoring.bPsu2,         &monitoring.bPsu3,         &monitoring.bPsu4,         &monitoring.bVoltage1,
          &monitoring.bVoltage2,     &monitoring.bVoltage3,     &monitoring.bVoltage4,     &monitoring.bRcvVoltage,
          &monitoring.bMonitorFlag4})
        *flag = random.oneIn(2);
    for (double* const limit :
         {&monitoring.dVoltage1Min, &monitoring.dVoltage1Max, &monitoring.dVoltage2Min, &monitoring.dVoltage2Max,
          &monitoring.dVoltage3Min, &monitoring.dVoltage3Max, &monitoring.dVoltage4Min, &monitoring.dVoltage4Max,
          &monitoring.dRcvVoltageMin, &monitoring.dRcvVoltageMax})
        *limit = anyVoltage(random);
}

void makeWild(SEmailSettings& email, Random& random)
{
    for (bool* const flag : {&email.bEmailNotification, &email.bRecoveryNotice, &email.bSsl})
        *flag = random.oneIn(2);
    email.nAlertCount = anyNumber(random, 1, 10);
    email.nPort = anyNumber(random, 1, 65535);
    email.strSenderAddress = anyAddress(random);
    email.strPassword = anyText(random);
    email.strSmtpServer = anyText(random);
    for (int count = random.oneIn(20) ? 200 : random.below(5); count > 0; --count)
        email.lstRecipients.append({anyText(random), anyAddress(random)});
}

} // namespace

SSettings wildRecord(Random& random)
{
    SSettings record;
    makeWild(record.preferences, random);
    makeWild(record.monitoring, random);
    makeWild(record.email, random);
    record.layoutShortcuts = anyShortcuts(random);
    record.softEdgeShortcuts = anyShortcuts(random);
    return record;
}
