#pragma once

#include <QJsonObject>
#include <QList>
#include <QProcess>
#include <QStringList>

// A real mail server on the loopback interface, in a process of its own that ends with the object. What it can do says
// smtp-server --help in this folder.
class SmtpServer
{
public:
    // Starts it, and waits until it listens; port() is 0 when it does not.
    explicit SmtpServer(const QStringList& options);
    ~SmtpServer();
    Q_DISABLE_COPY(SmtpServer)

    int port() const { return m_nPort; }

    // Lets go on what --hold holds.
    void release();

    // Waits for this command; false when it does not come.
    bool waitFor(const char* command);

    // End the server, and tell what it has seen until then: the commands in order, whether a login came without
    // encryption, and the mails that it took.
    QStringList commands();
    bool sawOpenLogin();
    QList<QJsonObject> mails();

private:
    bool read();
    void end();

    QProcess m_process;
    QList<QJsonObject> m_said;
    int m_nPort = 0;
};
