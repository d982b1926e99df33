#pragma once

#include <QMap>
#include <QWidget>

class QLabel;
class QSvgWidget;

// The head of the wizard: its three steps side by side, joined by lines, the current one highlighted. Where the width
// is too small for the texts they take several lines. [GUI thread]
class CWizardSteps : public QWidget
{
    Q_OBJECT

public:
    explicit CWizardSteps(QWidget* parent = nullptr);

    // 0 .. 2. Step 0 is current at first.
    void setCurrentStep(int step);

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void addStep(int step);
    void setTexts();
    void wrapTexts(bool wrap);

    QMap<int, QSvgWidget*> m_icons; // these three by step
    QMap<int, QLabel*> m_captions;
    QMap<int, QLabel*> m_texts;
    int m_unwrappedWidth = 0; // pixels that the texts take on one line each
};
