#pragma once

#include <QtGlobal>

class IAbstractControlInterface;
class QWidget;

#if defined(SETTINGAREA_LIBRARY)
#define SETTINGAREA_EXPORT Q_DECL_EXPORT
#else
#define SETTINGAREA_EXPORT Q_DECL_IMPORT
#endif

// The plug-in's one exported function. Stores into `*control` the settings area, which is an ISettingInterface, docks
// its widget in `parent` (null: in nothing) and returns true. Every call gives the same settings area, which lives
// until the process ends, and docks it anew; a window it is docked in may be destroyed at any time.
// Returns false, and creates nothing, when `control` is null or the settings area cannot be built; a later call tries
// again. Call it with a QApplication in place. [GUI thread]
SETTINGAREA_EXPORT bool SettingArea_Init(IAbstractControlInterface** control, QWidget* parent);

// For hosts that load the plug-in at run time: the type of the function and the name of its symbol.
using SettingArea_InitFunction = bool (*)(IAbstractControlInterface** control, QWidget* parent);
constexpr char SettingArea_InitSymbol[] = "_Z16SettingArea_InitPP25IAbstractControlInterfaceP7QWidget";
