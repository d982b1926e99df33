#include "host/MailService.h"

#include "host/CStatusBar.h"
#include "host/Logging.h"

#include <QCoreApplication>
#include <QGuiApplication>

namespace {

// How long the status bar says why a mail did not go out.
constexpr int reasonMs = 60000;

} // namespace

MailService::MailService(const SmtpSender::Options& options, CStatusBar* status)
    : m_mailer(options),
      m_pStatus(status)
{
}

bool MailService::send(QList<int>& failedPositions, const SEmailSettings& settings, const QString& body)
{
    m_pStatus->showMessage(QCoreApplication::translate("MailService", "Sending the mail..."));
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    const MailResult result = m_mailer.send(settings, body);
    QGuiApplication::restoreOverrideCursor();
    failedPositions = result.failedPositions;
    if (result.reason.isEmpty()) {
        m_pStatus->clearMessage();
    } else {
        qCWarning(logMail, "%ls", qUtf16Printable(result.reason));
        m_pStatus->showMessage(result.reason, reasonMs);
    }
    return result.sent;
}
