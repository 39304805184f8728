#pragma once

#include <CLI/CLI.hpp>

/// Adds `orvane render`, the offline host.
void addRenderCommand(CLI::App& program);
