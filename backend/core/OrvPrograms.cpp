// How a program comes in: from a bank or a file, section by section.

#include <array>
#include <string_view>
#include <tuple>

#include "backend/core/Orv.h"
#include "backend/messages/GuiMessages.h"
#include "backend/xml/XmlDocument.h"
#include "platform/DbgStream.h"

namespace Backend
{
namespace
{
constexpr std::string_view PROGRAM_FILE = ".prg";
constexpr int ONLY_PROGRAM = 0;
}  // namespace

void Orv::loadBank(const std::string& path)
{
    if (path.empty()) return;
    bankFile.open(path);
    bank = {path, bankFile.getProgramNames()};
    notifyGui(GuiMessage::BANK, bank);
    changeProgram(program.number);
}

void Orv::changeProgram(int number) { loadProgramFrom(bank.name, number); }

void Orv::changeProgram(const SelectType& select)
{
    std::int64_t number = select.value;
    if (select.kind == SelectType::Kind::up) number = std::int64_t{program.number} + 1;
    if (select.kind == SelectType::Kind::down) number = std::int64_t{program.number} - 1;
    if (number < 0 || number >= static_cast<std::int64_t>(bank.programNames.size())) return;
    changeProgram(static_cast<int>(number));
}

void Orv::loadProgram(const std::string& path) { loadProgramFrom(path, program.number); }

/// A program file has one program; in a bank it is the one of that number.
void Orv::loadProgramFrom(const std::string& path, int number)
{
    beginProgram(number);
    const int index = path.ends_with(PROGRAM_FILE) ? ONLY_PROGRAM : number;
    if (path.empty()) {
        endProgram({}, "no bank");
    } else if (path == bank.name) {
        endProgram(bankFile.readProgram(index), path);
    } else {
        BankFile file;
        endProgram(file.open(path) ? file.readProgram(index) : XmlElement(), path);
    }
}

void Orv::loadProgramFromString(const std::string& text, int number)
{
    beginProgram(number);
    XmlElement element;
    forEachElement(XmlDocument(text, XmlDocument::Source::text).getRoot(), [&](const XmlElement& child) {
        if (child.getTagName() == "Program" && !element.hasElement()) element = child;
    });
    endProgram(element, "a program's text");
}

void Orv::beginProgram(int number)
{
    midiEngine.sendReset();
    notifyGui(GuiMessage::ORV_RESET);
    program = Program{};
    program.number = number;
}

/// Where there is no such program the sections stay.
void Orv::endProgram(const XmlElement& element, std::string_view source)
{
    if (element.hasElement())
        readProgram(element);
    else
        WindowsLib::DbgStream() << source << ": no program " << program.number;
    midiEngine.getMessageManager().postSetTempo(program.tempo);
    midiEngine.getMessageManager().postSetTempoSource(program.tempoSource);
    notifyGui(GuiMessage::PROGRAM, program, !element.hasElement());
    if (element.hasElement() && !initializing) controlManager.sendAll(true);
}

void Orv::readProgram(const XmlElement& element)
{
    program.name = element.getAttribute("name");
    const int tempo = element.getIntAttribute("tempo", program.tempo);
    if (tempo >= Program::LOWEST_TEMPO && tempo <= Program::HIGHEST_TEMPO) program.tempo = tempo;
    program.tempoSource = static_cast<std::int8_t>(element.getIntAttribute("tempoSource", program.tempoSource));

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
