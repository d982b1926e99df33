#pragma once

#include "plugin/interface/SHwRcvInCabinetInfo.h"

#include <QSize>
#include <QWidget>

class CComboBox;
class CCustomGroupBox;
class CMenuPushButton;
class CParameterFileMenu;
class QAction;
class QLabel;

// The wizard's first step: the parameter file of the receiving cards, and how many of them there are. Choosing a file
// from outside copies it into the library at once. [GUI thread]
class CMultiRcvCabinetSetFirstPage : public QWidget
{
    Q_OBJECT

public:
    // `libraryFolder` is where files from outside go. A record of an edited type is what the page starts from: its
    // configuration, and its parameter file where the library still has it.
    CMultiRcvCabinetSetFirstPage(const QString& libraryFolder, const SHwRcvInCabinetInfo& record,
                                 QWidget* parent = nullptr);

    // Path of the chosen file in the library, empty until one is chosen. It may be gone meanwhile.
    QString parameterFile() const { return m_parameterFile; }

    // Receivers: columns x rows.
    QSize gridSize() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void createWidgets();
    void layoutWidgets();
    void setTexts();
    void selectGridSize(const QSize& size);
    void onTriggered(QAction* action);
    void browse();
    void showParameterFile();

    const QString m_libraryFolder;
    QString m_parameterFile;

    CMenuPushButton* m_pFile = nullptr;
    CParameterFileMenu* m_pMenu = nullptr;
    CCustomGroupBox* m_pGroup = nullptr;
    QLabel* m_pCountLabel = nullptr;
    CComboBox* m_pCount = nullptr;
};
