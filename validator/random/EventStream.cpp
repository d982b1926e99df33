#include "validator/random/EventStream.h"

#include "validator/Options.h"
#include "validator/Random.h"
#include "validator/Report.h"
#include "validator/Trace.h"
#include "validator/random/DialogEvents.h"
#include "validator/random/DiskEvents.h"
#include "validator/random/HostEvents.h"
#include "validator/random/InputEvents.h"
#include "validator/random/LibraryInvariant.h"
#include "validator/random/WindowInvariant.h"

#include <QApplication>
#include <QDialog>
#include <QThread>
#include <QTimerEvent>

#include <cstdlib>

namespace {

constexpr int eventsBetweenChecks = 100;
constexpr int calmTurnsBetween = 2;    // of the event loop
constexpr qint64 treePatience = 500;   // milliseconds that an event waits for the tree to follow the disk
constexpr qint64 buttonPatience = 400; // milliseconds that an event waits for a button to come up

struct Kind
{
    int weight; // of a hundred
    void (*act)(Scene& scene, Random& random);
    bool isInput; // has nothing to reach without a window
};

constexpr Kind kinds[] = {
    {38, InputEvents::click, true},       {22, InputEvents::pressKey, true},  {6, InputEvents::type, true},
    {4, InputEvents::turnWheel, true},    {3, InputEvents::drag, true},       {12, HostEvents::call, false},
    {2, HostEvents::pushRecord, false},   {1, HostEvents::setLibrary, false}, {2, HostEvents::switchLanguage, false},
    {2, HostEvents::changeWindow, false}, {8, DiskEvents::change, false},
};

const Kind& anyKind(Random& random)
{
    int place = random.below(100);
    for (const Kind& kind : kinds) {
        place -= kind.weight;
        if (place < 0)
            return kind;
    }
    return kinds[0];
}

} // namespace

EventStream::EventStream(Stage& stage, const Options& options)
    : m_stage(stage),
      m_scene(stage),
      m_record(*stage.settings().widget(), stage.report()),
      m_index(m_scene),
      m_seed(options.seed),
      m_count(options.events),
      m_patience(options.halfPatience())
{
}

void EventStream::run()
{
    m_loops = QThread::currentThread()->loopLevel() + 1;
    m_sinceStep.start();
    startTimer(0);
    m_loop.exec();
    m_stage.report().note(QStringLiteral("%1 events, seed %2, %3 times the invariants, %4 times the index, steps %5")
                              .arg(m_number)
                              .arg(m_seed)
                              .arg(m_checks)
                              .arg(m_indexChecks)
                              .arg(QString::fromLatin1(m_scene.said().toHex().left(8))));
}

void EventStream::timerEvent(QTimerEvent* event)
{
    // Another timer: one that is being delivered is not delivered again in the loops that its event opens.
    killTimer(event->timerId());
    startTimer(0);
    if (m_sinceStep.hasExpired(m_patience))
        end(QStringLiteral("it does not come to rest"));
    if (m_index.isAsking()) {
        m_index.answer();
        return;
    }
    m_calmTurns = isAtRest() ? m_calmTurns + 1 : 0;
    if (m_calmTurns < calmTurnsBetween)
        return;
    // The tree follows the disk in its own time, and what a click does hangs on what it shows.
    if (!m_sinceStep.hasExpired(treePatience) &&
        LibraryInvariant::isTreeBehind(*m_stage.settings().widget(), m_scene.library)) {
        m_calmTurns = 0; // the rows still have to be laid out when they have come
        return;
    }
    m_scene.isButtonKeyPressed = false;
    if (m_bCheckIsDue) {
        checkInvariants();
        return;
    }
    m_calmTurns = 0;
    m_sinceStep.restart();
    if (m_number < m_count)
        act();
    else
        closeAll();
}

bool EventStream::isAtRest()
{
    if (m_animations.finish())
        return false;
    m_stage.fitOverlay();
    // A key that stands for a button presses it for a tenth of a second, by a timer of its own.
    if (m_scene.isButtonKeyPressed && InputEvents::isButtonDown(m_scene) && !m_sinceStep.hasExpired(buttonPatience))
        return false;
    return m_scene.isQuiet();
}

void EventStream::act()
{
    Random random(m_seed, static_cast<std::uint64_t>(m_number));
    const Kind& kind = anyKind(random);
    ++m_number;
    m_bCheckIsDue = m_number % eventsBetweenChecks == 0;
    m_stage.report().trace().note(QStringLiteral("%1: ").arg(m_number));
    if (kind.isInput && DialogEvents::isWanted())
        DialogEvents::answer(m_scene, random);
    else if (kind.isInput && !InputEvents::reachable(m_scene))
        HostEvents::changeWindow(m_scene, random);
    else
        kind.act(m_scene, random);
}

void EventStream::checkInvariants()
{
    const QWidget& area = *m_stage.settings().widget();
    const SSettings& record = *m_stage.settings().getSettings();
    m_record.check(record);
    QString difference = LibraryInvariant::differenceOfNodes(record.typeLibraryTree, m_scene.library);
    if (difference.isEmpty())
        difference = LibraryInvariant::differenceOfRows(area, m_scene.library);
    if (!difference.isEmpty()) {
        if (m_sinceStep.hasExpired(m_patience / 2))
            end(difference);
        return; // the watcher may not have told yet
    }
    difference = WindowInvariant::difference(area, true);
    if (!difference.isEmpty() || m_stage.report().hasFailed())
        end(difference);
    m_bCheckIsDue = false;
    ++m_checks;
    if (QThread::currentThread()->loopLevel() != m_loops || !m_index.canBeAsked())
        return;
    m_calmTurns = 0;
    m_sinceStep.restart();
    difference = m_index.difference(record.typeLibraryTree);
    if (!difference.isEmpty())
        end(difference);
    ++m_indexChecks;
    m_sinceStep.restart();
}

void EventStream::closeAll()
{
    if (!m_bClosing) {
        m_bClosing = true;
        m_stage.report().trace().note(QStringLiteral("all that is open is closed"));
    }
    if (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->close();
    } else if (QWidget* const modal = QApplication::activeModalWidget()) {
        if (auto* const dialog = qobject_cast<QDialog*>(modal))
            dialog->reject();
        else
            modal->close();
    } else if (QThread::currentThread()->loopLevel() == m_loops) {
        const QString difference = WindowInvariant::difference(*m_stage.settings().widget(), false);
        if (!difference.isEmpty())
            end(difference);
        m_loop.quit();
    }
}

void EventStream::end(const QString& finding)
{
    m_stage.report().fail(QStringLiteral("after event %1 with seed %2: %3").arg(m_number).arg(m_seed).arg(finding));
    std::_Exit(1);
}
