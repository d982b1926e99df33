#include "tests/host/mail/SmtpServer.h"

#include <QJsonDocument>

#include <algorithm>

namespace {

constexpr int timeoutMs = 10'000;

const QLatin1String commandKey("command");

} // namespace

SmtpServer::SmtpServer(const QStringList& options)
{
    // The system's interpreter: another one would not see the system's packages.
    m_process.start(QStringLiteral("/usr/bin/python3"),
                    QStringList{QStringLiteral("-Wignore"), QStringLiteral(MAIL_TESTS "/smtp-server")} + options);
    if (read())
        m_nPort = m_said.takeFirst().value(QLatin1String("port")).toInt();
}

SmtpServer::~SmtpServer()
{
    end();
}

void SmtpServer::release()
{
    m_process.write("\n");
    m_process.waitForBytesWritten(timeoutMs);
}

// Waits for at least one line, and takes in what there is.
bool SmtpServer::read()
{
    while (!m_process.canReadLine()) {
        if (!m_process.waitForReadyRead(timeoutMs))
            return false;
    }
    while (m_process.canReadLine())
        m_said.append(QJsonDocument::fromJson(m_process.readLine()).object());
    return true;
}

void SmtpServer::end()
{
    if (m_process.state() == QProcess::NotRunning)
        return;
    m_process.closeWriteChannel();
    if (!m_process.waitForFinished(timeoutMs))
        m_process.kill();
    while (m_process.canReadLine())
        m_said.append(QJsonDocument::fromJson(m_process.readLine()).object());
}

bool SmtpServer::waitFor(const char* command)
{
    const auto isCommand = [command](const QJsonObject& said) {
        return said.value(commandKey) == QLatin1String(command);
    };
    while (!std::any_of(m_said.cbegin(), m_said.cend(), isCommand)) {
        if (!read())
            return false;
    }
    return true;
}

QStringList SmtpServer::commands()
{
    end();
    QStringList commands;
    for (const QJsonObject& said : qAsConst(m_said)) {
        if (said.contains(commandKey))
            commands.append(said.value(commandKey).toString());
    }
    return commands;
}

bool SmtpServer::sawOpenLogin()
{
    end();
    return std::any_of(m_said.cbegin(), m_said.cend(), [](const QJsonObject& said) {
        return said.value(commandKey) == QLatin1String("AUTH") && !said.value(QLatin1String("encrypted")).toBool();
    });
}

QList<QJsonObject> SmtpServer::mails()
{
    end();
    QList<QJsonObject> mails;
    std::copy_if(m_said.cbegin(), m_said.cend(), std::back_inserter(mails),
                 [](const QJsonObject& said) { return said.contains(QLatin1String("content")); });
    return mails;
}
