// Saving programs into a bank, as a file or as a text, and changing the size of a bank. See
// docs/behaviour/programs-and-banks.md.

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <sstream>
#include <string_view>
#include <utility>

#include "backend/core/Orv.h"
#include "backend/files/version2/Version2Import.h"
#include "backend/messages/GuiMessages.h"
#include "backend/xml/Text.h"
#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"
#include "platform/Utf8.h"
#include "platform/WholeFile.h"

namespace Backend
{
namespace
{
using WindowsLib::DbgStream;

void notifyDone(const WindowHandle& window, bool written) { notify(window, GuiMessage::OPERATION_DONE, written); }

/// Writes a text, unless it could not be read again.
bool writeDocument(const std::string& path, const std::string& text)
{
    const bool isDocument = XmlDocument(text, XmlDocument::Source::text).getRoot().hasElement();
    const auto error = isDocument ? WholeFile::replace(pathOf(path), text) : std::error_code();
    if (error) DbgStream() << path << ": not written: " << error.message();
    return isDocument && !error;
}
}  // namespace

std::string Orv::writeProgram()
{
    std::ostringstream out;
    out << xmlOpenTag("Program") << ProgramValues::toXmlAttributes(program) << xmlCloseOpen() << '\n';
    for (const ProgramSection* section : sections) section->writeInProgram(out, 1);
    out << xmlEndTag("Program") << '\n';
    return out.str();
}

std::string Orv::writeProgramFile(const char* root)
{
    return xmlHeader() + "\n\n" + xmlStartTag(root) + "\n" + writeProgram() + xmlEndTag(root) + "\n";
}

std::string Orv::getProgramAsString()
{
    assertBackendThread();
    return writeProgramFile("OrvProgramFile");
}

/// Calls `write` on the files thread; then the window gets the result.
void Orv::writeFile(std::function<bool()> write, const WindowHandle& window)
{
    const auto written = std::make_shared<bool>(false);
    files.run([written, write = std::move(write)] { *written = write(); },
              [written, window] { notifyDone(window, *written); });
}

void Orv::saveToProgram(const std::string& path, const WindowHandle& window)
{
    assertBackendThread();
    const std::string file(Text::trim(path));
    if (file.empty()) return;
    writeFile([file, text = writeProgramFile("ProgramFile")] { return writeDocument(file, text); }, window);
}

void Orv::saveToCurrentBank(int number, const WindowHandle& window)
{
    assertBackendThread();
    saveInto(bank.name, number, window);
}

void Orv::saveToBank(const std::string& path, const WindowHandle& window)
{
    assertBackendThread();
    saveInto(path, program.number, window);
}

/// A program that is saved in its own place is not loaded again, so it plays on; while drafts are kept, nor is one that
/// is saved in another place. Otherwise the current program is loaded at once as the bank will have it, so that changes
/// during the save are kept. If the file cannot be written, the program is restored.
void Orv::saveInto(const std::string& path, int number, const WindowHandle& window)
{
    if (number < 0 || path.empty() || bank.name.empty()) return;
    if (path == bank.name && window && !bankFile.isUnchanged()) return reportChange(window);
    const std::string text = writeProgram();
    const XmlElement saved = XmlDocument(text, XmlDocument::Source::text).getRoot();
    const bool isCurrentBank = path == bank.name;
    const bool hasPlace = !isCurrentBank || static_cast<std::size_t>(number) < bank.programNames.size();
    if (!hasPlace) DbgStream() << path << ": no program " << number;
    if (!hasPlace || !saved.hasElement()) return notifyDone(window, false);

    const int current = program.number;
    const bool isCurrentProgram = number == current;
    const bool loadsAgain = !isCurrentProgram && !keepsDrafts;
    if (loadsAgain) {
        history = {};
        replaceProgram(bankFile.readProgram(current), current);
        updateEdited();
    }

    const auto file = std::make_shared<BankFile>(isCurrentBank ? std::move(bankFile) : BankFile());
    const auto written = std::make_shared<bool>(false);
    const EditHistory::State state = history.getState();
    files.run(
        [=] {
            *written = file->create(path, number, text) || (file->open(path) && file->replaceProgram(number, text));
        },
        [=, this] {
            if (isCurrentBank || *written) bankFile = std::move(*file);
            if (*written) {
                if (isCurrentBank && isCurrentProgram) renameInSetList(number, saved.getAttribute("name"));
                takeBank(path);
                notifyGui(GuiMessage::BANK, bank);
                isCurrentBank ? updateSetList() : openSetList();
                drafts.forget(path, number);
                if (isCurrentProgram) {
                    history.setSaved(state);
                    notifyProgram(IsThere::yes);
                }
                updateEdited();
            }
            if (!*written && loadsAgain) replaceProgram(saved, current);
            notifyDone(window, *written);
        });
}

/// The user is told that another program has changed the current bank, and sees its programs. The next save replaces
/// one of these.
void Orv::reportChange(const WindowHandle& window)
{
    const auto file = std::make_shared<BankFile>(std::move(bankFile));
    files.run([=, path = bank.name] { file->open(path); },
              [=, this] {
                  bankFile = std::move(*file);
                  takeBank(std::string(bank.name));
                  notifyGui(GuiMessage::BANK, bank);
                  updateSetList();
                  notify(window, GuiMessage::FILE_CHANGED);
              });
}

void Orv::changeBankSize(int size, const WindowHandle& window)
{
    assertBackendThread();
    if (size <= 0 || size == static_cast<int>(bank.programNames.size()) || bank.name.empty()) return;
    if (program.number >= size) changeProgram(size - 1);
    const auto file = std::make_shared<BankFile>(std::move(bankFile));
    const auto written = std::make_shared<bool>(false);
    files.run([=, path = bank.name] { *written = file->open(path) && file->resize(size) && file->open(path); },
              [=, this] {
                  bankFile = std::move(*file);
                  if (*written) {
                      takeBank(std::string(bank.name));
                      updateSetList();
                      drafts.forgetFrom(bank.name, size);
                      showBank();
                  }
                  notifyDone(window, *written);
              });
}

void Orv::changeProgramName(const std::string& name)
{
    assertBackendThread();
    const std::string text(name.c_str());
    if (!isUtf8(text)) {
        DbgStream() << "a name for a program is not UTF-8, ignored";
        return;
    }
    program.name = text;
    notifyGui(GuiMessage::PROGRAM_NAME, program);
}

void Orv::setDefaultBank(const std::string& path)
{
    assertBackendThread();
    if (!path.empty() && !openBank(path)) return;
    changeSetting<Settings::DEFAULT_BANK>(*this, path);
    if (!path.empty()) showBank();
}

// --- files of version 2

void Orv::importVersion2Bank(const std::string& source, const std::string& target, const WindowHandle& window)
{
    assertBackendThread();
    if (source.empty() || target.empty()) return;
    writeFile([=] { return Version2::importBank(source, target); }, window);
}

void Orv::importVersion2Program(const std::string& source, const std::string& target, const WindowHandle& window)
{
    assertBackendThread();
    if (source.empty() || target.empty()) return;
    writeFile([=] { return Version2::importProgram(source, target); }, window);
}

void Orv::importVersion2Preset(const std::string& source, const std::string& name, const WindowHandle& window)
{
    assertBackendThread();
    if (source.empty() || name.empty()) return;
    const auto preset = std::make_shared<std::optional<Version2::Preset>>();
    files.run([=] { *preset = Version2::readPreset(source); },
              [=, this] { notifyDone(window, *preset && savePreset(source, **preset, name)); });
}

bool Orv::savePreset(const std::string& source, const Version2::Preset& preset, const std::string& name)
{
    PresetManager& presets = findSection(preset.section).getPresets();
    const bool isTarget = Version2::isSameFile(source, presets.getPresetPath(Text::trim(name)));
    if (isTarget) DbgStream() << source << ": not imported: it would replace itself";
    return !isTarget && presets.save(name, [&](std::string& text) { text += preset.element; });
}

// --- presets

ProgramSection& Orv::findSection(const PresetSection& section) const
{
    return **std::ranges::find(sections, std::string_view(section.rootElement), &ProgramSection::getTag);
}

void Orv::loadPreset(const PresetSection& section, const std::string& name)
{
    assertBackendThread();
    if (findSection(section).loadPreset(name)) history.setPreset(section.rootElement, name);
    updateSectionPresets();
}

/// Reads the list of presets; the history follows what becomes of them.
void Orv::connectPresets(ProgramSection& section)
{
    PresetManager& presets = section.getPresets();
    presets.refresh();
    presets.onChange = [this, &section](const PresetChange& change) {
        if (change.done) history.presetChanged(section.getTag(), change.oldName, change.newName);
        notifyGuiOfPresets(section.getPresets(), change.done);
        updateSectionPresets();
    };
    section.onSaved = [this, &section](const std::string& name) {
        const bool isOther = &section == &computerInputManager && name != computerInputManager.getCurrentPreset();
        if (!isOther) history.setPreset(section.getTag(), name);
        updateSectionPresets();
    };
}

/// The window gets the preset of a section when it changes. Keys know theirs, because programs name it.
void Orv::updateSectionPresets(Repeat repeat)
{
    for (std::size_t index = 0; index < shownPresets.size(); ++index) {
        SectionPreset preset = history.getPreset(PresetSections::ALL[index].rootElement);
        if (index == PresetSections::indexOf(PresetSections::COMPUTER_INPUT))
            preset.name = computerInputManager.getCurrentPreset();
        if (repeat == Repeat::no && preset == shownPresets[index]) continue;
        shownPresets[index] = preset;
        notifyGui(GuiMessage::SECTION_PRESET, static_cast<std::uint32_t>(index), preset.isEdited, preset.name);
    }
}

void Orv::notifyGuiOfPresets(const PresetManager& presets, bool done) const
{
    notifyGui(GuiMessage::PRESETS, static_cast<std::uint32_t>(PresetSections::indexOf(presets.getSection())), done,
              presets.getList());
}

void Orv::addSequencePreset(const std::string& name, const std::string& text)
{
    assertBackendThread();
    notifyGui(GuiMessage::SEQUENCE_PRESETS, sequencePresets.addPreset(name, text));
}

void Orv::deleteSequencePreset(const std::string& name)
{
    assertBackendThread();
    notifyGui(GuiMessage::SEQUENCE_PRESETS, sequencePresets.deletePreset(name));
}

void Orv::renameSequencePreset(const std::string& name, const std::string& newName)
{
    assertBackendThread();
    notifyGui(GuiMessage::SEQUENCE_PRESETS, sequencePresets.renamePreset(name, newName));
}
}  // namespace Backend
