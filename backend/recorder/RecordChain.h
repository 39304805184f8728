#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "platform/Export.h"
#include "platform/FileLock.h"

namespace Backend::RetroRecord
{
/// Whether the record continues that of an earlier run and is kept for a later one, or is deleted at the end.
enum class Restore { no, yes };

/// The files with the record of one output: "<number>_<base name>.tmp" in a folder. Number 0 is written, higher ones
/// are older. The oldest events are dropped by removing a file. No other chain, in this or another process, uses the
/// same files. Nothing here throws; if the disk fails, the files stay as they are.
class ORV_API RecordChain
{
public:
    static constexpr int FILES = 10;
    static constexpr std::uintmax_t LARGEST_FILE = 200'000'000 / FILES;

    /// With `restore`, uses the present files of `name`; without it, or if another chain uses them, new ones.
    RecordChain(std::filesystem::path folder, const std::string& name, Restore restore);
    ~RecordChain();
    RecordChain(const RecordChain&) = delete;
    RecordChain& operator=(const RecordChain&) = delete;

    std::filesystem::path pathOfFile(int number) const;
    int getFilesInUse() const { return filesInUse; }

    /// Prepares file number 0 for appending: creates its folder, and cuts off an incomplete event at its end. Returns
    /// its size; nothing if it is no file of a record.
    std::optional<std::uintmax_t> prepareNewest();

    /// Adds 1 to the number of each file, so that number 0 is free. False if it is not.
    bool rollOver();

    /// Appends all whole events, oldest first. After an error the files are as before, and `bytes` must not be used.
    std::error_code appendTo(std::vector<std::uint8_t>& bytes, bool& anyPlayed) const;

    void removeFiles();

    /// Removes the files of chains that are not kept for a later run and whose processes were killed.
    static void removeOrphans(const std::filesystem::path& folder);

private:
    std::filesystem::path lockPath() const;
    void takeNewName();
    void findFiles();

    const std::filesystem::path folder;
    std::string baseName;
    std::optional<FileLock> lock;
    bool keepsFiles = false;
    int filesInUse = 1;
};
}  // namespace Backend::RetroRecord
