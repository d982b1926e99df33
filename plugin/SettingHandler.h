#pragma once

#include <memory>

class ISettingInterfaceHandler;

// The host's handler, shared: take it once for one operation, so that a handler installed meanwhile does not mix in.
// Empty when the host has installed none, or one of another kind. [any thread]
std::shared_ptr<ISettingInterfaceHandler> settingHandler();
