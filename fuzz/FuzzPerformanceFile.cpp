// Any bytes are read as a performance or refused with one printable line, never more.
#include <algorithm>

#include "api/FunctionText.h"
#include "fuzz/Fuzzing.h"
#include "host/common/InputError.h"
#include "host/common/LastPulse.h"
#include "host/performance/PerformanceFile.h"
#include "platform/Utf8.h"

namespace
{
void checkCommand(const Host::TimedCommand& timed)
{
    require(timed.time >= 0 && timed.time <= Host::LAST_PULSE);
    if (const auto* midi = std::get_if<Host::MidiCommand>(&timed.command))
        require(midi->status >= 0x80 && midi->channel < 16 &&
                (midi->status < 0xF0 ? midi->status % 16 : midi->channel) == 0);
    if (const auto* play = std::get_if<Host::PlayCommand>(&timed.command))
        require(play->status >= 0x80 && play->channel >= -1 && play->channel < 16 && play->zone >= -1);
    if (const auto* key = std::get_if<Host::KeyCommand>(&timed.command)) require(key->key.keyCode > 0);
    if (const auto* function = std::get_if<Host::FunctionCommand>(&timed.command))
        require(Backend::FunctionManagement::FunctionText::check(function->xml).isFunction);
}
}  // namespace

void tryInput(std::string_view text)
try {
    const std::vector<Host::TimedCommand> commands = Host::parsePerformance(text, "fuzz.perf");
    require(std::ranges::is_sorted(commands, {}, &Host::TimedCommand::time));
    std::ranges::for_each(commands, checkCommand);
} catch (const Host::InputError& error) {
    const std::string_view line = error.what();
    require(line.starts_with("fuzz.perf:") && isUtf8(line));
    require(std::ranges::none_of(line, [](char letter) { return static_cast<unsigned char>(letter) < ' '; }));
}
