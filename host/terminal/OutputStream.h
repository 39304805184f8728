#pragma once

#include <chrono>
#include <memory>
#include <string>

namespace Host
{
/// A terminal, pipe or file that is written to without depending on its reader. One thread at a time.
class OutputStream
{
public:
    /// The descriptor stays open and belongs to the caller. One that is not open takes everything.
    explicit OutputStream(int fileDescriptor);
    ~OutputStream();

    OutputStream(const OutputStream&) = delete;
    OutputStream& operator=(const OutputStream&) = delete;

    /// Whether something can be written within that time.
    bool isWritable(std::chrono::milliseconds patience) const;

    /// Writes the text, and removes from it what was written or will be. False if the reader did not go on within
    /// `patience`.
    bool write(std::string& text, std::chrono::milliseconds patience);

private:
    struct File;
    const std::shared_ptr<File> file;
};
}  // namespace Host
