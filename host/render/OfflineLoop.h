#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "api/DisplayListener.h"
#include "api/OrvIF.h"
#include "host/performance/PerformanceCommand.h"
#include "host/render/RenderFolders.h"
#include "host/render/RenderPlayer.h"

namespace Host
{
/// A host whose clock is a counter. It runs the library with all its threads, and advances the counter only when the
/// library is at rest, so that the same performance gives the same events every time. One thread.
class OfflineLoop
{
public:
    /// The range of the 32-bit pulse counter above the latest command.
    static constexpr std::int32_t LONGEST_TAIL = 90'000'000;

    struct Settings {
        int inputs = 2;                             ///< ports offered, "In 1" onward
        int outputs = 2;                            ///< "Out 1" onward
        std::int32_t slice = 1;                     ///< pulses per time slice, 1 to 4999
        std::int32_t tail = 1920;                   ///< pulses played on after the last command, at least a slice
        std::optional<std::filesystem::path> data;  ///< the data folder; a fresh one, with the factory content, if none
        std::vector<std::filesystem::path> loads;   ///< programs and banks loaded before the start, in order
        int number = 0;                             ///< of the program taken from a bank, from 0
        std::uint32_t seed = 1;                     ///< of random numbers; 0 counts as 1
        std::vector<std::string> choices;           ///< settings by their stored names, "MidiThru=0"
        bool display = false;                       ///< whether the display gets the events that are played
        bool liveInput = false;                     ///< events of inputs are played at once where that is possible
    };

    /// Starts the library and loads the files. Throws InputError for the data folder and the choices, and
    /// std::bad_alloc. One object at a time.
    explicit OfflineLoop(const Settings& settings);
    ~OfflineLoop();

    OfflineLoop(const OfflineLoop&) = delete;
    OfflineLoop& operator=(const OfflineLoop&) = delete;

    /// Plays the commands, sorted by time, then the tail, then ends every note. Once.
    void play(const std::vector<TimedCommand>& commands);

    const RenderPlayer& getPlayer() const { return player; }
    /// The text of the display.
    std::string getDisplayText();
    /// The results of the commands that saved the record.
    const Backend::RetroRecord::SaveReport& getSavedRecords() const { return savedRecords; }
    /// Where the performance ended, in pulses from its start.
    std::int32_t getEnd() const { return end; }
    const Backend::MidiEngine::MidiOutputPorts& getOutputPorts() const { return outputPorts; }

private:
    /// Receives the text of the display.
    struct DisplayText final : Backend::Display::DisplayListener {
        std::string text;
        void addText(const char* added) override { text += added; }
        void setText(const char* whole) override { text = whole; }
    };

    void loadSetups();
    void execute(const Command& command);
    void playSlice(std::int32_t ppq, std::int32_t length);
    void waitUntilAtRest(std::int32_t ppq);
    void playReset(std::int32_t ppq);
    bool applyEnabledOutputs();

    const Settings settings;
    RenderFolders home;
    RenderPlayer player;
    DisplayText displayText;
    Backend::RetroRecord::SaveReport savedRecords;
    std::unique_ptr<Backend::OrvIF> orv;
    Backend::MidiEngine::MidiOutputPorts outputPorts;
    std::int32_t end = 0;
};
}  // namespace Host
