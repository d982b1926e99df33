#pragma once

#include "plugin/interface/ISettingInterfaceHandler.h"
#include "plugin/interface/SHwRcvInCabinetInfo.h"

#include <QEasingCurve>
#include <QLocale>
#include <QSet>
#include <QSize>
#include <QStringList>
#include <QThread>

#include <functional>
#include <mutex>

// A host handler that answers what the test sets and records every call as text, in order.
class FakeHandler : public ISettingInterfaceHandler
{
public:
    ~FakeHandler() override
    {
        if (destroyed)
            destroyed();
    }

    // Answers to the queries about type files. They may be asked on any thread: set them before.
    std::function<bool(const QString&)> isMulti = [](const QString&) { return false; };
    std::function<void(const QString&, SHwRcvInCabinetInfo&)> cabinet = [](const QString&, SHwRcvInCabinetInfo&) {};
    std::function<QSize(const QString&)> resolution = [](const QString&) { return QSize(128, 64); };
    std::array<std::int64_t, 4> block{11, 12, 13, 14};
    std::function<bool(const SMD5&)> isUsed = [](const SMD5&) { return false; };
    QObject* progress = nullptr; // what showProgress() gives
    bool projectModified = false;
    bool projectHasPath = false;
    bool priorityHidden = false;
    // What writing a record into a type file does.
    std::function<void(const QString&, const SHwRcvInCabinetInfo&)> write = [](const QString&,
                                                                               const SHwRcvInCabinetInfo&) {};
    // What sending a mail does.
    std::function<bool(QList<int>&, const SEmailSettings&, const QString&)> send =
        [](QList<int>&, const SEmailSettings&, const QString&) { return true; };
    std::function<void()> destroyed;

    // The calls so far, as "operation(argument)".
    QStringList calls() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_calls;
    }

    void forgetCalls()
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.clear();
    }

    // The threads that type file queries came from.
    QSet<QThread*> queryThreads() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_queryThreads;
    }

    void notifyShortcutPanelVisible(bool visible) override
    {
        record(QStringLiteral("notifyShortcutPanelVisible(%1)").arg(visible));
    }
    bool SendEmail(QList<int>& failedPositions, const SEmailSettings& settings, const QString& body) override
    {
        record(QStringLiteral("SendEmail(%1)").arg(body));
        return send(failedPositions, settings, body);
    }
    bool isProjectModified() override
    {
        record(QStringLiteral("isProjectModified()"));
        return projectModified;
    }
    bool hasProjectPath() override
    {
        record(QStringLiteral("hasProjectPath()"));
        return projectHasPath;
    }
    QString projectName() override
    {
        record(QStringLiteral("projectName()"));
        return QStringLiteral("Stage");
    }
    void saveProject(const QString& path) override { record(QStringLiteral("saveProject(%1)").arg(path)); }
    void setConnectionPriority(int priority) override
    {
        record(QStringLiteral("setConnectionPriority(%1)").arg(priority));
    }
    void setLanguage(const QLocale& locale) override { record(QStringLiteral("setLanguage(%1)").arg(locale.name())); }
    bool isTypeUsedInLayout(const SMD5& md5) override
    {
        record(QStringLiteral("isTypeUsedInLayout(%1)").arg(QLatin1String(md5.data)));
        return isUsed(md5);
    }
    bool isMultiRcvCabinetFile(const QString& path) override
    {
        recordQuery("isMultiRcvCabinetFile", path);
        return isMulti(path);
    }
    void readCabinetInfo(const QString& path, SHwRcvInCabinetInfo& info) override
    {
        recordQuery("readCabinetInfo", path);
        cabinet(path, info);
    }
    void writeCabinetInfo(const QString& path, const SHwRcvInCabinetInfo& info) override
    {
        record(QStringLiteral("writeCabinetInfo(%1)").arg(path));
        write(path, info);
    }
    void queryCabinetResolution(const QString& path, int& width, int& height) override
    {
        recordQuery("queryCabinetResolution", path);
        const QSize size = resolution(path);
        width = size.width();
        height = size.height();
    }
    std::array<std::int64_t, 4> queryCabinetBlock(const QString& path) override
    {
        recordQuery("queryCabinetBlock", path);
        return block;
    }
    QObject* showProgress(const QString& text, int durationMs, const QEasingCurve& curve) override
    {
        record(QStringLiteral("showProgress(%1, %2, %3)").arg(text).arg(durationMs).arg(curve.type()));
        return progress;
    }
    void endProgress(QObject* ended) override
    {
        record(ended == progress ? QStringLiteral("endProgress()") : QStringLiteral("endProgress(another)"));
    }
    bool isPriorityConnectionHidden() override
    {
        record(QStringLiteral("isPriorityConnectionHidden()"));
        return priorityHidden;
    }

private:
    void record(const QString& call)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.append(call);
    }
    void recordQuery(const char* operation, const QString& path)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_calls.append(QStringLiteral("%1(%2)").arg(QLatin1String(operation), path));
        m_queryThreads.insert(QThread::currentThread());
    }

    mutable std::mutex m_mutex; // guards the members below
    QStringList m_calls;
    QSet<QThread*> m_queryThreads;
};
