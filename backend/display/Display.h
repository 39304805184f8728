#pragma once

#include <memory>
#include <string>

#include "backend/display/DisplayMessageManager.h"
#include "backend/display/DisplayText.h"
#include "backend/model/MidiPort.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"

namespace Backend::Display
{
class DisplayListener;

/// The running log of MIDI events. It is written on a thread of its own, so that neither playing nor the window pays
/// for it, and a listener asks for what is new. All operations are the display thread's, called by its message
/// manager, but for `start`, `end` and `getMessageManager`.
class ORV_API Display
{
public:
    Display() : messageManager(*this) {}
    ~Display() { end(); }
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    /// The log begins with the product's name and version.
    void start();
    /// From then on the listener is called no more.
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
    void setDisplayNumbers(bool on) { displayNumbers = on; }
    void setDisplayMidiInputEvents(bool on) { displayMidiInputEvents = on; }
    void setDisplayMidiOutputEvents(bool on) { displayMidiOutputEvents = on; }
    void setMidiInputPorts(const MidiEngine::MidiInputPorts& ports) { midiInputPorts = ports; }
    void setMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports) { midiOutputPorts = ports; }

private:
    std::string takeNumber();

    DisplayListener* listener = nullptr;  // not owned
    DisplayText text;
    int lineNumber = 1;
    bool displayNumbers = false;
    bool displayMidiInputEvents = false;
    bool displayMidiOutputEvents = true;
    MidiEngine::MidiInputPorts midiInputPorts;  // for their names alone
    MidiEngine::MidiOutputPorts midiOutputPorts;

    // Last, so that its thread ends before what it works on goes
    DisplayMessageManager messageManager;
};
}  // namespace Backend::Display
