#include "backend/files/PresetManager.h"

#include <filesystem>

#include "api/OrvUtils.h"
#include "backend/files/FileName.h"
#include "backend/files/PresetFiles.h"
#include "backend/xml/Text.h"
#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"

namespace Backend
{
namespace
{
namespace fs = std::filesystem;
using WindowsLib::DbgStream;

constexpr const char* EXTENSION = ".pst";

PresetEntry readEntry(const fs::path& file)
{
    const XmlDocument document(textOf(file), XmlDocument::Source::file);
    return {textOf(file.stem()), document.getRoot().getBoolAttribute("merge", false)};
}

void report(const std::string& path, const char* what, const std::error_code& error)
{
    if (error) DbgStream() << path << ": " << what << ": " << error.message();
}
}  // namespace

void PresetManager::refresh()
{
    list.clear();
    for (const fs::path& file : listPresetFiles(section.folder)) list.add(readEntry(file));
}

std::string PresetManager::getFolder() const { return OrvUtils::pathIn(OrvUtils::getOrvAppDataDir(), section.folder); }

std::string PresetManager::getPresetPath(std::string_view name) const
{
    return staysInFolder(name) ? OrvUtils::pathIn(getFolder(), std::string(name) + EXTENSION) : "";
}

std::string PresetManager::findPreset(std::string_view name) const
{
    const std::string path = getPresetPath(name);
    std::error_code none;
    if (!path.empty() && fs::is_regular_file(pathOf(path), none)) return path;
    DbgStream() << section.folder << ": no preset \"" << name << "\"";
    return "";
}

/// Returns whether it was done.
bool PresetManager::changed(const PresetChange& change) const
{
    if (onChange) onChange(change);
    return change.done;
}

bool PresetManager::save(std::string_view name, const ElementWriter& writeElement)
{
    const std::string newName(Text::trim(name));
    const std::string path = isValidFileName(newName) ? getPresetPath(newName) : "";
    if (path.empty()) return changed({.done = false, .newName = newName});
    std::string text = xmlHeader() + "\n\n";
    writeElement(text);
    std::error_code error;
    fs::create_directories(pathOf(getFolder()), error);
    if (!error) error = WholeFile::replace(pathOf(path), text);
    report(path, "not saved", error);
    if (!error) list.add(readEntry(pathOf(path)));
    return changed({.done = !error, .newName = newName});
}

bool PresetManager::rename(std::string_view oldName, std::string_view newName)
{
    PresetChange change{.done = false, .oldName = std::string(oldName), .newName = std::string(Text::trim(newName))};
    const std::string oldPath = getPresetPath(oldName);
    const std::string newPath = isValidFileName(change.newName) ? getPresetPath(change.newName) : "";
    if (list.find(oldName) == nullptr || oldPath.empty() || newPath.empty()) return changed(change);
    std::error_code error;
    fs::rename(pathOf(oldPath), pathOf(newPath), error);
    report(oldPath, "not renamed", error);
    change.done = !error;
    if (change.done) list.rename(oldName, change.newName);
    return changed(change);
}

bool PresetManager::remove(std::string_view name)
{
    PresetChange change{.done = false, .oldName = std::string(name)};
    if (list.find(name) == nullptr) return changed(change);
    const std::string path = getPresetPath(name);
    std::error_code error;
    if (!path.empty() && !fs::remove(pathOf(path), error) && !error && !fs::is_directory(pathOf(getFolder())))
        error = std::make_error_code(std::errc::not_a_directory);  // Windows takes it for a file that is gone
    report(path, "not removed", error);
    change.done = !error;
    if (change.done) list.remove(change.oldName);
    return changed(change);
}
}  // namespace Backend
