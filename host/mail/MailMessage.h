#pragma once

#include "plugin/interface/SEmailSettings.h"

#include <QList>
#include <QString>

// A mail as plain text. A plain value.
struct MailMessage
{
    QString subject;
    QString body; // lines end in any of the usual ways
    QList<SEmailRecipient> recipients;
};
