#pragma once

#include <CLI/CLI.hpp>

#include "host/run/Run.h"

/// The options of live playing, into `options`, which must outlive the parsing.
void addRunOptions(CLI::App& command, Host::RunOptions& options);

/// Adds `orvane run`, live playing without a window.
void addRunCommand(CLI::App& program, Host::RunOptions& options, int& exitStatus);
