#pragma once

#include <QTimer>
#include <functional>

#include "backend/model/NoteActivity.h"

namespace Backend
{
class OrvIF;
}

namespace Gui
{
/// The notes at zones and layers, while a screen shows them. The GUI thread.
class NoteLights
{
public:
    using Receiver = std::function<void(const Backend::MidiEngine::NoteActivity& activity)>;

    /// `receiver` gets every change, at most 30 times a second, and that all lights go out when it is switched off.
    /// `orv` must outlive it.
    NoteLights(Backend::OrvIF& orv, Receiver receiver);
    ~NoteLights();

    void setOn(bool on);

private:
    Backend::OrvIF& backend;
    const Receiver show;
    Backend::MidiEngine::NoteActivity activity;
    QTimer pull;
};
}  // namespace Gui
