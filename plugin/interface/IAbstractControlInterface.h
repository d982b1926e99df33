#pragma once

#include "IAbstractInterfaceHandler.h"

#include <memory>

class QWidget;

// Base of every control that a plug-in hands to the host. The order of the virtual operations is binary contract.
class IAbstractControlInterface
{
public:
    virtual ~IAbstractControlInterface() = default;

    IAbstractControlInterface(const IAbstractControlInterface&) = delete;
    IAbstractControlInterface& operator=(const IAbstractControlInterface&) = delete;

    // The control's top-level widget. Owned by the plug-in, never null; the host re-parents it but does not delete it.
    // [GUI thread]
    virtual QWidget* widget() = 0;

    // Prepares the control for use; true when it is usable. [GUI thread]
    virtual bool initialize() = 0;

    // Whether the control can be used. [GUI thread]
    virtual bool isValid() = 0;

    // Installs the host's handler and releases the one before; a call of the old handler that is under way on another
    // thread ends before the old handler is deleted. Takes ownership of `handler`; null takes the handler away.
    // Installing the handler that is installed already changes nothing. When memory runs out, `handler` is deleted
    // and the exception goes on to the caller. [any thread]
    virtual void setHandler(IAbstractInterfaceHandler* handler)
    {
        if (handler && handler == getHandler().get())
            return;
        std::atomic_store(&m_pHandler, std::shared_ptr<IAbstractInterfaceHandler>(handler));
    }

    // The installed handler, shared: it lives at least as long as the caller keeps the result. Empty when none is
    // installed. [any thread]
    virtual std::shared_ptr<IAbstractInterfaceHandler> getHandler() { return std::atomic_load(&m_pHandler); }

protected:
    IAbstractControlInterface() = default;

private:
    // Read by scans on worker threads while the host may install another one, hence only through std::atomic_...
    std::shared_ptr<IAbstractInterfaceHandler> m_pHandler;
};
