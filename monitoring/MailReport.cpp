#include "monitoring/MailReport.h"

#include "monitoring/ShownText.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

bool isPosition(const QList<SEmailRecipient>& recipients, int position)
{
    return position >= 0 && position < recipients.size();
}

} // namespace

MailOutcome mailOutcome(bool isSent, const QList<SEmailRecipient>& recipients, const QList<int>& failedPositions)
{
    const auto failures = std::count_if(failedPositions.begin(), failedPositions.end(),
                                        [&](int position) { return isPosition(recipients, position); });
    if (!isSent || failures == recipients.size())
        return MailOutcome::Failed;
    return failures == 0 ? MailOutcome::Sent : MailOutcome::PartlySent;
}

QString partlySentText(const QList<SEmailRecipient>& recipients, const QList<int>& failedPositions)
{
    QString text = QCoreApplication::translate("CEmailWidget", "Receiving address:");
    for (const int position : failedPositions) {
        if (isPosition(recipients, position))
            text += shownText(recipients.at(position).strAddress) + QLatin1Char(' ');
    }
    return text + QCoreApplication::translate("CEmailWidget", ", failed to send the email.");
}
