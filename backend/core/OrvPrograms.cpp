// How a program comes in: from a bank or a file, section by section.

#include <array>
#include <string_view>

#include "backend/core/GuiMessages.h"
#include "backend/core/Orv.h"
#include "backend/persistence/XmlDocument.h"
#include "platform/DbgStream.h"

namespace Backend
{
namespace
{
constexpr std::string_view PROGRAM_FILE = ".prg";

/// The program element of that place among the root's, or none.
XmlElement findProgram(const XmlElement& root, int index)
{
    XmlElement found;
    int count = 0;
    forEachElement(root, [&](const XmlElement& child) {
        if (child.getTagName() == "Program" && count++ == index) found = child;
    });
    return found;
}
}  // namespace

void Orv::loadBank(const std::string& path)
{
    if (path.empty()) return;
    bank = Bank::fromFile(path);
    tellGui(GuiMessage::BANK, bank);
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

/// A program file has one program; in a bank it is the one of that number. Where there is none the sections stay.
void Orv::loadProgramFrom(const std::string& path, int number)
{
    midiEngine.sendReset();
    tellGui(GuiMessage::ORV_RESET, 0);
    program = Program{};
    program.number = number;
    bool wasFound = false;
    if (!path.empty()) {
        const XmlDocument document(path, XmlDocument::Source::file);
        const XmlElement element = findProgram(document.getRoot(), path.ends_with(PROGRAM_FILE) ? 0 : number);
        wasFound = element.hasElement();
        if (wasFound)
            readProgram(element);
        else
            WindowsLib::DbgStream() << path << ": no program " << number;
    }
    midiEngine.getMessageManager().postSetTempo(program.tempo);
    midiEngine.getMessageManager().postSetTempoSource(program.tempoSource);
    tellGui(GuiMessage::PROGRAM, program);
    if (wasFound && !initializing) controlManager.sendAll(true);
}

void Orv::readProgram(const XmlElement& element)
{
    program.name = element.getAttribute("name");
    const int tempo = element.getIntAttribute("tempo", program.tempo);
    if (tempo >= Program::LOWEST_TEMPO && tempo <= Program::HIGHEST_TEMPO) program.tempo = tempo;
    program.tempoSource = static_cast<std::int8_t>(element.getIntAttribute("tempoSource", program.tempoSource));

    // In the order in which sections that are missing are emptied. An input section that is emptied brings the zones
    // up to date, whose notes come from the inputs.
    struct Section {
        const char* tag;
        void (*read)(Orv& orv, const XmlElement& section);
        void (*empty)(Orv& orv);
    };
    constexpr auto sections = std::to_array<Section>(
        {{"Oscillators", [](Orv& orv, const XmlElement& section) { orv.oscManager.readXml(section); },
          [](Orv& orv) { orv.oscManager.setDefaults(); }},
         {"Joystick", [](Orv& orv, const XmlElement& section) { orv.joystickManager.readXml(section); },
          [](Orv& orv) { orv.joystickManager.setDefaults(); }},
         {"ComputerInput", [](Orv& orv, const XmlElement& section) { orv.computerInputManager.loadSection(section); },
          [](Orv& orv) { orv.computerInputManager.setDefaults(); }},
         {"MidiInput", [](Orv& orv, const XmlElement& section) { orv.midiInputManager.loadSection(section); },
          [](Orv& orv) { orv.midiInputManager.setDefaults(); }},
         {"Controls", [](Orv& orv, const XmlElement& section) { orv.controlManager.loadSection(section); },
          [](Orv& orv) { orv.controlManager.setDefaults(); }},
         {"Layers", [](Orv& orv, const XmlElement& section) { orv.layerManager.readXml(section); },
          [](Orv& orv) { orv.layerManager.setDefaults(); }},
         {"Zones", [](Orv& orv, const XmlElement& section) { orv.zoneManager.readXml(section); },
          [](Orv& orv) { orv.zoneManager.setDefaults(); }}});

    std::array<bool, sections.size()> seen{};
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
