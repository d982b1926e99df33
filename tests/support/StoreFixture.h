#pragma once

#include "plugin/interface/SSettings.h"
#include "tests/support/FakeHandler.h"
#include "tests/support/TestObject.h"

#include <QTemporaryDir>

#include <memory>

// The handler that the store sees in tests that link the store without the frame.
void setStoreHandler(std::shared_ptr<ISettingInterfaceHandler> handler);

// Base of the store's tests: a library folder and a host, both new for every test function.
class StoreFixture : public TestObject
{
    Q_OBJECT

protected:
    // Writes a file below the library folder, with the folders that lead to it; its absolute path.
    QString write(const QString& relativePath, const QByteArray& content);
    QString makeFolder(const QString& relativePath);
    QString pathOf(const QString& relativePath) const;

    // What the handler was asked so far about the file, as operation names.
    QStringList questionsAbout(const QString& path) const;

    std::unique_ptr<QTemporaryDir> library;
    std::shared_ptr<FakeHandler> handler;

protected Q_SLOTS:
    void init();
    void cleanup();
};

// The tree as text, one line a node: indent, kind (g, m, s, -), name.
QStringList outline(const std::vector<SSettings::TypeLibrary::STreeNode>& nodes);
