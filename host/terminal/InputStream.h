#pragma once

#include <cstddef>
#include <memory>
#include <span>

namespace Host
{
/// A terminal, pipe or file that a thread reads until another thread interrupts it.
class InputStream
{
public:
    /// The descriptor stays open and belongs to the caller.
    explicit InputStream(int fileDescriptor);
    ~InputStream();

    InputStream(const InputStream&) = delete;
    InputStream& operator=(const InputStream&) = delete;

    /// Waits for bytes, and returns how many were read: 0 at the end of the input, after an error, and from
    /// `interrupt` on. Text of a terminal is UTF-8. One thread.
    std::size_t read(std::span<char> bytes);

    /// Input that was not read stays unread. Another thread.
    void interrupt();

private:
    struct File;
    const std::unique_ptr<File> file;
};
}  // namespace Host
