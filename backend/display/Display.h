#pragma once

#include <memory>
#include <optional>
#include <string>

#include "backend/display/DisplayMessageManager.h"
#include "backend/display/DisplayText.h"
#include "backend/display/ReceivedEvents.h"
#include "backend/model/MidiPort.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"
#include "platform/WindowHandle.h"

namespace Backend::Display
{
class DisplayListener;

/// The log of MIDI events. Its text is made on a thread of its own, so that it delays neither playing nor the window; a
/// listener requests new text. All operations belong to the display thread, where the message manager calls them,
/// except `start`, `end` and `getMessageManager`.
class ORV_API Display
{
public:
    Display() : messageManager(*this) {}
    ~Display() { end(); }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// Starts the log with the name and version of the product.
    void start();
    /// The listener is not called after this.
    void end();

    DisplayMessageManager& getMessageManager() { return messageManager; }
    const DisplayMessageManager& getMessageManager() const { return messageManager; }

    void addText(const std::string& piece) { text.append(piece); }
    void resendText();
    void updateListener();
    void addMidiInputEvent(const MidiEngine::OrvMidiMessage& event);
    void addMidiOutputEvent(const MidiEngine::OrvMidiMessage& event);
    void setListener(DisplayListener* newListener) { listener = newListener; }
    void dropListener(std::unique_ptr<DisplayListener> dropped);
    void keepReceivedEvents(bool on);
    void sendReceivedEvents(const WindowHandle& window);
    void setDisplayNumbers(bool on) { displayNumbers = on; }
    void setDisplayTimes(bool on) { displayTimes = on; }
    void setDisplayMidiInputEvents(bool on) { displayMidiInputEvents = on; }
    void setDisplayMidiOutputEvents(bool on) { displayMidiOutputEvents = on; }
    void setMidiInputPorts(const MidiEngine::MidiInputPorts& ports) { midiInputPorts = ports; }
    void setMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports) { midiOutputPorts = ports; }

private:
    std::string takePrefix();

    DisplayListener* listener = nullptr;  // not owned
    DisplayText text;
    std::optional<ReceivedEvents> receivedEvents;
    int lineNumber = 1;
    bool displayNumbers = false;
    bool displayTimes = false;
    bool displayMidiInputEvents = false;
    bool displayMidiOutputEvents = true;
    MidiEngine::MidiInputPorts midiInputPorts;  // for their names
    MidiEngine::MidiOutputPorts midiOutputPorts;

    // Last, so that its thread ends before the members that it uses are destroyed
    DisplayMessageManager messageManager;
};
}  // namespace Backend::Display
