#pragma once

#include "multircv/CabinetTypeDraft.h"

#include <widgetry/CDialog.h>

class CMultiRcvCabinetSetFirstPage;
class CMultiRcvCabinetSetSecondPage;
class CMultiRcvCabinetSetThirdPage;
class CWizardSteps;
class QStackedLayout;

// The wizard that makes a multi-receiver cabinet type out of a parameter file, or edits one, in three steps. It is
// accepted once the type is saved and the rescan of the library has begun; it is rejected when there was nothing to
// save. [GUI thread]
class CMultiRcvCabinetSetDlg : public CDialog
{
    Q_OBJECT

public:
    // `typeLibraryFolder` is the folder of the library that the type is saved in; `editedFile` the type file that is
    // edited, empty for a new type.
    explicit CMultiRcvCabinetSetDlg(const QString& typeLibraryFolder, const QString& editedFile = {},
                                    QWidget* parent = nullptr);

protected:
    void createWidgets() override;
    void layoutWidgets() override;
    void connectSignals() override;
    void changeEvent(QEvent* event) override;

private:
    enum Step
    {
        ReceiverStep,
        TopologyStep,
        LabelStep,
    };

    int currentStep() const;
    void setCurrentStep(int step, int oldStep);
    bool canLeaveForward(int step);
    void setTexts();
    void finish();
    CabinetEdit edit() const;

    CabinetTypeDraft m_draft;
    const QString m_libraryFolder; // the library's root, where parameter files from outside go

    CWizardSteps* m_pSteps = nullptr;
    QWidget* m_pPageArea = nullptr;
    QStackedLayout* m_pPages = nullptr;
    CMultiRcvCabinetSetFirstPage* m_pFirstPage = nullptr;
    CMultiRcvCabinetSetSecondPage* m_pSecondPage = nullptr;
    CMultiRcvCabinetSetThirdPage* m_pThirdPage = nullptr;
};
