#pragma once

#include <QByteArray>
#include <QString>

// What may stand in a mail's headers and in the commands to its server. A line break there would let a text say
// something of its own to the server. Reentrant. [any thread]
namespace MailChecks {

// Whether the text holds a control character, line breaks among them.
bool hasControlCharacter(const QString& text);

// Whether `text` can be handed to a server as an address: printable ASCII without blanks, commas and angle brackets,
// with an at sign between two other characters, and at most 254 characters. Says nothing about whether it exists.
bool isAddress(const QString& text);

// `server` as it stands in a URL: international names in their ASCII form, IPv6 addresses in brackets. Empty when it is
// neither a host name nor an address.
QByteArray hostForUrl(const QString& server);

} // namespace MailChecks
