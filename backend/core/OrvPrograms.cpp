// How a program comes in: from a bank or a file, section by section.

#include <array>
#include <ostream>
#include <string_view>
#include <vector>

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

/// In the order in which sections are written, and in which those that a program lacks are emptied. An input section
/// that is emptied brings the zones up to date, whose notes come from the inputs.
std::span<const Orv::Section> Orv::getSections()
{
    static constexpr auto SECTIONS = std::to_array<Section>(
        {{"Oscillators", [](Orv& orv, const XmlElement& section) { orv.oscManager.readXml(section); },
          [](Orv& orv) { orv.oscManager.setDefaults(); },
          [](Orv& orv, std::ostream& out, int indent) { orv.oscManager.writeXml(out, indent, {}); }},
         {"Joystick", [](Orv& orv, const XmlElement& section) { orv.joystickManager.readXml(section); },
          [](Orv& orv) { orv.joystickManager.setDefaults(); },
          [](Orv& orv, std::ostream& out, int indent) { orv.joystickManager.writeXml(out, indent); }},
         {"ComputerInput", [](Orv& orv, const XmlElement& section) { orv.computerInputManager.loadSection(section); },
          [](Orv& orv) { orv.computerInputManager.setDefaults(); },
          [](Orv& orv, std::ostream& out, int indent) {
              orv.computerInputManager.writeSection(out, indent, {}, false);
          }},
         {"MidiInput", [](Orv& orv, const XmlElement& section) { orv.midiInputManager.loadSection(section); },
          [](Orv& orv) { orv.midiInputManager.setDefaults(); },
          [](Orv& orv, std::ostream& out, int indent) { orv.midiInputManager.writeSection(out, indent, {}); }},
         {"Controls", [](Orv& orv, const XmlElement& section) { orv.controlManager.loadSection(section); },
          [](Orv& orv) { orv.controlManager.setDefaults(); },
          [](Orv& orv, std::ostream& out, int indent) { orv.controlManager.writeSection(out, indent, {}); }},
         {"Layers", [](Orv& orv, const XmlElement& section) { orv.layerManager.readXml(section); },
          [](Orv& orv) { orv.layerManager.setDefaults(); },
          [](Orv& orv, std::ostream& out, int indent) { orv.layerManager.writeXml(out, indent, {}); }},
         {"Zones", [](Orv& orv, const XmlElement& section) { orv.zoneManager.readXml(section); },
          [](Orv& orv) { orv.zoneManager.setDefaults(); },
          [](Orv& orv, std::ostream& out, int indent) { orv.zoneManager.writeXml(out, indent); }}});
    return SECTIONS;
}

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

    const auto sections = getSections();
    std::vector<bool> seen(sections.size());
    forEachElement(element, [&](const XmlElement& child) {
        for (std::size_t i = 0; i < sections.size(); ++i)
            if (child.getTagName() == sections[i].tag) {
                seen[i] = true;
                sections[i].read(*this, child);
            }
    });
    for (std::size_t i = 0; i < sections.size(); ++i)
        if (!seen[i]) sections[i].empty(*this);
}
}  // namespace Backend
