#pragma once

#include <CLI/CLI.hpp>

/// Adds `orvane ports`, the list of what can be played from and to.
void addPortsCommand(CLI::App& program, int& exitStatus);
