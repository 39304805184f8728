#include "apps/orvane/RunCommand.h"

void addRunOptions(CLI::App& command, Host::RunOptions& options)
{
    command.add_option("--client", options.client, "Name of Orvane in the JACK graph or the ALSA sequencer")
        ->type_name("NAME")
        ->capture_default_str();
    command
        .add_option("--connect", options.connections,
                    "Connect JACK port A to JACK port B at the start; may be repeated")
        ->type_name("A=B")
        ->allow_extra_args(false);
    command
        .add_option("--default-output", options.defaultOutput,
                    "MIDI output for events without an output of their own: its number or name")
        ->type_name("PORT");
    command
        .add_option(
            "--load,FILE", options.setup.loads,
            "Load this program (.prg) or bank (.bnk) at the start; may be repeated, and the files are loaded in order")
        ->type_name("FILE")
        ->take_all()
        ->allow_extra_args(false);
    command
        .add_option("--number", options.setup.number,
                    "Number of the program to play from a bank, 0 to 99999; the first program is 0")
        ->check(CLI::Range(0, 99999))
        ->capture_default_str();
    command
        .add_option("--clock-in", options.clockIn,
                    "Follow the MIDI clock of this input, by number or name, unless the program names another")
        ->type_name("PORT");
    command
        .add_option("--clock-out", options.clockOut,
                    "Send a MIDI clock, 24 ticks for each quarter note, to this output, by number or name")
        ->type_name("PORT");
    command.add_flag(
        "--transport", options.transport,
        "Follow the JACK transport: it starts and stops the MIDI clock that is sent, and its timebase master sets "
        "the tempo");
    command.add_flag("--display", options.display,
                     "Print the events that are played; with a window, open its display screen");
    command.add_flag(
        "--status", options.status,
        "Print a line once a second: open ports, tempo, load of a time slice in microseconds, sounding notes, lost "
        "events");
    command
        .add_option("--tempo", options.tempo, "Tempo in beats per minute, 20 to 250, instead of that of the program")
        ->type_name("BPM")
        ->check(CLI::Range(20, 250));
}

void addRunCommand(CLI::App& program, Host::RunOptions& options, int& exitStatus)
{
    CLI::App* command = program.add_subcommand(
        "run", "Play live without a window and read commands, such as 'load FILE', from standard input");
    addRunOptions(*command, options);
    command->add_flag("--keys", options.keys, "Play with the keys of this terminal, instead of reading commands");
    command->callback([&] {
        const auto session = Host::openSession(options);
        exitStatus = Host::run(options);
    });
}
