#include "apps/orvane/RunCommand.h"

void addRunOptions(CLI::App& command, Host::RunOptions& options)
{
    command.add_option("--client", options.client, "Name in the JACK graph or the ALSA sequencer")
        ->type_name("NAME")
        ->capture_default_str();
    command.add_option("--connect", options.connections, "Join two JACK ports, from A to B; may be repeated")
        ->type_name("A=B")
        ->allow_extra_args(false);
    command.add_option("--default-output", options.defaultOutput, "Output for what names none: its number or name")
        ->type_name("N");
    command
        .add_option("--load,FILE", options.setup.loads, "Program (.prg) or bank (.bnk) loaded at the start, in order")
        ->type_name("FILE")
        ->take_all()
        ->allow_extra_args(false);
    command.add_option("--number", options.setup.number, "Program taken from a bank, counted from 0")
        ->check(CLI::Range(0, 99999))
        ->capture_default_str();
    command
        .add_option("--clock-in", options.clockIn,
                    "Input whose MIDI clock sets the tempo where the program names none: its number or name")
        ->type_name("PORT");
    command.add_option("--clock-out", options.clockOut, "Output that gets a MIDI clock: its number or name")
        ->type_name("PORT");
    command.add_flag("--transport", options.transport,
                     "Follow the JACK transport: it starts and stops the clock that is sent, and a timebase master "
                     "sets the tempo");
    command.add_flag("--display", options.display, "Print what is played; with a window, show its display");
    command.add_flag("--status", options.status, "Print once a second how it stands: ports, load, notes, losses");
    command.add_option("--tempo", options.tempo, "Beats per minute")->type_name("BPM")->check(CLI::Range(20, 250));
}

void addRunCommand(CLI::App& program, Host::RunOptions& options, int& exitStatus)
{
    CLI::App* command = program.add_subcommand(
        "run", "Play live without a window; commands of a performance, without times, are read from standard input");
    addRunOptions(*command, options);
    command->add_flag("--keys", options.keys, "Play from the keys of this terminal; no commands are read then");
    command->callback([&] {
        const auto session = Host::openSession(options);
        exitStatus = Host::run(options);
    });
}
