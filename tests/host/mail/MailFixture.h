#pragma once

#include "host/mail/SmtpSender.h"
#include "tests/host/mail/SmtpServer.h"

#include <QDir>
#include <QMetaType>
#include <QString>
#include <QStringList>

Q_DECLARE_METATYPE(MailAccount::Encryption)

// What tests of sending need around a server.
namespace MailFixture {

// Makes the authority and the servers' certificates in the folder, by tests/host/mail/make-certificates.
bool makeCertificates(const QDir& folder);

// The server's options for a line of words.
QStringList words(const char* text);

// Those for a server with this kind of encryption and this certificate.
QStringList encrypted(const char* kind, const QDir& certificates, const char* name);

// An account of the server, with the password that it takes.
MailAccount account(int port, MailAccount::Encryption encryption);

// A message to as many recipients, a@example.com, b@example.com and so on.
MailMessage message(int recipients);

} // namespace MailFixture
