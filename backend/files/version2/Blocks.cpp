// The entries of each block, word by word. Inputs, outputs, channels, zones, rows and columns count from 1; 0 means
// none, all, or the default. Words after the required ones may be missing at the end.

#include "backend/files/version2/Blocks.h"
#include "backend/model/MidiEvent.h"

#include <algorithm>
#include <array>
#include <climits>

#include "backend/files/version2/Events.h"
#include "backend/files/version2/LayerBlock.h"
#include "backend/files/version2/Words.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::Version2
{
using FunctionManagement::MidiParameters;
using MidiEngine::MidiMessage;

namespace
{
constexpr int HIGHEST_PORT = 126;
constexpr int HIGHEST_CHANNEL = 15;
constexpr int HIGHEST_ZONE = 126;
constexpr int LAST_CELL = 15;
constexpr int HIGHEST_EVENT = 393;
constexpr int NOTE_OFF_VELOCITY = 100;

/// Reads the number of an event; 0 and a missing word mean none.
std::optional<MidiMessage> readEvent(Words& words)
{
    const int number = words.number(0, HIGHEST_EVENT, 0);
    const auto event = MidiInput::midiEventFromVersion2(number, 0, 0);
    if (number != 0 && !event) words.refuse();
    return event ? std::optional(event->message) : std::nullopt;
}

/// "<output> <channel> <zone>"
MidiParameters readPlace(Words& words)
{
    MidiParameters place;
    place.output = static_cast<std::int8_t>(words.ordinal(HIGHEST_PORT));
    place.channel = static_cast<std::int8_t>(words.ordinal(HIGHEST_CHANNEL));
    place.zone = static_cast<std::int8_t>(words.ordinal(HIGHEST_ZONE));
    return place;
}

std::string element(std::string_view tag, const std::string& inside)
{
    return xmlStartTag(tag) + "\n" + indented(inside, 1) + xmlEndTag(tag) + "\n";
}

// --- I <input> <channel> <event> [<to event> <to output> <to channel> <to zone>]
//
// Without a number after the first event, the event stays the same.

std::string translationText(const std::optional<MidiMessage>& to, const MidiParameters& place)
{
    const bool hasNumber = to && (to->isNote() || to->isControllerChange());
    return xmlOpenTag("Translation") + xmlStringAttribute("condition", "Off") + xmlCloseOpen() + "\n\t" +
           xmlOpenTag(to ? translationType(*to) : "Unchanged") + xmlCharAttribute("zone", place.zone) +
           xmlCharAttribute("output", place.output) + xmlCharAttribute("channel", place.channel) +
           xmlStringAttribute("D1", hasNumber ? std::to_string(to->getD1()) : "D1") + xmlStringAttribute("D2", "D2") +
           xmlCloseEmpty() + "\n" + xmlEndTag("Translation") + "\n";
}

bool readInput(Words& words, Sections& sections)
{
    InputEvent event;
    event.input = words.ordinal(HIGHEST_PORT);
    event.channel = words.ordinal(HIGHEST_CHANNEL);
    const auto from = readEvent(words);
    const auto to = readEvent(words);
    const MidiParameters place = readPlace(words);
    if (!from || !words.areUnderstood()) return false;
    event.midiEvent = from->toXmlString();
    sections.translations[event].push_back(translationText(to, place));
    return true;
}

// --- K <key> <event> <value> [<up event> <up value> <output> <channel> <zone>]
//
// A note-on without an event for the release of the key gets its note-off.

/// A text that is read as this key, empty if there is none. Not every printed name can be read.
std::string idOf(const Key& key)
{
    for (const std::string& id : {key.toXmlString(), std::string("Shift"), std::string("Control")})
        if (Key::fromXmlString(id) == key) return id;
    return "";
}

bool readKey(Words& words, Sections& sections)
{
    constexpr int HIGHEST_KEY = 900 + 255;  // with Shift and Control
    const Key key = Key::fromLegacyCode(words.number(1, HIGHEST_KEY, -1));
    const auto readValue = [&](const std::optional<MidiMessage>& event) {
        return words.number(0, event ? highestValue(*event) : INT_MAX, 0);
    };
    const auto down = readEvent(words);
    const int downValue = readValue(down);
    auto up = readEvent(words);
    int upValue = readValue(up);
    const MidiParameters place = readPlace(words);
    const std::string id = idOf(key);
    if (id.empty() || (!down && !up) || !words.areUnderstood()) return false;
    if (down && down->isNoteOn() && !up) {
        up = down;
        up->setToNoteOff();
        upValue = NOTE_OFF_VELOCITY;
    }
    std::string functions;
    if (down) functions += element("Down", functionText(*down, downValue, place));
    if (up) functions += element("Up", functionText(*up, upValue, place));
    const std::string function = xmlOpenTag("Function") + xmlBoolAttribute("keepSending", false) + xmlCloseOpen() +
                                 "\n" + indented(functions, 1) + xmlEndTag("Function") + "\n";
    sections.putKey(key, xmlOpenTag("Key") + xmlStringAttribute("id", id) + xmlBoolAttribute("global", true) +
                             xmlCloseOpen() + "\n" + indented(function, 2) + xmlEndTag("Key") + "\n");
    return true;
}

// --- C <row> <column> <type> <name> <value> <min> <max> <release> <auto send> <size> <event> <output> <channel> <zone>
//
// The type is a word, "none" for an empty cell; the name "_" is none; -1 is no release.

bool readControl(Words& words, Sections& sections)
{
    constexpr auto TYPES = std::to_array<std::string_view>({"none", "edit", "vfader", "hfader", "knob", "label"});
    const Cell cell{words.ordinal(LAST_CELL), words.ordinal(LAST_CELL)};
    const std::string_view type = words.word();
    const std::string name = words.text();
    std::string text = xmlOpenTag("Control") + xmlItemAttribute("cell", cell) +
                       xmlStringAttribute("type", type == TYPES[0] ? "" : type) +
                       xmlStringAttribute("name", name == " " ? "" : name);
    text += xmlIntAttribute("value", words.number(INT_MIN, INT_MAX, 0));
    text += xmlIntAttribute("min", words.number(INT_MIN, INT_MAX, 0));
    text += xmlIntAttribute("max", words.number(INT_MIN, INT_MAX, 127));
    text += xmlIntAttribute("release", words.number(-1, INT_MAX, -1));
    text += xmlBoolAttribute("autoSend", words.flag(false));
    text += xmlIntAttribute("size", words.number(1, LAST_CELL + 1, 1)) + xmlCloseOpen() + "\n";
    const auto event = readEvent(words);
    const MidiParameters place = readPlace(words);
    const bool isType = std::ranges::find(TYPES, type) != TYPES.end();
    if (cell.row < 0 || cell.col < 0 || !isType || !words.areUnderstood()) return false;
    if (event)
        text += "\t" + xmlOpenTag("Function") + xmlItemAttribute("midiEvent", *event) +
                xmlCharAttribute("output", place.output) + xmlCharAttribute("channel", place.channel) +
                xmlCharAttribute("zone", place.zone) + xmlCloseEmpty() + "\n";
    sections.controls[cell] = text + xmlEndTag("Control") + "\n";
    return true;
}

struct Block {
    char letter;
    bool (*readLine)(Words& words, Sections& sections);
};
constexpr auto BLOCKS = std::to_array<Block>({{'I', readInput}, {'K', readKey}, {'C', readControl}, {'L', readLayer}});
}  // namespace

void readBlocks(Lines& lines, Sections& sections)
{
    for (lines.passBlankLines(); !lines.atEnd(); lines.passBlankLines()) {
        const auto block = std::ranges::find(BLOCKS, lines.letter(), &Block::letter);
        if (block == BLOCKS.end()) return;
        for (; lines.letter() != 0; lines.next()) {
            Words words(lines.current());
            words.word();
            if (lines.letter() != block->letter || !block->readLine(words, sections)) lines.report("not understood");
        }
    }
}
}  // namespace Backend::Version2
