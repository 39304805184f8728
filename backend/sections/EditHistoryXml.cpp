// Histories as XML, for the recovery file.

#include <algorithm>
#include <charconv>
#include <set>

#include "backend/sections/EditHistory.h"
#include "backend/xml/XmlWriter.h"
#include "platform/Utf8.h"

namespace Backend
{
namespace
{
constexpr std::size_t LARGEST_STEPS = 256u << 10;  // bytes

std::size_t sizeOf(const EditStep& step)
{
    std::size_t size = step.name.size();
    for (const RecordChange& change : step.changes)
        for (const FieldChange& field : change.fields)
            size += field.name.size() + field.before.size() + field.after.size();
    return size;
}

std::string numberAttribute(const char* name, std::uint64_t value)
{
    return xmlStringAttribute(name, std::to_string(value));
}

std::uint64_t readNumber(const XmlElement& element, const char* name)
{
    const std::string text = element.getAttribute(name);
    std::uint64_t value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

std::string writeChange(const RecordChange& change)
{
    std::string text = xmlOpenTag("Change") + xmlStringAttribute("section", change.section) +
                       xmlIntAttribute("kind", static_cast<int>(change.kind)) + xmlIntAttribute("id", change.id) +
                       xmlCloseOpen() + '\n';
    for (const FieldChange& field : change.fields)
        text += xmlOpenTag("Field") + xmlStringAttribute("name", field.name) +
                xmlStringAttribute("before", field.before) + xmlStringAttribute("after", field.after) +
                xmlCloseEmpty() + '\n';
    return text + xmlEndTag("Change") + '\n';
}

RecordChange readChange(const XmlElement& element)
{
    constexpr int LAST_KIND = static_cast<int>(RecordEdit::Kind::remove);
    RecordChange change{
        .section = element.getAttribute("section"),
        .kind = static_cast<RecordEdit::Kind>(std::clamp(element.getIntAttribute("kind", 0), 0, LAST_KIND)),
        .id = element.getIntAttribute("id", 0)};
    forEachElement(element, [&](const XmlElement& field) {
        change.fields.push_back(
            {field.getAttribute("name"), field.getAttribute("before"), field.getAttribute("after")});
    });
    return change;
}

EditStep readStep(const XmlElement& element)
{
    EditStep step{.name = element.getAttribute("name"),
                  .gesture = static_cast<std::uint32_t>(readNumber(element, "gesture")),
                  .state = readNumber(element, "state")};
    forEachElement(element, [&](const XmlElement& change) { step.changes.push_back(readChange(change)); });
    return step;
}
}  // namespace

/// A section keeps the preset that it had before the first of the steps.
EditHistory EditHistory::getLatest(std::size_t count) const
{
    std::size_t begin = position;
    std::size_t end = position;
    std::size_t size = 0;
    const auto fits = [&](const EditStep& step) { return (size += sizeOf(step)) <= LARGEST_STEPS; };
    while (begin > 0 && position - begin < count && fits(steps[begin - 1])) --begin;
    while (end < steps.size() && end - position < count && fits(steps[end])) ++end;

    const auto at = [](std::size_t index) { return static_cast<std::ptrdiff_t>(index); };
    EditHistory latest;
    latest.steps.assign(steps.begin() + at(begin), steps.begin() + at(end));
    latest.position = position - begin;
    latest.first = stateAfter(begin);
    latest.newest = newest;
    latest.saved = saved;
    std::set<State> states{latest.first};
    for (const EditStep& step : latest.steps) states.insert(step.state);
    for (const auto& [place, preset] : presets) {
        if (states.contains(place.first)) latest.presets[place] = preset;
        const SectionPreset before = presetAfter(begin, place.second);
        if (!before.name.empty()) latest.presets[{latest.first, place.second}] = before;
    }
    return latest;
}

std::string EditHistory::toXml() const
{
    std::string text = xmlOpenTag("History") + numberAttribute("first", first) + numberAttribute("newest", newest) +
                       numberAttribute("saved", saved) + numberAttribute("position", position) + xmlCloseOpen() + '\n';
    for (const EditStep& step : steps) {
        text += xmlOpenTag("Step") + xmlStringAttribute("name", step.name) + numberAttribute("gesture", step.gesture) +
                numberAttribute("state", step.state) + xmlCloseOpen() + '\n';
        for (const RecordChange& change : step.changes) text += writeChange(change);
        text += xmlEndTag("Step") + '\n';
    }
    for (const auto& [place, preset] : presets)
        if (isUtf8(preset.name))
            text += xmlOpenTag("Preset") + numberAttribute("state", place.first) +
                    xmlStringAttribute("section", place.second) + xmlStringAttribute("name", preset.name) +
                    xmlBoolAttribute("edited", preset.isEdited) + xmlCloseEmpty() + '\n';
    return text + xmlEndTag("History") + '\n';
}

bool EditHistory::readXml(const XmlElement& element)
{
    EditHistory read;
    read.first = readNumber(element, "first");
    read.newest = readNumber(element, "newest");
    read.saved = readNumber(element, "saved");
    read.position = static_cast<std::size_t>(readNumber(element, "position"));
    forEachElement(element, [&](const XmlElement& child) {
        if (child.getTagName() == "Step") read.steps.push_back(readStep(child));
        if (child.getTagName() == "Preset")
            read.presets[{readNumber(child, "state"), child.getAttribute("section")}] = {
                child.getAttribute("name"), child.getBoolAttribute("edited", false)};
    });
    if (element.getTagName() != "History" || read.position > read.steps.size()) return false;
    *this = std::move(read);
    return true;
}
}  // namespace Backend
