#include "gui/framework/Learner.h"

#include <utility>

#include "api/OrvMessageManager.h"

namespace Gui
{
using Backend::Learned;
using Backend::LearnKinds;

std::uint32_t Learner::start(const LearnKinds& kinds, QWidget& control, Done done)
{
    if (const Done replaced = takeDone()) replaced(nullptr);
    whenDone = std::move(done);
    learning = &control;
    commands.postLearn(kinds, ++number);
    if (onLearnsKeys) onLearnsKeys(kinds.key);
    return number;
}

void Learner::end(std::uint32_t request)
{
    if (request != number || !whenDone) return;
    takeDone();
    commands.postLearn({}, 0);
}

/// What an earlier request learned, when it was ended, is ignored.
void Learner::handleLearned(const Learned& learned)
{
    if (learned.number != number) return;
    if (const Done done = takeDone()) done(&learned);
}

Learner::Done Learner::takeDone()
{
    if (onLearnsKeys) onLearnsKeys(false);
    return std::exchange(whenDone, {});
}
}  // namespace Gui
