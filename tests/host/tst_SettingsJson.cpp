#include "host/settings/SettingsJson.h"
#include "tests/support/TestObject.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>

class tst_SettingsJson : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyFieldComesBack();
    void everyBoolIsAFieldOfItsOwn();
    void anEmptyDocumentGivesTheDefaults();
    void badValuesGetTheirDefault_data();
    void badValuesGetTheirDefault();
    void limitsOfARangeAreTakenTogether();
    void shortcutsAreTakenAsTheyStand();
    void brokenShortcutsGetTheirDefault();
    void recipientsThatCannotBeAreLeftOut();
    void unknownKeysStay();
    void manyEntriesTakeTheirTimeOnce();
    void theVersionIsOurs();
};

namespace {

// Every value differs from its default and from its neighbours.
StoredSettings unusualSettings()
{
    StoredSettings settings;
    settings.host.language = QStringLiteral("zh_CN");
    settings.host.libraryFolder = QStringLiteral("/srv/\u7bb1\u4f53 \"A\"/types");
    settings.host.windowGeometry = QByteArray("\x00\x01\xff\xfe", 4);
    settings.host.windowState = QByteArray("\x00\xff", 2);
    SSettings::Preferences& preferences = settings.record.preferences;
    preferences = {2, true, false, false, true, 0, true, true, false, true, false, 29};
    settings.record.layoutShortcuts = {{-3, QKeySequence(Qt::Key_F5)},
                                       {0, QKeySequence(Qt::Key_A, Qt::CTRL)},
                                       {1, QKeySequence()},
                                       {7, QKeySequence(Qt::Key_K, Qt::Key_L, Qt::Key_M, Qt::META)},
                                       {42, QKeySequence(static_cast<int>(Qt::ALT) | Qt::Key_PageDown)}};
    settings.record.softEdgeShortcuts = {};
    SMonitorSettings& monitoring = settings.record.monitoring;
    monitoring.nRefreshInterval = 7200;
    monitoring.bVideoInput = false;
    monitoring.bFreeze = false;
    monitoring.bBlackout = false;
    monitoring.bZeroBrightness = false;
    monitoring.bCableError = true;
    monitoring.bMonitorFlag1 = false;
    monitoring.bTemperature = false;
    monitoring.nTemperature = 21;
    monitoring.bHumidity = false;
    monitoring.nHumidity = 22;
    monitoring.bMonitorFlag2 = true;
    monitoring.bFan = true;
    monitoring.bMonitorFlag3 = true;
    monitoring.bPsu1 = false;
    monitoring.bPsu2 = false;
    monitoring.bPsu3 = false;
    monitoring.bPsu4 = false;
    monitoring.bVoltage1 = true;
    monitoring.dVoltage1Min = 1.0;
    monitoring.dVoltage1Max = 20.0;
    monitoring.bVoltage2 = true;
    monitoring.dVoltage2Min = 4.7;
    monitoring.dVoltage2Max = 4.7;
    monitoring.bVoltage3 = true;
    monitoring.dVoltage3Min = 0.1 + 10.2; // not 10.3
    monitoring.dVoltage3Max = 13.1;
    monitoring.bVoltage4 = true;
    monitoring.dVoltage4Min = 1e300;
    monitoring.dVoltage4Max = -5e-324;
    monitoring.bRcvVoltage = true;
    monitoring.dRcvVoltageMin = 3.3;
    monitoring.dRcvVoltageMax = 5.5;
    monitoring.bMonitorFlag4 = true;
    SEmailSettings& email = settings.record.email;
    email.bEmailNotification = true;
    email.bRecoveryNotice = false;
    email.nAlertCount = 10;
    email.bSsl = false;
    email.nPort = 9999999;
    email.strSenderAddress = QStringLiteral("wall@example.com");
    email.strPassword = QStringLiteral("Geheim42");
    email.strSmtpServer = QStringLiteral("smtp.example.com");
    email.lstRecipients = {{QStringLiteral("\u5f20\u4f1f"), QStringLiteral("zhang@example.cn")},
                           {QString(), QStringLiteral("a@b.cd")},
                           {QString(64, QLatin1Char('n')), QString(64, QLatin1Char('a'))}};
    return settings;
}

#define COMPARE_FIELD(field) QCOMPARE(actual.field, expected.field)

void compare(const SMonitorSettings& actual, const SMonitorSettings& expected)
{
    COMPARE_FIELD(nRefreshInterval);
    COMPARE_FIELD(bVideoInput);
    COMPARE_FIELD(bFreeze);
    COMPARE_FIELD(bBlackout);
    COMPARE_FIELD(bZeroBrightness);
    COMPARE_FIELD(bCableError);
    COMPARE_FIELD(bMonitorFlag1);
    COMPARE_FIELD(bTemperature);
    COMPARE_FIELD(nTemperature);
    COMPARE_FIELD(bHumidity);
    COMPARE_FIELD(nHumidity);
    COMPARE_FIELD(bMonitorFlag2);
    COMPARE_FIELD(bFan);
    COMPARE_FIELD(bMonitorFlag3);
    COMPARE_FIELD(bPsu1);
    COMPARE_FIELD(bPsu2);
    COMPARE_FIELD(bPsu3);
    COMPARE_FIELD(bPsu4);
    COMPARE_FIELD(bVoltage1);
    COMPARE_FIELD(bVoltage2);
    COMPARE_FIELD(bVoltage3);
    COMPARE_FIELD(bVoltage4);
    COMPARE_FIELD(bRcvVoltage);
    COMPARE_FIELD(bMonitorFlag4);
    // To the last bit, where QCOMPARE would be content with about the same.
    QVERIFY(actual.dVoltage1Min == expected.dVoltage1Min && actual.dVoltage1Max == expected.dVoltage1Max);
    QVERIFY(actual.dVoltage2Min == expected.dVoltage2Min && actual.dVoltage2Max == expected.dVoltage2Max);
    QVERIFY(actual.dVoltage3Min == expected.dVoltage3Min && actual.dVoltage3Max == expected.dVoltage3Max);
    QVERIFY(actual.dVoltage4Min == expected.dVoltage4Min && actual.dVoltage4Max == expected.dVoltage4Max);
    QVERIFY(actual.dRcvVoltageMin == expected.dRcvVoltageMin && actual.dRcvVoltageMax == expected.dRcvVoltageMax);
}

void compare(const SEmailSettings& actual, const SEmailSettings& expected)
{
    COMPARE_FIELD(bEmailNotification);
    COMPARE_FIELD(bRecoveryNotice);
    COMPARE_FIELD(nAlertCount);
    COMPARE_FIELD(bSsl);
    COMPARE_FIELD(nPort);
    COMPARE_FIELD(strSenderAddress);
    COMPARE_FIELD(strPassword);
    COMPARE_FIELD(strSmtpServer);
    QCOMPARE(actual.lstRecipients.size(), expected.lstRecipients.size());
    for (int i = 0; i < actual.lstRecipients.size(); ++i) {
        COMPARE_FIELD(lstRecipients.at(i).strName);
        COMPARE_FIELD(lstRecipients.at(i).strAddress);
    }
}

void compare(const StoredSettings& actual, const StoredSettings& expected)
{
    COMPARE_FIELD(host.language);
    COMPARE_FIELD(host.libraryFolder);
    COMPARE_FIELD(host.windowGeometry);
    COMPARE_FIELD(host.windowState);
    COMPARE_FIELD(record.preferences.connectionPriority);
    COMPARE_FIELD(record.preferences.fahrenheit);
    COMPARE_FIELD(record.preferences.showProgrammingPane);
    COMPARE_FIELD(record.preferences.showLayoutPane);
    COMPARE_FIELD(record.preferences.showSoftEdgePane);
    COMPARE_FIELD(record.preferences.softEdgeMode);
    COMPARE_FIELD(record.preferences.showColorAdjustmentPane);
    COMPARE_FIELD(record.preferences.showHealthMonitoringPane);
    COMPARE_FIELD(record.preferences.showGrid);
    COMPARE_FIELD(record.preferences.showStringPosition);
    COMPARE_FIELD(record.preferences.snapToCabinets);
    COMPARE_FIELD(record.preferences.snapSpace);
    COMPARE_FIELD(record.layoutShortcuts);
    COMPARE_FIELD(record.softEdgeShortcuts);
    compare(actual.record.monitoring, expected.record.monitoring);
    compare(actual.record.email, expected.record.email);
}

// Through text, as the file holds it.
QJsonObject throughText(const QJsonObject& document)
{
    return QJsonDocument::fromJson(QJsonDocument(document).toJson()).object();
}

QJsonObject with(const char* section, const char* key, const QJsonValue& value)
{
    return {{QLatin1String(section), QJsonObject{{QLatin1String(key), value}}}};
}

} // namespace

void tst_SettingsJson::everyFieldComesBack()
{
    const StoredSettings settings = unusualSettings();
    compare(SettingsJson::read(throughText(SettingsJson::write(settings, {}))), settings);
}

// Two fields under one key would go unnoticed above, where all flags of a kind have the same value.
void tst_SettingsJson::everyBoolIsAFieldOfItsOwn()
{
    const QJsonObject defaults = SettingsJson::write({}, {});
    int flags = 0;
    for (const char* section : {"preferences", "monitoring", "email"}) {
        const QJsonObject fields = defaults.value(QLatin1String(section)).toObject();
        for (auto it = fields.begin(); it != fields.end(); ++it) {
            if (!it.value().isBool())
                continue;
            ++flags;
            QJsonObject changedFields = fields;
            changedFields.insert(it.key(), !it.value().toBool());
            QJsonObject changed = defaults;
            changed.insert(QLatin1String(section), changedFields);
            QCOMPARE(SettingsJson::write(SettingsJson::read(changed), {}), changed);
        }
    }
    QCOMPARE(flags, 9 + 21 + 3);
}

void tst_SettingsJson::anEmptyDocumentGivesTheDefaults()
{
    compare(SettingsJson::read({}), {});
    compare(SettingsJson::read({{QStringLiteral("monitoring"), QJsonArray{1, 2}},
                                {QStringLiteral("shortcuts"), QStringLiteral("none")},
                                {QStringLiteral("email"), QJsonValue::Null}}),
            {});
}

void tst_SettingsJson::badValuesGetTheirDefault_data()
{
    QTest::addColumn<QJsonObject>("document");
    const QJsonValue text(QStringLiteral("12"));
    QTest::newRow("flag, number") << with("preferences", "fahrenheit", 1);
    QTest::newRow("flag, text") << with("monitoring", "fan", QStringLiteral("true"));
    QTest::newRow("flag, null") << with("email", "ssl", QJsonValue::Null);
    QTest::newRow("priority below") << with("preferences", "connectionPriority", -1);
    QTest::newRow("priority above") << with("preferences", "connectionPriority", 3);
    QTest::newRow("priority, text") << with("preferences", "connectionPriority", text);
    QTest::newRow("soft edge mode above") << with("preferences", "softEdgeMode", 2);
    QTest::newRow("soft edge mode below") << with("preferences", "softEdgeMode", -3);
    QTest::newRow("space below") << with("preferences", "snapSpace", 7);
    QTest::newRow("space above") << with("preferences", "snapSpace", 31);
    QTest::newRow("space, fraction") << with("preferences", "snapSpace", 12.5);
    QTest::newRow("space, far beyond an integer") << with("preferences", "snapSpace", 1e30);
    QTest::newRow("interval below") << with("monitoring", "refreshInterval", 9);
    QTest::newRow("interval above") << with("monitoring", "refreshInterval", 7201);
    QTest::newRow("temperature below") << with("monitoring", "temperatureLimit", 19);
    QTest::newRow("temperature above") << with("monitoring", "temperatureLimit", 101);
    QTest::newRow("humidity below") << with("monitoring", "humidityLimit", 19);
    QTest::newRow("humidity above") << with("monitoring", "humidityLimit", 101);
    QTest::newRow("voltage below") << with("monitoring", "voltage1Min", 0.9);
    QTest::newRow("voltage above") << with("monitoring", "voltage2Max", 20.1);
    QTest::newRow("voltage, text") << with("monitoring", "receiverVoltageMin", text);
    QTest::newRow("voltage above the upper limit") << with("monitoring", "voltage3Min", 12.5);
    QTest::newRow("voltage below the lower limit") << with("monitoring", "voltage3Max", 4.9);
    QTest::newRow("fourth voltage, text") << with("monitoring", "voltage4Min", text);
    QTest::newRow("alerts below") << with("email", "alertCount", 0);
    QTest::newRow("alerts above") << with("email", "alertCount", 11);
    QTest::newRow("port below") << with("email", "port", -1);
    QTest::newRow("port above") << with("email", "port", 10000000);
    QTest::newRow("password, number") << with("email", "password", 12345678);
    QTest::newRow("recipients, object") << with("email", "recipients", QJsonObject{});
    QTest::newRow("geometry, not Base64") << with("host", "windowGeometry", QStringLiteral("?!"));
    QTest::newRow("folder, list") << with("host", "libraryFolder", QJsonArray{QStringLiteral("/srv")});
}

void tst_SettingsJson::badValuesGetTheirDefault()
{
    QFETCH(QJsonObject, document);
    // The neighbours of the bad value are kept.
    const auto section = document.begin();
    QJsonObject fields = section.value().toObject();
    const QString neighbour = section.key() == QLatin1String("host")          ? QStringLiteral("language")
                              : section.key() == QLatin1String("preferences") ? QStringLiteral("showGrid")
                              : section.key() == QLatin1String("email")       ? QStringLiteral("recoveryNotice")
                                                                              : QStringLiteral("freeze");
    const bool isText = section.key() == QLatin1String("host");
    fields.insert(neighbour, isText ? QJsonValue(QStringLiteral("en_US")) : QJsonValue(false));
    document.insert(section.key(), fields);

    StoredSettings expected;
    expected.host.language = isText ? QStringLiteral("en_US") : QString();
    expected.record.preferences.showGrid = section.key() != QLatin1String("preferences");
    expected.record.email.bRecoveryNotice = section.key() != QLatin1String("email");
    expected.record.monitoring.bFreeze = section.key() != QLatin1String("monitoring");
    compare(SettingsJson::read(document), expected);
}

void tst_SettingsJson::limitsOfARangeAreTakenTogether()
{
    const QJsonObject limits{{QStringLiteral("voltage1Min"), 12.5}, {QStringLiteral("voltage1Max"), 19.5}};
    const SMonitorSettings monitoring = SettingsJson::read({{QStringLiteral("monitoring"), limits}}).record.monitoring;
    QCOMPARE(monitoring.dVoltage1Min, 12.5);
    QCOMPARE(monitoring.dVoltage1Max, 19.5);
}

void tst_SettingsJson::shortcutsAreTakenAsTheyStand()
{
    const QJsonObject layout{{QStringLiteral("3"), QJsonArray{Qt::Key_X, static_cast<int>(Qt::CTRL)}},
                             {QStringLiteral("12"), QJsonArray{}}};
    const QJsonObject shortcuts{{QStringLiteral("layout"), layout}};
    const SSettings record = SettingsJson::read({{QStringLiteral("shortcuts"), shortcuts}}).record;
    const SSettings::ShortcutMap expected{{3, QKeySequence(Qt::Key_X, Qt::CTRL)}, {12, QKeySequence()}};
    QCOMPARE(record.layoutShortcuts, expected);
    QCOMPARE(record.softEdgeShortcuts, SSettings().softEdgeShortcuts);
}

void tst_SettingsJson::brokenShortcutsGetTheirDefault()
{
    const QJsonObject layout{{QStringLiteral("0"), QJsonArray{QStringLiteral("Ctrl+A")}},
                             {QStringLiteral("1"), QJsonArray{1, 2, 3, 4, 5}},
                             {QStringLiteral("2"), QJsonArray{-65}},
                             {QStringLiteral("3"), QJsonArray{65.5}},
                             {QStringLiteral("4"), QJsonArray{1e12}},
                             {QStringLiteral("5"), 65},
                             {QStringLiteral("77"), QJsonArray{0}}, // has no default
                             {QStringLiteral("comment"), QStringLiteral("mine")}};
    const QJsonObject shortcuts{{QStringLiteral("layout"), layout}};
    const SSettings::ShortcutMap read =
        SettingsJson::read({{QStringLiteral("shortcuts"), shortcuts}}).record.layoutShortcuts;
    SSettings::ShortcutMap expected = SSettings().layoutShortcuts;
    for (const int index : {6, 7, 8, 9})
        expected.remove(index);
    QCOMPARE(read, expected);
}

void tst_SettingsJson::recipientsThatCannotBeAreLeftOut()
{
    const auto recipient = [](const QJsonValue& name, const QJsonValue& address) {
        return QJsonObject{{QStringLiteral("name"), name}, {QStringLiteral("address"), address}};
    };
    const QString longText(65, QLatin1Char('x'));
    const QJsonArray recipients{recipient(QStringLiteral("A"), QStringLiteral("a@b.cd")), QStringLiteral("c@d.ef"),
                                recipient(QStringLiteral("B"), longText), recipient(longText, QStringLiteral("e@f.gh")),
                                recipient(5, QStringLiteral("g@h.ij"))};
    const auto read = SettingsJson::read(with("email", "recipients", recipients)).record.email.lstRecipients;
    QStringList texts;
    for (const SEmailRecipient& entry : read)
        texts << entry.strName + QLatin1Char('<') + entry.strAddress + QLatin1Char('>');
    QCOMPARE(texts, (QStringList{QStringLiteral("A<a@b.cd>"), QStringLiteral("<e@f.gh>"), QStringLiteral("<g@h.ij>")}));
}

void tst_SettingsJson::unknownKeysStay()
{
    const QJsonObject document = QJsonDocument::fromJson(R"({
        "comment": "mine",
        "later": {"deep": [1, {"x": null}]},
        "monitoring": {"fan": true, "noise": 4},
        "shortcuts": {"layout": {"0": [65], "33": [66], "note": "n"}, "third": {}},
        "email": {"recipients": [{"name": "Old", "address": "a@b.cd", "phone": "1"}, {"address": "gone@b.cd"}]}
    })")
                                     .object();
    StoredSettings settings = SettingsJson::read(document);
    settings.record.monitoring.bFan = false;
    settings.record.layoutShortcuts.remove(33);
    settings.record.email.lstRecipients = {{QStringLiteral("C"), QStringLiteral("c@d.ef")},
                                           {QStringLiteral("New"), QStringLiteral("a@b.cd")}};
    const QJsonObject written = SettingsJson::write(settings, document);

    QCOMPARE(written.value(QLatin1String("comment")), document.value(QLatin1String("comment")));
    QCOMPARE(written.value(QLatin1String("later")), document.value(QLatin1String("later")));
    const QJsonObject monitoring = written.value(QLatin1String("monitoring")).toObject();
    QCOMPARE(monitoring.value(QLatin1String("noise")), QJsonValue(4));
    QCOMPARE(monitoring.value(QLatin1String("fan")), QJsonValue(false));
    const QJsonObject shortcuts = written.value(QLatin1String("shortcuts")).toObject();
    QCOMPARE(shortcuts.value(QLatin1String("third")), QJsonValue(QJsonObject()));
    const QJsonObject layout{{QStringLiteral("0"), QJsonArray{65}}, {QStringLiteral("note"), QStringLiteral("n")}};
    QCOMPARE(shortcuts.value(QLatin1String("layout")), QJsonValue(layout));
    const QByteArray recipients = R"([{"address":"c@d.ef","name":"C"},{"address":"a@b.cd","name":"New","phone":"1"}])";
    const QJsonArray writtenRecipients = written.value(QLatin1String("email"))[QLatin1String("recipients")].toArray();
    QCOMPARE(QJsonDocument(writtenRecipients).toJson(QJsonDocument::Compact), recipients);
}

// A file at its limit of size holds more recipients and shortcuts than could be compared with one another.
void tst_SettingsJson::manyEntriesTakeTheirTimeOnce()
{
    constexpr int count = 100'000;
    StoredSettings settings;
    for (int i = 0; i < count; ++i) {
        settings.record.email.lstRecipients.append({QString(), QString::number(i)});
        settings.record.layoutShortcuts.insert(i, QKeySequence(Qt::Key_A));
    }
    const QJsonObject document = SettingsJson::write(settings, {});
    settings.record.email.lstRecipients.last().strName = QStringLiteral("Last");
    QElapsedTimer timer;
    timer.start();
    const QJsonObject again = SettingsJson::write(settings, document);
    // Milliseconds: it takes some hundred, ten times that under the sanitizers, and minutes where it is quadratic.
    QVERIFY2(timer.elapsed() < 10'000, qPrintable(QString::number(timer.elapsed())));
    const StoredSettings read = SettingsJson::read(again);
    QCOMPARE(read.record.layoutShortcuts, settings.record.layoutShortcuts);
    QCOMPARE(read.record.email.lstRecipients.size(), count);
    QCOMPARE(read.record.email.lstRecipients.last().strName, QStringLiteral("Last"));
}

void tst_SettingsJson::theVersionIsOurs()
{
    QCOMPARE(SettingsJson::version({}), 1);
    QCOMPARE(SettingsJson::version({{QStringLiteral("version"), 7}}), 7);
    QCOMPARE(SettingsJson::version(SettingsJson::write({}, {{QStringLiteral("version"), 7}})), 1);
}

SETTINGAREA_TEST_MAIN(tst_SettingsJson, QCoreApplication)
#include "tst_SettingsJson.moc"
