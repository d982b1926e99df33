#include "tests/platform/CopyFixture.h"

#include <QDirIterator>

QStringList CopyFixture::entriesBelow(const QString& folder)
{
    QStringList entries;
    for (QDirIterator it(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
         it.hasNext();)
        entries.append(QDir(folder).relativeFilePath(it.next()));
    entries.sort();
    return entries;
}

QStringList CopyFixture::list(const char* words)
{
    return QString::fromLatin1(words).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

void CopyFixture::init()
{
    TestObject::init();
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_folder->path()).mkdir(QStringLiteral("source")));
}
