#include "monitoring/CEmailWidget.h"

#include "monitoring/CPasswordLineEdit.h"
#include "monitoring/CSendMailArrow.h"
#include "monitoring/CTargetMailboxes.h"
#include "monitoring/EditingFinished.h"
#include "monitoring/MailFormats.h"
#include "monitoring/MailReport.h"
#include "plugin/SettingHandler.h"
#include "plugin/interface/ISettingInterfaceHandler.h"

#include <widgetry/CMessageBox.h>
#include <widgetry/CSpinBox.h>
#include <widgetry/CWarningTipLineEdit.h>

#include <QCheckBox>
#include <QGridLayout>
#include <QIntValidator>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpressionValidator>

#include <utility>

namespace {

// In pixels.
constexpr QSize countSize(56, 24);
constexpr QSize testButtonSize(128, 24);
constexpr int sslIndent = 65;
constexpr int smallestEdit = 140;
constexpr int portWidth = 64;

constexpr int greatestCount = 10;
constexpr int greatestPort = 9999999;

// The texts by the number of their control.
constexpr const char* texts[] = {
    QT_TRANSLATE_NOOP("CEmailWidget", "Email notification"),
    QT_TRANSLATE_NOOP("CEmailWidget", "Recovery notice"),
    QT_TRANSLATE_NOOP("CEmailWidget", "SSL encryption"),
    QT_TRANSLATE_NOOP("CEmailWidget", "Send mail if"),
    QT_TRANSLATE_NOOP("CEmailWidget", "alerts have been continuously detected"),
    QT_TRANSLATE_NOOP("CEmailWidget", "Sender email settings"),
    QT_TRANSLATE_NOOP("CEmailWidget", "Email address"),
    QT_TRANSLATE_NOOP("CEmailWidget", "Email password"),
    QT_TRANSLATE_NOOP("CEmailWidget", "SMTP server"),
    QT_TRANSLATE_NOOP("CEmailWidget", "Port"),
};

} // namespace

CEmailWidget::CEmailWidget(const QString& title, QWidget* parent)
    : CCustomGroupBox(title, parent)
{
    createControls();
    layOut();
    connectControls();
    m_pPort->setText(QString::number(m_settings.nPort));
    m_checkBoxes[Ssl]->setChecked(m_settings.bSsl);
    m_pPort->setEnabled(m_settings.bSsl);
    setTexts();
    updateTestButton();
}

// The order of creation is that of the tab key.
void CEmailWidget::createControls()
{
    for (int label = SendIfLabel; label <= PortLabel; ++label)
        m_labels[label] = new QLabel(this);
    m_labels[SenderLabel]->setObjectName(QStringLiteral("Highlight"));

    m_checkBoxes[Notification] = new QCheckBox(this);
    m_pAlertCount = new CSpinBox(this);
    m_pAlertCount->setRange(1, greatestCount);
    m_pAlertCount->setFixedSize(countSize);
    m_checkBoxes[RecoveryNotice] = new QCheckBox(this);
    createAccountControls();

    m_pTargets = new CTargetMailboxes(this);
    m_pTest = new QPushButton(this);
    m_pTest->setObjectName(QStringLiteral("SendTestEmail"));
    m_pTest->setFixedSize(testButtonSize);
}

void CEmailWidget::createAccountControls()
{
    m_pSender = new CWarningTipLineEdit(this);
    m_pPassword = new CPasswordLineEdit(this);
    m_pServer = new QLineEdit(this);
    m_checkBoxes[Ssl] = new QCheckBox(this);
    m_pPort = new CWarningTipLineEdit(this);
    for (QLineEdit* const edit : {static_cast<QLineEdit*>(m_pSender), m_pServer})
        edit->setValidator(new QRegularExpressionValidator(QRegularExpression(mailCharacters()), edit));
    m_pPort->setValidator(new QIntValidator(1, greatestPort, m_pPort));
    for (QLineEdit* const edit : {static_cast<QLineEdit*>(m_pSender), m_pServer, static_cast<QLineEdit*>(m_pPort)})
        edit->setAttribute(Qt::WA_InputMethodEnabled, false);

    m_labels[AddressLabel]->setBuddy(m_pSender);
    m_labels[PasswordLabel]->setBuddy(m_pPassword);
    m_labels[ServerLabel]->setBuddy(m_pServer);
    m_labels[PortLabel]->setBuddy(m_pPort);
}

void CEmailWidget::layOut()
{
    auto* const count = new QHBoxLayout;
    count->setSpacing(8);
    count->addWidget(m_labels[SendIfLabel]);
    count->addWidget(m_pAlertCount);
    count->addWidget(m_labels[DetectedLabel]);
    count->addStretch();

    auto* const arrow = new QVBoxLayout;
    arrow->addStretch(3);
    arrow->addWidget(new CSendMailArrow(this));
    arrow->addStretch(2);

    auto* const band = new QHBoxLayout;
    band->setSpacing(16);
    band->addLayout(layOutAccount());
    band->addLayout(arrow);
    band->addWidget(m_pTargets);
    band->addStretch();

    auto* const list = new QVBoxLayout;
    list->setContentsMargins(16, 4, 0, 4);
    list->addWidget(m_checkBoxes[Notification]);
    list->addLayout(count);
    list->addWidget(m_checkBoxes[RecoveryNotice]);
    list->addWidget(m_labels[SenderLabel]);
    list->addLayout(band);
    list->addWidget(m_pTest, 0, Qt::AlignLeft);
    addCustomLayout(list);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum); // or the arrow's stretches would fill a tall page
}

QLayout* CEmailWidget::layOutAccount()
{
    auto* const rows = new QGridLayout;
    rows->setVerticalSpacing(12);
    rows->setHorizontalSpacing(8);
    int row = 0;
    const std::pair<Control, QLineEdit*> edits[] = {
        {AddressLabel, m_pSender}, {PasswordLabel, m_pPassword}, {ServerLabel, m_pServer}};
    for (const auto& [label, edit] : edits) {
        edit->setMinimumWidth(smallestEdit);
        rows->addWidget(m_labels[label], row, 0);
        rows->addWidget(edit, row, 1);
        ++row;
    }

    auto* const ssl = new QHBoxLayout;
    ssl->setSpacing(8);
    ssl->addSpacing(sslIndent);
    ssl->addWidget(m_checkBoxes[Ssl]);
    ssl->addStretch();
    ssl->addWidget(m_labels[PortLabel]);
    ssl->addWidget(m_pPort);
    m_pPort->setFixedWidth(portWidth);
    rows->addLayout(ssl, row, 0, 1, 2);
    rows->setRowStretch(row + 1, 1);
    return rows;
}

void CEmailWidget::connectControls()
{
    connect(m_checkBoxes[Ssl], &QCheckBox::clicked, m_pPort, &QWidget::setEnabled);
    for (CWarningTipLineEdit* const edit : {m_pSender, m_pPort})
        connect(edit, &QLineEdit::textChanged, edit, &CWarningTipLineEdit::clearWarning);
    onEditingFinished(m_pSender, [this] { checkSender(); });
    onEditingFinished(m_pPort, [this] { checkPort(); });
    connect(m_pTargets, &CTargetMailboxes::notifyRecipientsChanged, this, &CEmailWidget::updateTestButton);
    connect(m_pTest, &QPushButton::clicked, this, &CEmailWidget::runTest);
}

void CEmailWidget::setSettings(const SEmailSettings& settings)
{
    m_settings = settings;
    m_checkBoxes[Notification]->setChecked(settings.bEmailNotification);
    m_pAlertCount->setValue(settings.nAlertCount);
    m_checkBoxes[RecoveryNotice]->setChecked(settings.bRecoveryNotice);
    m_pSender->setText(settings.strSenderAddress);
    checkSender();
    m_pPassword->setPassword(settings.strPassword);
    m_pServer->setText(settings.strSmtpServer);
    m_checkBoxes[Ssl]->setChecked(settings.bSsl);
    m_pPort->setText(QString::number(settings.nPort));
    m_pTargets->setRecipients(settings.lstRecipients);
    updateTestButton();
}

const SEmailSettings& CEmailWidget::settings()
{
    m_settings.bEmailNotification = m_checkBoxes[Notification]->isChecked();
    m_settings.nAlertCount = m_pAlertCount->value();
    m_settings.bRecoveryNotice = m_checkBoxes[RecoveryNotice]->isChecked();
    m_settings.strSenderAddress = m_pSender->text();
    m_settings.strPassword = m_pPassword->text();
    m_settings.strSmtpServer = m_pServer->text();
    m_settings.bSsl = m_checkBoxes[Ssl]->isChecked();
    m_settings.nPort = m_pPort->text().toInt();
    m_settings.lstRecipients = m_pTargets->recipients();
    return m_settings;
}

void CEmailWidget::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    CCustomGroupBox::changeEvent(event);
}

void CEmailWidget::setTexts()
{
    for (auto box = m_checkBoxes.cbegin(); box != m_checkBoxes.cend(); ++box)
        box.value()->setText(tr(texts[box.key()]));
    for (auto label = m_labels.cbegin(); label != m_labels.cend(); ++label) {
        label.value()->setText(tr(texts[label.key()]));
        if (QWidget* const edit = label.value()->buddy())
            edit->setAccessibleName(label.value()->text());
    }
    m_pTest->setText(tr("Send test email"));
    m_pSender->setTipText(tr("Email format is incorrect, please re-enter."));
    m_pPort->setTipText(tr("The SSL port number of the mailbox is invalid."));
    m_pAlertCount->setAccessibleName(
        QStringLiteral("%1 \u2026 %2").arg(m_labels[SendIfLabel]->text(), m_labels[DetectedLabel]->text()));
}

void CEmailWidget::checkSender()
{
    if (m_pSender->text().isEmpty() || isMailAddress(m_pSender->text()))
        m_pSender->clearWarning();
    else
        m_pSender->showWarning();
    updateTestButton();
}

void CEmailWidget::checkPort()
{
    const QString port = m_pPort->text();
    if (!port.isEmpty() && !isMailPort(port) && m_checkBoxes[Ssl]->isChecked())
        m_pPort->showWarning();
    else
        m_pPort->clearWarning();
    updateTestButton();
}

bool CEmailWidget::isValid(bool showTips)
{
    const bool isSenderValid = isMailAddress(m_pSender->text());
    const bool isPortValid = isMailPort(m_pPort->text());
    if (showTips && !isSenderValid)
        m_pSender->showWarning();
    if (showTips && !isPortValid)
        m_pPort->showWarning();
    return isSenderValid && isPortValid;
}

void CEmailWidget::updateTestButton()
{
    m_bCanTest = isValid(false) && !m_pTargets->recipients().isEmpty();
    m_pTest->setEnabled(m_bCanTest && !m_bTesting);
}

void CEmailWidget::runTest()
{
    const QPointer<CEmailWidget> self(this);
    const bool hadFocus = m_pTest->hasFocus(); // which disabling the button takes away
    m_bTesting = true;
    m_pTest->setEnabled(false);
    if (isValid(true))
        sendTestMail();
    if (!self)
        return;
    m_bTesting = false;
    m_pTest->setEnabled(m_bCanTest);
    if (hadFocus)
        m_pTest->setFocus();
}

// Sends what is shown and says how it went.
void CEmailWidget::sendTestMail()
{
    const SEmailSettings shown = settings();
    if (shown.lstRecipients.isEmpty())
        return;
    const auto handler = settingHandler();
    const QPointer<CEmailWidget> self(this);
    QList<int> failed = m_failedRecipients; // the host may run the event loop, and destroy this object, while it sends
    const bool isSent = handler && handler->SendEmail(failed, shown, tr("This is a test email from Orvel."));
    if (!self)
        return;
    m_failedRecipients = failed;
    report(shown.lstRecipients, isSent);
}

void CEmailWidget::report(const QList<SEmailRecipient>& recipients, bool isSent)
{
    const QString title = QStringLiteral("Orvel");
    switch (mailOutcome(isSent, recipients, m_failedRecipients)) {
    case MailOutcome::Sent:
        CMessageBox::information(this, tr("The email was sent successful."), title);
        break;
    case MailOutcome::PartlySent:
        CMessageBox::warning(this, partlySentText(recipients, m_failedRecipients), title);
        break;
    case MailOutcome::Failed:
        CMessageBox::warning(this, tr("Failed to send the email."), title);
        break;
    }
}
