#pragma once

#include <QPointer>
#include <QWidget>
#include <cstdint>
#include <functional>

#include "backend/model/Learned.h"

namespace Backend
{
class OrvMessageManager;
}

namespace Gui
{
/// The requests of the window's controls to learn an event, one at a time. The GUI thread.
class Learner
{
public:
    /// Null if another request has taken the place of this one.
    using Done = std::function<void(const Backend::Learned* learned)>;

    /// `backend` must outlive it.
    explicit Learner(Backend::OrvMessageManager& backend) : commands(backend) {}

    /// `done` is called once, unless `end` is. `control`, which learns, has the focus meanwhile, see
    /// `OrvGuiIF::setFocus`. Returns the number of the request.
    std::uint32_t start(const Backend::LearnKinds& kinds, QWidget& control, Done done);
    /// Ignored for a request that has ended.
    void end(std::uint32_t request);

    /// The control that learns; null if none does.
    QWidget* getLearning() const { return whenDone ? learning : nullptr; }

    /// To be called for each `GuiMessage::LEARNED`.
    void handleLearned(const Backend::Learned& learned);

    /// While a key of the computer is learned.
    std::function<void(bool on)> onLearnsKeys;

private:
    Done takeDone();

    Backend::OrvMessageManager& commands;
    Done whenDone;
    QPointer<QWidget> learning;
    std::uint32_t number = 0;
};
}  // namespace Gui
