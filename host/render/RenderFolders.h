#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Host
{
/// The folders of a rendering: settings that nobody changed but for what is asked for here, and a data folder with the
/// factory content, gone with this object. The user's own are neither read nor written. One at a time, before the
/// backend and longer than it.
class RenderFolders
{
public:
    /// `data`: a data folder to use instead, made if need be, and kept. `choices`: settings by their stored names,
    /// "MidiThru=0". Throws InputError.
    RenderFolders(const std::optional<std::filesystem::path>& data, const std::vector<std::string>& choices);
    ~RenderFolders();
    RenderFolders(const RenderFolders&) = delete;
    RenderFolders& operator=(const RenderFolders&) = delete;

private:
    /// A folder of its own, removed with all that is in it.
    struct Temporary {
        Temporary();
        ~Temporary();
        Temporary(const Temporary&) = delete;
        Temporary& operator=(const Temporary&) = delete;
        std::filesystem::path path;
    };
    Temporary folder;
};
}  // namespace Host
