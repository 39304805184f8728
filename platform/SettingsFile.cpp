#include "platform/SettingsFile.h"

#include <system_error>

#include "platform/DbgStream.h"
#include "platform/Folders.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"

namespace
{
namespace fs = std::filesystem;
using WindowsLib::DbgStream;

constexpr std::size_t LARGEST_FILE = 1u << 20;

bool isFileName(std::string_view part)
{
    return !part.empty() && part != "." && part != ".." && part.find('/') == std::string_view::npos &&
           part.find('\0') == std::string_view::npos;
}

/// The file of a key; empty if the key is not possible.
fs::path fileOf(std::string_view key)
{
    constexpr std::string_view HIVE = "Software\\";
    const std::string folder = Folders::getSettings();
    if (folder.empty() || !key.starts_with(HIVE)) return {};
    fs::path path = pathOf(folder);
    for (key.remove_prefix(HIVE.size());;) {
        const auto end = key.find('\\');
        const std::string_view part = key.substr(0, end);
        if (!isFileName(part)) return {};
        path /= pathOf(part);
        if (end == std::string_view::npos) return path;
        key.remove_prefix(end + 1);
    }
}

bool isMissing(const std::error_code& error) { return error == std::errc::no_such_file_or_directory; }

fs::path asideOf(const fs::path& path)
{
    std::error_code none;
    fs::path aside = path;
    aside += ".unreadable";
    for (int twin = 2; fs::exists(fs::symlink_status(aside, none)); ++twin) {
        aside = path;
        aside += ".unreadable-" + std::to_string(twin);
    }
    return aside;
}
}  // namespace

SettingsFile::SettingsFile(const std::string& key) : path(fileOf(key))
{
    if (isOpen())
        read();
    else
        DbgStream() << "no folder for the settings of " << key;
}

void SettingsFile::read()
{
    std::vector<std::uint8_t> bytes;
    const std::error_code error = WholeFile::read(path, LARGEST_FILE, bytes);
    isThere = !isMissing(error);
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    readable = !error && SettingsText::isText(text);
    if (isThere && !readable)
        DbgStream() << textOf(path) << ": settings cannot be read: " << (error ? error.message() : "not a text");
    if (!readable) return;
    onDisk = text;
    values = SettingsText(text);
}

bool SettingsFile::moveAside() const
{
    const fs::path aside = asideOf(path);
    std::error_code error;
    fs::rename(path, aside, error);
    DbgStream() << textOf(path) << ": "
                << (error ? "cannot be renamed: " + error.message() : "kept as " + textOf(aside));
    return !error;
}

bool SettingsFile::save()
{
    if (!isOpen()) return false;
    const std::string text = values.print();
    if (isThere && readable && text == onDisk) return true;
    if (isThere && !readable && !moveAside()) return false;
    std::error_code error;
    fs::create_directories(path.parent_path(), error);
    if (!error) error = WholeFile::replace(path, text);
    if (error) {
        DbgStream() << textOf(path) << ": settings not saved: " << error.message();
        return false;
    }
    onDisk = text;
    isThere = readable = true;
    return true;
}
