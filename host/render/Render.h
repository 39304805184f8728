#pragma once

#include <filesystem>
#include <optional>
#include <vector>

#include "host/render/OfflineLoop.h"

namespace Host
{
/// The input of a rendering and the files to write.
struct RenderRequest {
    std::vector<std::filesystem::path> inputs;  ///< performance and MIDI files, merged by time
    OfflineLoop::Settings settings;
    std::optional<std::filesystem::path> events;   ///< the event list; "-" is standard output
    std::optional<std::filesystem::path> mid;      ///< a Standard MIDI File
    std::optional<std::filesystem::path> wav;      ///< a sound file
    std::optional<std::filesystem::path> display;  ///< the text of the display at the end
};

/// Plays a performance without a clock and writes the files. Throws InputError; then no file was written.
void render(const RenderRequest& request);
}  // namespace Host
