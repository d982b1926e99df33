#pragma once

#include "multircv/CMultiRcvCabinetSetFirstPage.h"
#include "tests/multircv/WizardLibrary.h"
#include "tests/support/TestObject.h"

#include <widgetry/CComboBox.h>
#include <widgetry/CMenuPushButton.h>

#include <QMenu>

#include <memory>

// Base of the tests of the wizard's first page: each test function starts with an empty library.
class FirstPageFixture : public TestObject
{
    Q_OBJECT

protected:
    // The page and its controls.
    struct Page
    {
        explicit Page(const QString& folder, const SHwRcvInCabinetInfo& record = {});

        QStringList entries() const; // of the button's menu
        void browse() const;         // until the dialogs are done

        CMultiRcvCabinetSetFirstPage page;
        CMenuPushButton* button;
        CComboBox* count;
    };

    QString root() const { return m_pLibrary->root(); }

    static constexpr char unchosen[] = "Please select cabinet type file"; // on the button

    std::unique_ptr<WizardLibrary> m_pLibrary;

protected Q_SLOTS:
    void init();
    void cleanup();
};
