#pragma once

#include "plugin/interface/ISettingInterfaceHandler.h"

#include <QLocale>
#include <QObject>

#include <atomic>
#include <functional>
#include <memory>
#include <set>
#include <thread>

class Report;

// What the handlers of one check share. It outlives them: the settings area deletes a handler when it is done with it.
struct HostState
{
    explicit HostState(Report& ownReport)
        : report(ownReport)
    {
    }

    Report& report;
    const std::thread::id guiThread = std::this_thread::get_id();
    std::atomic<int> calls{0};
    std::atomic<int> queries{0};     // about type files, as part of the calls
    std::atomic<int> scansAsking{0}; // queries under way on a thread that is not the GUI thread
    std::atomic<int> handlersAlive{0};

    // Set and read on the GUI thread.
    bool isProjectModified = false;
    bool hasProjectPath = true;
    bool isPriorityHidden = false;
    bool sendsMail = true;
    bool areTypesUsed = false;
    int lastPriority = -1;
    bool isPanelShown = false;
    std::set<QObject*> progress; // shown and not yet ended
    std::function<void(const QLocale&)> languageSwitch;
};

// A host that keeps its side of the contract and sees whether the settings area keeps to its own: on which thread it
// calls what, that only one scan asks at a time, that a handler in use is not deleted, that what it gives is valid.
class CheckingHandler : public ISettingInterfaceHandler
{
public:
    explicit CheckingHandler(std::shared_ptr<HostState> state);
    ~CheckingHandler() override;

    void notifyShortcutPanelVisible(bool visible) override;
    bool SendEmail(QList<int>& failedPositions, const SEmailSettings& settings, const QString& body) override;
    bool isProjectModified() override;
    bool hasProjectPath() override;
    QString projectName() override;
    void saveProject(const QString& path) override;
    void setConnectionPriority(int priority) override;
    void setLanguage(const QLocale& locale) override;
    bool isTypeUsedInLayout(const SMD5& md5) override;
    bool isMultiRcvCabinetFile(const QString& path) override;
    void readCabinetInfo(const QString& path, SHwRcvInCabinetInfo& info) override;
    void writeCabinetInfo(const QString& path, const SHwRcvInCabinetInfo& info) override;
    void queryCabinetResolution(const QString& path, int& width, int& height) override;
    std::array<std::int64_t, 4> queryCabinetBlock(const QString& path) override;
    QObject* showProgress(const QString& text, int durationMs, const QEasingCurve& curve) override;
    void endProgress(QObject* progress) override;
    bool isPriorityConnectionHidden() override;

protected:
    HostState& state() { return *m_pState; }

private:
    class Call;

    const std::shared_ptr<HostState> m_pState;
    std::atomic<int> m_underWay{0}; // calls of this handler
};
