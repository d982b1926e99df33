#include "RecordingHandler.h"

#include <QEasingCurve>
#include <QFileInfo>

namespace {

bool isMulti(const QString& path)
{
    return QFileInfo(path).suffix() == QLatin1String("rcvbp");
}

} // namespace

RecordingHandler::RecordingHandler(Calls& calls)
    : m_calls(calls)
{
}

RecordingHandler::~RecordingHandler()
{
    m_calls.note("~RecordingHandler");
}

SHwRcvInCabinetInfo RecordingHandler::cabinet()
{
    SHwRcvInCabinetInfo info;
    info.name = QStringLiteral("Card");
    info.specifyOrientation = true;
    info.columns = 1;
    info.rows = 2;
    info.wiringOrder = {1, 0};
    return info;
}

void RecordingHandler::reserved1()
{
    m_calls.note("reserved1");
}

void RecordingHandler::reserved2()
{
    m_calls.note("reserved2");
}

void RecordingHandler::notifyShortcutPanelVisible(bool visible)
{
    m_calls.note("notifyShortcutPanelVisible");
    panelVisible = visible;
}

bool RecordingHandler::SendEmail(QList<int>& failedPositions, const SEmailSettings& settings, const QString& /*body*/)
{
    m_calls.note("SendEmail");
    failedPositions = {1};
    email = settings;
    return true;
}

bool RecordingHandler::isProjectModified()
{
    m_calls.note("isProjectModified");
    return true;
}

bool RecordingHandler::hasProjectPath()
{
    m_calls.note("hasProjectPath");
    return false;
}

QString RecordingHandler::projectName()
{
    m_calls.note("projectName");
    return QStringLiteral("Stage");
}

void RecordingHandler::saveProject(const QString& path)
{
    m_calls.note("saveProject");
    savedPath = path;
}

void RecordingHandler::setConnectionPriority(int newPriority)
{
    m_calls.note("setConnectionPriority");
    priority = newPriority;
}

void RecordingHandler::setLanguage(const QLocale& newLocale)
{
    m_calls.note("setLanguage");
    locale = newLocale;
}

bool RecordingHandler::isTypeUsedInLayout(const SMD5& md5)
{
    m_calls.note("isTypeUsedInLayout");
    usedType = md5;
    return true;
}

bool RecordingHandler::isMultiRcvCabinetFile(const QString& path)
{
    m_calls.note("isMultiRcvCabinetFile");
    return isMulti(path);
}

void RecordingHandler::readCabinetInfo(const QString& path, SHwRcvInCabinetInfo& info)
{
    m_calls.note("readCabinetInfo");
    if (isMulti(path))
        info = cabinet();
}

void RecordingHandler::writeCabinetInfo(const QString& path, const SHwRcvInCabinetInfo& info)
{
    m_calls.note("writeCabinetInfo");
    writtenPath = path;
    written = info;
}

void RecordingHandler::queryCabinetResolution(const QString& /*path*/, int& pixelWidth, int& pixelHeight)
{
    m_calls.note("queryCabinetResolution");
    pixelWidth = width;
    pixelHeight = height;
}

std::array<std::int64_t, 4> RecordingHandler::queryCabinetBlock(const QString& /*path*/)
{
    m_calls.note("queryCabinetBlock");
    return block;
}

QObject* RecordingHandler::showProgress(const QString& /*text*/, int durationMs, const QEasingCurve& curve)
{
    m_calls.note("showProgress");
    progressDuration = durationMs;
    progressCurve = curve.type();
    return &m_progress;
}

void RecordingHandler::endProgress(QObject* progress)
{
    m_calls.note("endProgress");
    progressCameBack = progress == &m_progress;
}

bool RecordingHandler::isPriorityConnectionHidden()
{
    m_calls.note("isPriorityConnectionHidden");
    return true;
}
