#include "backend/core/Orv.h"
#include "backend/messages/GuiMessages.h"

// Settings with an effect in the backend.

namespace Backend
{
void Orv::setDisplayNumbers(bool on)
{
    assertBackendThread();
    changeSetting<Settings::DISPLAY_NUMBERS>(*this, on);
    display.getMessageManager().postSetDisplayNumbers(on);
}

void Orv::setDisplayTimes(bool on)
{
    assertBackendThread();
    changeSetting<Settings::DISPLAY_TIMES>(*this, on);
    display.getMessageManager().postSetDisplayTimes(on);
}

void Orv::setDisplayMidiInputEvents(bool on)
{
    assertBackendThread();
    changeSetting<Settings::DISPLAY_MIDI_INPUT_EVENTS>(*this, on);
    display.getMessageManager().postSetDisplayMidiInputEvents(on);
    updateInputLog();
}

void Orv::setDisplayMidiOutputEvents(bool on)
{
    assertBackendThread();
    changeSetting<Settings::DISPLAY_MIDI_OUTPUT_EVENTS>(*this, on);
    display.getMessageManager().postSetDisplayMidiOutputEvents(on);
}

void Orv::setRetroRecordBufferSize(int bytes)
{
    assertBackendThread();
    if (!Settings::RETRO_RECORD_BUFFER_SIZE.allows(bytes)) return;
    changeSetting<Settings::RETRO_RECORD_BUFFER_SIZE>(*this, bytes);
    retroRecord.setBufferSize(bytes);
}

/// While the record is off, the engine passes no events to it.
void Orv::enableRetroRecord(bool on)
{
    assertBackendThread();
    changeSetting<Settings::RETRO_RECORD_ENABLED>(*this, on);
    retroRecord.enable(on);
    midiEngine.setEventRecorder(on ? &engineRecorder : nullptr);
}

void Orv::setKeepNotes(bool on)
{
    assertBackendThread();
    changeSetting<Settings::KEEP_NOTES>(*this, on);
    midiEngine.getMessageManager().postSetKeepNotes(on);
}

void Orv::changeGlobalKeyboard(const OnOffToggle& value, bool notify)
{
    assertBackendThread();
    const bool on = value.appliedTo(registrySettings.getGlobalKeyboard());
    registrySettings.setGlobalKeyboard(on);
    if (notify) notifyGui(SETTING<Settings::GLOBAL_KEYBOARD>, on);
}
}  // namespace Backend
