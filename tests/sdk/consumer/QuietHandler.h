#pragma once

#include <ISettingInterfaceHandler.h>

// A host that has no project, no mail and no type files: every question gets the answer that changes nothing.
class QuietHandler : public ISettingInterfaceHandler
{
public:
    void notifyShortcutPanelVisible(bool /*visible*/) override {}
    bool SendEmail(QList<int>& /*failed*/, const SEmailSettings& /*settings*/, const QString& /*body*/) override
    {
        return false;
    }
    bool isProjectModified() override { return false; }
    bool hasProjectPath() override { return false; }
    QString projectName() override { return {}; }
    void saveProject(const QString& /*path*/) override {}
    void setConnectionPriority(int /*priority*/) override {}
    void setLanguage(const QLocale& /*locale*/) override {}
    bool isTypeUsedInLayout(const SMD5& /*md5*/) override { return false; }
    bool isMultiRcvCabinetFile(const QString& /*path*/) override { return false; }
    void readCabinetInfo(const QString& /*path*/, SHwRcvInCabinetInfo& /*info*/) override {}
    void writeCabinetInfo(const QString& /*path*/, const SHwRcvInCabinetInfo& /*info*/) override {}
    void queryCabinetResolution(const QString& /*path*/, int& /*width*/, int& /*height*/) override {}
    std::array<std::int64_t, 4> queryCabinetBlock(const QString& /*path*/) override { return {}; }
    QObject* showProgress(const QString& /*text*/, int /*durationMs*/, const QEasingCurve& /*curve*/) override
    {
        return nullptr;
    }
    void endProgress(QObject* /*progress*/) override {}
    bool isPriorityConnectionHidden() override { return false; }
};
