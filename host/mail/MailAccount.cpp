#include "host/mail/MailAccount.h"

#include "plugin/interface/SEmailSettings.h"

namespace {

constexpr int smtpPort = 25;
constexpr int submissionPort = 587;
constexpr int tlsPort = 465;

MailAccount::Encryption encryptionAt(int port)
{
    return port == smtpPort || port == submissionPort ? MailAccount::Encryption::StartTls
                                                      : MailAccount::Encryption::Tls;
}

} // namespace

MailAccount MailAccount::from(const SEmailSettings& settings)
{
    MailAccount account;
    account.server = settings.strSmtpServer.trimmed();
    account.port = settings.nPort;
    if (account.port == 0)
        account.port = settings.bSsl ? tlsPort : smtpPort;
    account.encryption = settings.bSsl ? encryptionAt(account.port) : Encryption::None;
    account.address = settings.strSenderAddress;
    account.password = settings.strPassword;
    return account;
}
