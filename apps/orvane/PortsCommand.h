#pragma once

#include <CLI/CLI.hpp>

/// Adds `orvane ports`, which lists the inputs and outputs.
void addPortsCommand(CLI::App& program, int& exitStatus);
