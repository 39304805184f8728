#pragma once

#include <string>

/// While it stands, one call of the system that touches a file goes wrong: the disk is full, or the process dies there.
/// A write that meets its fault has written half of its bytes. The test program links `test_file_fault`, which puts
/// itself between our code and open, write, fsync, fchmod, close, rename and unlink. One thread.
class FileFault
{
public:
    enum class Kind { fullDisk, death, none };

    /// The fault meets the call of that number, counted from 0.
    FileFault(Kind kind, int call);
    ~FileFault();
    FileFault(const FileFault&) = delete;
    FileFault& operator=(const FileFault&) = delete;

    /// False if there were not that many calls.
    bool hasHappened() const;

    /// The calls so far, by name and separated by blanks.
    std::string calls() const;
};
