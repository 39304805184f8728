#include "platform/WholeFile.h"

#include <utility>

StagedFile::StagedFile(StagedFile&& other) noexcept
    : target(std::move(other.target)),
      temporary(std::exchange(other.temporary, {})),
      stream(std::move(other.stream)),
      streamBytes(std::move(other.streamBytes))
{
}

std::error_code WholeFile::replace(const std::filesystem::path& path, std::string_view text, Pace pace)
{
    StagedFile file;
    if (auto error = file.stage(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}, pace))
        return error;
    return file.commit();
}
