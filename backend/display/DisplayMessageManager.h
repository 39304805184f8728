#pragma once

#include <memory>
#include <string>

#include "backend/model/MidiPort.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"
#include "platform/WindowHandle.h"
#include "platform/Worker.h"

namespace Backend::Display
{
class Display;
class DisplayListener;

/// The commands of the display, and its thread. Any thread but a time slice, unless an operation says otherwise; all
/// return at once.
class ORV_API DisplayMessageManager
{
public:
    explicit DisplayMessageManager(Display& display);

    void start() { worker.start(); }
    /// Stops the thread after the messages posted before, and waits for its end.
    void stop() { worker.stop(); }

    void postAddText(const std::string& text);
    /// Passes the whole text to the listener.
    void postResendText();
    /// Passes new text to the listener, if there is any.
    void postUpdateListener();
    void postMidiInputEvent(const MidiEngine::OrvMidiMessage& event);
    void postMidiOutputEvent(const MidiEngine::OrvMidiMessage& event);
    /// The same inside a time slice, without an allocation; `wake` must be called after the lock was released.
    void postMidiInputEventFromSlice(const MidiEngine::OrvMidiMessage& event);
    void postMidiOutputEventFromSlice(const MidiEngine::OrvMidiMessage& event);
    void wake() { worker.queue().wake(); }
    /// Null for none. It must exist until it is replaced or the display has ended.
    void setListener(DisplayListener* listener);
    /// For a listener that cannot wait for that, such as a closing window: it is deleted after its last call. A
    /// listener that has replaced it stays.
    void dropListener(std::unique_ptr<DisplayListener> listener);
    /// See `OrvIF::watchMidiInputs`.
    void postKeepReceivedEvents(bool on);
    /// Sends GuiMessage::RECEIVED_EVENTS, if there are new ones.
    void postSendReceivedEvents(const WindowHandle& window);
    void postSetDisplayNumbers(bool on);
    void postSetDisplayTimes(bool on);
    void postSetDisplayMidiInputEvents(bool on);
    void postSetDisplayMidiOutputEvents(bool on);
    void postSetMidiInputPorts(const MidiEngine::MidiInputPorts& ports);
    void postSetMidiOutputPorts(const MidiEngine::MidiOutputPorts& ports);

    const Worker& getWorker() const { return worker; }

private:
    void handleMessage(Message& message);

    Display& display;
    Worker worker;
};
}  // namespace Backend::Display
