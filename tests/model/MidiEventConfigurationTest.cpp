#include "backend/bindings/translations/TranslationFactories.h"
#include "backend/model/MidiEventConfigurationMap.h"
#include "tests/stage/Stage.h"

using namespace Backend::MidiInput;
using Backend::MidiEngine::MidiMessage;

namespace
{
MidiEventConfigurationMap read(const std::string& text, MidiEventConfigurationMap map = {})
{
    map.readXml(rootOf(text), TranslationManagement::createTranslationFromXml);
    return map;
}

std::string print(const MidiEventConfigurationMap& map, const std::vector<MidiEvent>& events = {})
{
    return flat(writtenBy([&](std::ostream& out) { map.writeXml(out, 0, events); }));
}

MidiEvent note(int input, int channel, int d1 = 60)
{
    return {static_cast<std::int8_t>(input), static_cast<std::int8_t>(channel), MidiMessage(MessageType::noteOn, d1)};
}

MidiEventConfiguration withTypes(const MidiEvent& event, std::initializer_list<const char*> types)
{
    MidiEventConfiguration configuration(event);
    for (const char* type : types) configuration.addTranslation(TranslationManagement::createTranslation(type));
    return configuration;
}
}  // namespace

TEST(MidiEventConfiguration, IsEmptyIfItLeavesItsEventAsItIs)
{
    const auto isEmpty = [](std::initializer_list<const char*> types) { return withTypes({}, types).isEmpty(); };
    EXPECT_TRUE(isEmpty({}) && isEmpty({"Unchanged"}) && isEmpty({"Unchanged", "DoNothing"}));
    EXPECT_FALSE(isEmpty({"DoNothing"}) || isEmpty({"DoNothing", "Unchanged"}) || isEmpty({"Unchanged", "Unchanged"}) ||
                 isEmpty({"Unchanged", "DoNothing", "DoNothing"}));
    const auto type = [](const MidiEventConfiguration& of, std::size_t row) { return of.getTranslationType(row); };
    EXPECT_EQ(type(withTypes({}, {"ResetOrv"}), 0), "ResetOrv");
    EXPECT_EQ(type(withTypes({}, {"ResetOrv"}), 1), "DoNothing");
    EXPECT_EQ(type(MidiEventConfiguration(), 0), "Unchanged");
    EXPECT_EQ(type(MidiEventConfiguration(), 1), "DoNothing");
}

TEST(MidiEventConfigurationMap, ReplacesOrMergesWhatItReadsAndWritesOnDemandWhatClears)
{
    const auto entry = [](const std::string& event) {
        return "<MidiEvent midiEvent='" + event + "'><Translation><ResetOrv/></Translation></MidiEvent>";
    };
    auto map = read("<MidiInput>" + entry("Note On,60") + "</MidiInput>");
    map = read("<MidiInput merge='yes'>" + entry("Foo") + "</MidiInput>", map);
    EXPECT_EQ(map.size(), 2u) << "a name that is none is kept, and no event has it";
    EXPECT_EQ(read("<MidiInput>" + entry("Pitch Bend") + "</MidiInput>", map).size(), 1u);
    EXPECT_EQ(read(print(map)).size(), 2u);
    EXPECT_EQ(print(map, {note(5, 5), note(-1, -1)}),
              "<MidiInput merge='true'><MidiEvent input='5' channel='5' midiEvent='Note On,60'></MidiEvent>"
              "<MidiEvent input='-1' channel='-1' midiEvent='Note On,60'><Translation condition='Off'><ResetOrv/>"
              "</Translation></MidiEvent></MidiInput>");
    const auto some = writtenBy([&](std::ostream& out) { map.writeXml(out, 0, std::vector{note(5, 5)}); });
    EXPECT_NE(some.find("\n\t<MidiEvent "), some.npos) << "indented as everything that is written";
}
