#pragma once

#include "tests/support/FileFixture.h"
#include "tests/support/ModalScript.h"
#include "tests/support/StoreFixture.h"
#include "typelibrary/CProductTreeModel.h"
#include "typelibrary/CProductTreeView.h"
#include "typelibrary/store/CTypeLibrary.h"

#include <QMenu>
#include <QSet>

// Base of the tests of the tree of types and its operations: a library that each test function fills itself, a folder
// outside of it, and a host for whom a file that begins with "multi" is a type of several receivers.
class ViewFixture : public StoreFixture
{
    Q_OBJECT

protected:
    // Scans and shows what has been written into the library so far.
    void load();

    // Writes a file outside of the library; its path.
    QString put(const QString& relativePath, const QByteArray& content) const;

    // The index of an entry, whose groups are expanded for it. Fails the test when the tree does not show it in time.
    QModelIndex indexOf(const QString& relativePath);
    void makeCurrent(const QString& relativePath) { view->setCurrentIndex(indexOf(relativePath)); }
    QString currentName() const { return view->currentIndex().data().toString(); }

    // Everything in the folder, hidden files as well, as "path=content" or "path/", in order.
    static QStringList contentOf(const QString& folder);
    QStringList libraryContent() const { return contentOf(library->path()); }
    QStringList outsideContent() const { return contentOf(outside->path()); }

    // The rows that can be seen, one after the other, each level indented.
    QStringList rows() const;

    // Right-clicks an entry; its menu.
    QMenu* openMenu(const QString& relativePath);
    // Does so and clicks the menu's entry of that text, and waits until the operation is done.
    void choose(const QString& relativePath, const QString& text);

    // Waits for the rescan; whether the library's tree, the attribute cache, what the tree shows and the disk agree.
    // What does not is told.
    bool agree();

    // Makes the layout use the types with this content.
    void place(const QByteArray& content) { m_placed.append(content); }

    std::unique_ptr<QTemporaryDir> outside;
    std::unique_ptr<CProductTreeView> view;

protected Q_SLOTS:
    void init();
    void cleanup();

private:
    QString disagreement() const;
    QString staleRows(const QModelIndex& folder) const;
    void remember();

    QList<QByteArray> m_placed;
    QSet<QString> m_paths; // of all files that have been in the library
};
