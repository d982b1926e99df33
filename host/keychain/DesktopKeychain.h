#pragma once

#include "host/keychain/IKeychain.h"

#include <chrono>
#include <memory>

namespace DesktopKeychain {

// The keychain of the desktop that the program runs on. Null when the host was built without QtKeychain. Whether there
// is one shows with the first call, which fails after some milliseconds when not. Each call waits at most `timeout`:
// long enough to enter the keychain's own password; after one that did not return in time, all later ones fail at
// once. One object per process. [GUI thread]
std::unique_ptr<IKeychain> open(std::chrono::milliseconds timeout = std::chrono::seconds(20));

} // namespace DesktopKeychain
