#include "backend/files/SequencePresetManager.h"

#include <algorithm>
#include <filesystem>

#include "api/OrvUtils.h"
#include "backend/files/FileName.h"
#include "backend/files/PresetFiles.h"
#include "backend/model/SequenceSetting.h"
#include "backend/xml/Text.h"
#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"

namespace Backend::SequenceManagement
{
namespace
{
namespace fs = std::filesystem;

constexpr const char* FOLDER = "Sequences";
constexpr const char* EXTENSION = ".seq";
constexpr std::string_view OFF = "Off";

/// The name under which a preset is stored, empty if it is not valid.
std::string storedName(std::string_view name)
{
    return isValidFileName(name) ? std::string(Text::trim(name)) : std::string();
}

/// Writes an error to the debug stream. True if there is none.
bool report(const std::error_code& error, const std::string& path, const char* what)
{
    if (error) WindowsLib::DbgStream() << path << ": " << what << ": " << error.message();
    return !error;
}
}  // namespace

SequenceSetting sequenceFromPreset(std::string_view name)
{
    SequenceSetting setting;
    setting.useLength = true;
    name = Text::trim(name);
    if (name.empty() || name == OFF) return setting;
    setting.preset = name;
    loadSequencePreset(setting);
    return setting;
}

void loadSequencePreset(SequenceSetting& setting)
{
    if (setting.preset.empty()) return;
    const std::string path = SequencePresetManager::getPresetPath(setting.preset);
    setting.nodes.clear();
    if (!path.empty()) setting.nodes = parseSequence(XmlDocument(path, XmlDocument::Source::file).getRoot().getText());
}

void SequencePresetManager::load()
{
    list.clear();
    for (const fs::path& file : listPresetFiles(FOLDER)) insert(textOf(file.stem()));
}

int SequencePresetManager::indexOf(std::string_view name) const
{
    const auto entry = std::ranges::find(list, name);
    return entry == list.end() ? -1 : static_cast<int>(entry - list.begin());
}

bool SequencePresetManager::addPreset(std::string_view name, std::string_view text)
{
    const std::string stored = storedName(name);
    const std::string path = stored.empty() ? "" : getPresetPath(stored);
    if (path.empty()) return false;
    const std::string document = xmlHeader() + "\n\t" + xmlStartTag("Sequence") + printSequence(parseSequence(text)) +
                                 xmlEndTag("Sequence") + "\n";
    std::error_code error;
    fs::create_directories(pathOf(path).parent_path(), error);
    if (!error) error = WholeFile::replace(pathOf(path), document);
    if (!report(error, path, "not saved")) return false;
    insert(stored);
    return true;
}

bool SequencePresetManager::renamePreset(std::string_view oldName, std::string_view newName)
{
    const std::string stored = storedName(newName);
    if (!exists(oldName) || stored.empty() || exists(stored)) return false;
    const std::string path = getPresetPath(oldName);
    std::error_code error;
    fs::rename(pathOf(path), pathOf(getPresetPath(stored)), error);
    if (!report(error, path, "not renamed")) return false;
    list.erase(list.begin() + indexOf(oldName));
    insert(stored);
    return true;
}

bool SequencePresetManager::deletePreset(std::string_view name)
{
    const int place = indexOf(name);
    if (place < 0) return false;
    const std::string path = getPresetPath(name);
    std::error_code error;
    fs::remove(pathOf(path), error);
    if (!report(error, path, "not removed")) return false;
    list.erase(list.begin() + place);
    return true;
}

std::string SequencePresetManager::getPresetPath(std::string_view name)
{
    if (!staysInFolder(name)) return "";
    return OrvUtils::pathIn(OrvUtils::pathIn(OrvUtils::getOrvAppDataDir(), FOLDER), std::string(name) + EXTENSION);
}

void SequencePresetManager::insert(std::string name)
{
    const auto place = std::ranges::lower_bound(list, name);
    if (place == list.end() || *place != name) list.insert(place, std::move(name));
}
}  // namespace Backend::SequenceManagement
