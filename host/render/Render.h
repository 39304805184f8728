#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "host/render/OfflineLoop.h"

namespace Host
{
/// What is to be rendered, and what of it is wanted.
struct RenderRequest {
    std::vector<std::filesystem::path> inputs;  ///< performance and MIDI files, merged by time
    OfflineLoop::Settings settings;
    std::optional<std::filesystem::path> events;   ///< the event list; "-" is standard output
    std::optional<std::filesystem::path> mid;      ///< a Standard MIDI File
    std::optional<std::filesystem::path> wav;      ///< a sound file
    std::optional<std::filesystem::path> display;  ///< the display's text as it stands at the end
};

/// Plays a performance without a clock and writes what came of it. Throws InputError; then no file was written.
void render(const RenderRequest& request);
}  // namespace Host
