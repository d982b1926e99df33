#include "plugin/interface/SettingArea_Init.h"

#include "plugin/CSettingArea.h"

bool SettingArea_Init(IAbstractControlInterface** control, QWidget* parent)
{
    if (!control)
        return false;
    try {
        CSettingArea& area = CSettingArea::instance();
        area.widget()->setParent(parent);
        // A host that comes with a new main window brings a new overlay.
        area.attachShortcutPanel();
        *control = static_cast<ISettingInterface*>(&area);
    } catch (...) {
        return false; // the host is another build: no exception may reach it
    }
    return true;
}
