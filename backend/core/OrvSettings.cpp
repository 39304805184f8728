#include "backend/core/Orv.h"
#include "backend/messages/GuiMessages.h"

// The commands that change a setting and, where the window shows it, notify the window.

namespace Backend
{
void Orv::setLastWindowPosition(const WindowsLib::Rect& position) { registrySettings.setLastWindowPosition(position); }

void Orv::setDockToBottomEdge(bool on)
{
    registrySettings.setDockToBottomEdge(on);
    notifyGui(GuiMessage::DOCK_TO_BOTTOM_EDGE, on);
}

void Orv::setMouseSensitivity(int divisor)
{
    registrySettings.setMouseSensitivity(divisor);
    notifyGui(GuiMessage::MOUSE_SENSITIVITY, divisor);
}

void Orv::setAlwaysOnTop(bool on)
{
    registrySettings.setAlwaysOnTop(on);
    notifyGui(GuiMessage::ALWAYS_ON_TOP, on);
}

void Orv::setUseSkinBorder(bool on)
{
    registrySettings.setUseSkinBorder(on);
    notifyGui(GuiMessage::USE_SKIN_BORDER, on);
}

void Orv::setDisplayHeight(int pixels) { registrySettings.setDisplayHeight(pixels); }

void Orv::setDisplayNumbers(bool on)
{
    registrySettings.setDisplayNumbers(on);
    display.getMessageManager().postSetDisplayNumbers(on);
}

void Orv::setDisplayMidiInputEvents(bool on)
{
    registrySettings.setDisplayMidiInputEvents(on);
    display.getMessageManager().postSetDisplayMidiInputEvents(on);
}

void Orv::setDisplayMidiOutputEvents(bool on)
{
    registrySettings.setDisplayMidiOutputEvents(on);
    display.getMessageManager().postSetDisplayMidiOutputEvents(on);
}

void Orv::setRetroRecordBufferSize(int bytes)
{
    if (!RetroRecord::RetroRecordManager::isBufferSize(bytes)) return;
    registrySettings.setRetroRecordBufferSize(bytes);
    notifyGui(GuiMessage::RETRO_RECORD_BUFFER_SIZE, bytes);
    retroRecord.setBufferSize(bytes);
}

/// While the record is off the engine gives nothing to it.
void Orv::enableRetroRecord(bool on)
{
    registrySettings.setRetroRecordEnabled(on);
    notifyGui(GuiMessage::RETRO_RECORD_ENABLED, on);
    retroRecord.enable(on);
    midiEngine.setEventRecorder(on ? &engineRecorder : nullptr);
}

void Orv::setLargeDisplayFont(bool on)
{
    registrySettings.setLargeDisplayFont(on);
    notifyGui(GuiMessage::LARGE_DISPLAY_FONT, on);
}

void Orv::changeGlobalKeyboard(const OnOffToggle& value, bool notify)
{
    const bool on = value.appliedTo(registrySettings.getGlobalKeyboard());
    registrySettings.setGlobalKeyboard(on);
    if (notify) notifyGui(GuiMessage::GLOBAL_KEYBOARD, on);
}

void Orv::setLiteVelocity(int velocity) { registrySettings.setLiteVelocity(velocity); }

void Orv::setLiteChannel(int channel) { registrySettings.setLiteChannel(channel); }

void Orv::setLiteStackNotes(bool on) { registrySettings.setLiteStackNotes(on); }

void Orv::setClickZoneChannelTranspose(bool on)
{
    registrySettings.setClickZoneChannelTranspose(on);
    notifyGui(GuiMessage::CLICK_ZONE_CHANNEL_TRANSPOSE, on);
}
}  // namespace Backend
