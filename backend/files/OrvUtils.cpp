#include "api/OrvUtils.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "backend/files/BankFile.h"
#include "backend/model/PresetSections.h"
#include "backend/xml/Text.h"
#include "platform/DbgStream.h"
#include "platform/FolderCopy.h"
#include "platform/Folders.h"
#include "platform/MidiDevices.h"
#include "platform/Module.h"
#include "platform/Path.h"
#include "platform/SettingsStore.h"
#include "platform/Shell.h"
#include "platform/WholeFile.h"

namespace Backend
{
namespace
{
namespace fs = std::filesystem;
using WindowsLib::DbgStream;

constexpr const char* COMPANY = "Brinlow Software";
constexpr const char* PRODUCT = "Orvane 3";
constexpr const char* VERSION = "3.2";
constexpr const char* PROG_DIR = "ProgDir";

std::string chosenDataFolder;

std::string withoutSeparatorAtEnd(std::string folder)
{
    if (folder.ends_with('/') || folder.ends_with(static_cast<char>(fs::path::preferred_separator))) folder.pop_back();
    return folder;
}

std::string factoryFolder(std::string_view name)
{
    return OrvUtils::pathIn(OrvUtils::pathIn(OrvUtils::getOrvProgDir(), "Default"), name);
}

void report(const std::string& path, const std::error_code& error)
{
    if (error) DbgStream() << path << ": not removed: " << error.message();
}

/// The names of the files in a folder, including links to files.
std::vector<fs::path> filesIn(const std::string& folder)
{
    std::vector<fs::path> names;
    std::error_code error;
    fs::directory_iterator entry(pathOf(folder), error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code none;
        if (entry->is_regular_file(none)) names.push_back(entry->path().filename());
    }
    return names;
}

bool isCopy(const fs::path& path, const fs::path& original)
{
    std::vector<std::uint8_t> bytes;
    std::vector<std::uint8_t> originalBytes;
    return !WholeFile::read(path, BankFile::MAX_SIZE, bytes) &&
           !WholeFile::read(original, BankFile::MAX_SIZE, originalBytes) && bytes == originalBytes;
}

void removeFile(const fs::path& path)
{
    std::error_code error;
    if (fs::symlink_status(path, error).type() == fs::file_type::directory) return;
    fs::remove(path, error);
    report(textOf(path), error);
}

/// Removes an empty folder.
void removeIfEmpty(const std::string& folder)
{
    std::error_code error;
    const fs::path path = pathOf(folder);
    if (fs::symlink_status(path, error).type() == fs::file_type::directory && fs::is_empty(path, error))
        fs::remove(path, error);
}

/// Whether a relative path leads to a place below the folder in which it starts.
bool staysBelow(std::string_view page)
{
    const fs::path path = pathOf(page);
    return path.is_relative() && page.find_first_of(std::string_view("\\:\0", 3)) == std::string_view::npos &&
           std::ranges::none_of(path, [](const fs::path& part) { return part == ".."; });
}
}  // namespace

void* OrvUtils::getDllInstance() { return getModuleHandle(); }

std::string OrvUtils::getRegistryKey(std::string_view applicationName)
{
    std::string key = "Software";
    for (const std::string_view part : {std::string_view(COMPANY), applicationName, std::string_view(VERSION)}) {
        key += '\\';
        key += part;
    }
    return key;
}

std::string OrvUtils::getOrvProgDir()
{
    const SettingsStore store(getRegistryKey(PRODUCT));
    return withoutSeparatorAtEnd(store.getString(PROG_DIR).value_or(""));
}

bool OrvUtils::setOrvProgDir(const std::string& folder)
{
    SettingsStore store(getRegistryKey(PRODUCT));
    store.setString(PROG_DIR, folder);
    return store.save();
}

std::string OrvUtils::getCompanyAppDataDir() { return pathIn(Folders::getLocalApplicationData(), COMPANY); }

std::string OrvUtils::getOrvAppDataDir()
{
    return chosenDataFolder.empty() ? pathIn(getCompanyAppDataDir(), PRODUCT) : chosenDataFolder;
}

std::string OrvUtils::getRecordDir() { return pathIn(getOrvAppDataDir(), "Retrospective Record"); }

void OrvUtils::setOrvAppDataDir(const std::string& folder) { chosenDataFolder = withoutSeparatorAtEnd(folder); }

std::string OrvUtils::pathIn(const std::string& folder, std::string_view name)
{
    return folder.empty() ? "" : textOf(pathOf(folder) / pathOf(name));
}

void OrvUtils::copyFiles(std::string_view sourceFolder, std::string_view targetFolder)
{
    const std::string source = factoryFolder(sourceFolder);
    const std::string target = pathIn(getOrvAppDataDir(), targetFolder);
    if (source.empty() || target.empty())
        DbgStream() << "no factory content for " << targetFolder << ": no install folder, or no data folder";
    else
        copyFolder(pathOf(source), pathOf(target));
}

void OrvUtils::install(bool withPort)
{
    if (withPort) installMidiPort();
}

void OrvUtils::uninstall()
{
    const std::string data = getOrvAppDataDir();
    if (data.empty()) return;
    for (const PresetSection& section : PresetSections::ALL) removeFiles(data, section.folder);
    removeFiles(data, "Sequences");
    removeFiles(data, "Banks");
    std::error_code error;
    fs::remove_all(pathOf(getRecordDir()), error);
    report(getRecordDir(), error);
    removeFile(pathOf(pathIn(data, "Midi Inputs.txt")));
    removeFile(pathOf(pathIn(data, "Midi Outputs.txt")));
    uninstallMidiPort();
    removeIfEmpty(data);
    if (chosenDataFolder.empty()) removeIfEmpty(getCompanyAppDataDir());
}

/// Removes from a folder the files of the factory content that the user has not changed, and then the folder if it is
/// empty.
void OrvUtils::removeFiles(const std::string& folder, std::string_view name)
{
    const fs::path source = pathOf(factoryFolder(name));
    const fs::path target = pathOf(pathIn(folder, name));
    for (const fs::path& file : filesIn(textOf(source)))
        if (isCopy(target / file, source / file)) removeFile(target / file);
    removeIfEmpty(textOf(target));
}

bool OrvUtils::virtualMidiPortExists() { return std::ranges::count(getMidiInputDevices(), getOrvPortName()) > 0; }

std::function<std::string()> OrvUtils::showManual(std::string_view page)
{
    const std::string_view name = Text::trim(page);
    const std::string manual = pathIn(getOrvProgDir(), "Manual");
    if (manual.empty()) return [] { return std::string("The manual is not installed."); };
    if (!staysBelow(name)) {
        DbgStream() << "no page of the manual: " << name;
        return [] { return std::string(); };
    }
    const std::string file = pathIn(manual, name.empty() ? "index.htm" : name);
    return [file, document = OpenedDocument(file)]() mutable {
        const std::string problem = document.getProblem();
        return problem.empty() ? "" : "The manual cannot be opened because " + problem + ". Its file is " + file + ".";
    };
}

void OrvUtils::installMidiPort() { DbgStream() << "this system has no driver for a virtual MIDI port to install"; }

void OrvUtils::uninstallMidiPort() { DbgStream() << "this system has no driver for a virtual MIDI port to remove"; }
}  // namespace Backend

void commitPort() { Backend::OrvUtils::install(true); }

void commitNoPort() { Backend::OrvUtils::install(false); }

void uninstall() { Backend::OrvUtils::uninstall(); }
