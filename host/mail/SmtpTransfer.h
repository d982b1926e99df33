#pragma once

#include "host/mail/MailAccount.h"
#include "host/mail/SmtpDialogue.h"

#include <QByteArray>
#include <QString>

#include <array>
#include <atomic>
#include <chrono>
#include <vector>

#include <curl/curl.h>

// One mail on its way to one server, on libcurl. Made for one run() on one thread; what it is given must be sound: no
// control characters, addresses without angle brackets.
class SmtpTransfer
{
public:
    struct Order
    {
        QByteArray host; // as it stands in a URL
        int port = 0;
        MailAccount::Encryption encryption = MailAccount::Encryption::Tls;
        QByteArray user;
        QByteArray password; // empty: no login
        QByteArray sender;
        std::vector<QByteArray> recipients;
        QByteArray content;     // headers and body
        QByteArray authorities; // file with more certificates to trust, in PEM; empty: the system's alone
        std::chrono::milliseconds timeout{0};
    };

    // `order` and `cancelled` outlive the transfer.
    SmtpTransfer(const Order& order, const std::atomic_bool& cancelled);
    ~SmtpTransfer();
    Q_DISABLE_COPY(SmtpTransfer)

    // Blocks until the mail is taken or has failed: at most as long as the order's time-out, and the time that the
    // system takes to give up looking for a host's name. CURLE_LOGIN_DENIED also when there is a password and the
    // server asks for none; then no mail was begun.
    CURLcode run();

    const SmtpDialogue& dialogue() const { return m_dialogue; }

    // libcurl's words about the failure; in English.
    QString errorText() const;

private:
    struct Callbacks;

    void setServer();
    void setMail();
    void setCallbacks();
    void follow(curl_infotype type, const QByteArray& text);
    void awaitFarewell() const;
    void shutSockets(int how) const;

    const Order& m_order;
    const std::atomic_bool& m_cancelled;
    SmtpDialogue m_dialogue;
    CURL* const m_pCurl;
    curl_slist* m_pRecipients = nullptr;
    std::vector<curl_socket_t> m_sockets; // that are open
    qsizetype m_nRead = 0;                // bytes of the content
    bool m_bLoginMissing = false;
    std::array<char, CURL_ERROR_SIZE> m_error{};
};
