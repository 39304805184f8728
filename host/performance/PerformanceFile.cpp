#include "host/performance/PerformanceFile.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <iterator>

#include "host/common/InputError.h"
#include "host/common/LastPulse.h"
#include "host/common/WholeFile.h"
#include "host/performance/CommandParser.h"
#include "host/performance/PerformanceLine.h"
#include "platform/Path.h"

namespace Host
{
namespace
{
constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

std::int32_t parseTime(PerformanceLine& line)
{
    const std::string_view word = line.word("the time");
    std::uint64_t time = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), time);
    if (error == std::errc::invalid_argument || end != word.data() + word.size())
        line.refuse(quoted(word) + " is not a time in pulses");
    if (error == std::errc::result_out_of_range || time > LAST_PULSE)
        line.refuse(quoted(word) + " is too late, the last pulse is " + std::to_string(LAST_PULSE));
    return static_cast<std::int32_t>(time);
}

void sortByTime(std::vector<TimedCommand>& commands) { std::ranges::stable_sort(commands, {}, &TimedCommand::time); }

std::string lowerCase(std::string text)
{
    for (char& letter : text)
        if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
    return text;
}
}  // namespace

std::vector<TimedCommand> parsePerformance(std::string_view text, const std::string& name,
                                           const std::filesystem::path& folder)
{
    if (text.starts_with(BYTE_ORDER_MARK)) text.remove_prefix(BYTE_ORDER_MARK.size());
    std::vector<TimedCommand> commands;
    for (std::size_t lineNumber = 1; !text.empty(); ++lineNumber) {
        const std::size_t size = text.find('\n');
        const std::string where = name + ":" + std::to_string(lineNumber);
        PerformanceLine line(text.substr(0, size), where, folder);
        if (!line.empty()) {
            const std::int32_t time = parseTime(line);
            commands.push_back({time, parseCommand(line)});
        }
        text.remove_prefix(std::min(size, text.size() - 1) + 1);
    }
    sortByTime(commands);
    return commands;
}

std::vector<TimedCommand> fromMidiFile(const std::vector<MidiFileEvent>& events)
{
    const auto toCommand = [](const MidiFileEvent& event) {
        const auto status = static_cast<std::uint8_t>(event.status & 0xF0);
        const auto channel = static_cast<std::uint8_t>(event.status & 0x0F);
        return TimedCommand{event.time, MidiCommand{0, status, channel, event.d1, event.d2}};
    };
    std::vector<TimedCommand> commands;
    commands.reserve(events.size());
    std::ranges::transform(events, std::back_inserter(commands), toCommand);
    return commands;
}

std::vector<TimedCommand> mergeByTime(std::vector<std::vector<TimedCommand>> inputs)
{
    std::vector<TimedCommand> merged;
    for (std::vector<TimedCommand>& input : inputs)
        merged.insert(merged.end(), std::make_move_iterator(input.begin()), std::make_move_iterator(input.end()));
    sortByTime(merged);
    return merged;
}

std::vector<TimedCommand> readInput(const std::filesystem::path& path)
{
    const std::string ending = lowerCase(textOf(path.extension()));
    if (ending == ".mid" || ending == ".midi") return fromMidiFile(readMidiFile(path));
    if (ending != ".perf") throw InputError(textOf(path) + ": neither a performance (.perf) nor a MIDI file (.mid)");
    const std::vector<std::uint8_t> bytes = readWholeFile(path);
    return parsePerformance({reinterpret_cast<const char*>(bytes.data()), bytes.size()}, textOf(path),
                            path.parent_path());
}
}  // namespace Host
