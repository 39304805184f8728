#pragma once

#include <CLI/CLI.hpp>

#include "host/run/Run.h"

/// Adds the options of live playing. Parsing writes into `options`, which must exist until then.
void addRunOptions(CLI::App& command, Host::RunOptions& options);

/// Adds `orvane run`, live playing without a window.
void addRunCommand(CLI::App& program, Host::RunOptions& options, int& exitStatus);
