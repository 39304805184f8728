#include "backend/sections/computerinput/DefaultKeys.h"

#include <array>
#include <span>
#include <string_view>
#include <utility>

#include "backend/values/Note.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::ComputerInput
{
namespace
{
using namespace std::string_view_literals;
using MidiEngine::getNoteName;
using MidiEngine::Octave;

/// A row of keys that are played like a piano, one semitone each.
struct PianoRow {
    int zone;
    int lowestNote;
    std::span<const std::string_view> keys;
};

// clang-format off
constexpr std::array UPPER_ROWS{"Q"sv, "2"sv, "W"sv, "3"sv, "E"sv, "R"sv, "5"sv, "T"sv, "6"sv, "Y"sv, "7"sv, "U"sv,
                                "I"sv, "9"sv, "O"sv, "0"sv, "P"sv, "Left Bracket"sv, "Equals"sv, "Right Bracket"sv};
constexpr std::array LOWER_ROWS{"Z"sv, "S"sv, "X"sv, "D"sv, "C"sv, "V"sv, "G"sv, "B"sv, "H"sv, "N"sv, "J"sv, "M"sv,
                                "Comma"sv, "L"sv, "Period"sv, "Semicolon"sv, "Slash"sv};
// clang-format on

constexpr PianoRow PIANO[] = {{0, 60, UPPER_ROWS}, {1, 48, LOWER_ROWS}};

enum class Sends { once, asLongAsHeld };

/// Any other key. The functions are written like elements without the brackets; empty for none.
struct OtherKey {
    std::string_view key;
    Sends sends;
    std::string_view down;
    std::string_view up = {};
};

constexpr OtherKey OTHERS[] = {
    {"Backspace", Sends::once, R"(ChangeControl type="selected" value="127")",
     R"(ChangeControl type="selected" value="0")"},
    {"Insert", Sends::once, R"(ChangeControl type="selected" value="127")"},
    {"Delete", Sends::once, R"(ChangeControl type="selected" value="0")"},
    {"Control Delete", Sends::once, R"(ChangeControl type="selected" value="64")"},
    {"Page Up", Sends::asLongAsHeld, R"(ChangeControl type="selected" value="+1")"},
    {"Page Down", Sends::asLongAsHeld, R"(ChangeControl type="selected" value="-1")"},
    {"Home", Sends::asLongAsHeld, R"(ChangeControl type="selected" value="+10")"},
    {"End", Sends::asLongAsHeld, R"(ChangeControl type="selected" value="-10")"},
    {"Up", Sends::asLongAsHeld, R"(SelectControl type="up")"},
    {"Down", Sends::asLongAsHeld, R"(SelectControl type="down")"},
    {"Left", Sends::asLongAsHeld, R"(SelectControl type="left")"},
    {"Right", Sends::asLongAsHeld, R"(SelectControl type="right")"},
    {"Control Up", Sends::asLongAsHeld, R"(MoveWindow x="" y="-10")"},
    {"Control Down", Sends::asLongAsHeld, R"(MoveWindow x="" y="+10")"},
    {"Control Left", Sends::asLongAsHeld, R"(MoveWindow x="-10" y="")"},
    {"Control Right", Sends::asLongAsHeld, R"(MoveWindow x="+10" y="")"},
    {"F1", Sends::once, R"(ChangeZoneTranspose type="selected" value="-12")"},
    {"F2", Sends::once, R"(ChangeZoneTranspose type="selected" value="+12")"},
    {"Shift F1", Sends::once, R"(ChangeZoneTranspose type="selected" value="-1")"},
    {"Shift F2", Sends::once, R"(ChangeZoneTranspose type="selected" value="+1")"},
    {"F3", Sends::once, R"(SelectZone type="down")"},
    {"F4", Sends::once, R"(SelectZone type="up")"},
    {"Space", Sends::once, R"(MidiControllerChange controller="1" value="127")",
     R"(MidiControllerChange controller="1" value="0")"},
    {"Numpad 7", Sends::once, R"(MidiControllerChange controller="1" value="127")"},
    {"Numpad 4", Sends::once, R"(MidiControllerChange controller="1" value="0")"},
    {"Numpad 8", Sends::once, R"(MidiControllerChange controller="64" value="127")"},
    {"Numpad 5", Sends::once, R"(MidiControllerChange controller="64" value="0")"},
    {"Numpad 1", Sends::once, R"(MidiPitchBend value="0")", R"(MidiPitchBend value="8192")"},
    {"Numpad 2", Sends::once, R"(MidiPitchBend value="16383")", R"(MidiPitchBend value="8192")"},
    {"Numpad -", Sends::once, "ResetOrv"},
    {"Numpad +", Sends::once, R"(SendControlData type="all")"},
    {"Numpad *", Sends::once, "", R"(ShowDisplay type="toggle")"},
    {"Numpad .", Sends::once, "", R"(ShowOutput type="toggle")"},
    {"Numpad 3", Sends::once, "", R"(ShowControl type="toggle")"},
    {"Numpad 9", Sends::once, "", R"(ShowMidiInput type="toggle")"},
    {"Numpad Enter", Sends::once, "", R"(ShowZone type="toggle")"},
    {"", Sends::once, R"(MoveWindow x="542" y="449")"},  // without a key, as in old setups
};

// It has no semitone between two black keys of the upper rows; it is listed without a function.
constexpr std::string_view UNBOUND_KEY = "1";

std::string noteElement(const char* type, int zone, const std::string& note)
{
    return type + xmlIntAttribute("zone", zone) + xmlStringAttribute("note", note) + xmlIntAttribute("velocity", 100);
}

class Section
{
public:
    explicit Section(int indent) : level(indent) {}

    void open()
    {
        line(0, xmlOpenTag("ComputerInput") + xmlBoolAttribute("merge", false) +
                    xmlBoolAttribute("useKeyUpMod", false) + xmlCloseOpen());
    }

    void key(std::string_view id, Sends sends, std::string_view down, std::string_view up)
    {
        openKey(id);
        line(3,
             xmlOpenTag("Function") + xmlBoolAttribute("keepSending", sends == Sends::asLongAsHeld) + xmlCloseOpen());
        slot("Down", down);
        slot("Up", up);
        line(3, xmlEndTag("Function"));
        line(1, xmlEndTag("Key"));
    }

    void unboundKey(std::string_view id)
    {
        openKey(id);
        line(1, xmlEndTag("Key"));
    }

    std::string close()
    {
        line(0, xmlEndTag("ComputerInput"));
        return std::move(text);
    }

private:
    void openKey(std::string_view id)
    {
        line(1, xmlOpenTag("Key") + xmlStringAttribute("id", id) + xmlBoolAttribute("global", true) + xmlCloseOpen());
    }

    void slot(const char* tag, std::string_view function)
    {
        if (function.empty()) return;
        line(4, xmlStartTag(tag));
        line(5, xmlOpenTag(function) + xmlCloseEmpty());
        line(4, xmlEndTag(tag));
    }

    void line(int deeper, const std::string& content)
    {
        text.append(static_cast<std::size_t>(level + deeper), '\t').append(content).append("\n");
    }

    const int level;
    std::string text;
};
}  // namespace

std::string defaultKeysXml(int indent)
{
    Section section(indent);
    section.open();
    for (const PianoRow& row : PIANO)
        for (int step = 0; const std::string_view key : row.keys) {
            const std::string note = getNoteName(row.lowestNote + step++, Octave::with);
            section.key(key, Sends::once, noteElement("MidiNoteOn", row.zone, note),
                        noteElement("MidiNoteOff", row.zone, note));
        }
    for (const OtherKey& other : OTHERS) section.key(other.key, other.sends, other.down, other.up);
    section.unboundKey(UNBOUND_KEY);
    return section.close();
}
}  // namespace Backend::ComputerInput
