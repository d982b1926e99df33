#pragma once

#include "plugin/interface/SHwRcvInCabinetInfo.h"

#include <QSize>
#include <QWidget>

class CabinetWiringWidget;
class QButtonGroup;
class QCheckBox;
class QLabel;

// The wizard's second step: how the data signal passes through the receivers. [GUI thread]
class CMultiRcvCabinetSetSecondPage : public QWidget
{
    Q_OBJECT

public:
    // A record of an edited type is what the page starts from whenever the grid gets the record's size.
    explicit CMultiRcvCabinetSetSecondPage(const SHwRcvInCabinetInfo& record, QWidget* parent = nullptr);

    // Receivers: columns x rows. A new size starts a new wiring, the size that is set already keeps it.
    void setGridSize(const QSize& size);

    bool specifyOrientation() const;

    // Cell ids in signal order; complete when there are columns x rows of them.
    QList<int> wiring() const;

protected:
    void changeEvent(QEvent* event) override;

private:
    void createTopologyButtons();
    void layoutWidgets();
    void setTexts();
    void updateButtons();
    void onOrientationToggled(bool specify);
    bool isRecordOfGrid() const;
    void applyRecord();
    void wireSingleLine();

    const SHwRcvInCabinetInfo m_record;
    QSize m_gridSize; // invalid until it is set

    QCheckBox* m_pOrientation;
    QButtonGroup* m_pTopologies; // ids are WiringGrid::Topology
    CabinetWiringWidget* m_pGrid = nullptr;
    QLabel* m_pHint;
};
