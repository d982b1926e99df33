#include "host/CHostHandler.h"

#include "host/project/Project.h"
#include "host/typefile/TypeFile.h"
#include "plugin/interface/SHwRcvInCabinetInfo.h"

#include <QCoreApplication>
#include <QEasingCurve>
#include <QLocale>
#include <QLoggingCategory>

#include <utility>

namespace {

Q_LOGGING_CATEGORY(logTypeFile, "orvel.typefile")

std::optional<TypeFileHeader> headerOf(const QString& path)
{
    QString error;
    auto header = TypeFile::readHeader(path, error);
    if (!header)
        qCWarning(logTypeFile, "%ls: %ls", qUtf16Printable(path), qUtf16Printable(error));
    return header;
}

} // namespace

CHostHandler::CHostHandler(Project* project, QObject* window, Services services)
    : m_project(project),
      m_window(window),
      m_services(std::move(services))
{
}

void CHostHandler::notifyShortcutPanelVisible(bool visible) noexcept
{
    if (m_window && m_services.shortcutPanelVisible)
        m_services.shortcutPanelVisible(visible);
}

bool CHostHandler::SendEmail(QList<int>& failedPositions, const SEmailSettings& settings, const QString& body) noexcept
{
    if (m_window && m_services.sendEmail)
        return m_services.sendEmail(failedPositions, settings, body);
    failedPositions.clear();
    for (int position = 0; position < settings.lstRecipients.size(); ++position)
        failedPositions.append(position);
    return false;
}

bool CHostHandler::isProjectModified() noexcept
{
    return m_project && m_project->isModified();
}

bool CHostHandler::hasProjectPath() noexcept
{
    return m_project && !m_project->path().isEmpty();
}

QString CHostHandler::projectName() noexcept
{
    return m_project ? m_project->name() : QString();
}

void CHostHandler::saveProject(const QString& path) noexcept
{
    if (!m_project)
        return;
    const QString target = path.isEmpty() ? m_project->path() : path;
    QString error;
    if (!m_project->save(target, error))
        reportFailure(QCoreApplication::translate("CHostHandler", "The project was not saved: %1").arg(error));
}

void CHostHandler::setConnectionPriority(int priority) noexcept
{
    if (m_window && m_services.connectionPriority)
        m_services.connectionPriority(priority);
}

void CHostHandler::setLanguage(const QLocale& locale) noexcept
{
    if (m_window && m_services.language)
        m_services.language(locale);
}

bool CHostHandler::isTypeUsedInLayout(const SMD5& md5) noexcept
{
    return m_project && m_project->places(md5);
}

bool CHostHandler::isMultiRcvCabinetFile(const QString& path) noexcept
{
    const auto header = headerOf(path);
    return header && header->isMultiReceiver();
}

void CHostHandler::readCabinetInfo(const QString& path, SHwRcvInCabinetInfo& info) noexcept
{
    const auto header = headerOf(path);
    if (header && header->cabinet)
        info = *header->cabinet;
}

void CHostHandler::writeCabinetInfo(const QString& path, const SHwRcvInCabinetInfo& info) noexcept
{
    QString error;
    if (TypeFile::writeCabinet(path, info, error))
        return;
    qCWarning(logTypeFile, "%ls: %ls", qUtf16Printable(path), qUtf16Printable(error));
    reportFailure(QCoreApplication::translate("CHostHandler", "The type file %1 was not written: %2").arg(path, error));
}

void CHostHandler::queryCabinetResolution(const QString& path, int& width, int& height) noexcept
{
    if (const auto header = headerOf(path)) {
        const QSize size = header->cabinetSize();
        width = size.width();
        height = size.height();
    }
}

std::array<std::int64_t, 4> CHostHandler::queryCabinetBlock(const QString& path) noexcept
{
    const auto header = headerOf(path);
    return header ? header->block : std::array<std::int64_t, 4>{};
}

QObject* CHostHandler::showProgress(const QString& text, int durationMs, const QEasingCurve& curve) noexcept
{
    return m_window && m_services.showProgress ? m_services.showProgress(text, durationMs, curve) : nullptr;
}

void CHostHandler::endProgress(QObject* progress) noexcept
{
    if (progress && m_window && m_services.endProgress)
        m_services.endProgress(progress);
}

bool CHostHandler::isPriorityConnectionHidden() noexcept
{
    return m_window && m_services.isPriorityConnectionHidden && m_services.isPriorityConnectionHidden();
}

void CHostHandler::reportFailure(const QString& text)
{
    if (m_window && m_services.saveFailed)
        m_services.saveFailed(text);
}
