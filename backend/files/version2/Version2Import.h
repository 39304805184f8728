#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "backend/model/PresetSections.h"
#include "platform/Export.h"

/// Conversion of the files of version 2 of the product: lines of words in blocks, with the same extensions. The source
/// is never changed; only the source, the presets of the computer input and the target are opened. A line that cannot
/// be read is left out, and reported in the debug stream with file, line and reason.
namespace Backend::Version2
{
/// Makes a bank or a program file. False, and the target is not changed, if the source is the target, cannot be read or
/// does not begin with a program, or the target cannot be written. A bank may have no program.
ORV_API bool importBank(const std::string& source, const std::string& target);
ORV_API bool importProgram(const std::string& source, const std::string& target);

/// Whether both paths are those of one existing file.
bool isSameFile(const std::string& path, const std::string& other);

/// A preset's section element, and which section it is.
struct Preset {
    PresetSection section;
    std::string element;
};

/// Reads a preset. Nothing if the source cannot be read or is no preset of a section that version 2 had.
ORV_API std::optional<Preset> readPreset(const std::string& source);

/// Converts a text; `name` is the file name in the debug stream.
ORV_API std::string convertBank(std::string_view name, std::string_view text);
ORV_API std::string convertProgram(std::string_view name, std::string_view text);
ORV_API std::optional<Preset> convertPreset(std::string_view name, std::string_view text);
}  // namespace Backend::Version2
