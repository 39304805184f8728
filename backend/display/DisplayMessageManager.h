#pragma once

#include <memory>
#include <string>

#include "backend/model/MidiPort.h"
#include "backend/values/OrvMidiMessage.h"
#include "platform/Export.h"
#include "platform/Worker.h"

namespace Backend::Display
{
class Display;
class DisplayListener;

/// The display's command set and its thread. Any thread but a time slice, where nothing else is said; all return at
/// once.
class ORV_API DisplayMessageManager
{
public:
    explicit DisplayMessageManager(Display& display);

    void start() { worker.start(); }
    /// Ends the thread after the messages posted before, and waits for that.
    void stop() { worker.stop(); }

    void postAddText(const std::string& text);
    /// Gives the listener the whole text.
    void postResendText();
    /// Gives the listener what is new, if anything is.
    void postUpdateListener();
    void postMidiInputEvent(const MidiEngine::OrvMidiMessage& event);
    void postMidiOutputEvent(const MidiEngine::OrvMidiMessage& event);
    /// The same inside a time slice, without an allocation; `wake` follows once the engine lock is left.
    void postMidiOutputEventFromSlice(const MidiEngine::OrvMidiMessage& event);
    void wake() { worker.queue().wake(); }
    /// Null for none. It must live until another takes its place or the display has ended.
    void setListener(DisplayListener* listener);
    /// For a listener that cannot wait for that, as a window that closes: it is deleted after its last call. Another
    /// that has taken its place stays.
    void dropListener(std::unique_ptr<DisplayListener> listener);
    void postSetDisplayNumbers(bool on);
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
