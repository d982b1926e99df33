#pragma once

#include "plugin/interface/ISettingInterface.h"

#include <QPointer>
#include <QSemaphore>
#include <QStringList>
#include <QThread>
#include <QWidget>

#include <atomic>
#include <mutex>

// A settings area that records the host's calls in order, as text, and lets a test decide how long a scan takes. The
// last one made is what init() hands out. Its widget belongs to the window that it is docked in.
class FakeArea : public ISettingInterface
{
public:
    FakeArea()
        : m_pWidget(new QWidget)
    {
        current() = this;
    }
    ~FakeArea() override
    {
        if (current() == this)
            current() = nullptr;
        delete m_pWidget;
    }

    // In place of SettingArea_Init.
    static bool init(IAbstractControlInterface** control, QWidget* parent)
    {
        FakeArea* const area = current();
        if (!area)
            return false;
        area->record(QStringLiteral("init"));
        area->m_pWidget->setParent(parent);
        *control = area;
        return true;
    }

    QStringList calls() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_calls;
    }

    // A scan waits until this many are allowed; by default as many as come.
    void holdScans() { m_bHold = true; }
    void letScan() { m_gate.release(); }

    SSettings settings; // what getSettings() gives; setSettings() replaces it
    std::vector<SSettings::TypeLibrary::STreeNode> library;
    std::atomic<QThread*> scanThread{nullptr};

    QWidget* widget() override { return m_pWidget; }
    bool initialize() override { return true; }
    bool isValid() override { return valid; }
    bool valid = true;

    void setHandler(IAbstractInterfaceHandler* handler) override
    {
        record(QStringLiteral("setHandler"));
        ISettingInterface::setHandler(handler);
    }
    void syncLanguageWithLocale() override { record(QStringLiteral("syncLanguageWithLocale")); }
    void setSettings(const SSettings& newSettings) override
    {
        record(QStringLiteral("setSettings"));
        settings = newSettings;
    }
    bool setTypeLibraryPath(const QString& path) override
    {
        record(QStringLiteral("setTypeLibraryPath(%1)").arg(path));
        scanThread = QThread::currentThread();
        if (m_bHold)
            m_gate.acquire();
        // As the real one: it waits for the GUI thread.
        QMetaObject::invokeMethod(
            m_pWidget, [this] { record(QStringLiteral("shown")); }, Qt::BlockingQueuedConnection);
        return true;
    }
    bool isTypeLibraryReady() override { return true; }
    SSettings* getSettings() override
    {
        record(QStringLiteral("getSettings"));
        return &settings;
    }
    void setCurrentTab(int index) override { record(QStringLiteral("setCurrentTab(%1)").arg(index)); }
    std::vector<SSettings::TypeLibrary::STreeNode> getTypeLibrary() override { return library; }
    void setControlsEnabled(bool enabled) override { record(QStringLiteral("setControlsEnabled(%1)").arg(enabled)); }
    void closeShortcutPanel() override { record(QStringLiteral("closeShortcutPanel")); }
    void refreshPreferences() override { record(QStringLiteral("refreshPreferences")); }

private:
    static FakeArea*& current()
    {
        static FakeArea* area = nullptr;
        return area;
    }

    void record(const QString& call)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.append(call);
    }

    mutable std::mutex m_mutex; // guards the calls
    QStringList m_calls;
    QPointer<QWidget> m_pWidget;
    QSemaphore m_gate;
    std::atomic_bool m_bHold{false};
};
