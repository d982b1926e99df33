#pragma once

#include "host/settings/HostState.h"
#include "plugin/interface/SSettings.h"

// Everything that is kept in the settings file. The record's type library tree is not: it comes from the disk.
struct StoredSettings
{
    SSettings record;
    HostState host;
};
