#pragma once

#include "Calls.h"

#include <ISettingInterfaceHandler.h>
#include <SHwRcvInCabinetInfo.h>

#include <QLocale>
#include <QObject>

// A host's side that counts every call in `calls` and keeps what came with it. Files with the suffix rcvbp are cabinets
// of two receivers, all other type files of one.
class RecordingHandler : public ISettingInterfaceHandler
{
public:
    explicit RecordingHandler(Calls& calls);
    ~RecordingHandler() override;

    // What every type file is said to be.
    static constexpr int width = 320;
    static constexpr int height = 160;
    static constexpr std::array<std::int64_t, 4> block{-1, 1LL << 40, 3, INT64_MIN};
    static SHwRcvInCabinetInfo cabinet();

    void reserved1() override;
    void reserved2() override;
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

    // What the last call of each came with. [GUI thread]
    bool panelVisible = false;
    SEmailSettings email;
    QString savedPath;
    int priority = -1;
    QLocale locale;
    SMD5 usedType;
    QString writtenPath;
    SHwRcvInCabinetInfo written;
    int progressDuration = 0; // milliseconds
    int progressCurve = -1;
    bool progressCameBack = false;

private:
    Calls& m_calls;
    QObject m_progress;
};
