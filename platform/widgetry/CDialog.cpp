#include <widgetry/CDialog.h>

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

QString standardText(CDialog::Button button)
{
    switch (button) {
    case CDialog::Previous:
        return QCoreApplication::translate("Widgetry", "Previous");
    case CDialog::Next:
        return QCoreApplication::translate("Widgetry", "Next");
    case CDialog::Ok:
        return QCoreApplication::translate("Widgetry", "OK");
    case CDialog::Cancel:
        return QCoreApplication::translate("Widgetry", "Cancel");
    case CDialog::Yes:
        return QCoreApplication::translate("Widgetry", "&Yes");
    case CDialog::No:
        return QCoreApplication::translate("Widgetry", "&No");
    }
    return {};
}

QString objectNameOf(CDialog::Button button)
{
    switch (button) {
    case CDialog::Previous:
        return QStringLiteral("PreviousButton");
    case CDialog::Next:
        return QStringLiteral("NextButton");
    case CDialog::Ok:
        return QStringLiteral("OkButton");
    case CDialog::Cancel:
        return QStringLiteral("CancelButton");
    case CDialog::Yes:
        return QStringLiteral("YesButton");
    case CDialog::No:
        return QStringLiteral("NoButton");
    }
    return {};
}

} // namespace

CDialog::CDialog(QWidget* parent)
    : QDialog(parent),
      m_pContent(new QWidget(this))
{
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    m_pContent->setObjectName(QStringLiteral("DialogContent"));
    auto* const buttons = new QWidget(this);
    buttons->setObjectName(QStringLiteral("DialogButtons"));
    m_pButtonRow = new QHBoxLayout(buttons);
    m_pButtonRow->setContentsMargins(0, 0, 0, 0);
    m_pButtonRow->addStretch();

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(m_pContent, 1);
    layout->addWidget(buttons);
}

void CDialog::setTitle(const QString& title)
{
    setWindowTitle(title);
}

QPushButton* CDialog::addButton(Button button)
{
    Entry& entry = m_buttons[button];
    if (entry.pButton)
        return entry.pButton;

    entry.standardText = standardText(button);
    entry.pButton = new QPushButton(entry.standardText, this);
    entry.pButton->setObjectName(objectNameOf(button));
    m_pButtonRow->addWidget(entry.pButton);
    if (button == Ok)
        connect(entry.pButton, &QPushButton::clicked, this, &CDialog::accept);
    else if (button == Cancel)
        connect(entry.pButton, &QPushButton::clicked, this, &CDialog::reject);
    if (button == Ok || (button == Next && !m_buttons.contains(Ok)))
        entry.pButton->setDefault(true);
    return entry.pButton;
}

QPushButton* CDialog::button(Button button) const
{
    return m_buttons.value(button).pButton;
}

void CDialog::createWidgets() {}

void CDialog::layoutWidgets() {}

void CDialog::connectSignals() {}

void CDialog::initialize()
{
    if (m_bInitialized)
        return;
    m_bInitialized = true;
    createWidgets();
    layoutWidgets();
    connectSignals();
}

void CDialog::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::LanguageChange) {
        for (auto it = m_buttons.begin(); it != m_buttons.end(); ++it) {
            const bool untouched = it->pButton->text() == it->standardText;
            it->standardText = standardText(it.key());
            if (untouched)
                it->pButton->setText(it->standardText);
        }
    }
    QDialog::changeEvent(event);
}
