#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "backend/model/MidiPort.h"
#include "backend/model/Settings.h"
#include "backend/recorder/RetroRecordBuffer.h"
#include "platform/Export.h"
#include "platform/WindowHandle.h"
#include "platform/Worker.h"

namespace Backend::RetroRecord
{
/// The retrospective record: keeps what was played lately at each enabled output, and saves it as MIDI files on
/// request. Everything that uses the disk runs on a thread of its own. All operations are posts that any thread may
/// make, except `start`, `end` and those that name a thread.
class ORV_API RetroRecordManager
{
public:
    using Clock = std::function<Milliseconds()>;

    /// The range of the size of an output's record, in bytes.
    static constexpr int SMALLEST_BUFFER = Settings::RETRO_RECORD_BUFFER_SIZE.lowest;
    static constexpr int LARGEST_BUFFER = Settings::RETRO_RECORD_BUFFER_SIZE.highest;
    static bool isBufferSize(int bytes) { return bytes >= SMALLEST_BUFFER && bytes <= LARGEST_BUFFER; }

    /// `clock` is called on the recorder's thread; it must be the clock whose time events have.
    RetroRecordManager(Clock clock, Restore restore);
    ~RetroRecordManager() { end(); }

    /// Creates the folder of the record and starts the thread. The size is limited to its range. Without a folder ("")
    /// nothing is recorded.
    void start(bool enabled, int bufferSize, const std::string& folder);

    /// Stops the thread after the messages posted before, and closes the record.
    void end();

    /// Records the outputs that are enabled. The record of an output that was recorded before continues; that of any
    /// other output is removed, unless it is kept for a later run.
    void setOutputs(const MidiEngine::MidiOutputPorts& ports);

    /// Time slice only: one wait-free push. `output` is 0 to 127, others are ignored. `wake` must be called after the
    /// engine lock was released.
    void addEvent(const MidiEngine::MidiMessage& message, int output, Milliseconds time);
    void wake() { worker.queue().wake(); }

    /// Saves and empties all records, see `RetroRecordBuffer::save`. Then `whenSaved` gets the result, on the recorder's
    /// thread.
    void save(const std::string& stem, SaveListener whenSaved);

    /// Ignored outside the range. If the record is too large, the oldest events are dropped when new ones come.
    void setBufferSize(int bytes);

    /// Sends GuiMessage::RETRO_RECORD_FILL to `window` whenever the fill of the fullest record changes, see
    /// `RetroRecordBuffer::getFill`. The window must start with 0. One window at a time; an empty handle for none.
    void setFillListener(const WindowHandle& window);

    /// While it is off, events are dropped and the record is kept.
    void enable(bool on);

    const Worker& getWorker() const { return worker; }

private:
    void handleMessage(Message& message);
    void handleSetOutputs(const MidiEngine::MidiOutputPorts& ports);
    void handleAddEvent(std::uint32_t bytesAndOutput, std::int32_t time);
    void handleSave(const std::string& stem, const SaveListener& whenSaved);
    void handleSetBufferSize(int bytes);
    void handleEnable(bool on) { enabled = on; }
    void handleSetFillListener(const WindowHandle& window);
    void sendFill();

    const Clock clock;
    const Restore restore;

    // The recorder's thread
    std::filesystem::path folder;
    std::map<int, std::unique_ptr<RetroRecordBuffer>> buffers;  // by output
    int fileSize = 0;
    bool enabled = false;
    WindowHandle listener;
    int sentFill = 0;  // the last one that the window received

    Worker worker;
};
}  // namespace Backend::RetroRecord
