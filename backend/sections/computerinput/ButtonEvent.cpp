#include "backend/sections/computerinput/ButtonEvent.h"

#include <string_view>

#include "backend/bindings/functions/MidiFunctions.h"

namespace Backend
{
using FunctionManagement::Function;
using FunctionManagement::FunctionNoteSpan;

namespace
{
void run(const std::unique_ptr<Function>& function)
{
    if (function) function->execute();
}

bool isRepeatingNote(const ButtonFunction& entry)
{
    const auto is = [](const std::unique_ptr<Function>& function, std::string_view type) {
        return function && function->getType() == type;
    };
    return entry.keepSending && is(entry.downFunction, FunctionManagement::Functions::MidiNoteOn::info.typeName) &&
           is(entry.upFunction, FunctionManagement::Functions::MidiNoteOff::info.typeName);
}
}  // namespace

void DownRuns::add(std::int32_t button, std::size_t place)
{
    for (Run& run : runs)
        if (run.button == button && run.place == place) return static_cast<void>(++run.count);
    runs.push_back({.button = button, .place = place, .count = 1});
}

int DownRuns::count(std::int32_t button, std::size_t place) const
{
    for (const Run& run : runs)
        if (run.button == button && run.place == place) return run.count;
    return 0;
}

void DownRuns::forget(std::int32_t button)
{
    std::erase_if(runs, [&](const Run& run) { return run.button == button; });
}

void runButton(const ButtonConfiguration& button, ButtonEvent event, DownRuns& downRuns, std::int32_t id)
{
    const std::vector<ButtonFunction> entries = button.getEntries();
    for (std::size_t place = 0; place < entries.size(); ++place) {
        const ButtonFunction& entry = entries[place];
        if (event == ButtonEvent::up) {
            for (int times = isRepeatingNote(entry) ? downRuns.count(id, place) : 1; times > 0; --times)
                run(entry.upFunction);
        } else if (event == ButtonEvent::down || entry.keepSending) {
            if (entry.downFunction) downRuns.add(id, place);
            run(entry.downFunction);
        } else if (!entry.downFunction && !entry.upFunction) {
            break;
        }
    }
    if (event == ButtonEvent::up) downRuns.forget(id);
}

void appendNoteSpans(const ButtonConfiguration& button, std::vector<FunctionNoteSpan>& spans)
{
    button.forEachFunction([&](const Function& function) {
        const FunctionNoteSpan span = function.getNoteSpan();
        if (span.zone != FunctionNoteSpan::NO_ZONE && span.isPlayed()) spans.push_back(span);
    });
}
}  // namespace Backend
