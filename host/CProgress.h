#pragma once

#include <QObject>

class QEasingCurve;
class QVariantAnimation;

// One run of a progress display. How far it is follows the clock, as the work behind it is not measured: it runs along
// a curve, waits there, and is brought to its end quickly once the work is done. [GUI thread]
class CProgress : public QObject
{
    Q_OBJECT

public:
    // Starts at once and runs for `durationMs` milliseconds, not at all when that is negative.
    CProgress(QString text, int durationMs, const QEasingCurve& curve, QObject* parent);

    QString text() const { return m_text; }

    // 0 .. 1, also where the curve leaves that range.
    double value() const;

    // The work is done: what is left of the run passes in little time. Calls after the first do nothing.
    void end();

Q_SIGNALS:
    void notifyChanged(); // the value

    // The run was ended, and its end was to be seen for a moment.
    void notifyFinished();

private:
    const QString m_text;
    QVariantAnimation* const m_pRun;
    QVariantAnimation* const m_pFinish;
    bool m_bEnded = false;
};
