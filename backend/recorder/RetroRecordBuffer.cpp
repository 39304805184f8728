#include "backend/recorder/RetroRecordBuffer.h"

#include <algorithm>
#include <utility>

#include "backend/recorder/RecordedEvents.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"

namespace Backend::RetroRecord
{
namespace fs = std::filesystem;
using MidiEngine::MidiMessage;

namespace
{
constexpr Milliseconds RETRY = 10'000;
constexpr int LAST_NUMBER = 500;

bool isTaken(const std::string& path)
{
    std::error_code none;
    return fs::symlink_status(pathOf(path), none).type() != fs::file_type::not_found;
}

/// The first free name, or the last one that was tried.
std::string freeName(const std::string& name)
{
    std::string path = name + ".mid";
    for (int number = 0; number <= LAST_NUMBER && isTaken(path); ++number)
        path = name + "_" + std::to_string(number) + ".mid";
    return path;
}

std::error_code writeWhole(const std::string& path, const std::vector<std::uint8_t>& bytes)
{
    StagedFile file;
    if (const auto error = file.stage(pathOf(path), bytes)) return error;
    return file.commit();
}
}  // namespace

RetroRecordBuffer::RetroRecordBuffer(const fs::path& folder, std::string name, Restore restore, int bytes)
    : outputName(std::move(name)), chain(folder, outputName, restore), fileSize(bytes)
{
    file.setstate(std::ios::failbit);
}

void RetroRecordBuffer::start(Milliseconds now)
{
    lastTime = now;
    isFresh = true;
    if (!openFile()) failed = now;
}

bool RetroRecordBuffer::openFile()
{
    file.close();
    file.clear();
    isFlushed = true;
    const auto size = chain.prepareNewest();
    bytesInFile = static_cast<std::int64_t>(size.value_or(0));
    if (size)
        file.open(chain.pathOfFile(0), std::ios::binary | std::ios::app);
    else
        file.setstate(std::ios::failbit);
    return file.good();
}

/// Each file but the newest counts with its full size.
int RetroRecordBuffer::getFill() const
{
    constexpr std::int64_t SHARE = 100 / RecordChain::FILES;
    const std::int64_t newest = std::min(SHARE, (SHARE * bytesInFile + fileSize - 1) / fileSize);
    return static_cast<int>(SHARE * (chain.getFilesInUse() - 1) + newest);
}

/// A file that failed is tried again after a while.
bool RetroRecordBuffer::isReady(Milliseconds time)
{
    if (file.good()) return true;
    if (time - failed < RETRY) return false;
    failed = time;
    return openFile();
}

void RetroRecordBuffer::addEvent(const MidiMessage& message, Milliseconds time)
{
    if (!canBeRecorded(message) || !isReady(time)) return;
    if (bytesInFile + LONGEST_EVENT > fileSize) rollOver();
    bytesInFile += writeEvent(file, millisecondsSince(time), message);
    lastTime = time;
    isFresh = false;
    isFlushed = false;
    if (!file) failed = time;
}

/// Negative differences are possible: an event may have been played before the record was started.
int RetroRecordBuffer::millisecondsSince(Milliseconds time) const
{
    const auto delta = static_cast<std::int32_t>(time - lastTime);
    if (delta < 0) return isFresh ? 0 : LONGEST_SILENCE;
    return std::min(delta, LONGEST_SILENCE);
}

void RetroRecordBuffer::rollOver()
{
    file.close();
    if (!chain.rollOver() || !openFile()) file.setstate(std::ios::failbit);
}

void RetroRecordBuffer::flush()
{
    if (std::exchange(isFlushed, true) || !file) return;
    if (!file.flush()) {
        failed = lastTime;
        WindowsLib::DbgStream() << outputName << ": not recorded: the file cannot be written";
    }
}

SavedRecord RetroRecordBuffer::save(const std::string& stem, const std::function<Milliseconds()>& now)
{
    file.close();
    SavedRecord saved;
    bool anyPlayed = false;
    std::vector<std::uint8_t> bytes = beginMidiFile();
    saved.error = chain.appendTo(bytes, anyPlayed);
    if (!saved.error && anyPlayed) {
        finishMidiFile(bytes);
        saved.file = freeName(stem + "_" + outputName);
        saved.error = writeWhole(saved.file, bytes);
    }
    if (saved.error) {
        WindowsLib::DbgStream() << saved.file << ": the record was not saved: " << saved.error.message();
        openFile();
        return saved;
    }
    chain.removeFiles();
    start(now());
    return saved;
}
}  // namespace Backend::RetroRecord
