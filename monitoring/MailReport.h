#pragma once

#include "plugin/interface/SEmailSettings.h"

enum class MailOutcome
{
    Sent,
    PartlySent,
    Failed,
};

// How a mail went, from what the host said: whether it was sent at all, and the positions of the recipients that it
// could not reach. Positions outside the list of recipients are passed over, here and below.
MailOutcome mailOutcome(bool isSent, const QList<SEmailRecipient>& recipients, const QList<int>& failedPositions);

// Which addresses a mail did not reach, in the order of the positions and the current language.
QString partlySentText(const QList<SEmailRecipient>& recipients, const QList<int>& failedPositions);
