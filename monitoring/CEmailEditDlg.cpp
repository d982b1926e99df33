#include "monitoring/CEmailEditDlg.h"

#include "monitoring/EditingFinished.h"
#include "monitoring/MailFormats.h"

#include <widgetry/CMessageBox.h>
#include <widgetry/CWarningTipLineEdit.h>

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpressionValidator>

#include <algorithm>

namespace {

// In pixels.
constexpr QSize dialogSize(341, 154);
constexpr QSize editSize(238, 24);
constexpr int margin = 8; // narrow, because the edits leave the labels little room
constexpr int labelSpacing = 6;
constexpr int rowSpacing = 8;

constexpr int longestText = 64;
constexpr int newRecipient = -1;

} // namespace

CEmailEditDlg::CEmailEditDlg(const QList<SEmailRecipient>* recipients, QWidget* parent)
    : CEmailEditDlg(recipients, newRecipient, parent)
{
}

CEmailEditDlg::CEmailEditDlg(const QList<SEmailRecipient>* recipients, int index, QWidget* parent)
    : CDialog(parent),
      m_pRecipients(recipients),
      m_nIndex(index)
{
    initialize();
    setFixedSize(dialogSize);
    setTexts();
    if (m_nIndex != newRecipient) {
        m_pName->setText(recipients->at(index).strName);
        m_pAddress->setText(recipients->at(index).strAddress);
    }
}

void CEmailEditDlg::createWidgets()
{
    m_pNameLabel = new QLabel(this);
    m_pName = new QLineEdit(this);
    m_pAddressLabel = new QLabel(this);
    m_pAddress = new CWarningTipLineEdit(this);
    m_pAddress->setValidator(new QRegularExpressionValidator(QRegularExpression(mailCharacters()), m_pAddress));
    for (QLineEdit* const edit : {m_pName, static_cast<QLineEdit*>(m_pAddress)}) {
        edit->setFixedSize(editSize);
        edit->setMaxLength(longestText);
    }
    m_pNameLabel->setBuddy(m_pName);
    m_pAddressLabel->setBuddy(m_pAddress);
    addButton(Ok)->setEnabled(false);
    addButton(Cancel);
}

void CEmailEditDlg::layoutWidgets()
{
    this->layout()->setContentsMargins(margin, margin, margin, margin);
    auto* const layout = new QGridLayout(contentWidget());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(labelSpacing);
    layout->setVerticalSpacing(rowSpacing);
    layout->addWidget(m_pNameLabel, 0, 0);
    layout->addWidget(m_pName, 0, 1, Qt::AlignRight);
    layout->addWidget(m_pAddressLabel, 1, 0);
    layout->addWidget(m_pAddress, 1, 1, Qt::AlignRight);
    layout->setRowStretch(2, 1); // the warning's bubble lies there
    for (QLabel* const label : {m_pNameLabel, m_pAddressLabel})
        label->setWordWrap(true); // where letters are large
}

void CEmailEditDlg::connectSignals()
{
    connect(m_pAddress, &QLineEdit::textChanged, this, &CEmailEditDlg::checkAddress);
    onEditingFinished(m_pAddress, [this] {
        if (problem() == WrongFormat)
            warn(WrongFormat);
    });
}

void CEmailEditDlg::accept()
{
    const Problem found = problem(); // the list may have changed since the text did
    if (found == WrongFormat) {
        CMessageBox::information(this, tr("The email address is invalid, Please re-enter it."), QStringLiteral("Orvel"),
                                 Ok, Ok);
        return;
    }
    if (found == Taken) {
        checkAddress();
        return;
    }
    m_recipient = {m_pName->text(), m_pAddress->text()};
    CDialog::accept();
}

void CEmailEditDlg::changeEvent(QEvent* event)
{
    CDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        setTexts();
}

CEmailEditDlg::Problem CEmailEditDlg::problem() const
{
    const QString address = m_pAddress->text();
    if (!isMailAddress(address))
        return WrongFormat;
    if (m_nIndex != newRecipient && m_pRecipients->value(m_nIndex).strAddress == address)
        return NoProblem;
    const bool isTaken =
        std::any_of(m_pRecipients->begin(), m_pRecipients->end(),
                    [&address](const SEmailRecipient& recipient) { return recipient.strAddress == address; });
    return isTaken ? Taken : NoProblem;
}

void CEmailEditDlg::checkAddress()
{
    const Problem found = problem();
    button(Ok)->setEnabled(found == NoProblem);
    if (found == NoProblem)
        m_pAddress->clearWarning();
    else if (found == Taken || m_pAddress->isWarningShown()) // an address that is still being typed is no mistake
        warn(found);
}

void CEmailEditDlg::warn(Problem problem)
{
    m_pAddress->setTipText(problem == Taken ? tr("Duplicate email addresses exist.")
                                            : tr("Email format is incorrect, please re-enter."));
    m_pAddress->showWarning();
}

void CEmailEditDlg::setTexts()
{
    setTitle(m_nIndex == newRecipient ? tr("Add") : tr("Modify"));
    m_pNameLabel->setText(tr("Name"));
    m_pAddressLabel->setText(tr("Email address"));
    m_pName->setAccessibleName(m_pNameLabel->text());
    m_pAddress->setAccessibleName(m_pAddressLabel->text());
    if (m_pAddress->isWarningShown())
        checkAddress(); // in the new language, and against the list as it is now
}
