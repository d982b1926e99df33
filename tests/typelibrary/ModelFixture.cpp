#include "tests/typelibrary/ModelFixture.h"

namespace {

// The model without the rest of the disk, which a model tester would walk through. Nor are the folders that the library
// lies in loaded: the model would follow them from then on, and read again when other programs write to them.
class LibraryOnly : public QSortFilterProxyModel
{
public:
    explicit LibraryOnly(const QString& folder)
        : m_folder(folder + QLatin1Char('/'))
    {
    }
    bool canFetchMore(const QModelIndex& parent) const override
    {
        return isInLibrary(parent) && QSortFilterProxyModel::canFetchMore(parent);
    }
    void fetchMore(const QModelIndex& parent) override
    {
        if (isInLibrary(parent))
            QSortFilterProxyModel::fetchMore(parent);
    }

protected:
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override
    {
        const QString path = sourceModel()->index(row, 0, parent).data(CProductTreeModel::PathRole).toString();
        return path == QLatin1String("/") || m_folder.startsWith(path + QLatin1Char('/')) || path.startsWith(m_folder);
    }

private:
    bool isInLibrary(const QModelIndex& index) const
    {
        return (index.data(CProductTreeModel::PathRole).toString() + QLatin1Char('/')).startsWith(m_folder);
    }

    const QString m_folder;
};

} // namespace

void ModelFixture::init()
{
    StoreFixture::init();
    model = std::make_unique<CProductTreeModel>();
    m_pLibraryOnly = std::make_unique<LibraryOnly>(library->path());
    m_pLibraryOnly->setSourceModel(model.get());
    m_pTester = std::make_unique<QAbstractItemModelTester>(m_pLibraryOnly.get(),
                                                           QAbstractItemModelTester::FailureReportingMode::QtTest);
}

void ModelFixture::cleanup()
{
    m_pTester.reset();
    m_pLibraryOnly.reset();
    model.reset();
    StoreFixture::cleanup();
}

QModelIndex ModelFixture::indexOf(const QString& relativePath)
{
    root = model->setRootPath(library->path());
    QModelIndex parent = root;
    const QStringList names = relativePath.split(QLatin1Char('/'));
    for (const QString& name : names) {
        QModelIndex found;
        const auto look = [&] {
            if (model->canFetchMore(parent))
                model->fetchMore(parent);
            for (int row = 0; row < model->rowCount(parent) && !found.isValid(); ++row) {
                const QModelIndex index = model->index(row, 0, parent);
                if (index.data().toString() == name)
                    found = index;
            }
            return found.isValid();
        };
        if (!QTest::qWaitFor(look))
            return {};
        parent = found;
    }
    return parent;
}
