#include "backend/model/MidiEventConfiguration.h"

#include <ostream>
#include <utility>

#include "backend/xml/XmlElement.h"
#include "backend/xml/XmlWriter.h"

namespace Backend::MidiInput
{
using TranslationManagement::DO_NOTHING;
using TranslationManagement::Translation;
using TranslationManagement::UNCHANGED;

namespace
{
constexpr const char* MIDI_EVENT = "MidiEvent";
constexpr const char* TRANSLATION = "Translation";

std::string tabs(int count) { return std::string(static_cast<std::size_t>(count), '\t'); }

void writeTranslation(std::ostream& out, int indent, const Translation& translation)
{
    out << tabs(indent) << xmlOpenTag(TRANSLATION) << xmlItemAttribute("condition", translation.getCondition())
        << xmlCloseOpen() << '\n';
    translation.writeXml(out, indent + 1);
    out << tabs(indent) << xmlEndTag(TRANSLATION) << '\n';
}
}  // namespace

MidiEventConfiguration::MidiEventConfiguration(const MidiEventConfiguration& other) : event(other.event)
{
    for (const auto& translation : other.translations) translations.push_back(translation->clone());
}

MidiEventConfiguration& MidiEventConfiguration::operator=(MidiEventConfiguration other) noexcept
{
    event = other.event;
    translations = std::move(other.translations);
    return *this;
}

MidiEventConfiguration MidiEventConfiguration::fromXml(
    const XmlElement& element, const TranslationManagement::TranslationFactory& createTranslation)
{
    MidiEventConfiguration configuration(MidiEvent::fromXml(element));
    forEachElement(element, [&](const XmlElement& child) {
        if (child.getTagName() == TRANSLATION) configuration.addTranslation(createTranslation(child));
    });
    return configuration;
}

void MidiEventConfiguration::writeXml(std::ostream& out, int indent) const
{
    out << tabs(indent) << xmlOpenTag(MIDI_EVENT) << event.toXmlAttributes() << xmlCloseOpen() << '\n';
    for (const auto& translation : translations) writeTranslation(out, indent + 1, *translation);
    out << tabs(indent) << xmlEndTag(MIDI_EVENT) << '\n';
}

void MidiEventConfiguration::addTranslation(std::unique_ptr<Translation> translation)
{
    if (translation) translations.push_back(std::move(translation));
}

std::string_view MidiEventConfiguration::getTranslationType(std::size_t index) const
{
    if (index < translations.size()) return translations[index]->getType();
    return translations.empty() && index == 0 ? UNCHANGED : DO_NOTHING;
}

bool MidiEventConfiguration::isEmpty() const
{
    if (translations.empty()) return true;
    if (!translations.front()->isPassThrough()) return false;
    return translations.size() == 1 || (translations.size() == 2 && translations.back()->getType() == DO_NOTHING);
}

void MidiEventConfiguration::setOrv(OrvIF& orv)
{
    for (const auto& translation : translations) translation->setOrv(orv);
}

void MidiEventConfiguration::execute(const MidiEngine::OrvMidiMessage& message) const
{
    for (const auto& translation : translations)
        if (translation->getCondition().isTrue(message)) translation->execute(message);
}

void MidiEventConfiguration::getNoteSpans(std::vector<FunctionManagement::FunctionNoteSpan>& result) const
{
    for (const auto& translation : translations)
        if (const auto span = translation->getNoteSpan(event); span.isPlayed()) result.push_back(span);
}
}  // namespace Backend::MidiInput
