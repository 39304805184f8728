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
/// The retrospective record: whatever the engine plays is kept for a while, for each enabled output, and can be made
/// into MIDI files at any time. Everything that touches the disk runs on a thread of its own. All operations are posts
/// that any thread may make, except `start`, `end` and those that name a thread.
class ORV_API RetroRecordManager
{
public:
    using Clock = std::function<Milliseconds()>;

    /// The size of the whole record of an output, in bytes.
    static constexpr int SMALLEST_BUFFER = Settings::RETRO_RECORD_BUFFER_SIZE.lowest;
    static constexpr int LARGEST_BUFFER = Settings::RETRO_RECORD_BUFFER_SIZE.highest;
    static bool isBufferSize(int bytes) { return bytes >= SMALLEST_BUFFER && bytes <= LARGEST_BUFFER; }

    /// `clock` is called on the recorder's thread; events have its time, too.
    RetroRecordManager(Clock clock, Restore restore);
    ~RetroRecordManager() { end(); }

    /// Makes the folder of the record and starts the thread. A size outside the limits goes to the nearer one. Without
    /// a folder ("") nothing is recorded.
    void start(bool enabled, int bufferSize, const std::string& folder);

    /// Ends the thread after what was posted before, and closes the record.
    void end();

    /// The outputs that are enabled are recorded. The record of one that was recorded before goes on; that of another
    /// goes, if it is not for a later run.
    void setOutputs(const MidiEngine::MidiOutputPorts& ports);

    /// Inside a time slice: one wait-free push. `output` 0 to 127, others are ignored. `wake` follows once the engine
    /// lock is left.
    void addEvent(const MidiEngine::MidiMessage& message, int output, Milliseconds time);
    void wake() { worker.queue().wake(); }

    /// Saves and empties all records, see `RetroRecordBuffer::save`. Then `whenSaved` gets the result, on the recorder's
    /// thread.
    void save(const std::string& stem, SaveListener whenSaved);

    /// Ignored outside the limits. What is recorded already goes as new events come.
    void setBufferSize(int bytes);

    /// From now on `window`, which starts with 0, gets GuiMessage::RETRO_RECORD_FILL whenever it changes: the fill of
    /// the fullest record, see `RetroRecordBuffer::getFill`. One window at a time; an empty handle for none.
    void setFillListener(const WindowHandle& window);

    /// While it is off events are dropped and the record stands as it is.
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
    int sentFill = 0;  // the last that the listener got

    Worker worker;
};
}  // namespace Backend::RetroRecord
