#pragma once

#include <QVector>
#include <QWidget>

class CProgress;
class QEasingCurve;
class QLabel;
class QProgressBar;

// Shows what is going on as a text beside a bar, and nothing while there is nothing. Of several runs the one that
// started last is shown; when it has finished, the one before it. [GUI thread]
class CProgressDisplay : public QWidget
{
    Q_OBJECT

public:
    explicit CProgressDisplay(QWidget* parent = nullptr);

    // Starts a run, as CProgress does. Owned by the display, and deleted by it once it was ended and has finished.
    CProgress* start(const QString& text, int durationMs, const QEasingCurve& curve);

    // Ends a run that start() gave. Any other object, and one that is gone already, is left alone.
    void end(const QObject* progress);

private:
    void remove(CProgress* progress);
    void showLast();
    void showValue();

    QLabel* const m_pText;
    QProgressBar* const m_pBar;
    QVector<CProgress*> m_runs; // in the order of their start
};
