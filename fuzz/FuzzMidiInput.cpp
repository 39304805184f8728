// Any document is read as translations of MIDI events, never more than it has; what they write is read as the same
// again, and every event can be looked up and asked for its zones.
#include <sstream>

#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/model/MidiEventConfigurationMap.h"
#include "backend/xml/XmlDocument.h"
#include "fuzz/Fuzzing.h"

using namespace Backend;
using namespace Backend::MidiInput;

namespace
{
MidiEventConfigurationMap read(std::string_view text)
{
    MidiEventConfigurationMap map;
    map.readXml(XmlDocument(text, XmlDocument::Source::text).getRoot(),
                TranslationManagement::createTranslationFromXml);
    return map;
}

std::string print(const MidiEventConfigurationMap& map)
{
    std::ostringstream out;
    map.writeXml(out, 0, {});
    return out.str();
}

/// Without a backend a translation only looks at the event.
void playTo(const MidiEventConfigurationMap& map, const MidiEvent& event)
{
    const auto input = event.input < 0 ? 0 : event.input;
    const auto channel = event.channel < 0 ? 0 : event.channel;
    const MidiEngine::MidiMessage& message = event.message;
    const MidiEngine::OrvMidiMessage incoming(
        {.type = message.getStatus(), .d1 = message.getD1(), .d2 = 100, .channel = channel, .input = input});
    const MidiEventConfiguration* found = map.findBest(incoming);
    if (found == nullptr) return;
    require(found->getEvent().isSameKind(event));
    found->execute(incoming);
    std::vector<FunctionManagement::FunctionNoteSpan> spans;
    found->getNoteSpans(spans);
    for (const auto& span : spans)
        require(span.zone >= 0 && span.zone <= 127 && span.lowNote.getNumber() <= span.highNote.getNumber() &&
                span.highNote.getNumber() <= 127);
}
}  // namespace

void tryInput(std::string_view text)
{
    const auto map = read(text);
    const std::string printed = print(read(print(map)));  // a TAB in a name has become a blank by now
    require(print(read(printed)) == printed);
    const auto iterator = map.createIterator();
    while (const MidiEventConfiguration* configuration = iterator->next()) playTo(map, configuration->getEvent());
}
