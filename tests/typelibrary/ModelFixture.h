#pragma once

#include "tests/support/StoreFixture.h"
#include "typelibrary/CProductTreeModel.h"

#include <QAbstractItemModelTester>
#include <QSortFilterProxyModel>

#include <memory>

// Base of the tests of the model alone: a library that each test function fills itself, and the model, with a tester on
// the library's part of it.
class ModelFixture : public StoreFixture
{
    Q_OBJECT

protected:
    // The index of an entry, once the model has loaded the folders that lead to it; invalid if it does not come in
    // time.
    QModelIndex indexOf(const QString& relativePath);

    std::unique_ptr<CProductTreeModel> model;
    QModelIndex root; // the library's, once an index has been asked for

protected Q_SLOTS:
    void init();
    void cleanup();

private:
    std::unique_ptr<QSortFilterProxyModel> m_pLibraryOnly;
    std::unique_ptr<QAbstractItemModelTester> m_pTester;
};
