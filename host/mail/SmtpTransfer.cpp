#include "host/mail/SmtpTransfer.h"

#include <algorithm>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int farewellMs = 1000;

// Once for the process, and never taken back: a transfer may outlast whoever started it.
void startLibrary()
{
    static const CURLcode started = curl_global_init(CURL_GLOBAL_DEFAULT);
    Q_UNUSED(started)
}

QByteArray urlOf(const SmtpTransfer::Order& order)
{
    const char* const scheme = order.encryption == MailAccount::Encryption::Tls ? "smtps://" : "smtp://";
    return scheme + order.host + ':' + QByteArray::number(order.port);
}

} // namespace

// What libcurl calls, on the thread of run().
struct SmtpTransfer::Callbacks
{
    static std::size_t read(char* buffer, std::size_t size, std::size_t count, void* transfer)
    {
        auto& self = *static_cast<SmtpTransfer*>(transfer);
        const QByteArray& content = self.m_order.content;
        const auto room = static_cast<qsizetype>(size) * static_cast<qsizetype>(count);
        const qsizetype length = std::min<qsizetype>(room, content.size() - self.m_nRead);
        std::memcpy(buffer, content.constData() + self.m_nRead, static_cast<std::size_t>(length));
        self.m_nRead += length;
        return static_cast<std::size_t>(length);
    }

    static int progress(void* transfer, curl_off_t /*toDownload*/, curl_off_t /*downloaded*/, curl_off_t /*toUpload*/,
                        curl_off_t /*uploaded*/)
    {
        return static_cast<const SmtpTransfer*>(transfer)->m_cancelled ? 1 : 0;
    }

    static int debug(CURL* /*curl*/, curl_infotype type, char* data, std::size_t size, void* transfer)
    {
        static_cast<SmtpTransfer*>(transfer)->follow(type, QByteArray::fromRawData(data, static_cast<int>(size)));
        return 0;
    }

    static curl_socket_t openSocket(void* transfer, curlsocktype /*purpose*/, curl_sockaddr* address)
    {
        const int descriptor = ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
        if (descriptor >= 0)
            static_cast<SmtpTransfer*>(transfer)->m_sockets.push_back(descriptor);
        return descriptor;
    }

    static int closeSocket(void* transfer, curl_socket_t descriptor)
    {
        auto& sockets = static_cast<SmtpTransfer*>(transfer)->m_sockets;
        sockets.erase(std::remove(sockets.begin(), sockets.end(), descriptor), sockets.end());
        return ::close(descriptor);
    }
};

SmtpTransfer::SmtpTransfer(const Order& order, const std::atomic_bool& cancelled)
    : m_order(order),
      m_cancelled(cancelled),
      m_pCurl((startLibrary(), curl_easy_init()))
{
}

SmtpTransfer::~SmtpTransfer()
{
    curl_easy_cleanup(m_pCurl);
    curl_slist_free_all(m_pRecipients);
}

CURLcode SmtpTransfer::run()
{
    if (!m_pCurl)
        return CURLE_FAILED_INIT;
    setServer();
    setMail();
    setCallbacks();
    const CURLcode result = curl_easy_perform(m_pCurl);
    return m_bLoginMissing ? CURLE_LOGIN_DENIED : result;
}

QString SmtpTransfer::errorText() const
{
    return QString::fromUtf8(m_error.data());
}

void SmtpTransfer::setServer()
{
    curl_easy_setopt(m_pCurl, CURLOPT_URL, urlOf(m_order).constData());
    const bool mustEncrypt = m_order.encryption != MailAccount::Encryption::None;
    curl_easy_setopt(m_pCurl, CURLOPT_USE_SSL, static_cast<long>(mustEncrypt ? CURLUSESSL_ALL : CURLUSESSL_NONE));
    curl_easy_setopt(m_pCurl, CURLOPT_SSLVERSION, static_cast<long>(CURL_SSLVERSION_TLSv1_2));
    if (!m_order.authorities.isEmpty())
        curl_easy_setopt(m_pCurl, CURLOPT_CAINFO, m_order.authorities.constData());
    if (!m_order.password.isEmpty()) {
        curl_easy_setopt(m_pCurl, CURLOPT_USERNAME, m_order.user.constData());
        curl_easy_setopt(m_pCurl, CURLOPT_PASSWORD, m_order.password.constData());
    }
    // The environment's proxies are for the web.
    curl_easy_setopt(m_pCurl, CURLOPT_PROXY, "");
    curl_easy_setopt(m_pCurl, CURLOPT_TIMEOUT_MS, static_cast<long>(m_order.timeout.count()));
    curl_easy_setopt(m_pCurl, CURLOPT_NOSIGNAL, 1L); // signals belong to the process, this may be any thread
}

void SmtpTransfer::setMail()
{
    curl_easy_setopt(m_pCurl, CURLOPT_MAIL_FROM, ('<' + m_order.sender + '>').constData());
    for (const QByteArray& recipient : m_order.recipients)
        m_pRecipients = curl_slist_append(m_pRecipients, ('<' + recipient + '>').constData());
    curl_easy_setopt(m_pCurl, CURLOPT_MAIL_RCPT, m_pRecipients);
    curl_easy_setopt(m_pCurl, CURLOPT_MAIL_RCPT_ALLLOWFAILS, 1L);
    curl_easy_setopt(m_pCurl, CURLOPT_UPLOAD, 1L);
    curl_easy_setopt(m_pCurl, CURLOPT_READFUNCTION, &Callbacks::read);
    curl_easy_setopt(m_pCurl, CURLOPT_READDATA, this);
    curl_easy_setopt(m_pCurl, CURLOPT_INFILESIZE_LARGE, static_cast<curl_off_t>(m_order.content.size()));
}

void SmtpTransfer::setCallbacks()
{
    curl_easy_setopt(m_pCurl, CURLOPT_ERRORBUFFER, m_error.data());
    curl_easy_setopt(m_pCurl, CURLOPT_NOPROGRESS, 0L);
    curl_easy_setopt(m_pCurl, CURLOPT_XFERINFOFUNCTION, &Callbacks::progress);
    curl_easy_setopt(m_pCurl, CURLOPT_XFERINFODATA, this);
    // The only way to see the dialogue; with the function set nothing is printed.
    curl_easy_setopt(m_pCurl, CURLOPT_VERBOSE, 1L);
    curl_easy_setopt(m_pCurl, CURLOPT_DEBUGFUNCTION, &Callbacks::debug);
    curl_easy_setopt(m_pCurl, CURLOPT_DEBUGDATA, this);
    curl_easy_setopt(m_pCurl, CURLOPT_OPENSOCKETFUNCTION, &Callbacks::openSocket);
    curl_easy_setopt(m_pCurl, CURLOPT_OPENSOCKETDATA, this);
    curl_easy_setopt(m_pCurl, CURLOPT_CLOSESOCKETFUNCTION, &Callbacks::closeSocket);
    curl_easy_setopt(m_pCurl, CURLOPT_CLOSESOCKETDATA, this);
    // The connection ends within run(), while the callbacks count.
    curl_easy_setopt(m_pCurl, CURLOPT_FORBID_REUSE, 1L);
}

void SmtpTransfer::follow(curl_infotype type, const QByteArray& text)
{
    if (type == CURLINFO_HEADER_IN) {
        m_dialogue.received(text);
        return;
    }
    if (type != CURLINFO_HEADER_OUT)
        return;
    m_dialogue.sent(text);
    switch (m_dialogue.stage()) {
    case SmtpDialogue::Stage::Quit:
        awaitFarewell();
        break;
    case SmtpDialogue::Stage::Sender:
        // libcurl passes a login over that the server does not offer.
        if (!m_order.password.isEmpty() && !m_dialogue.hasLoggedIn()) {
            m_bLoginMissing = true;
            shutSockets(SHUT_RDWR);
        }
        break;
    default:
        break;
    }
}

// Gives the server a moment to answer QUIT. libcurl would wait two minutes for that; what it reads now ends here.
void SmtpTransfer::awaitFarewell() const
{
    for (const curl_socket_t descriptor : m_sockets) {
        pollfd readable{descriptor, POLLIN, 0};
        ::poll(&readable, 1, farewellMs);
    }
    shutSockets(SHUT_RD);
}

void SmtpTransfer::shutSockets(int how) const
{
    for (const curl_socket_t descriptor : m_sockets)
        ::shutdown(descriptor, how);
}
