#include "plugin/interface/ISettingInterface.h"
#include "plugin/interface/SettingArea_Init.h"

#include <QAbstractButton>

#include <cstdlib>
#include <string>
#include <thread>

#include <dlfcn.h>
#include <unistd.h>

namespace {

// Which one, the environment says.
bool has(const char* fault)
{
    const char* const wanted = std::getenv("FAULT");
    return wanted && std::string(wanted) == fault;
}

// The real settings area with one fault.
class FaultyArea : public ISettingInterface
{
public:
    explicit FaultyArea(ISettingInterface& area)
        : m_area(area)
    {
    }

    QWidget* widget() override { return m_area.widget(); }
    bool initialize() override { return m_area.initialize(); }
    bool isValid() override { return m_area.isValid(); }
    void setHandler(IAbstractInterfaceHandler* handler) override
    {
        if (has("no import"))
            m_area.widget()->findChild<QAbstractButton*>(QStringLiteral("ImportCabinet"))->disconnect();
        m_area.setHandler(handler);
    }
    std::shared_ptr<IAbstractInterfaceHandler> getHandler() override { return m_area.getHandler(); }
    void syncLanguageWithLocale() override { m_area.syncLanguageWithLocale(); }
    void setSettings(const SSettings& settings) override { m_area.setSettings(settings); }
    bool setTypeLibraryPath(const QString& path) override { return m_area.setTypeLibraryPath(path); }
    bool isTypeLibraryReady() override { return m_area.isTypeLibraryReady(); }
    SSettings* getSettings() override
    {
        SSettings* const record = m_area.getSettings();
        if (has("wrong record"))
            record->preferences.showGrid = !record->preferences.showGrid;
        return record;
    }
    void setCurrentTab(int index) override { m_area.setCurrentTab(index); }
    std::vector<SSettings::TypeLibrary::STreeNode> getTypeLibrary() override
    {
        if (has("hang"))
            ::pause();
        return m_area.getTypeLibrary();
    }
    void setControlsEnabled(bool enabled) override { m_area.setControlsEnabled(enabled); }
    void closeShortcutPanel() override
    {
        if (has("crash"))
            std::abort();
        m_area.closeShortcutPanel();
    }
    void refreshPreferences() override
    {
        if (has("thread"))
            std::thread([] { ::pause(); }).detach();
        m_area.refreshPreferences();
    }

private:
    ISettingInterface& m_area;
};

} // namespace

bool SettingArea_Init(IAbstractControlInterface** control, QWidget* parent)
{
    void* const library = ::dlopen(REAL_PLUGIN, RTLD_NOW);
    const auto init = reinterpret_cast<SettingArea_InitFunction>(::dlsym(library, SettingArea_InitSymbol));
    if (!init(control, parent))
        return false;
    static auto* const area = new FaultyArea(dynamic_cast<ISettingInterface&>(**control));
    *control = area;
    return true;
}
