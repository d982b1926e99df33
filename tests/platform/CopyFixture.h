#pragma once

#include "tests/support/TestObject.h"

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

// Base of the tests of copies of a folder: a folder to copy, which is empty, and the place of the copy.
class CopyFixture : public TestObject
{
    Q_OBJECT

protected:
    QString source(const char* name = "") const
    {
        return m_folder->filePath(QLatin1String("source/") + QLatin1String(name));
    }
    QString target(const char* name = "") const
    {
        return m_folder->filePath(QLatin1String("target/") + QLatin1String(name));
    }

    static QStringList typeFiles() { return {QStringLiteral("*.rcvp"), QStringLiteral("*.rcvbp")}; }

    // All entries below `folder` by their relative paths, sorted; links are not followed.
    static QStringList entriesBelow(const QString& folder);

    // The words of a text.
    static QStringList list(const char* words);

    std::unique_ptr<QTemporaryDir> m_folder; // both lie in it

protected Q_SLOTS:
    void init();
};
