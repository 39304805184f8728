#pragma once

#include <QTimer>
#include <functional>
#include <vector>

#include "backend/values/OrvMidiMessage.h"

namespace Backend
{
class OrvIF;
}

namespace Gui
{
/// The events that MIDI inputs receive, while a screen shows them: the last one of each kind, at most 200 kinds, at
/// most 30 times a second. The GUI thread.
class InputWatch
{
public:
    using Events = std::vector<Backend::MidiEngine::OrvMidiMessage>;
    /// Gets all of them, each kind always in the same place, whenever one has come. A new kind is the last one, or has
    /// the place of the one that came longest ago.
    using Receiver = std::function<void(const Events& events)>;

    /// `orv` must outlive it.
    explicit InputWatch(Backend::OrvIF& orv);

    /// Begins with none, in place of another receiver.
    void start(Receiver newReceiver);
    void stop();

    /// To be called for each `GuiMessage::RECEIVED_EVENTS`.
    void handleReceivedEvents(const Events& events) const;

private:
    Backend::OrvIF& backend;
    Receiver receiver;
    QTimer pull;
};
}  // namespace Gui
