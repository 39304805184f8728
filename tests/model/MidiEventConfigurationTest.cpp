#include <gtest/gtest.h>

#include <sstream>

#include "backend/model/MidiEventConfigurationMap.h"
#include "backend/xml/XmlDocument.h"
#include "backend/xml/XmlWriter.h"

using namespace Backend::MidiInput;
using namespace Backend::MidiInput::TranslationManagement;
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::MidiMessage;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
/// Any translation, known by its name. "Unchanged" passes everything through.
class Named final : public Translation
{
public:
    explicit Named(std::string theName) : name(std::move(theName)) {}

    std::unique_ptr<Translation> clone() const override { return std::make_unique<Named>(*this); }
    std::string_view getType() const override { return name; }
    void writeXml(std::ostream& out, int indent) const override
    {
        out << std::string(static_cast<std::size_t>(indent), '\t') << xmlOpenTag(name) << xmlCloseEmpty() << '\n';
    }
    void accept(TranslationVisitor&) override {}
    bool isPassThrough() const override { return name == UNCHANGED; }
    void execute(const OrvMidiMessage& message) override { done += name + std::to_string(message.getD1()) + " "; }
    int getHelpId() const override { return 0; }

    static inline std::string done;

private:
    std::string name;
};

/// Of the first element inside; "Nonsense" is none.
std::unique_ptr<Translation> createNamed(const XmlElement& element)
{
    std::unique_ptr<Translation> made;
    forEachElement(element, [&](const XmlElement& child) {
        if (!made && child.getTagName() != "Nonsense") made = std::make_unique<Named>(child.getTagName());
    });
    if (made) made->setCondition(MidiTranslationCondition::fromXmlString(element.getAttribute("condition", "Off")));
    return made;
}

MidiEventConfigurationMap read(const std::string& text, MidiEventConfigurationMap map = {})
{
    map.readXml(XmlDocument(text, XmlDocument::Source::text).getRoot(), createNamed);
    return map;
}

std::string print(const MidiEventConfigurationMap& map, const std::vector<MidiEvent>& events = {})
{
    std::ostringstream out;
    map.writeXml(out, 0, events);
    return out.str();
}

MidiEvent note(int input, int channel, int d1 = 60)
{
    return {static_cast<std::int8_t>(input), static_cast<std::int8_t>(channel), MidiMessage(MessageType::noteOn, d1)};
}

MidiEventConfiguration withTypes(const MidiEvent& event, std::initializer_list<const char*> types)
{
    MidiEventConfiguration configuration(event);
    for (const char* type : types) configuration.addTranslation(std::make_unique<Named>(type));
    return configuration;
}
}  // namespace

TEST(MidiEventConfiguration, RunsWhatItsConditionsLetInOrderOnTheSameMessage)
{
    const auto map =
        read(R"(<MidiInput><MidiEvent midiEvent="Note On,60">)"
             R"(<Translation condition="D2 gt 64"><A/><B/></Translation><Translation><Nonsense/></Translation>)"
             R"(<Translation condition="Off"><C/></Translation><Other><D/></Other></MidiEvent></MidiInput>)");
    const MidiEventConfiguration& configuration = *map.findElement(note(-1, -1));
    const auto run = [&](int velocity) {
        Named::done.clear();
        configuration.execute({MessageType::noteOn, 60, velocity, 0, -1, -1, 0, -1});
        return Named::done;
    };
    EXPECT_EQ(run(65), "A60 C60 ");
    EXPECT_EQ(run(64), "C60 ");
    EXPECT_EQ(configuration.getTranslationType(1), "C");
    EXPECT_EQ(configuration.getTranslationType(2), "DoNothing");
    EXPECT_EQ(MidiEventConfiguration().getTranslationType(0), "Unchanged");
    EXPECT_EQ(MidiEventConfiguration().getTranslationType(1), "DoNothing");
    EXPECT_EQ(print(map),
              "<MidiInput merge=\"false\">\n"
              "\t<MidiEvent input=\"-1\" channel=\"-1\" midiEvent=\"Note On,60\">\n"
              "\t\t<Translation condition=\"D2 gt 64\">\n"
              "\t\t\t<A/>\n"
              "\t\t</Translation>\n"
              "\t\t<Translation condition=\"Off\">\n"
              "\t\t\t<C/>\n"
              "\t\t</Translation>\n"
              "\t</MidiEvent>\n"
              "</MidiInput>\n");
}

TEST(MidiEventConfiguration, IsEmptyWhenItsEventPassesAsItIs)
{
    const auto isEmpty = [](std::initializer_list<const char*> types) { return withTypes({}, types).isEmpty(); };
    EXPECT_TRUE(isEmpty({}) && isEmpty({"Unchanged"}) && isEmpty({"Unchanged", "DoNothing"}));
    EXPECT_FALSE(isEmpty({"DoNothing"}) || isEmpty({"DoNothing", "Unchanged"}) || isEmpty({"Unchanged", "Unchanged"}) ||
                 isEmpty({"Unchanged", "DoNothing", "DoNothing"}));
}

TEST(MidiEventConfigurationMap, GivesTheMostSpecificOfFourKeys)
{
    const auto best = [](std::initializer_list<MidiEvent> keys, const OrvMidiMessage& message) {
        MidiEventConfigurationMap map;
        for (const MidiEvent& key : keys) map.put(key, MidiEventConfiguration(key));
        const MidiEventConfiguration* found = map.findBest(message);
        return found != nullptr ? found->getEvent().getPacked() : 0;
    };
    const OrvMidiMessage message(MessageType::noteOn, 60, 100, 3, -1, -1, 0, -1);
    const MidiEvent keys[] = {note(0, 3), note(0, -1), note(-1, 3), note(-1, -1)};
    EXPECT_EQ(best({keys[3], keys[2], keys[1], keys[0]}, message), keys[0].getPacked());
    EXPECT_EQ(best({keys[3], keys[2], keys[1]}, message), keys[1].getPacked());
    EXPECT_EQ(best({keys[3], keys[2]}, message), keys[2].getPacked());
    EXPECT_EQ(best({keys[3]}, message), keys[3].getPacked());
    EXPECT_EQ(best({note(1, 3), note(0, 2), note(1, -1), note(-1, 2), note(-1, -1, 61)}, message), 0u);
    const MidiEvent pressure{-1, -1, MidiMessage(MessageType::keyPressure, 1)};
    EXPECT_EQ(best({pressure}, {MessageType::keyPressure, 60, 9, 3, -1, -1, 0, -1}), pressure.getPacked());
}

TEST(MidiEventConfigurationMap, ReplacesOrMergesWhatItReadsAndTheLaterOneCounts)
{
    const std::string a =
        R"(<MidiEvent input="0" channel="1" midiEvent="Pitch Bend,3"><Translation><A/></Translation></MidiEvent>)";
    const std::string b =
        R"(<MidiEvent input="0" channel="1" midiEvent="Pitch Bend"><Translation><B/></Translation></MidiEvent>)";
    const std::string c = R"(<MidiEvent midiEvent="Foo"><Translation><C/></Translation></MidiEvent>)";
    const MidiEvent bend{0, 1, MidiMessage(MessageType::pitchBend)};
    auto map = read("<MidiInput>" + a + "<Other/>" + b + "</MidiInput>");
    ASSERT_EQ(map.size(), 1u);
    EXPECT_EQ(map.findElement(bend)->getTranslationType(0), "B");
    map = read("<MidiInput merge='yes'>" + c + "</MidiInput>", map);
    EXPECT_EQ(map.size(), 2u) << "a name that is none is kept, and meets no event";
    EXPECT_EQ(read("<MidiInput>" + a + "</MidiInput>", map).size(), 1u);
    EXPECT_EQ(read(print(map)).size(), 2u);
}

TEST(MidiEventConfigurationMap, StoresWhatActsOrHidesAndOnDemandWhatClears)
{
    MidiEventConfigurationMap map;
    const auto put = [&](const MidiEvent& event, std::initializer_list<const char*> types) {
        map.put(event, withTypes(event, types));
    };
    put(note(0, 3), {"Unchanged"});
    put(note(-1, -1), {"A"});
    put(note(0, 3, 61), {"Unchanged"});
    put(note(0, 3, 62), {});
    const auto again = read(print(map));
    EXPECT_EQ(again.size(), 2u) << "the empty ones alone with their note go";
    EXPECT_TRUE(again.findElement(note(0, 3)) != nullptr) << "it keeps the general one from acting";

    const std::string some = print(map, {note(5, 5), note(-1, -1)});
    EXPECT_TRUE(
        some.starts_with("<MidiInput merge=\"true\">\n"
                         "\t<MidiEvent input=\"5\" channel=\"5\" midiEvent=\"Note On,60\">\n"
                         "\t</MidiEvent>\n"
                         "\t<MidiEvent input=\"-1\" channel=\"-1\" midiEvent=\"Note On,60\">\n"));
}
