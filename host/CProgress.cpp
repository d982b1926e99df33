#include "host/CProgress.h"

#include <QVariantAnimation>

#include <algorithm>
#include <utility>

namespace {

// Long enough to be seen as a movement, short enough not to claim that there is still work.
constexpr int finishMs = 500;
constexpr int holdMs = 400;

} // namespace

CProgress::CProgress(QString text, int durationMs, const QEasingCurve& curve, QObject* parent)
    : QObject(parent),
      m_text(std::move(text)),
      m_pRun(new QVariantAnimation(this)),
      m_pFinish(new QVariantAnimation(this))
{
    m_pRun->setObjectName(QStringLiteral("Run"));
    m_pRun->setStartValue(0.0);
    m_pRun->setEndValue(1.0);
    m_pRun->setDuration(std::max(0, durationMs));
    m_pRun->setEasingCurve(curve);
    m_pFinish->setObjectName(QStringLiteral("Finish"));
    connect(m_pRun, &QVariantAnimation::valueChanged, this, &CProgress::notifyChanged);
    connect(m_pFinish, &QVariantAnimation::valueChanged, this, &CProgress::notifyChanged);
    connect(m_pFinish, &QVariantAnimation::finished, this, &CProgress::notifyFinished);
    m_pRun->start();
}

double CProgress::value() const
{
    const QVariantAnimation* const animation = m_bEnded ? m_pFinish : m_pRun;
    return std::clamp(animation->currentValue().toDouble(), 0.0, 1.0);
}

void CProgress::end()
{
    if (m_bEnded)
        return;
    const double reached = value();
    const int left = std::clamp(m_pRun->duration() - m_pRun->currentTime(), 1, finishMs);
    m_pRun->stop();
    const int duration = left + holdMs;
    m_pFinish->setDuration(duration);
    m_pFinish->setKeyValues({{0.0, reached}, {static_cast<double>(left) / duration, 1.0}, {1.0, 1.0}});
    m_bEnded = true;
    m_pFinish->start();
}
