#pragma once

#include "validator/random/IndexInvariant.h"
#include "validator/random/PromptAnimations.h"
#include "validator/random/RecordInvariant.h"
#include "validator/random/Scene.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QObject>

#include <cstdint>

struct Options;

// Random use of the settings area: one event after another, whatever dialogs they open, and the invariants after each
// hundred. The next event comes from the innermost event loop once all is at rest, so that a modal box does not hold
// the stream up. The first finding ends the process: its parent knows the last steps. [GUI thread]
class EventStream : public QObject
{
    Q_OBJECT

public:
    EventStream(Stage& stage, const Options& options);

    // Comes back when every event has been dealt with and all that was opened is closed.
    void run();

protected:
    void timerEvent(QTimerEvent* event) override;

private:
    // Whether nothing is at work; ends what goes on by itself only with time.
    bool isAtRest();
    bool agreesWithDisk();
    void checkInvariants();
    void act();
    void closeAll();
    [[noreturn]] void end(const QString& finding);

    Stage& m_stage;
    PromptAnimations m_animations;
    Scene m_scene;
    const RecordInvariant m_record;
    IndexInvariant m_index;
    const std::uint64_t m_seed;
    const int m_count;
    const int m_patience; // milliseconds until all must be at rest and agree
    int m_number = 0;     // events so far
    bool m_bCheckIsDue = true;
    int m_calmTurns = 0; // of the event loop, in which nothing was at work
    bool m_bClosing = false;
    QEventLoop m_loop;
    int m_loops = 0; // event loops as long as no dialog has its own
    int m_checks = 0;
    int m_indexChecks = 0;
    QElapsedTimer m_sinceStep;
};
