#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

struct MailMessage;

// The text of a mail as it goes over the line: ASCII with CRLF line ends. Reentrant. [any thread]
namespace MimeText {

// A header's free text, as encoded words where plain ASCII does not do. Lines are folded.
QByteArray unstructured(const QString& text);

// A name, which may be empty, and an address, as they stand in a header.
QByteArray mailbox(const QString& name, const QString& address);

// The whole mail. `messageId` is without its angle brackets. The caller has seen to it that addresses, names and the
// subject hold no control characters.
QByteArray compose(const QString& sender, const MailMessage& message, const QDateTime& date,
                   const QByteArray& messageId);

} // namespace MimeText
