#include "validator/random/PromptAnimations.h"

namespace {

constexpr qint64 longerThanAny = 10'000; // milliseconds

} // namespace

PromptAnimations::PromptAnimations()
{
    install();
}

bool PromptAnimations::finish()
{
    if (!isRunning())
        return false;
    advance();
    return true;
}

void PromptAnimations::advance()
{
    m_time += longerThanAny;
    advanceAnimation();
}
