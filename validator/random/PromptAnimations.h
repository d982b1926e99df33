#pragma once

#include <QAnimationDriver>

// Animations by a clock of their own, so that none hangs on how fast the machine is. [GUI thread]
class PromptAnimations : public QAnimationDriver
{
    Q_OBJECT

public:
    PromptAnimations();

    // Brings to its end what is running; false when nothing was.
    bool finish();

    qint64 elapsed() const override { return m_time; }
    void advance() override;

private:
    qint64 m_time = 0; // milliseconds
};
