#pragma once

// Base of what a host hands to a control so that the control can report back. A control never calls it directly:
// it keeps it and casts it to the handler interface it knows (ISettingInterfaceHandler for the settings area).
// The control owns it from setHandler() on and deletes it through this destructor, on the thread that drops the last
// reference: usually the one that installs the next handler, or a scan that was still asking the old one.
class IAbstractInterfaceHandler
{
public:
    virtual ~IAbstractInterfaceHandler() = default; // [any thread]

    IAbstractInterfaceHandler(const IAbstractInterfaceHandler&) = delete;
    IAbstractInterfaceHandler& operator=(const IAbstractInterfaceHandler&) = delete;

protected:
    IAbstractInterfaceHandler() = default;
};
