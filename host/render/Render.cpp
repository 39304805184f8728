#include "host/render/Render.h"

#include <iostream>

#include "host/common/InputError.h"
#include "host/common/SetupFile.h"
#include "host/common/WholeFile.h"
#include "host/midifile/MidiFileWriter.h"
#include "host/performance/PerformanceFile.h"
#include "host/render/EventList.h"
#include "host/render/SoundFile.h"

namespace Host
{
namespace
{
std::vector<TimedCommand> readInputs(const std::vector<std::filesystem::path>& paths)
{
    std::vector<std::vector<TimedCommand>> inputs;
    for (const auto& path : paths) inputs.push_back(readInput(path));
    return mergeByTime(std::move(inputs));
}

std::vector<std::uint8_t> midiFileOf(const OfflineLoop& loop)
{
    std::vector<std::string> names;
    for (const auto& port : loop.getOutputPorts()) names.push_back(port.name);
    MidiFileWriter writer(names);
    for (const auto& [ppq, bpm] : loop.getPlayer().getTempoChanges()) writer.tempo(ppq, bpm);
    for (const auto& [ppq, event] : loop.getPlayer().getPlayed())
        writer.event(ppq, event.getOutput(), static_cast<std::uint8_t>(event.getStatusWithChannel()), event.getD1(),
                     event.getD2());
    return writer.bytes(loop.getEnd());
}
}  // namespace

void render(const RenderRequest& request)
{
    if (!request.events && !request.mid && !request.wav && !request.display)
        throw InputError("render: nothing to write: give --events, --mid, --wav or --display");
    const auto commands = readInputs(request.inputs);
    for (const auto& path : request.settings.loads) checkSetupFile(path);
    auto settings = request.settings;
    settings.display = request.display.has_value();
    OfflineLoop loop(settings);
    loop.play(commands);
    for (const auto& [file, error] : loop.getSavedRecords())
        if (error) throw InputError("record: " + file + ": " + error.message());

    const std::string eventList = request.events ? formatEventList(loop.getPlayer().getPlayed()) : std::string();
    const bool eventsToOutput = request.events && *request.events == "-";
    StagedFiles files;
    if (request.events && !eventsToOutput) files.add(*request.events, eventList);
    if (request.mid) files.add(*request.mid, midiFileOf(loop));
    if (request.wav) files.add(*request.wav, renderSound(loop.getPlayer(), loop.getEnd()));
    if (request.display) files.add(*request.display, loop.getDisplayText());
    files.commit();
    if (eventsToOutput && !(std::cout << eventList << std::flush))
        throw InputError("standard output: cannot be written");
}
}  // namespace Host
