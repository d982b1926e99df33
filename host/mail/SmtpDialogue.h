#pragma once

#include <QByteArray>
#include <QString>

#include <vector>

// Listens to the commands and replies of one exchange with a mail server, and keeps what the transfer's result alone
// does not tell: which recipients were refused, whether there was a login, and in which words the server refused.
// Of a login it keeps nothing but whether it succeeded. One thread at a time.
class SmtpDialogue
{
public:
    // What the last command was about.
    enum class Stage
    {
        Greeting, // up to the login, or to the mail when there is none
        Login,
        Sender,
        Recipient,
        Content,
        Quit,
    };

    // A command that went to the server, or an answer to what it asked during the login.
    void sent(const QByteArray& command);

    // One line of a reply.
    void received(const QByteArray& line);

    Stage stage() const { return m_stage; }
    bool hasTriedLogin() const { return m_bTriedLogin; }
    bool hasLoggedIn() const { return m_bLoggedIn; }

    // Whether the server has accepted the recipient with this number, in the order in which they were named to it.
    bool isAccepted(int recipient) const;

    // The last line in which the server refused something, other than a login: printable, at most 200 characters.
    QString refusal() const { return m_refusal; }

private:
    Stage m_stage = Stage::Greeting;
    int m_nCode = 0; // of the last reply
    bool m_bTriedLogin = false;
    bool m_bLoggedIn = false;
    std::vector<int> m_recipientCodes; // 0: no reply yet
    QString m_refusal;
};
