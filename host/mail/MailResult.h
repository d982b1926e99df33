#pragma once

#include <QList>
#include <QString>

// What became of a mail. A plain value.
struct MailResult
{
    bool sent = false;          // the server took the mail for at least one recipient
    QList<int> failedPositions; // ascending, of the message's recipients that it does not go to
    QString reason;             // for the user, in one line and without secrets; empty when all are reached
};
