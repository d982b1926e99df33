#include "host/CProgressDisplay.h"

#include "host/CProgress.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>

#include <algorithm>
#include <cmath>

namespace {

constexpr int widestText = 300; // pixels
constexpr int barWidth = 160;
constexpr int steps = 1000; // finer than the pixels of a dense display

} // namespace

CProgressDisplay::CProgressDisplay(QWidget* parent)
    : QWidget(parent),
      m_pText(new QLabel(this)),
      m_pBar(new QProgressBar(this))
{
    m_pText->setObjectName(QStringLiteral("ProgressText"));
    m_pText->setTextFormat(Qt::PlainText);
    m_pBar->setObjectName(QStringLiteral("ProgressBar"));
    m_pBar->setFixedWidth(barWidth);
    m_pBar->setTextVisible(false);
    m_pBar->setRange(0, steps);
    auto* const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_pText);
    layout->addWidget(m_pBar, 0, Qt::AlignVCenter);
    layout->addStretch(); // keeps the bar beside its text
    showLast();
}

CProgress* CProgressDisplay::start(const QString& text, int durationMs, const QEasingCurve& curve)
{
    auto* const progress = new CProgress(text, durationMs, curve, this);
    connect(progress, &CProgress::notifyChanged, this, &CProgressDisplay::showValue);
    connect(progress, &CProgress::notifyFinished, this, [this, progress] { remove(progress); });
    m_runs.append(progress);
    showLast();
    return progress;
}

void CProgressDisplay::end(const QObject* progress)
{
    // Compared only, never looked into: it may be gone.
    const auto found = std::find(m_runs.cbegin(), m_runs.cend(), progress);
    if (found != m_runs.cend())
        (*found)->end();
}

void CProgressDisplay::remove(CProgress* progress)
{
    m_runs.removeOne(progress);
    progress->deleteLater(); // it is just telling that it has finished
    showLast();
}

void CProgressDisplay::showLast()
{
    setVisible(!m_runs.isEmpty());
    if (m_runs.isEmpty())
        return;
    const QString text = m_runs.last()->text().simplified();
    m_pText->setText(m_pText->fontMetrics().elidedText(text, Qt::ElideRight, widestText));
    m_pBar->setAccessibleName(text);
    showValue();
}

void CProgressDisplay::showValue()
{
    if (!m_runs.isEmpty())
        m_pBar->setValue(static_cast<int>(std::lround(m_runs.last()->value() * steps)));
}
