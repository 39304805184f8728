#include "platform/SettingsStore.h"

#include <filesystem>
#include <system_error>

#include "platform/DbgStream.h"
#include "platform/Folders.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"
#include "platform/linux/SettingsText.h"

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

struct SettingsStore::File {
    fs::path path;
    SettingsText values;
    std::string onDisk;
    bool exists = false;
    bool readable = true;

    void read()
    {
        std::vector<std::uint8_t> bytes;
        const std::error_code error = WholeFile::read(path, LARGEST_FILE, bytes);
        exists = !isMissing(error);
        const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
        readable = !error && SettingsText::isText(text);
        if (exists && !readable)
            DbgStream() << path.string() << ": settings cannot be read: " << (error ? error.message() : "not a text");
        if (!readable) return;
        onDisk = text;
        values = SettingsText(text);
    }

    bool moveAside()
    {
        const fs::path aside = asideOf(path);
        std::error_code error;
        fs::rename(path, aside, error);
        DbgStream() << path.string() << ": "
                    << (error ? "cannot be renamed: " + error.message() : "kept as " + aside.string());
        return !error;
    }

    bool save()
    {
        const std::string text = values.print();
        if (exists && readable && text == onDisk) return true;
        if (exists && !readable && !moveAside()) return false;
        std::error_code error;
        fs::create_directories(path.parent_path(), error);
        if (!error) error = WholeFile::replace(path, text);
        if (error) {
            DbgStream() << path.string() << ": settings not saved: " << error.message();
            return false;
        }
        onDisk = text;
        exists = readable = true;
        return true;
    }
};

SettingsStore::SettingsStore(const std::string& key) : file(std::make_unique<File>())
{
    file->path = fileOf(key);
    if (isOpen())
        file->read();
    else
        DbgStream() << "no folder for the settings of " << key;
}

SettingsStore::~SettingsStore() = default;

bool SettingsStore::isOpen() const { return !file->path.empty(); }

bool SettingsStore::exists() const { return file->exists; }

std::optional<std::string> SettingsStore::getString(std::string_view name) const
{
    return file->values.getString(name);
}

std::optional<std::int32_t> SettingsStore::getNumber(std::string_view name) const
{
    return file->values.getNumber(name);
}

std::optional<std::vector<std::uint8_t>> SettingsStore::getBytes(std::string_view name) const
{
    return file->values.getBytes(name);
}

void SettingsStore::setString(std::string_view name, std::string_view text) { file->values.setString(name, text); }

void SettingsStore::setNumber(std::string_view name, std::int32_t number) { file->values.setNumber(name, number); }

void SettingsStore::setBytes(std::string_view name, std::span<const std::uint8_t> bytes)
{
    file->values.setBytes(name, bytes);
}

bool SettingsStore::save() { return isOpen() && file->save(); }
