#include "tests/faults/Stage.h"

#include "typelibrary/store/TypeFileAttributes.h"

#include <QDir>

#include <algorithm>

Stage::Stage(const Write& write, const QString& folder)
    : place{folder + QStringLiteral("/work"), folder + QStringLiteral("/source"), folder + QStringLiteral("/trash")},
      m_write(write),
      m_gone(folder + QStringLiteral("/gone"))
{
    reset();
    m_before = stateOf(place.work);
    m_allowed.add(m_before);
    for (int turn = 0; turn < 4; ++turn) {
        if (!write.take(place, turn))
            qFatal("%s fails without a fault", write.name.constData());
        const FolderState state = stateOf(place.work);
        if (turn == 0)
            m_after = state;
        m_allowed.add(state);
    }
    const auto stages = write.stages(place);
    for (auto it = stages.begin(); it != stages.end(); ++it)
        m_allowed.addContent(it.key(), it.value());
    performAnew();
}

void Stage::reset() const
{
    for (const QString& path : {place.work, place.source, place.trash, m_gone}) {
        QDir(path).removeRecursively();
        removeFolderFromCache(path);
    }
    QDir().mkpath(place.work);
    QDir().mkpath(place.source);
    QDir().mkpath(place.trash);
    m_write.prepare(place);
}

int Stage::largest() const
{
    int size = 0;
    for (const QByteArray& content : m_after)
        size = std::max(size, content.size());
    return size;
}

QString Stage::problemOfFailure() const
{
    const FolderState found = stateOf(place.work);
    const QString wrong = m_write.isAtomic ? difference(found, m_before) : m_allowed.problemOf(found, false);
    return wrong.isEmpty() ? m_write.inspect(place) : wrong;
}

QString Stage::problemOfSuccess(FolderState gone) const
{
    for (auto it = gone.begin(); it != gone.end();) {
        const bool isOld =
            !m_after.contains(it.key()) && m_before.value(it.key(), QByteArrayLiteral("-")) == it.value();
        it = isTemporary(it.key()) || (isOld && m_write.mayLeaveOld) ? gone.erase(it) : std::next(it);
    }
    return difference(gone, m_after);
}

void Stage::performAnew()
{
    reset();
    QDir(place.work).removeRecursively();
    QDir().mkpath(place.work);
    if (!m_write.perform(place, 0))
        return;
    m_anew = stateOf(place.work);
    // All of it but what keeps the old contents, which are not there.
    const QList<QByteArray> old = m_before.values();
    for (auto it = m_after.begin(); it != m_after.end(); ++it) {
        if (m_anew->value(it.key(), QByteArrayLiteral("-")) != it.value() && !old.contains(it.value()))
            qFatal("%s makes no %s in an empty folder", m_write.name.constData(), qPrintable(it.key()));
    }
}
