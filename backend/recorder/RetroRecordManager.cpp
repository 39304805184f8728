#include "backend/recorder/RetroRecordManager.h"

#include <algorithm>
#include <array>
#include <utility>

#include "backend/messages/GuiMessages.h"
#include "backend/messages/TypedMessage.h"
#include "backend/recorder/RecordFileNames.h"
#include "platform/Path.h"

namespace Backend::RetroRecord
{
using MidiEngine::MessageType;
using MidiEngine::MidiMessage;
using MidiEngine::MidiOutputPorts;

namespace
{
constexpr unsigned int STOP = 32869;

constexpr TypedMessage<MidiOutputPorts> SET_OUTPUTS{32870, "SetOutputs"};
constexpr TypedMessage<std::uint32_t, std::int32_t> ADD_EVENT{32871, "AddEvent"};
constexpr TypedMessage<std::string, SaveListener> SAVE{32872, "Save"};
constexpr TypedMessage<int> SET_BUFFER_SIZE{32873, "SetBufferSize"};
constexpr TypedMessage<bool> ENABLE{32874, "Enable"};
constexpr TypedMessage<WindowHandle> SET_FILL_LISTENER{32875, "SetFillListener"};

// Some seconds of the densest playing, for a disk that is busy.
constexpr std::size_t SLICE_POOL = 4096;
constexpr std::uint32_t FIRST_SYSTEM_STATUS = 0xF0;

/// Packs an event into one word, so that posting it needs no allocation: status, data bytes and output from the low
/// byte up.
std::uint32_t packed(const MidiMessage& message, int output)
{
    const auto bare = static_cast<std::uint32_t>(message.getStatus());
    const auto channel = bare < FIRST_SYSTEM_STATUS ? static_cast<std::uint32_t>(message.getChannel()) & 0x0F : 0;
    return bare | channel | std::uint32_t{message.getD1()} << 8 | std::uint32_t{message.getD2()} << 16 |
           static_cast<std::uint32_t>(output) << 24;
}

MidiMessage unpackedMessage(std::uint32_t word)
{
    const std::uint32_t status = word & 0xFF;
    const auto channel = status < FIRST_SYSTEM_STATUS ? static_cast<int>(status & 0x0F) : 0;
    return MidiMessage(static_cast<MessageType>(status), static_cast<std::uint8_t>(word >> 8),
                       static_cast<std::uint8_t>(word >> 16), channel);
}

int unpackedOutput(std::uint32_t word) { return static_cast<int>(word >> 24); }
}  // namespace

RetroRecordManager::RetroRecordManager(Clock timeOfEvents, Restore restoreFiles)
    : clock(std::move(timeOfEvents)),
      restore(restoreFiles),
      worker(
          "orv-recorder", STOP, [this](Message& message) { handleMessage(message); }, SLICE_POOL)
{
}

void RetroRecordManager::start(bool on, int bufferSize, const std::string& recordFolder)
{
    folder = pathOf(recordFolder);
    enabled = on;
    fileSize = std::clamp(bufferSize, SMALLEST_BUFFER, LARGEST_BUFFER) / RecordChain::FILES;
    if (!folder.empty()) {
        std::error_code none;
        std::filesystem::create_directories(folder, none);
        RecordChain::removeOrphans(folder);
    }
    worker.start();
}

void RetroRecordManager::end()
{
    worker.stop();
    buffers.clear();
}

void RetroRecordManager::handleMessage(Message& message)
{
    static constexpr auto COMMANDS = std::to_array<Command<RetroRecordManager>>({
        on<ADD_EVENT, &RetroRecordManager::handleAddEvent>(),
        on<SET_OUTPUTS, &RetroRecordManager::handleSetOutputs>(),
        on<SAVE, &RetroRecordManager::handleSave>(),
        on<SET_BUFFER_SIZE, &RetroRecordManager::handleSetBufferSize>(),
        on<ENABLE, &RetroRecordManager::handleEnable>(),
        on<SET_FILL_LISTENER, &RetroRecordManager::handleSetFillListener>(),
    });
    execute<RetroRecordManager>(COMMANDS, *this, message);
    if (worker.queue().hasNext()) return;
    // A crash while nothing is played must not lose what was played before.
    for (const auto& [output, buffer] : buffers) buffer->flush();
    sendFill();
}

// --- posts

void RetroRecordManager::setOutputs(const MidiOutputPorts& ports) { worker.post(SET_OUTPUTS(ports)); }

void RetroRecordManager::addEvent(const MidiMessage& message, int output, Milliseconds time)
{
    worker.queue().postFromSlice(ADD_EVENT(packed(message, output), static_cast<std::int32_t>(time)));
}

void RetroRecordManager::save(const std::string& stem, SaveListener whenSaved)
{
    worker.post(SAVE(stem, std::move(whenSaved)));
}

void RetroRecordManager::setBufferSize(int bytes) { worker.post(SET_BUFFER_SIZE(bytes)); }

void RetroRecordManager::enable(bool on) { worker.post(ENABLE(on)); }

void RetroRecordManager::setFillListener(const WindowHandle& window) { worker.post(SET_FILL_LISTENER(window)); }

// --- the recorder's thread

void RetroRecordManager::handleSetOutputs(const MidiOutputPorts& ports)
{
    if (folder.empty()) return;
    const auto names = fileNamesOf(ports);
    auto before = std::exchange(buffers, {});
    for (std::size_t index = 0; index < ports.size(); ++index) {
        if (!ports[index].enabled) continue;
        const auto kept = std::ranges::find_if(
            before, [&](const auto& entry) { return entry.second && entry.second->getOutputName() == names[index]; });
        buffers[static_cast<int>(index)] = kept == before.end() ? nullptr : std::move(kept->second);
    }
    before.clear();
    for (auto& [output, buffer] : buffers) {
        if (buffer) continue;
        const std::string& name = names[static_cast<std::size_t>(output)];
        buffer = std::make_unique<RetroRecordBuffer>(folder, name, restore, fileSize);
        buffer->start(clock());
    }
}

void RetroRecordManager::handleAddEvent(std::uint32_t bytesAndOutput, std::int32_t time)
{
    if (!enabled) return;
    const auto buffer = buffers.find(unpackedOutput(bytesAndOutput));
    if (buffer != buffers.end())
        buffer->second->addEvent(unpackedMessage(bytesAndOutput), static_cast<Milliseconds>(time));
}

void RetroRecordManager::handleSave(const std::string& stem, const SaveListener& whenSaved)
{
    SaveReport report;
    for (const auto& [output, buffer] : buffers) report.push_back(buffer->save(stem, clock));
    whenSaved(report);
}

void RetroRecordManager::handleSetBufferSize(int bytes)
{
    if (!isBufferSize(bytes)) return;
    fileSize = bytes / RecordChain::FILES;
    for (const auto& [output, buffer] : buffers) buffer->setFileSize(fileSize);
}

void RetroRecordManager::handleSetFillListener(const WindowHandle& window)
{
    listener = window;
    sentFill = 0;  // the window shows this until it receives a message
}

void RetroRecordManager::sendFill()
{
    int fill = 0;
    for (const auto& [output, buffer] : buffers) fill = std::max(fill, buffer->getFill());
    if (std::exchange(sentFill, fill) == fill) return;
    listener.post(GuiMessage::RETRO_RECORD_FILL(fill));
}
}  // namespace Backend::RetroRecord
