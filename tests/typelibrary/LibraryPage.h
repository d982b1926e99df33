#pragma once

#include "tests/multircv/WizardLibrary.h"
#include "typelibrary/CProductTreeView.h"
#include "typelibrary/CTypeLibrarySetting.h"

#include <QToolButton>
#include <QtTest>

#include <memory>

// A library with the parameter file "Card" at its root and "Other" in the group "G", and the page that shows it in the
// active window.
class LibraryPage
{
public:
    LibraryPage()
    {
        library.add(QStringLiteral("Card.rcvp"), "card");
        library.add(QStringLiteral("G/Other.rcvp"), "other");
        library.rescan();
        page = std::make_unique<CTypeLibrarySetting>();
        page->resize(1000, 600);
        page->setData(library.root());
        page->show();
        page->activateWindow();
        if (!QTest::qWaitForWindowActive(page.get()))
            qFatal("The page is not active");
    }

    CProductTreeView* view() const { return page->findChild<CProductTreeView*>(); }

    QToolButton* button(const char* objectName) const
    {
        auto* const found = page->findChild<QToolButton*>(QLatin1String(objectName));
        if (!found)
            qFatal("There is no button %s", objectName);
        return found;
    }

    // The row with this name, without suffix; invalid as long as there is none.
    QModelIndex find(const QString& name, const QModelIndex& parent = {}) const
    {
        const QModelIndex root = parent.isValid() ? parent : view()->rootIndex();
        const QAbstractItemModel* const model = view()->model();
        for (int row = 0; row < model->rowCount(root); ++row) {
            const QModelIndex index = model->index(row, 0, root);
            if (index.data().toString().section(QLatin1Char('.'), 0, 0) == name)
                return index;
        }
        return {};
    }

    // The rows of the group "G" are only there once it is open.
    QModelIndex findInGroup(const QString& name) const
    {
        view()->expand(find(QStringLiteral("G")));
        return find(name, find(QStringLiteral("G")));
    }

    WizardLibrary library;
    std::unique_ptr<CTypeLibrarySetting> page;
};
