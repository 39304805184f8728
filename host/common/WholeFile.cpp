#include "host/common/WholeFile.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <system_error>
#include <utility>

#include "host/common/InputError.h"
#include "platform/Path.h"

namespace Host
{
namespace
{
namespace fs = std::filesystem;

/// Throws InputError if there is an error, with the path as the user gave it.
void throwIf(const fs::path& path, std::error_code error)
{
    if (!error) return;
    std::string reason = error.message();
    reason[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(reason[0])));
    throw InputError(textOf(path) + ": " + reason);
}

std::span<const std::uint8_t> bytesOf(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}
}  // namespace

std::vector<std::uint8_t> readWholeFile(const fs::path& path, std::size_t largest)
{
    std::vector<std::uint8_t> bytes;
    const std::error_code error = ::WholeFile::read(path, largest, bytes);
    if (error == std::errc::file_too_large)
        throw InputError(textOf(path) + ": larger than " + std::to_string(largest) + " bytes");
    throwIf(path, error);
    return bytes;
}

void StagedFiles::add(const fs::path& path, std::span<const std::uint8_t> bytes)
{
    Staged staged{path, {}};
    throwIf(path, staged.file.stage(path, bytes));
    for (const Staged& other : files)
        if (!staged.file.isStream() && other.file.getTarget() == staged.file.getTarget())
            throw InputError(textOf(path) + ": named for two output files");
    files.push_back(std::move(staged));
}

void StagedFiles::add(const fs::path& path, std::string_view text) { add(path, bytesOf(text)); }

void StagedFiles::commit()
{
    const auto commitAll = [this](bool streams) {
        for (Staged& staged : files)
            if (staged.file.isStream() == streams) throwIf(staged.path, staged.file.commit());
    };
    commitAll(true);
    commitAll(false);
    files.clear();
}

void writeWholeFile(const fs::path& path, std::span<const std::uint8_t> bytes)
{
    StagedFiles file;
    file.add(path, bytes);
    file.commit();
}

void writeWholeFile(const fs::path& path, std::string_view text) { writeWholeFile(path, bytesOf(text)); }
}  // namespace Host
