#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "api/OrvIF.h"
#include "backend/recorder/RetroRecordManager.h"
#include "host/performance/PerformanceCommand.h"
#include "host/render/RenderFolders.h"
#include "host/render/RenderPlayer.h"

namespace Host
{
/// A host whose clock is a counter: it runs the real library, with all its threads, and moves on only when they have
/// done all there is to do, so that the same performance gives the same events every time. One thread.
class OfflineLoop
{
public:
    /// The pulse counter has 32 bits and starts at 50000000; this is what the latest command leaves of it.
    static constexpr std::int32_t LONGEST_TAIL = 90'000'000;

    struct Settings {
        int inputs = 2;                             ///< ports offered, "In 1" onward
        int outputs = 2;                            ///< "Out 1" onward
        std::int32_t slice = 1;                     ///< pulses per time slice, 1 to 4999
        std::int32_t tail = 1920;                   ///< pulses played on after the last command, at least a slice
        std::optional<std::filesystem::path> data;  ///< the data folder; a fresh one, with the factory content, if none
        std::vector<std::filesystem::path> loads;   ///< programs and banks loaded before the start, in order
        int number = 0;                             ///< of the program taken from a bank, from 0
        std::uint32_t seed = 1;                     ///< of what is left to chance; 0 counts as 1
        std::vector<std::string> choices;           ///< settings by their stored names, "MidiThru=0"
        bool display = false;                       ///< whether the display shows what is played
    };

    /// Starts the library up to the point where the first slice may come. Throws InputError for the data folder and the
    /// choices, and std::bad_alloc. One loop at a time.
    explicit OfflineLoop(const Settings& settings);
    ~OfflineLoop();

    OfflineLoop(const OfflineLoop&) = delete;
    OfflineLoop& operator=(const OfflineLoop&) = delete;

    /// Plays the commands, sorted by time, then the tail, then ends every note. Once.
    void play(const std::vector<TimedCommand>& commands);

    const RenderPlayer& getPlayer() const { return player; }
    /// The log of events as it stands.
    std::string getDisplayText();
    /// What the commands that saved the record did.
    const Backend::RetroRecord::SaveReport& getSavedRecords() const { return savedRecords; }
    /// Where the performance ended, in pulses from its start.
    std::int32_t getEnd() const { return end; }
    const Backend::MidiEngine::MidiOutputPorts& getOutputPorts() const { return outputPorts; }

private:
    void loadSetups();
    void playSlice(std::int32_t ppq, std::int32_t length);
    void rest(std::int32_t ppq);
    void resetIn(std::int32_t ppq);
    bool applyEnabledOutputs();
    bool processWindowMessages();

    const Settings settings;
    RenderFolders home;
    RenderPlayer player;
    std::shared_ptr<MessageQueue> window;  // stands in for one
    Backend::RetroRecord::SaveReport savedRecords;
    std::unique_ptr<Backend::OrvIF> orv;
    Backend::MidiEngine::MidiOutputPorts outputPorts;
    std::int32_t end = 0;
};
}  // namespace Host
