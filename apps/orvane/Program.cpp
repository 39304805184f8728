#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <utility>

#include "apps/orvane/Open.h"
#include "apps/orvane/PortsCommand.h"
#include "apps/orvane/Program.h"
#include "apps/orvane/RenderCommand.h"
#include "apps/orvane/RunCommand.h"
#include "host/common/InputError.h"
#include "platform/ThreadStack.h"

namespace
{
constexpr int INVALID_INPUT = 2;
constexpr int FAILED = 1;
constexpr std::size_t THREAD_STACK = 1024 * 1024;  // of which a thread touches some ten KB

int reportError(std::string line, int exitStatus)
{
    std::ranges::replace(line, '\n', ' ');
    showError("orvane: " + line);
    return exitStatus;
}

/// Executes the command line. Returns the exit status.
int execute(std::vector<std::string> arguments)
{
    CLI::App program(
        "Orvane plays MIDI live: from MIDI devices, computer keys and joysticks through layers to MIDI outputs.",
        "orvane");
    program.set_version_flag("--version", Host::VERSION);
    program.allow_windows_style_options(false);  // a path may begin with a slash
    Host::RunOptions options;
    int exitStatus = 0;
    addRunOptions(program, options);
    addRunCommand(program, options, exitStatus);
    addPortsCommand(program, exitStatus);
    addRenderCommand(program);
    try {
        std::ranges::reverse(arguments);  // as the parser takes them
        program.parse(std::move(arguments));
    } catch (const CLI::Success& asked) {
        return program.exit(asked);
    }
    return program.get_subcommands().empty() ? open(options) : exitStatus;
}
}  // namespace

int runProgram(std::vector<std::string> arguments)
{
    setThreadStack(THREAD_STACK);
    try {
        return execute(std::move(arguments));
    } catch (const Host::InputError& error) {
        return reportError(error.what(), INVALID_INPUT);
    } catch (const CLI::ParseError& error) {
        return reportError(error.what(), INVALID_INPUT);
    } catch (const std::exception& error) {
        return reportError(error.what(), FAILED);
    }
}
