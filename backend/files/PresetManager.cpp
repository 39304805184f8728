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

void PresetManager::changed(bool done) const
{
    if (onChange) onChange(done);
}

bool PresetManager::save(std::string_view name, const ElementWriter& writeElement)
{
    const std::string path = isValidFileName(name) ? getPresetPath(Text::trim(name)) : "";
    if (path.empty()) return changed(false), false;
    std::string text = xmlHeader() + "\n\n";
    writeElement(text);
    std::error_code error;
    fs::create_directories(pathOf(getFolder()), error);
    if (!error) error = WholeFile::replace(pathOf(path), text);
    report(path, "not saved", error);
    if (!error) list.add(readEntry(pathOf(path)));
    changed(!error);
    return !error;
}

/// The entry is renamed even if the file could not be: the window has already renamed its own.
bool PresetManager::rename(std::string_view oldName, std::string_view newName)
{
    const std::string oldPath = getPresetPath(oldName);
    const std::string newPath = isValidFileName(newName) ? getPresetPath(Text::trim(newName)) : "";
    if (list.find(oldName) == nullptr || oldPath.empty() || newPath.empty()) return false;
    std::error_code error;
    fs::rename(pathOf(oldPath), pathOf(newPath), error);
    report(oldPath, "not renamed", error);
    list.rename(oldName, std::string(Text::trim(newName)));
    changed(!error);
    return true;
}

bool PresetManager::remove(std::string_view name)
{
    if (list.find(name) == nullptr) return false;
    const std::string path = getPresetPath(name);
    std::error_code error;
    if (!path.empty()) fs::remove(pathOf(path), error);
    report(path, "not removed", error);
    list.remove(std::string(name));
    changed(!error);
    return true;
}
}  // namespace Backend
