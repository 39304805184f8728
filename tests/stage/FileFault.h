#pragma once

#include <optional>
#include <string>

/// While it exists, one call of the system on a file fails: the disk is full, or the process is killed there. A write
/// that fails has written half of its bytes. The test program links `test_file_fault`, which replaces the calls that
/// open a file, write, flush, close, rename and remove it; on Windows not those that only read or close. One thread.
class FileFault
{
public:
    enum class Kind { fullDisk, death, none };

    /// The call of that number fails, counted from 0.
    FileFault(Kind kind, int call);
    ~FileFault();
    FileFault(const FileFault&) = delete;
    FileFault& operator=(const FileFault&) = delete;

    /// False if there were not that many calls.
    bool hasHappened() const;

    /// The calls so far, by name and separated by blanks.
    std::string calls() const;

    /// Those of the replacement of a file.
    static const char* const REPLACEMENT;
};

/// What `save` returns while its call of that number finds a full disk; nothing if there were not that many calls.
template <class Save>
std::optional<bool> saveWithFault(int call, Save&& save)
{
    const FileFault fault(FileFault::Kind::fullDisk, call);
    const bool saved = save();
    return fault.hasHappened() ? std::optional(saved) : std::nullopt;
}
