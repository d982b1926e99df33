#include "host/mail/SmtpDialogue.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr int codeLength = 3;
constexpr int loginDone = 235;
constexpr int loginGoesOn = 334;
constexpr int firstRefusal = 400;
constexpr int longestRefusal = 200;
constexpr int longestLine = 800; // bytes that are looked at

QString printable(const QByteArray& line)
{
    const QString words = QString::fromUtf8(line.left(longestLine)).simplified();
    QString text;
    std::copy_if(words.begin(), words.end(), std::back_inserter(text), [](QChar c) { return c.isPrint(); });
    return text.left(longestRefusal);
}

bool isAccepting(int code)
{
    return code / 100 == 2;
}

} // namespace

void SmtpDialogue::sent(const QByteArray& command)
{
    if (m_stage == Stage::Login && m_nCode == loginGoesOn)
        return; // a part of the login, which may read like anything
    m_nCode = 0;
    if (command.startsWith("AUTH ")) {
        m_stage = Stage::Login;
        m_bTriedLogin = true;
    } else if (command.startsWith("MAIL FROM:")) {
        m_stage = Stage::Sender;
    } else if (command.startsWith("RCPT TO:")) {
        m_stage = Stage::Recipient;
        m_recipientCodes.push_back(0);
    } else if (command.startsWith("DATA")) {
        m_stage = Stage::Content;
    } else if (command.startsWith("QUIT")) {
        m_stage = Stage::Quit;
    }
}

void SmtpDialogue::received(const QByteArray& line)
{
    bool isCode = false;
    const int code = line.left(codeLength).toInt(&isCode);
    if (!isCode || line.mid(codeLength, 1) == "-")
        return; // a longer reply ends in a line without the hyphen
    m_nCode = code;
    if (m_stage == Stage::Login)
        m_bLoggedIn = m_bLoggedIn || code == loginDone;
    else if (code >= firstRefusal && m_stage != Stage::Quit)
        m_refusal = printable(line);
    if (m_stage == Stage::Recipient && !m_recipientCodes.empty())
        m_recipientCodes.back() = code;
}

bool SmtpDialogue::isAccepted(int recipient) const
{
    const auto index = static_cast<std::size_t>(recipient);
    return index < m_recipientCodes.size() && isAccepting(m_recipientCodes[index]);
}
