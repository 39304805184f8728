#include "apps/orvane/RenderCommand.h"

#include <cstdint>
#include <limits>
#include <memory>

#include "host/common/InputError.h"
#include "host/render/Render.h"

void addRenderCommand(CLI::App& program)
{
    CLI::App* command = program.add_subcommand(
        "render", "Play performance (.perf) and MIDI (.mid) files without a clock and write what came of it");
    const auto request = std::make_shared<Host::RenderRequest>();
    auto& settings = request->settings;

    command->add_option("input", request->inputs, "Performance or MIDI files, merged by time")
        ->required()
        ->type_name("INPUT");
    command->add_option("--inputs", settings.inputs, "Input ports offered")
        ->check(CLI::Range(0, 127))
        ->capture_default_str();
    command->add_option("--outputs", settings.outputs, "Output ports offered")
        ->check(CLI::Range(0, 127))
        ->capture_default_str();
    command->add_option("--slice", settings.slice, "Pulses per time slice")
        ->check(CLI::Range(1, 4999))
        ->capture_default_str();
    command->add_option("--tail", settings.tail, "Pulses played on after the last command")
        ->check(CLI::Range(0, Host::OfflineLoop::LONGEST_TAIL))
        ->capture_default_str();
    command->add_option("--load", settings.loads, "Program (.prg) or bank (.bnk) loaded before the start, in order")
        ->type_name("FILE")
        ->take_all()
        ->allow_extra_args(false);
    command->add_option("--number", settings.number, "Program taken from a bank, counted from 0")
        ->check(CLI::Range(0, 99999))
        ->capture_default_str();
    command->add_option("--seed", settings.seed, "Seed of what is left to chance, such as random oscillators")
        ->check(CLI::Range(std::uint32_t{0}, std::numeric_limits<std::uint32_t>::max()))
        ->capture_default_str();
    command->add_option("--data", settings.data, "Data folder (a fresh one with the factory content)")
        ->type_name("DIR");
    command->add_option("--set", settings.choices, "A setting by its stored name, such as MidiThru=0")
        ->type_name("NAME=VALUE")
        ->take_all()
        ->allow_extra_args(false);
    command->add_option("--events", request->events, "Write the event list (- is standard output)")->type_name("FILE");
    command->add_option("--mid", request->mid, "Write a Standard MIDI File")->type_name("FILE");
    command->add_option("--wav", request->wav, "Write a sound file, played by the built-in synthesizer")
        ->type_name("FILE");
    command->add_option("--display", request->display, "Write the display's text as it stands at the end")
        ->type_name("FILE");

    command->callback([request] { Host::render(*request); });
}
