// Prints the binary contract as this compiler sees it in the headers: the places of the operations in the tables of
// virtual functions, the layout of every record, the numbers of every enumeration. check-contract compares it with
// contract.txt.

#include "FieldCount.h"

#include <ISettingInterface.h>
#include <ISettingInterfaceHandler.h>
#include <SHwRcvInCabinetInfo.h>
#include <SettingArea_Init.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <typeinfo>

#include <cxxabi.h>

namespace {

using NodeType = SSettings::TypeLibrary::STreeNode::NodeType;

template<typename Type>
std::string nameOf()
{
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(typeid(Type).name(), nullptr, nullptr, &status), &std::free);
    return status == 0 ? name.get() : typeid(Type).name();
}

// Place of the operation in the table of virtual functions, where the destructor takes the first two.
template<typename Operation>
std::size_t placeOf(Operation operation)
{
    // The compiler keeps the offset into the table there, on some processors with a mark in the lowest bit.
    std::size_t offset = 0;
    std::memcpy(&offset, &operation, sizeof offset);
    return offset / sizeof(void*);
}

// An operation added to Interface would push this one down.
template<typename Interface>
struct Follower : Interface
{
    virtual void follow() = 0;
};

template<typename Interface>
void printInterface()
{
    static_assert(std::has_virtual_destructor_v<Interface>);
    std::printf("\ninterface %s: size %zu, alignment %zu, %zu entries, the first two its destructor\n",
                nameOf<Interface>().c_str(), sizeof(Interface), alignof(Interface),
                placeOf(&Follower<Interface>::follow));
}

template<typename Operation>
void printOperation(const char* name, Operation operation)
{
    std::printf("  %2zu %s: %s\n", placeOf(operation), name, nameOf<Operation>().c_str());
}

template<typename Record>
void printRecord(std::size_t fields)
{
    std::printf("\nrecord %s: size %zu, alignment %zu, %zu fields\n", nameOf<Record>().c_str(), sizeof(Record),
                alignof(Record), fields);
}

template<typename Record, typename Field>
void printField(const char* name, const Record& record, const Field& field)
{
    const auto offset = reinterpret_cast<const char*>(&field) - reinterpret_cast<const char*>(&record);
    std::printf("  %3td %s: %s, %zu bytes\n", offset, name, nameOf<Field>().c_str(), sizeof(Field));
}

#define OPERATION(name) printOperation(#name, &Interface::name)
#define FIELD(name) printField(#name, record, record.name)

void printInterfaces()
{
    std::printf("function %s\n  0 SettingArea_Init: %s\n", SettingArea_InitSymbol,
                nameOf<SettingArea_InitFunction>().c_str());
    static_assert(std::is_same_v<decltype(&SettingArea_Init), SettingArea_InitFunction>);
    printInterface<IAbstractInterfaceHandler>();
    {
        using Interface = IAbstractControlInterface;
        printInterface<Interface>();
        OPERATION(widget);
        OPERATION(initialize);
        OPERATION(isValid);
        OPERATION(setHandler);
        OPERATION(getHandler);
    }
    {
        using Interface = ISettingInterface;
        printInterface<Interface>();
        OPERATION(syncLanguageWithLocale);
        OPERATION(setSettings);
        OPERATION(setTypeLibraryPath);
        OPERATION(isTypeLibraryReady);
        OPERATION(getSettings);
        OPERATION(setCurrentTab);
        OPERATION(getTypeLibrary);
        OPERATION(setControlsEnabled);
        OPERATION(closeShortcutPanel);
        OPERATION(refreshPreferences);
    }
    {
        using Interface = ISettingInterfaceHandler;
        printInterface<Interface>();
        OPERATION(reserved1);
        OPERATION(reserved2);
        OPERATION(notifyShortcutPanelVisible);
        OPERATION(SendEmail);
        OPERATION(isProjectModified);
        OPERATION(hasProjectPath);
        OPERATION(projectName);
        OPERATION(saveProject);
        OPERATION(setConnectionPriority);
        OPERATION(setLanguage);
        OPERATION(isTypeUsedInLayout);
        OPERATION(isMultiRcvCabinetFile);
        OPERATION(readCabinetInfo);
        OPERATION(writeCabinetInfo);
        OPERATION(queryCabinetResolution);
        OPERATION(queryCabinetBlock);
        OPERATION(showProgress);
        OPERATION(endProgress);
        OPERATION(isPriorityConnectionHidden);
    }
}

template<typename Record>
Record aggregate()
{
    printRecord<Record>(fieldCount<Record>());
    return {};
}

void printSettings()
{
    const SSettings record;
    // Its constructor hides the number of fields from fieldCount(). Does this line no longer compile, then SSettings
    // has got or lost fields: list them here and below.
    [[maybe_unused]] const auto& [preferences, layoutKeys, softEdgeKeys, tree, monitoring, email] = record;
    printRecord<SSettings>(6);
    FIELD(preferences);
    FIELD(layoutShortcuts);
    FIELD(softEdgeShortcuts);
    FIELD(typeLibraryTree);
    FIELD(monitoring);
    FIELD(email);
}

void printPreferences()
{
    const auto record = aggregate<SSettings::Preferences>();
    FIELD(connectionPriority);
    FIELD(fahrenheit);
    FIELD(showProgrammingPane);
    FIELD(showLayoutPane);
    FIELD(showSoftEdgePane);
    FIELD(softEdgeMode);
    FIELD(showColorAdjustmentPane);
    FIELD(showHealthMonitoringPane);
    FIELD(showGrid);
    FIELD(showStringPosition);
    FIELD(snapToCabinets);
    FIELD(snapSpace);
}

void printTree()
{
    const auto record = aggregate<SSettings::TypeLibrary::STreeNode>();
    FIELD(name);
    FIELD(path);
    FIELD(nodeType);
    FIELD(md5);
    FIELD(resolution);
    FIELD(cabinetList);
    FIELD(cabinetFlag);
    FIELD(cabinetBlock);
    FIELD(children);
}

// Has a case for every value: without one the compiler complains.
const char* textOf(NodeType value)
{
    switch (value) {
    case NodeType::None:
        return "None";
    case NodeType::Group:
        return "Group";
    case NodeType::MultiRcv:
        return "MultiRcv";
    case NodeType::SingleRcv:
        return "SingleRcv";
    }
    return nullptr;
}

void printNodeType()
{
    std::printf("\nenumeration %s: %s\n", nameOf<NodeType>().c_str(),
                nameOf<std::underlying_type_t<NodeType>>().c_str());
    for (int value = -1; value <= 99; ++value) {
        if (const char* const text = textOf(static_cast<NodeType>(value)))
            std::printf("  %3d %s\n", value, text);
    }
}

void printMonitoring()
{
    const auto record = aggregate<SMonitorSettings>();
    FIELD(nRefreshInterval);
    FIELD(bVideoInput);
    FIELD(bFreeze);
    FIELD(bBlackout);
    FIELD(bZeroBrightness);
    FIELD(bCableError);
    FIELD(bMonitorFlag1);
    FIELD(bTemperature);
    FIELD(nTemperature);
    FIELD(bHumidity);
    FIELD(nHumidity);
    FIELD(bMonitorFlag2);
    FIELD(bFan);
    FIELD(bMonitorFlag3);
    FIELD(bPsu1);
    FIELD(bPsu2);
    FIELD(bPsu3);
    FIELD(bPsu4);
    FIELD(bVoltage1);
    FIELD(dVoltage1Min);
    FIELD(dVoltage1Max);
    FIELD(bVoltage2);
    FIELD(dVoltage2Min);
    FIELD(dVoltage2Max);
    FIELD(bVoltage3);
    FIELD(dVoltage3Min);
    FIELD(dVoltage3Max);
    FIELD(bVoltage4);
    FIELD(dVoltage4Min);
    FIELD(dVoltage4Max);
    FIELD(bRcvVoltage);
    FIELD(dRcvVoltageMin);
    FIELD(dRcvVoltageMax);
    FIELD(bMonitorFlag4);
}

void printEmail()
{
    {
        const auto record = aggregate<SEmailSettings>();
        FIELD(bEmailNotification);
        FIELD(bRecoveryNotice);
        FIELD(nAlertCount);
        FIELD(bSsl);
        FIELD(nPort);
        FIELD(strSenderAddress);
        FIELD(strPassword);
        FIELD(strSmtpServer);
        FIELD(lstRecipients);
    }
    const auto record = aggregate<SEmailRecipient>();
    FIELD(strName);
    FIELD(strAddress);
}

void printCabinet()
{
    {
        const auto record = aggregate<SHwRcvInCabinetInfo>();
        FIELD(name);
        FIELD(md5);
        FIELD(specifyOrientation);
        FIELD(columns);
        FIELD(rows);
        FIELD(wiringOrder);
        FIELD(weight);
        FIELD(power);
        FIELD(voltageMin);
        FIELD(voltageMax);
    }
    const SMD5 record;
    [[maybe_unused]] const auto& [data] = record; // fieldCount() would count the characters
    printRecord<SMD5>(1);
    FIELD(data);
}

} // namespace

int main()
{
    printInterfaces();
    printSettings();
    printPreferences();
    printTree();
    printNodeType();
    printMonitoring();
    printEmail();
    printCabinet();
}
