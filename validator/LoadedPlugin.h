#pragma once

#include "plugin/interface/SettingArea_Init.h"

#include <QString>

// Loads a build of the plug-in into this process, where it stays: threads of its own may be running in it. Gives its
// exported function; null with the reason in `error`, in the words of the system's loader.
SettingArea_InitFunction loadPlugin(const QString& file, QString& error);
