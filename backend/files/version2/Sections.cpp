#include "backend/files/version2/Sections.h"

#include <ostream>
#include <utility>

#include "backend/files/BankScanner.h"
#include "backend/files/PresetManager.h"
#include "backend/files/version2/Events.h"
#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"
#include "platform/DbgStream.h"
#include "platform/Path.h"
#include "platform/WholeFile.h"

namespace Backend::Version2
{
namespace
{
constexpr const char* DEFAULT_PRESET = "000 - Default";
constexpr int DEFAULT_ZONES = 2;  // those in which the keys of the default preset play

/// The lines of an element, without the indentation of the first one.
std::string withoutIndent(std::string_view text, TextSpan element)
{
    const auto lineBegin = withItsLines(text, element).begin;
    const std::string indent(text.substr(lineBegin, element.begin - lineBegin));
    std::string lines;
    for (const char character : element.of(text))
        if (character != '\r') lines += character;
    for (auto at = lines.find('\n' + indent); at != std::string::npos; at = lines.find('\n' + indent, at + 1))
        lines.erase(at + 1, indent.size());
    return lines + '\n';
}

std::string readDefaultPreset()
{
    const std::string path = PresetManager(PresetSections::COMPUTER_INPUT).findPreset(DEFAULT_PRESET);
    std::vector<std::uint8_t> bytes;
    if (!path.empty() && !XmlDocument(path, XmlDocument::Source::file).getRoot().hasElement()) return "";
    if (!path.empty() && WholeFile::read(pathOf(path), XmlDocument::MAX_SIZE, bytes)) return "";
    return {bytes.begin(), bytes.end()};
}

/// Writes the start tag of a section, its attribute "merge" and its other attributes, its elements, and its end tag.
template <class Elements>
void writeSection(std::ostream& out, int indent, const char* tag, bool merge, const std::string& attributes,
                  const Elements& elements)
{
    const std::string tabs = std::string(static_cast<std::size_t>(indent), '\t');
    out << tabs << xmlOpenTag(tag) << xmlBoolAttribute("merge", merge) << attributes << xmlCloseOpen() << '\n';
    for (const auto& element : elements) out << indented(element, indent + 1);
    out << tabs << xmlEndTag(tag) << '\n';
}

template <class Id>
std::vector<std::string> valuesOf(const std::map<Id, std::string>& elements)
{
    std::vector<std::string> values;
    for (const auto& [id, element] : elements) values.push_back(element);
    return values;
}

std::string midiEventText(const InputEvent& event, const std::vector<std::string>& translations)
{
    std::string text = xmlOpenTag("MidiEvent") + xmlIntAttribute("input", event.input) +
                       xmlIntAttribute("channel", event.channel) + xmlStringAttribute("midiEvent", event.midiEvent) +
                       xmlCloseOpen() + "\n";
    for (const std::string& translation : translations) text += indented(translation, 1);
    return text + xmlEndTag("MidiEvent") + "\n";
}
}  // namespace

Sections Sections::withDefaultKeys()
{
    Sections sections;
    const std::string text = readDefaultPreset();
    const auto layout = scanElements(text, "Key");
    if (!layout) return sections;
    for (const TextSpan& span : layout->elements) {
        const std::string id = XmlDocument(span.of(text), XmlDocument::Source::text).getRoot().getAttribute("id");
        sections.keys[Key::fromXmlString(id)] = withoutIndent(text, span);
    }
    return sections;
}

void Sections::writeProgram(std::ostream& out, const std::string& name) const
{
    out << xmlOpenTag("Program") << xmlStringAttribute("name", name) << xmlIntAttribute("tempo", tempo)
        << xmlIntAttribute("tempoSource", tempoSource) << xmlCloseOpen() << '\n';
    // A section that names a preset is read from the preset alone, so it must not be named if the file has keys of its
    // own.
    writeSection(out, 1, "ComputerInput", false, ownKeys.empty() ? xmlStringAttribute("preset", DEFAULT_PRESET) : "",
                 valuesOf(keys));
    writeMidiInput(out, 1, false);
    writeControls(out, 1, false);
    writeLayers(out, 1, false);
    std::vector<std::string> zones;
    for (int zone = 0; zone < DEFAULT_ZONES; ++zone)
        zones.push_back(xmlOpenTag("Zone") + xmlIntAttribute("id", zone) + xmlIntAttribute("transpose", 0) +
                        xmlCloseEmpty() + "\n");
    writeSection(out, 1, "Zones", false, "", zones);
    out << xmlEndTag("Program") << '\n';
}

void Sections::writeComputerInput(std::ostream& out, int indent, bool merge) const
{
    writeSection(out, indent, "ComputerInput", merge, "", valuesOf(merge ? ownKeys : keys));
}

void Sections::writeMidiInput(std::ostream& out, int indent, bool merge) const
{
    std::vector<std::string> events;
    for (const auto& [event, list] : translations) events.push_back(midiEventText(event, list));
    writeSection(out, indent, "MidiInput", merge, "", events);
}

void Sections::writeControls(std::ostream& out, int indent, bool merge) const
{
    writeSection(out, indent, "Controls", merge, "", valuesOf(controls));
}

void Sections::writeLayers(std::ostream& out, int indent, bool merge) const
{
    writeSection(out, indent, "Layers", merge, "", layers);
}
}  // namespace Backend::Version2
