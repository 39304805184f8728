#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Host
{
/// The folders of a rendering: default settings with the changes that are given here, and a data folder with the
/// factory content; both are removed with this object. The user's own folders are neither read nor written. One object
/// at a time, which must exist before the backend and outlive it.
class RenderFolders
{
public:
    /// `data` is a data folder to use instead; it is created if need be, and not removed. `choices` are settings by
    /// their stored names, "MidiThru=0". Throws InputError.
    RenderFolders(const std::optional<std::filesystem::path>& data, const std::vector<std::string>& choices);
    ~RenderFolders();
    RenderFolders(const RenderFolders&) = delete;
    RenderFolders& operator=(const RenderFolders&) = delete;

private:
    /// A new folder, removed with its content.
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
