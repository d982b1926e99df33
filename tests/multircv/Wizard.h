#pragma once

#include "multircv/CMultiRcvCabinetSetDlg.h"
#include "multircv/CMultiRcvCabinetSetThirdPage.h"

#include <widgetry/CComboBox.h>
#include <widgetry/CDoubleSpinBox.h>
#include <widgetry/CMenuPushButton.h>

#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedLayout>
#include <QToolButton>
#include <QtTest>

// The wizard as the user sees it.
class Wizard
{
public:
    explicit Wizard(const QString& folder, const QString& edited = {})
        : dialog(folder, edited),
          finished(&dialog, &QDialog::finished)
    {
        dialog.show();
    }

    int step() const { return dialog.findChild<QStackedLayout*>()->currentIndex(); }
    void press(CDialog::Button button) { QTest::mouseClick(dialog.button(button), Qt::LeftButton); }
    void next(int times = 1)
    {
        for (int i = 0; i < times; ++i)
            press(CDialog::Next);
    }
    // Picks the type with the name from the menu's top level.
    void pick(const QString& name)
    {
        const QList<QAction*> actions = dialog.findChild<CMenuPushButton*>()->menu()->actions();
        for (QAction* action : actions) {
            if (action->text() == name)
                action->trigger();
        }
    }
    void setGrid(const QString& text) { dialog.findChild<CComboBox*>()->setCurrentText(text); }
    QLineEdit* nameEdit() const { return dialog.findChild<QLineEdit*>(QStringLiteral("MultiRcvCabinet")); }
    void setName(const QString& name)
    {
        nameEdit()->selectAll();
        nameEdit()->insert(name);
    }
    CDoubleSpinBox* box(int index) const
    {
        return dialog.findChild<CMultiRcvCabinetSetThirdPage*>()->findChildren<CDoubleSpinBox*>().at(index);
    }
    void applyTopology(const QString& name) { QTest::mouseClick(dialog.findChild<QToolButton*>(name), Qt::LeftButton); }
    bool isAccepted() const { return finished.count() == 1 && dialog.result() == QDialog::Accepted; }
    bool isRejected() const { return finished.count() == 1 && dialog.result() == QDialog::Rejected; }

    CMultiRcvCabinetSetDlg dialog;
    QSignalSpy finished;
};
