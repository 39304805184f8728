#include "apps/orvane/PortsCommand.h"

#include <memory>

#include "host/run/Run.h"

void addPortsCommand(CLI::App& program, int& exitStatus)
{
    CLI::App* command =
        program.add_subcommand("ports", "List the MIDI inputs and outputs with number, name and state, and exit");
    const auto client = std::make_shared<std::string>(Host::FIRST_CLIENT_NAME);
    command->add_option("--client", *client, "Name of Orvane in the JACK graph or the ALSA sequencer")
        ->type_name("NAME")
        ->capture_default_str();
    command->callback([client, &exitStatus] { exitStatus = Host::listPorts(*client); });
}
