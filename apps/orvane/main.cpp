#include <CLI/CLI.hpp>
#include <iostream>

#include "apps/orvane/RenderCommand.h"
#include "host/InputError.h"

int main(int argc, char** argv)
{
    CLI::App program("Orvane");
    addRenderCommand(program);
    try {
        program.parse(argc, argv);
    } catch (const Host::InputError& error) {
        std::cerr << "orvane: " << error.what() << "\n";
        return 2;
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0) return program.exit(error);
        std::cerr << "orvane: " << error.what() << "\n";
        return 2;
    }
}
