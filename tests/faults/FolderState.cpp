#include "tests/faults/FolderState.h"

#include "tests/support/FileFixture.h"

#include <QDirIterator>
#include <QRegularExpression>

namespace {

QString summaryOf(const FolderState& state, const QString& path)
{
    const auto found = state.find(path);
    return found == state.end() ? QStringLiteral("nothing") : QStringLiteral("%1 bytes").arg(found->size());
}

} // namespace

FolderState stateOf(const QString& folder)
{
    FolderState state;
    QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot,
                         QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const QString relative = path.mid(folder.size() + 1);
        if (entries.fileInfo().isDir())
            state.insert(relative + QLatin1Char('/'), {});
        else
            state.insert(relative, readFile(path));
    }
    return state;
}

bool isTemporary(const QString& relativePath)
{
    // Hidden, or in a hidden folder; or made of the name of a file that is replaced, or of a folder that is made.
    static const QRegularExpression pattern(QStringLiteral(
        "(^|/)\\.(copy|new)-[^/]+(/|$)|(\\.json|\\.bak|\\.newer|\\.damaged|\\.prj|\\.rcvb?p)\\.[A-Za-z]{6}$|"
        "^library\\.new-[A-Za-z]{6}/"));
    return pattern.match(relativePath).hasMatch();
}

QString difference(const FolderState& found, const FolderState& expected)
{
    QStringList differences;
    FolderState all = found;
    for (auto it = expected.begin(); it != expected.end(); ++it)
        all.insert(it.key(), {});
    for (auto it = all.begin(); it != all.end(); ++it) {
        const QString& path = it.key();
        if (found.contains(path) != expected.contains(path) || found.value(path) != expected.value(path))
            differences
                << QStringLiteral("%1: %2 instead of %3").arg(path, summaryOf(found, path), summaryOf(expected, path));
    }
    return differences.join(QStringLiteral("; "));
}

void AllowedStates::add(const FolderState& state)
{
    const QList<QString> paths = state.keys();
    const QSet<QString> present(paths.begin(), paths.end());
    m_always = m_bEmpty ? present : m_always & present;
    m_bEmpty = false;
    for (auto it = state.begin(); it != state.end(); ++it)
        addContent(it.key(), it.value());
}

QString AllowedStates::problemOf(const FolderState& found, bool temporariesAllowed) const
{
    QStringList problems;
    for (auto it = found.begin(); it != found.end(); ++it) {
        const auto allowed = m_contents.find(it.key());
        if (allowed == m_contents.end()) {
            if (!temporariesAllowed || !isTemporary(it.key()))
                problems << QStringLiteral("%1 should not be there").arg(it.key());
        } else if (!allowed->contains(it.value())) {
            problems << QStringLiteral("%1 is neither old nor new but has %2 bytes").arg(it.key()).arg(it->size());
        }
    }
    for (const QString& path : m_always) {
        if (!found.contains(path))
            problems << QStringLiteral("%1 is gone").arg(path);
    }
    return problems.join(QStringLiteral("; "));
}
