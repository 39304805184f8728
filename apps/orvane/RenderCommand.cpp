#include "apps/orvane/RenderCommand.h"

#include <cstdint>
#include <limits>
#include <memory>

#include "host/common/InputError.h"
#include "host/render/Render.h"
#include "platform/Path.h"

namespace
{
CLI::Option* addFile(CLI::App& command, const char* name, std::optional<std::filesystem::path>& file, const char* help)
{
    return command.add_option_function<std::string>(
        name, [&file](const std::string& text) { file = pathOf(text); }, help);
}

CLI::Option* addFiles(CLI::App& command, const char* name, std::vector<std::filesystem::path>& files, const char* help)
{
    return command.add_option_function<std::vector<std::string>>(
        name,
        [&files](const std::vector<std::string>& texts) {
            for (const std::string& text : texts) files.push_back(pathOf(text));
        },
        help);
}
}  // namespace

void addRenderCommand(CLI::App& program)
{
    CLI::App* command = program.add_subcommand(
        "render", "Play performance (.perf) and MIDI (.mid) files as fast as possible and write the result to files");
    const auto request = std::make_shared<Host::RenderRequest>();
    auto& settings = request->settings;

    addFiles(*command, "input", request->inputs, "Performance or MIDI files; several are played at the same time")
        ->required()
        ->type_name("INPUT");
    command->add_option("--inputs", settings.inputs, "Number of MIDI inputs, 0 to 127")
        ->check(CLI::Range(0, 127))
        ->capture_default_str();
    command->add_option("--outputs", settings.outputs, "Number of MIDI outputs, 0 to 127")
        ->check(CLI::Range(0, 127))
        ->capture_default_str();
    command
        ->add_option("--slice", settings.slice,
                     "Length of a time slice in pulses, 1 to 4999; a quarter note has 480 pulses")
        ->check(CLI::Range(1, 4999))
        ->capture_default_str();
    command->add_option("--tail", settings.tail, "How long to play on after the last command, in pulses, 0 to 90000000")
        ->check(CLI::Range(0, Host::OfflineLoop::LONGEST_TAIL))
        ->capture_default_str();
    addFiles(
        *command, "--load", settings.loads,
        "Load this program (.prg) or bank (.bnk) before the start; may be repeated, and the files are loaded in order")
        ->type_name("FILE")
        ->take_all()
        ->allow_extra_args(false);
    command
        ->add_option("--number", settings.number,
                     "Number of the program to play from a bank, 0 to 99999; the first program is 0")
        ->check(CLI::Range(0, 99999))
        ->capture_default_str();
    command
        ->add_option("--seed", settings.seed,
                     "Seed of random numbers, such as those of random oscillators; 0 counts as 1")
        ->check(CLI::Range(std::uint32_t{0}, std::numeric_limits<std::uint32_t>::max()))
        ->capture_default_str();
    command->add_flag("--live-input", settings.liveInput,
                      "Play events of MIDI inputs at once where they need no function, as live playing does");
    addFile(*command, "--data", settings.data,
            "Use this data folder, which is kept; by default a temporary one with the factory content")
        ->type_name("DIR");
    command
        ->add_option("--set", settings.choices,
                     "Change a setting, by its stored name, such as MidiThru=0; may be repeated")
        ->type_name("NAME=VALUE")
        ->take_all()
        ->allow_extra_args(false);
    addFile(*command, "--events", request->events, "Write the list of events that were played; - is standard output")
        ->type_name("FILE");
    addFile(*command, "--mid", request->mid, "Write the events to a Standard MIDI File")->type_name("FILE");
    addFile(*command, "--wav", request->wav, "Write the sound of the built-in synthesizer to a WAV file")
        ->type_name("FILE");
    addFile(*command, "--display", request->display, "Write the text that the display screen shows at the end")
        ->type_name("FILE");

    command->callback([request] { Host::render(*request); });
}
