// Loading programs from a bank, a file or a text. See docs/behaviour/programs-and-banks.md.

#include <array>
#include <string_view>
#include <tuple>
#include <utility>

#include "backend/core/Orv.h"
#include "backend/messages/GuiMessages.h"
#include "backend/xml/XmlDocument.h"
#include "platform/DbgStream.h"

namespace Backend
{
namespace
{
using WindowsLib::DbgStream;

constexpr std::string_view PROGRAM_FILE = ".prg";
constexpr int ONLY_PROGRAM = 0;
}  // namespace

/// A file without a program is not loaded.
void Orv::loadBank(const std::string& path)
{
    assertBackendThread();
    if (!path.empty() && openBank(path)) showBank();
}

bool Orv::openBank(const std::string& path)
{
    BankFile file;
    if (!openProgramFile(path == bank.name ? bankFile : file, path)) {
        refuseLoad();
        return false;
    }
    history = {};
    drafts.forgetFrom(bank.name, 0);
    bankHistories.erase(path);
    if (path != bank.name) bankFile = std::move(file);
    takeBank(path);
    openSetList();
    return true;
}

void Orv::takeBank(const std::string& path) { bank = {path, bankFile.getProgramNames()}; }

void Orv::showBank()
{
    notifyGui(GuiMessage::BANK, bank);
    changeProgram(program.number);
}

void Orv::changeProgram(int number)
{
    assertBackendThread();
    const bool isOther = number != program.number;
    if (loadFromBank(number) && isOther) followInSetList();
}

bool Orv::loadFromBank(int number)
{
    const auto stored = findProgram(bank.name, number);
    if (!stored) refuseLoad();
    if (!stored) return false;
    leaveProgram();
    enterProgram(*stored, number);
    return true;
}

/// The function of a key waits for a save, as a command does.
void Orv::changeProgram(const SelectType& select)
{
    assertBackendThread();
    if (files.isBusy()) return orvMessageManager.postChangeProgram(select);
    const bool isStep = select.kind == SelectType::Kind::up || select.kind == SelectType::Kind::down;
    if (isStep && setList.leads()) return stepInSetList(select.kind);
    std::int64_t number = select.value;
    if (select.kind == SelectType::Kind::up) number = std::int64_t{program.number} + 1;
    if (select.kind == SelectType::Kind::down) number = std::int64_t{program.number} - 1;
    if (number < 0 || number >= static_cast<std::int64_t>(bank.programNames.size())) return;
    changeProgram(static_cast<int>(number));
}

/// A program of another file is not what the bank has under its number.
void Orv::loadProgram(const std::string& path)
{
    assertBackendThread();
    const auto element = findProgram(path, program.number);
    if (!element) return refuseLoad();
    history = {};
    if (keepsDrafts && path != bank.name && element->hasElement()) history.setUnsaved();
    replaceProgram(*element, program.number);
    updateEdited();
}

/// The only program of a program file, or the program of that number of a bank, which may be no element; nothing if the
/// file cannot be loaded.
std::optional<XmlElement> Orv::findProgram(const std::string& path, int number)
{
    BankFile other;
    BankFile& file = path == bank.name ? bankFile : other;
    XmlElement element;
    if (!path.empty()) {
        if (!openProgramFile(file, path)) return std::nullopt;
        element = file.readProgram(path.ends_with(PROGRAM_FILE) ? ONLY_PROGRAM : number);
        if (file.getProgramNames().empty()) return std::nullopt;
    }
    if (!element.hasElement()) DbgStream() << path << ": no program " << number;
    return element;
}

bool Orv::openProgramFile(BankFile& file, const std::string& path)
{
    if (!file.open(path)) return false;
    if (file.getProgramNames().empty()) DbgStream() << path << ": no program in it, not loaded";
    return !file.getProgramNames().empty();
}

void Orv::loadProgramFromString(const std::string& text, int number)
{
    assertBackendThread();
    XmlElement element;
    forEachElement(XmlDocument(text, XmlDocument::Source::text).getRoot(), [&](const XmlElement& child) {
        if (child.getTagName() == "Program" && !element.hasElement()) element = child;
    });
    if (!element.hasElement()) {
        DbgStream() << "a program's text: no program in it, not loaded";
        return refuseLoad();
    }
    leaveProgram();
    drafts.forget(bank.name, number);
    replaceProgram(element, number);
    updateEdited();
}

/// Nothing changes; the window gets the message that there is no such program.
void Orv::refuseLoad() const { notifyProgram(IsThere::no); }

/// Without an element the sections stay, and the program has no name.
void Orv::replaceProgram(const XmlElement& element, int number)
{
    if (!keepsNotes()) {
        midiEngine.sendReset();
        notifyGui(GuiMessage::ORV_RESET);
    }
    program = Program{};
    program.number = number;
    if (element.hasElement()) readProgram(element);
    midiEngine.getMessageManager().postSetTempo(program.tempo);
    midiEngine.getMessageManager().postSetTempoSource(program.tempoSource);
    notifyProgram(element.hasElement() ? IsThere::yes : IsThere::no);
    if (element.hasElement() && !initializing) controlManager.sendAll(true);
}

void Orv::notifyProgram(IsThere isThere) const { notifyGui(GuiMessage::PROGRAM, program, isThere == IsThere::no); }

void Orv::readProgram(const XmlElement& element)
{
    ProgramValues::read(element, program);
    std::array<bool, std::tuple_size_v<decltype(sections)>> found{};
    forEachElement(element, [&](const XmlElement& child) {
        for (std::size_t i = 0; i < sections.size(); ++i)
            if (child.getTagName() == sections[i]->getTag()) {
                found[i] = true;
                sections[i]->loadSection(child);
            }
    });
    for (std::size_t i = 0; i < sections.size(); ++i)
        if (!found[i]) sections[i]->setDefaults();
}
}  // namespace Backend
