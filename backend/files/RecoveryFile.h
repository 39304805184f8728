#pragma once

#include <atomic>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/Event.h"
#include "platform/Export.h"
#include "platform/FileLock.h"
#include "platform/Mutex.h"
#include "platform/Thread.h"

namespace Backend
{
/// The file of what is not saved, from which the next start restores it after a crash. Only the process that holds its
/// lock reads, writes or removes it. It is written as a whole by a thread of its own with low priority, which waits
/// without a time limit while nothing changes. One thread, unless a function says otherwise.
class ORV_API RecoveryFile
{
public:
    using Text = std::function<std::string()>;

    /// The file of that number, from 1, in a folder; null if another process holds it or it cannot be locked.
    static std::unique_ptr<RecoveryFile> take(const std::filesystem::path& folder, int number);

    /// The thread ends; the file stays.
    ~RecoveryFile();

    bool exists() const;
    bool isNewerThan(const std::filesystem::path& other) const;
    const std::filesystem::path& getPath() const { return path; }

    /// Nothing if it cannot be read.
    std::optional<std::string> read() const;
    /// Renames it to the same name with this text appended, and a number if that is taken. Returns the new path; the
    /// old one if it could not be renamed.
    std::filesystem::path moveAside(const char* appended) const;

    /// Half a second after each `setChanged`, `request` is called on the file's thread; and `failed`, when the file
    /// cannot be written, once until it can be again. To be called once.
    void start(std::function<void()> request, std::function<void()> failed);
    void setChanged();
    /// `text` is called on the file's thread, and the file replaced.
    void write(Text text);

    /// Nothing is written any more, and the file is removed.
    void remove();

private:
    RecoveryFile(std::filesystem::path filePath, FileLock taken);
    void run(const std::function<void()>& request);
    void waitBeforeRequest();
    void replace(const std::string& text);
    void stop();

    const std::filesystem::path path;
    const FileLock lock;
    Event event;
    std::atomic<bool> isChanged{false};
    std::atomic<bool> isEnding{false};
    Mutex mutex;
    Text waiting GUARDED_BY(mutex);
    bool hasFailed = false;  // its thread's
    std::function<void()> reportFailure;
    Thread thread;
};
}  // namespace Backend
