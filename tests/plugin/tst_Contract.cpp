#include "plugin/interface/ISettingInterface.h"
#include "plugin/interface/ISettingInterfaceHandler.h"
#include "plugin/interface/SHwRcvInCabinetInfo.h"
#include "tests/support/TestObject.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstring>
#include <type_traits>

namespace {

// Place of the operation in the table of virtual functions, where the destructor takes the first two.
template<typename Operation>
int slotOf(Operation operation)
{
    // The compiler keeps the offset into the table there, on some processors with a mark in the lowest bit.
    std::ptrdiff_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return static_cast<int>(offset / static_cast<std::ptrdiff_t>(sizeof(void*)));
}

// Whether the fields lie in memory as they are listed.
bool areInOrder(std::initializer_list<const void*> fields)
{
    return std::is_sorted(fields.begin(), fields.end(), std::less<>()) &&
           std::adjacent_find(fields.begin(), fields.end()) == fields.end();
}

} // namespace

// What a host that was compiled with its own copy of the headers relies on.
class tst_Contract : public TestObject
{
    Q_OBJECT

private Q_SLOTS:
    void operationsOfTheControl();
    void operationsOfTheHandler();
    void fieldsOfTheSettings();
    void fieldsOfTheMonitoring();
    void fieldsOfTheMail();
    void fieldsOfTheTree();
    void fieldsOfTheCabinet();
};

void tst_Contract::operationsOfTheControl()
{
    static_assert(std::has_virtual_destructor_v<IAbstractControlInterface>);
    QCOMPARE(slotOf(&IAbstractControlInterface::widget), 2);
    QCOMPARE(slotOf(&IAbstractControlInterface::initialize), 3);
    QCOMPARE(slotOf(&IAbstractControlInterface::isValid), 4);
    QCOMPARE(slotOf(&IAbstractControlInterface::setHandler), 5);
    QCOMPARE(slotOf(&IAbstractControlInterface::getHandler), 6);
    QCOMPARE(slotOf(&ISettingInterface::syncLanguageWithLocale), 7);
    QCOMPARE(slotOf(&ISettingInterface::setSettings), 8);
    QCOMPARE(slotOf(&ISettingInterface::setTypeLibraryPath), 9);
    QCOMPARE(slotOf(&ISettingInterface::isTypeLibraryReady), 10);
    QCOMPARE(slotOf(&ISettingInterface::getSettings), 11);
    QCOMPARE(slotOf(&ISettingInterface::setCurrentTab), 12);
    QCOMPARE(slotOf(&ISettingInterface::getTypeLibrary), 13);
    QCOMPARE(slotOf(&ISettingInterface::setControlsEnabled), 14);
    QCOMPARE(slotOf(&ISettingInterface::closeShortcutPanel), 15);
    QCOMPARE(slotOf(&ISettingInterface::refreshPreferences), 16);
}

void tst_Contract::operationsOfTheHandler()
{
    static_assert(std::has_virtual_destructor_v<IAbstractInterfaceHandler>);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::reserved1), 2);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::reserved2), 3);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::notifyShortcutPanelVisible), 4);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::SendEmail), 5);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::isProjectModified), 6);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::hasProjectPath), 7);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::projectName), 8);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::saveProject), 9);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::setConnectionPriority), 10);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::setLanguage), 11);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::isTypeUsedInLayout), 12);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::isMultiRcvCabinetFile), 13);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::readCabinetInfo), 14);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::writeCabinetInfo), 15);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::queryCabinetResolution), 16);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::queryCabinetBlock), 17);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::showProgress), 18);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::endProgress), 19);
    QCOMPARE(slotOf(&ISettingInterfaceHandler::isPriorityConnectionHidden), 20);
}

void tst_Contract::fieldsOfTheSettings()
{
    static_assert(sizeof(bool) == 1);
    const SSettings s;
    QVERIFY(areInOrder(
        {&s.preferences, &s.layoutShortcuts, &s.softEdgeShortcuts, &s.typeLibraryTree, &s.monitoring, &s.email}));
    const SSettings::Preferences& p = s.preferences;
    static_assert(std::is_same_v<decltype(p.connectionPriority), std::int32_t>);
    static_assert(std::is_same_v<decltype(p.softEdgeMode), std::int32_t>);
    static_assert(std::is_same_v<decltype(p.snapSpace), std::int32_t>);
    QVERIFY(areInOrder({&p.connectionPriority, &p.fahrenheit, &p.showProgrammingPane, &p.showLayoutPane,
                        &p.showSoftEdgePane, &p.softEdgeMode, &p.showColorAdjustmentPane, &p.showHealthMonitoringPane,
                        &p.showGrid, &p.showStringPosition, &p.snapToCabinets, &p.snapSpace}));
}

void tst_Contract::fieldsOfTheMonitoring()
{
    const SMonitorSettings m;
    static_assert(std::is_same_v<decltype(m.nRefreshInterval), std::int32_t>);
    static_assert(std::is_same_v<decltype(m.nTemperature), std::int32_t>);
    static_assert(std::is_same_v<decltype(m.nHumidity), std::int32_t>);
    QVERIFY(areInOrder({&m.nRefreshInterval,
                        &m.bVideoInput,
                        &m.bFreeze,
                        &m.bBlackout,
                        &m.bZeroBrightness,
                        &m.bCableError,
                        &m.bMonitorFlag1,
                        &m.bTemperature,
                        &m.nTemperature,
                        &m.bHumidity,
                        &m.nHumidity,
                        &m.bMonitorFlag2,
                        &m.bFan,
                        &m.bMonitorFlag3,
                        &m.bPsu1,
                        &m.bPsu2,
                        &m.bPsu3,
                        &m.bPsu4,
                        &m.bVoltage1,
                        &m.dVoltage1Min,
                        &m.dVoltage1Max,
                        &m.bVoltage2,
                        &m.dVoltage2Min,
                        &m.dVoltage2Max,
                        &m.bVoltage3,
                        &m.dVoltage3Min,
                        &m.dVoltage3Max,
                        &m.bVoltage4,
                        &m.dVoltage4Min,
                        &m.dVoltage4Max,
                        &m.bRcvVoltage,
                        &m.dRcvVoltageMin,
                        &m.dRcvVoltageMax,
                        &m.bMonitorFlag4}));
}

void tst_Contract::fieldsOfTheMail()
{
    const SEmailSettings e;
    static_assert(std::is_same_v<decltype(e.nAlertCount), std::int32_t>);
    static_assert(std::is_same_v<decltype(e.nPort), std::int32_t>);
    QVERIFY(areInOrder({&e.bEmailNotification, &e.bRecoveryNotice, &e.nAlertCount, &e.bSsl, &e.nPort,
                        &e.strSenderAddress, &e.strPassword, &e.strSmtpServer, &e.lstRecipients}));
    const SEmailRecipient r;
    QVERIFY(areInOrder({&r.strName, &r.strAddress}));
}

void tst_Contract::fieldsOfTheTree()
{
    const SSettings::TypeLibrary::STreeNode n;
    QVERIFY(areInOrder({&n.name, &n.path, &n.nodeType, &n.md5, &n.resolution, &n.cabinetList, &n.cabinetFlag,
                        &n.cabinetBlock, &n.children}));
    static_assert(sizeof(n.nodeType) == sizeof(int));
    static_assert(sizeof(SMD5) == 33);
    static_assert(sizeof(n.cabinetBlock) == 32);
}

void tst_Contract::fieldsOfTheCabinet()
{
    const SHwRcvInCabinetInfo c;
    QVERIFY(areInOrder({&c.name, &c.md5, &c.specifyOrientation, &c.columns, &c.rows, &c.wiringOrder, &c.weight,
                        &c.power, &c.voltageMin, &c.voltageMax}));
    static_assert(std::is_same_v<decltype(c.columns), std::uint8_t>);
    static_assert(std::is_same_v<decltype(c.rows), std::uint8_t>);
    static_assert(sizeof(c.wiringOrder) == 10);
    static_assert(std::is_same_v<decltype(c.weight), float>);
    static_assert(std::is_same_v<decltype(c.voltageMax), float>);
}

SETTINGAREA_TEST_MAIN(tst_Contract, QCoreApplication)
#include "tst_Contract.moc"
