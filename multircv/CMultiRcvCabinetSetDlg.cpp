#include "multircv/CMultiRcvCabinetSetDlg.h"

#include "dialogs/OperationDialogs.h"
#include "multircv/CMultiRcvCabinetSetFirstPage.h"
#include "multircv/CMultiRcvCabinetSetSecondPage.h"
#include "multircv/CMultiRcvCabinetSetThirdPage.h"
#include "multircv/CWizardSteps.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <QEvent>
#include <QFileInfo>
#include <QPushButton>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace {

constexpr QSize dialogSize(520, 353);

QString libraryRoot(const QString& typeLibraryFolder)
{
    const QString root = CTypeLibrary::instance().rootPath();
    return root.isEmpty() ? typeLibraryFolder : root;
}

// Gives the keyboard to the first control of the page, so that Return never goes back the way it came.
void focusFirstControl(QWidget* page)
{
    for (QWidget* next = page->nextInFocusChain(); page->isAncestorOf(next); next = next->nextInFocusChain()) {
        if (next->isVisibleTo(page) && next->isEnabled() && (next->focusPolicy() & Qt::TabFocus)) {
            next->setFocus(Qt::TabFocusReason);
            return;
        }
    }
}

} // namespace

CMultiRcvCabinetSetDlg::CMultiRcvCabinetSetDlg(const QString& typeLibraryFolder, const QString& editedFile,
                                               QWidget* parent)
    : CDialog(parent),
      m_draft(typeLibraryFolder, editedFile),
      m_libraryFolder(libraryRoot(typeLibraryFolder))
{
    initialize();
    setFixedSize(dialogSize);
    setCurrentStep(ReceiverStep, ReceiverStep);
}

void CMultiRcvCabinetSetDlg::createWidgets()
{
    m_pSteps = new CWizardSteps(this);
    m_pPageArea = new QWidget(this);
    m_pPageArea->setStyleSheet(
        QStringLiteral(".QWidget{background:rgba(26,26,30,1);border:1px solid rgba(22, 22, 25, 1);}"));
    m_pFirstPage = new CMultiRcvCabinetSetFirstPage(m_libraryFolder, m_draft.record(), m_pPageArea);
    m_pSecondPage = new CMultiRcvCabinetSetSecondPage(m_draft.record(), m_pPageArea);
    m_pThirdPage = new CMultiRcvCabinetSetThirdPage(m_draft.record(), m_draft.ownName(), m_pPageArea);
    for (const Button button : {Previous, Next, Cancel})
        addButton(button)->setStyleSheet(QStringLiteral(".QPushButton{padding-right:10px;}"));
}

void CMultiRcvCabinetSetDlg::layoutWidgets()
{
    m_pPages = new QStackedLayout(m_pPageArea);
    m_pPages->addWidget(m_pFirstPage);
    m_pPages->addWidget(m_pSecondPage);
    m_pPages->addWidget(m_pThirdPage);

    auto* const layout = new QVBoxLayout(contentWidget());
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pSteps);
    layout->addWidget(m_pPageArea, 1);
}

void CMultiRcvCabinetSetDlg::connectSignals()
{
    connect(button(Previous), &QPushButton::clicked, this,
            [this] { setCurrentStep(currentStep() - 1, currentStep()); });
    connect(button(Next), &QPushButton::clicked, this, [this] {
        if (currentStep() == LabelStep)
            finish();
        else
            setCurrentStep(currentStep() + 1, currentStep());
    });
}

void CMultiRcvCabinetSetDlg::changeEvent(QEvent* event)
{
    CDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        setTexts();
}

int CMultiRcvCabinetSetDlg::currentStep() const
{
    return m_pPages->currentIndex();
}

void CMultiRcvCabinetSetDlg::setCurrentStep(int step, int oldStep)
{
    if (step > oldStep && !canLeaveForward(oldStep))
        return;
    if (step == TopologyStep)
        m_pSecondPage->setGridSize(m_pFirstPage->gridSize());
    m_pPages->setCurrentIndex(step);
    m_pSteps->setCurrentStep(step);
    button(Previous)->setEnabled(step != ReceiverStep);
    setTexts();
    focusFirstControl(m_pPages->currentWidget());
}

// Whether the step is complete; if not, the user is told what is missing.
bool CMultiRcvCabinetSetDlg::canLeaveForward(int step)
{
    if (step == ReceiverStep) {
        const QString file = m_pFirstPage->parameterFile();
        if (file.isEmpty()) {
            inform(this, tr("Please select a parameter file."));
            return false;
        }
        if (!QFileInfo::exists(file)) {
            inform(this, tr("The parameter file does not exist."));
            return false;
        }
    } else if (step == TopologyStep) {
        const QSize grid = m_pFirstPage->gridSize();
        if (m_pSecondPage->wiring().size() != grid.width() * grid.height()) {
            inform(this, tr("Please complete a box of multi-card wiring."));
            return false;
        }
    }
    return true;
}

void CMultiRcvCabinetSetDlg::setTexts()
{
    setTitle(tr("Wizard"));
    button(Previous)->setText(tr("Previous"));
    button(Next)->setText(currentStep() == LabelStep ? tr("OK") : tr("Next"));
    button(Cancel)->setText(tr("Cancel"));
}

// Saves the type, if nothing speaks against it, and closes.
void CMultiRcvCabinetSetDlg::finish()
{
    const CabinetEdit entered = edit();
    const QString parameterFile = m_pFirstPage->parameterFile();
    if (entered.typeName.isEmpty()) {
        inform(this, tr("The type name is empty."));
        return;
    }
    if (entered.voltageMin > entered.voltageMax) {
        inform(this, tr("The lower voltage limit is greater than the upper voltage limit."));
        return;
    }
    if (m_draft.isNameTaken(entered.typeName)) {
        inform(this, tr("There is a duplicate box of multi-card file naming."));
        return;
    }
    if (isUnchanged(m_draft.record(), entered) || !m_draft.canBeSaved()) {
        reject();
        return;
    }
    // Asked before the old type is given up for it.
    if (!QFileInfo::exists(parameterFile)) {
        inform(this, tr("The parameter file does not exist."));
        return;
    }
    if (m_draft.replacesOldFile(entered.typeName) &&
        !ask(this, tr("Should you replace the old parameter file with a new parameter file?")))
        return;
    m_draft.save(parameterFile, entered);
    accept();
    CTypeLibrary::instance().startUpdate();
}

CabinetEdit CMultiRcvCabinetSetDlg::edit() const
{
    CabinetEdit entered;
    entered.grid = m_pFirstPage->gridSize();
    entered.specifyOrientation = m_pSecondPage->specifyOrientation();
    entered.wiring = m_pSecondPage->wiring();
    entered.typeName = m_pThirdPage->typeName();
    entered.weight = m_pThirdPage->value(CMultiRcvCabinetSetThirdPage::Weight);
    entered.power = m_pThirdPage->value(CMultiRcvCabinetSetThirdPage::Power);
    entered.voltageMin = m_pThirdPage->value(CMultiRcvCabinetSetThirdPage::VoltageMin);
    entered.voltageMax = m_pThirdPage->value(CMultiRcvCabinetSetThirdPage::VoltageMax);
    return entered;
}
