// Events of inputs that the window learns or watches.

#include "backend/core/Orv.h"
#include "backend/messages/GuiMessages.h"

namespace Backend
{
void Orv::learn(const LearnKinds& kinds, std::uint32_t number)
{
    assertBackendThread();
    learning.start(kinds, number);
    updateRefusal();
}

void Orv::reportLearned(const Learned& learned)
{
    notifyGui(GuiMessage::LEARNED, learned);
    updateRefusal();
}

/// The engine plays no event of an input at once that may have to be swallowed here.
void Orv::updateRefusal() { midiEngine.refuseMidiInputEvents(learning.needsMidiEvents()); }

bool Orv::swallows(const MidiEngine::OrvMidiMessage& event)
{
    const bool isSwallowed = learning.takeMidiEvent(MidiInput::MidiEventConfigurationMap::asReceived(event));
    updateRefusal();
    return isSwallowed;
}

void Orv::watchMidiInputs(bool on)
{
    assertBackendThread();
    watchesInputs = on;
    display.getMessageManager().postKeepReceivedEvents(on);
    updateInputLog();
}

void Orv::watchNotes(bool on)
{
    assertBackendThread();
    midiEngine.watchNotes(on);
}

void Orv::updateInputLog()
{
    const bool isLogged = watchesInputs || registrySettings.getDisplayMidiInputEvents();
    midiEngine.setInputLog(isLogged ? &engineLog : nullptr);
}
}  // namespace Backend
