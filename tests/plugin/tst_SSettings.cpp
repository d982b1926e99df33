#include "plugin/interface/SSettings.h"
#include "tests/support/TestObject.h"

#include <QCoreApplication>

#include <type_traits>

class tst_SSettings : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void preferences();
    void layoutShortcuts();
    void softEdgeShortcuts();
    void monitoring();
    void email();
    void treeIsEmpty();
    void newNode();
    void isAPlainValue();
};

void tst_SSettings::preferences()
{
    const SSettings::Preferences preferences = SSettings().preferences;
    QCOMPARE(preferences.connectionPriority, 0);
    QCOMPARE(preferences.fahrenheit, false);
    QCOMPARE(preferences.showProgrammingPane, true);
    QCOMPARE(preferences.showLayoutPane, true);
    QCOMPARE(preferences.showSoftEdgePane, false);
    QCOMPARE(preferences.softEdgeMode, 1);
    QCOMPARE(preferences.showColorAdjustmentPane, false);
    QCOMPARE(preferences.showHealthMonitoringPane, false);
    QCOMPARE(preferences.showGrid, true);
    QCOMPARE(preferences.showStringPosition, false);
    QCOMPARE(preferences.snapToCabinets, true);
    QCOMPARE(preferences.snapSpace, 20);
}

void tst_SSettings::layoutShortcuts()
{
    const SSettings::ShortcutMap keys = SSettings().layoutShortcuts;
    QCOMPARE(keys.size(), 10);
    QCOMPARE(keys[0], QKeySequence(Qt::Key_A, Qt::CTRL));
    QCOMPARE(keys[1], QKeySequence(Qt::Key_C, Qt::CTRL));
    QCOMPARE(keys[2], QKeySequence(Qt::Key_V, Qt::CTRL));
    QCOMPARE(keys[3], QKeySequence(Qt::Key_X, Qt::CTRL));
    QCOMPARE(keys[4], QKeySequence(Qt::Key_Delete));
    QCOMPARE(keys[5], QKeySequence(Qt::Key_Up));
    QCOMPARE(keys[6], QKeySequence(Qt::Key_Down));
    QCOMPARE(keys[7], QKeySequence(Qt::Key_Left));
    QCOMPARE(keys[8], QKeySequence(Qt::Key_Right));
    QCOMPARE(keys[9], QKeySequence(Qt::Key_Escape));
    QCOMPARE(keys[0].count(), 2);
    QCOMPARE(keys[4].count(), 1);
}

void tst_SSettings::softEdgeShortcuts()
{
    const SSettings::ShortcutMap keys = SSettings().softEdgeShortcuts;
    QCOMPARE(keys.size(), 10);
    QCOMPARE(keys[0], QKeySequence(Qt::Key_Plus));
    QCOMPARE(keys[1], QKeySequence(Qt::Key_Minus));
    QCOMPARE(keys[2], QKeySequence(Qt::Key_A));
    QCOMPARE(keys[3], QKeySequence(Qt::Key_D));
    QCOMPARE(keys[4], QKeySequence(Qt::Key_Up));
    QCOMPARE(keys[5], QKeySequence(Qt::Key_Down));
    QCOMPARE(keys[6], QKeySequence(Qt::Key_Left));
    QCOMPARE(keys[7], QKeySequence(Qt::Key_Right));
    QCOMPARE(keys[8], QKeySequence(Qt::Key_PageUp));
    QCOMPARE(keys[9], QKeySequence(Qt::Key_PageDown));
}

void tst_SSettings::monitoring()
{
    const SMonitorSettings monitoring = SSettings().monitoring;
    QCOMPARE(monitoring.nRefreshInterval, 10);
    QCOMPARE(monitoring.bVideoInput, true);
    QCOMPARE(monitoring.bFreeze, true);
    QCOMPARE(monitoring.bBlackout, true);
    QCOMPARE(monitoring.bZeroBrightness, true);
    QCOMPARE(monitoring.bCableError, false);
    QCOMPARE(monitoring.bMonitorFlag1, true);
    QCOMPARE(monitoring.bTemperature, true);
    QCOMPARE(monitoring.nTemperature, 60);
    QCOMPARE(monitoring.bHumidity, true);
    QCOMPARE(monitoring.nHumidity, 85);
    QCOMPARE(monitoring.bMonitorFlag2, false);
    QCOMPARE(monitoring.bFan, false);
    QCOMPARE(monitoring.bMonitorFlag3, false);
    QVERIFY(monitoring.bPsu1 && monitoring.bPsu2 && monitoring.bPsu3 && monitoring.bPsu4);
    QCOMPARE(monitoring.bVoltage1, false);
    QCOMPARE(monitoring.dVoltage1Min, 5.0);
    QCOMPARE(monitoring.dVoltage1Max, 12.0);
    QCOMPARE(monitoring.bVoltage2, false);
    QCOMPARE(monitoring.dVoltage2Min, 5.0);
    QCOMPARE(monitoring.dVoltage2Max, 12.0);
    QCOMPARE(monitoring.bVoltage3, false);
    QCOMPARE(monitoring.dVoltage3Min, 5.0);
    QCOMPARE(monitoring.dVoltage3Max, 12.0);
    QCOMPARE(monitoring.bVoltage4, false);
    QCOMPARE(monitoring.dVoltage4Min, 0.0);
    QCOMPARE(monitoring.dVoltage4Max, 0.0);
    QCOMPARE(monitoring.bRcvVoltage, false);
    QCOMPARE(monitoring.dRcvVoltageMin, 5.0);
    QCOMPARE(monitoring.dRcvVoltageMax, 12.0);
    QCOMPARE(monitoring.bMonitorFlag4, false);
}

void tst_SSettings::email()
{
    const SEmailSettings email = SSettings().email;
    QCOMPARE(email.bEmailNotification, false);
    QCOMPARE(email.bRecoveryNotice, true);
    QCOMPARE(email.nAlertCount, 3);
    QCOMPARE(email.bSsl, true);
    QCOMPARE(email.nPort, 465);
    QCOMPARE(email.strSenderAddress, QString());
    QCOMPARE(email.strPassword, QString());
    QCOMPARE(email.strSmtpServer, QString());
    QVERIFY(email.lstRecipients.isEmpty());
}

void tst_SSettings::treeIsEmpty()
{
    QVERIFY(SSettings().typeLibraryTree.empty());
}

void tst_SSettings::newNode()
{
    const SSettings::TypeLibrary::STreeNode node;
    QCOMPARE(node.name, QString());
    QCOMPARE(node.path, QString());
    QCOMPARE(node.nodeType, SSettings::TypeLibrary::STreeNode::None);
    QVERIFY(std::all_of(std::begin(node.md5.data), std::end(node.md5.data), [](char c) { return c == 0; }));
    QCOMPARE(node.resolution, QSize(-1, -1));
    QVERIFY(node.cabinetList.isEmpty());
    QCOMPARE(node.cabinetFlag, false);
    QCOMPARE(node.cabinetBlock, (std::array<std::int64_t, 4>{0, 0, 0, 0}));
    QVERIFY(node.children.empty());
}

void tst_SSettings::isAPlainValue()
{
    static_assert(std::is_copy_constructible_v<SSettings> && std::is_copy_assignable_v<SSettings>);
    static_assert(!std::is_polymorphic_v<SSettings>);
    static_assert(std::is_trivially_copyable_v<SMonitorSettings> && sizeof(bool) == 1);

    SSettings original;
    original.email.lstRecipients.append({QStringLiteral("Ann"), QStringLiteral("ann@host.com")});
    SSettings copy = original;
    copy.email.lstRecipients[0].strName = QStringLiteral("Bob");
    copy.layoutShortcuts.remove(0);
    QCOMPARE(original.email.lstRecipients[0].strName, QStringLiteral("Ann"));
    QCOMPARE(original.layoutShortcuts.size(), 10);
}

SETTINGAREA_TEST_MAIN(tst_SSettings, QCoreApplication)
#include "tst_SSettings.moc"
