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
/// Whether the files of an earlier run are taken over, or the record starts clean and goes with its owner.
enum class Restore { no, yes };

/// The files of one output's record: "<number>_<base name>.tmp" in a folder, number 0 being written, higher ones older.
/// Dropping the oldest is one file less, never a rewrite. No other chain, in this process or another, has the same
/// files at the same time. Nothing here throws; a disk that fails leaves files as they are.
class ORV_API RecordChain
{
public:
    static constexpr int FILES = 10;
    static constexpr std::uintmax_t LARGEST_FILE = 200'000'000 / FILES;

    /// With `restore`, the files that `name` had before; if another chain has them, or without `restore`, new ones.
    RecordChain(std::filesystem::path folder, const std::string& name, Restore restore);
    ~RecordChain();
    RecordChain(const RecordChain&) = delete;
    RecordChain& operator=(const RecordChain&) = delete;

    std::filesystem::path pathOfFile(int number) const;
    int getFilesInUse() const { return filesInUse; }

    /// Makes file number 0 fit to be appended to: its folder is there, and what is no whole event at its end is cut
    /// away. Returns how many bytes it has; nothing if it cannot be a record's file.
    std::optional<std::uintmax_t> prepareNewest();

    /// Makes room for a new file number 0 by counting up all others. False if the old one is still there.
    bool rollOver();

    /// Appends all whole events, oldest first. With an error nothing is lost and the bytes are of no use.
    std::error_code appendTo(std::vector<std::uint8_t>& bytes, bool& anyPlayed) const;

    void removeFiles();

    /// Removes from a folder the files of chains that are not for a later run and whose owners were killed.
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
