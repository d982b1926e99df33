#pragma once

#include <QList>
#include <QString>

#include <cstdint>

// One target mailbox of the alert mails.
struct SEmailRecipient
{
    QString strName;    // shown to the user; at most 64 characters, may be empty
    QString strAddress; // at most 64 characters
};

// When, from which account and to whom alerts are mailed.
struct SEmailSettings
{
    bool bEmailNotification = false; // mail alerts at all
    bool bRecoveryNotice = true;     // also mail when a fault has cleared
    std::int32_t nAlertCount = 3;    // consecutive detections of an alert before it is mailed, 1 .. 10
    bool bSsl = true;                // connect to the server with SSL
    std::int32_t nPort = 465;        // 0: none given
    QString strSenderAddress;
    QString strPassword; // as typed
    QString strSmtpServer;
    QList<SEmailRecipient> lstRecipients; // in table order; SendEmail reports failures by position in this list
};
