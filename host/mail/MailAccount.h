#pragma once

#include <QString>

struct SEmailSettings;

// The account that mails are sent from, and how its server is reached. A plain value.
struct MailAccount
{
    enum class Encryption
    {
        None,     // everything in clear, the password included
        StartTls, // begins in clear and must change to TLS before anything is said
        Tls,      // TLS from the first byte
    };

    // As the user has set it up. With SSL the ports 25 and 587 stand for STARTTLS and every other one for TLS from the
    // first byte; a port of 0 stands for the usual one, 465 with SSL and 25 without.
    static MailAccount from(const SEmailSettings& settings);

    QString server; // host name or address
    int port = 0;
    Encryption encryption = Encryption::Tls;
    QString address;  // of the sender; also the name of the login
    QString password; // empty: no login
};
