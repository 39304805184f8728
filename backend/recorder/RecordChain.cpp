#include "backend/recorder/RecordChain.h"

#include <algorithm>
#include <charconv>
#include <random>
#include <set>
#include <span>
#include <string_view>
#include <utility>

#include "backend/recorder/RecordedEvents.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"

namespace Backend::RetroRecord
{
namespace fs = std::filesystem;
using WindowsLib::DbgStream;

namespace
{
constexpr std::string_view EXTENSION = ".tmp";
constexpr std::string_view LOCK_EXTENSION = ".lock";
// The first character of the base name of a chain that is not kept for a later run. In the name of an output that
// begins with it, it is doubled.
constexpr char NEW_NAME = '~';

bool isNewName(std::string_view baseName)
{
    return baseName.starts_with(NEW_NAME) && !baseName.substr(1).starts_with(NEW_NAME);
}

struct ChainFile {
    int number;  // LOCK for the lock file
    std::string baseName;
};
constexpr int LOCK = -1;

/// The parts of a chain's file name; nothing for any other file.
std::optional<ChainFile> parseFileName(std::string_view name)
{
    if (name.ends_with(LOCK_EXTENSION))
        return ChainFile{LOCK, std::string(name.substr(0, name.size() - LOCK_EXTENSION.size()))};
    int number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    const auto digits = static_cast<std::size_t>(end - name.data());
    if (error != std::errc() || number < 0 || !name.substr(digits).starts_with('_') || !name.ends_with(EXTENSION))
        return std::nullopt;
    const std::string_view base = name.substr(digits + 1);
    return ChainFile{number, std::string(base.substr(0, base.size() - EXTENSION.size()))};
}

/// Calls `visit` with the files of chains in a folder; `visit` may remove them.
template <class Visit>
void forEachChainFile(const fs::path& folder, Visit visit)
{
    std::vector<fs::path> paths;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error); !error && entry != fs::directory_iterator();
         entry.increment(error))
        paths.push_back(entry->path());
    for (const fs::path& path : paths)
        if (const auto file = parseFileName(textOf(path.filename()))) visit(path, *file);
}

fs::path lockPathOf(const fs::path& folder, const std::string& baseName)
{
    return folder / pathOf(baseName + std::string(LOCK_EXTENSION));
}

void removeFile(const fs::path& path)
{
    std::error_code error;
    fs::remove(path, error);
    if (error) DbgStream() << textOf(path) << ": not removed: " << error.message();
}

/// The bytes of a file, and how many of them are whole events.
struct FileContent {
    std::vector<std::uint8_t> bytes;
    WholeEvents whole;
};

/// Reads a file; a missing one counts as empty, and of one that is too large the beginning is read.
std::error_code readFile(const fs::path& path, FileContent& content)
{
    std::error_code error;
    if (fs::status(path, error).type() == fs::file_type::not_found) return {};
    if (error) return error;
    if (!fs::is_regular_file(path, error)) return std::make_error_code(std::errc::invalid_argument);
    error = WholeFile::read(path, RecordChain::LARGEST_FILE, content.bytes);
    if (error && error != std::errc::file_too_large) return error;
    content.whole = findWholeEvents(content.bytes);
    if (content.whole.size < content.bytes.size())
        DbgStream() << textOf(path) << ": damaged from byte " << content.whole.size << " on, which is left out";
    return {};
}
}  // namespace

RecordChain::RecordChain(fs::path inFolder, const std::string& name, Restore restore)
    : folder(std::move(inFolder)), baseName(name.starts_with(NEW_NAME) ? NEW_NAME + name : name)
{
    std::error_code none;
    fs::create_directories(folder, none);
    if (restore == Restore::yes && (lock = FileLock::take(lockPath()))) {
        keepsFiles = true;
        findFiles();
    } else {
        takeNewName();
    }
}

RecordChain::~RecordChain()
{
    if (!keepsFiles) removeFiles();
}

fs::path RecordChain::pathOfFile(int number) const
{
    return folder / pathOf(std::to_string(number) + "_" + baseName + std::string(EXTENSION));
}

fs::path RecordChain::lockPath() const { return lockPathOf(folder, baseName); }

void RecordChain::takeNewName()
{
    constexpr int ATTEMPTS = 100;  // all fail only if no file can be created in the folder
    std::random_device random;
    for (int attempt = 0; attempt < ATTEMPTS && !lock; ++attempt) {
        baseName = NEW_NAME + std::to_string(random());
        std::error_code none;
        if (!fs::exists(pathOfFile(0), none)) lock = FileLock::take(lockPath());
    }
}

void RecordChain::findFiles()
{
    forEachChainFile(folder, [&](const fs::path& path, const ChainFile& file) {
        if (file.baseName != baseName) return;
        if (file.number >= FILES)
            removeFile(path);
        else
            filesInUse = std::max(filesInUse, file.number + 1);
    });
}

std::optional<std::uintmax_t> RecordChain::prepareNewest()
{
    std::error_code error;
    fs::create_directories(folder, error);
    FileContent newest;
    error = readFile(pathOfFile(0), newest);
    if (!error && newest.whole.size < newest.bytes.size()) fs::resize_file(pathOfFile(0), newest.whole.size, error);
    if (error) {
        DbgStream() << textOf(pathOfFile(0)) << ": not recorded: " << error.message();
        return std::nullopt;
    }
    return newest.whole.size;
}

bool RecordChain::rollOver()
{
    if (filesInUse < FILES)
        ++filesInUse;
    else
        removeFile(pathOfFile(FILES - 1));
    std::error_code error;
    for (int number = filesInUse - 2; number >= 0; --number)
        fs::rename(pathOfFile(number), pathOfFile(number + 1), error);  // a missing file is no error
    return !fs::exists(pathOfFile(0), error) && !error;
}

std::error_code RecordChain::appendTo(std::vector<std::uint8_t>& bytes, bool& anyPlayed) const
{
    for (int number = filesInUse - 1; number >= 0; --number) {
        FileContent file;
        if (const auto error = readFile(pathOfFile(number), file)) return error;
        bytes.insert(bytes.end(), file.bytes.begin(),
                     file.bytes.begin() + static_cast<std::ptrdiff_t>(file.whole.size));
        anyPlayed = anyPlayed || file.whole.anyPlayed;
    }
    return {};
}

void RecordChain::removeFiles()
{
    for (int number = filesInUse - 1; number >= 0; --number) removeFile(pathOfFile(number));
    filesInUse = 1;
}

void RecordChain::removeOrphans(const fs::path& folder)
{
    std::set<std::string> left;
    forEachChainFile(folder, [&](const fs::path&, const ChainFile& file) {
        if (isNewName(file.baseName)) left.insert(file.baseName);
    });
    for (const std::string& baseName : left)
        if (const auto lock = FileLock::take(lockPathOf(folder, baseName)))
            forEachChainFile(folder, [&](const fs::path& path, const ChainFile& file) {
                if (file.baseName == baseName && file.number != LOCK) removeFile(path);
            });
}
}  // namespace Backend::RetroRecord
