#include "backend/files/RecoveryFile.h"

#include <chrono>
#include <cstdint>
#include <exception>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/DbgStream.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"

namespace Backend
{
namespace fs = std::filesystem;
using WindowsLib::DbgStream;

namespace
{
constexpr auto DELAY = std::chrono::milliseconds(500);
constexpr std::size_t LARGEST_RECOVERY = 1u << 30;  // bytes
}  // namespace

std::unique_ptr<RecoveryFile> RecoveryFile::take(const fs::path& folder, int number)
{
    const fs::path path = folder / ("recovery-" + std::to_string(number));
    fs::path lockPath = path;
    lockPath += ".lock";
    auto taken = FileLock::take(lockPath);
    if (!taken) return nullptr;
    return std::unique_ptr<RecoveryFile>(new RecoveryFile(path, std::move(*taken)));
}

RecoveryFile::RecoveryFile(fs::path filePath, FileLock taken) : path(std::move(filePath)), lock(std::move(taken)) {}

RecoveryFile::~RecoveryFile() { stop(); }

bool RecoveryFile::exists() const
{
    std::error_code none;
    return fs::exists(fs::symlink_status(path, none));
}

bool RecoveryFile::isNewerThan(const fs::path& other) const
{
    std::error_code missing;
    const auto time = fs::last_write_time(other, missing);
    std::error_code none;
    return missing || fs::last_write_time(path, none) > time;
}

std::optional<std::string> RecoveryFile::read() const
{
    std::vector<std::uint8_t> bytes;
    const auto error = WholeFile::read(path, LARGEST_RECOVERY, bytes);
    if (error) DbgStream() << textOf(path) << ": cannot be read: " << error.message();
    return error ? std::nullopt : std::optional(std::string(bytes.begin(), bytes.end()));
}

fs::path RecoveryFile::moveAside(const char* appended) const
{
    fs::path aside = path;
    aside += appended;
    std::error_code error;
    for (int twin = 2; fs::exists(fs::symlink_status(aside, error)); ++twin) {
        aside = path;
        aside += appended + ("-" + std::to_string(twin));
    }
    fs::rename(path, aside, error);
    DbgStream() << textOf(path) << ": "
                << (error ? "cannot be renamed: " + error.message() : "kept as " + aside.string());
    return error ? path : aside;
}

void RecoveryFile::start(std::function<void()> request, std::function<void()> failed)
{
    reportFailure = std::move(failed);
    thread.start("orv-recovery", [this, call = std::move(request)] { run(call); });
}

void RecoveryFile::setChanged()
{
    isChanged.store(true);
    event.set();
}

void RecoveryFile::write(Text text)
{
    {
        const MutexLock guard(mutex);
        waiting = std::move(text);
    }
    event.set();
}

void RecoveryFile::remove()
{
    stop();
    std::error_code error;
    fs::remove(path, error);
    if (error) DbgStream() << textOf(path) << ": cannot be removed: " << error.message();
}

void RecoveryFile::stop()
{
    isEnding.store(true);
    event.set();
    thread.join();
}

void RecoveryFile::run(const std::function<void()>& request)
{
    lowerThreadPriority();
    while (!isEnding.load()) {
        Text text;
        {
            const MutexLock guard(mutex);
            text = std::exchange(waiting, nullptr);
        }
        if (text) try {
                replace(text());
            } catch (const std::exception& failure) {
                DbgStream() << textOf(path) << ": " << failure.what();
            }
        else if (isChanged.exchange(false)) {
            waitBeforeRequest();
            if (!isEnding.load()) request();
        } else {
            event.wait();
        }
    }
}

/// Changes during this time are in what is requested.
void RecoveryFile::waitBeforeRequest()
{
    const auto end = std::chrono::steady_clock::now() + DELAY;
    for (auto now = end - DELAY; now < end && !isEnding.load(); now = std::chrono::steady_clock::now())
        event.waitFor(std::chrono::duration_cast<std::chrono::milliseconds>(end - now) + std::chrono::milliseconds(1));
}

/// A failure is reported once, until the file can be written again.
void RecoveryFile::replace(const std::string& text)
{
    const auto error = WholeFile::replace(path, text, WholeFile::Pace::gentle);
    const bool isNew = error && !hasFailed;
    hasFailed = static_cast<bool>(error);
    if (!isNew) return;
    DbgStream() << textOf(path) << ": not written: " << error.message();
    reportFailure();
}
}  // namespace Backend
