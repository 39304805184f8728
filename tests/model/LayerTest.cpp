#include "backend/model/Layer.h"

#include <gtest/gtest.h>

#include <sstream>

#include "backend/model/LayerList.h"
#include "backend/xml/XmlDocument.h"
#include "tests/stage/Stage.h"

using namespace Backend::Layers;
using Backend::MidiEngine::Note;

namespace
{
XmlElement rootOf(const std::string& text) { return XmlDocument(text, XmlDocument::Source::text).getRoot(); }

Layer layerOf(const std::string& attributes) { return Layer::fromXml(rootOf("<Layer " + attributes + "/>"), 0); }

std::string textOf(const LayerList& list, const std::vector<LayerId>& ids = {})
{
    std::ostringstream out;
    list.writeXml(out, 0, ids);
    return out.str();
}
}  // namespace

TEST(Layer, WithoutAttributesIsADefaultLayer)
{
    Layer plain;
    plain.id = 0;
    EXPECT_EQ(layerOf(""), plain);
    const Layer mono = layerOf("mono='true'");
    EXPECT_TRUE(mono.mono);
    EXPECT_TRUE(mono.useNoteStack);
    EXPECT_EQ(mono.maxNote, Note(127));
    EXPECT_EQ(mono.compress, Fraction{});
    EXPECT_EQ(layerOf("solo='true' selected='true' channel='20' minNote='nonsense' zone='x'"), [&] {
        Layer layer = plain;
        layer.channel = 20;
        layer.minNote = Note("nonsense");
        return layer;
    }()) << "solo is never read, values are not checked";
}

TEST(Layer, IsWrittenAsItIsReadAndReadAsItIsWritten)
{
    LayerList list;
    list.add({});
    Layer layer = layerOf(
        "mute='true' mono='true' toggle='type2' useNoteStack='false' minNote='C3' maxNote='B5' minVelocity='10' "
        "maxVelocity='99' zone='3' output='2' channel='-1' transpose='60' key='D-1' velocity='-5' compress='3/4'");
    layer.solo = layer.selected = true;
    list.add(layer);
    const std::string text = textOf(list);
    EXPECT_EQ(text,
              "<Layers merge=\"false\">\n"
              "\t<Layer mute=\"false\" mono=\"false\" toggle=\"off\" useNoteStack=\"true\" minNote=\"C-1\" "
              "maxNote=\"G9\" minVelocity=\"0\" maxVelocity=\"127\" zone=\"-1\" output=\"-1\" channel=\"0\" "
              "transpose=\"\" key=\"\" velocity=\"\" compress=\"1_1\">\n"
              "\t</Layer>\n"
              "\t<Layer mute=\"true\" mono=\"true\" toggle=\"type2\" useNoteStack=\"false\" minNote=\"C3\" "
              "maxNote=\"B5\" minVelocity=\"10\" maxVelocity=\"99\" zone=\"3\" output=\"2\" channel=\"-1\" "
              "transpose=\"60\" key=\"D-1\" velocity=\"-5\" compress=\"3_4\">\n"
              "\t</Layer>\n"
              "</Layers>\n");
    LayerList back;
    back.readXml(rootOf(text));
    EXPECT_EQ(textOf(back), text);
    EXPECT_FALSE(back.findElement(1)->solo);
}

TEST(LayerList, MergesTheLayersOfAListBehindItsOwn)
{
    LayerList list;
    for (int channel = 0; channel < 3; ++channel) {
        Layer layer;
        layer.channel = static_cast<std::int8_t>(channel);
        list.add(layer);
    }
    const std::string some = textOf(list, {2, 0});
    EXPECT_TRUE(some.starts_with("<Layers merge=\"true\">"));
    list.readXml(rootOf(some));
    ASSERT_EQ(list.size(), 5u);
    EXPECT_EQ(list.findElement(3)->channel, 0) << "in the order of the list";
    EXPECT_EQ(list.findElement(4)->channel, 2);
    EXPECT_EQ(list.findElement(4)->id, 4);
    EXPECT_EQ(list.findElement(5), nullptr);
    EXPECT_EQ(list.findElement(-1), nullptr);
    list.readXml(rootOf("<Layers><Other/><Layer/></Layers>"));
    EXPECT_EQ(list.size(), 1u);
}

TEST(Layer, DescribesItselfInOneLine)
{
    struct Row {
        const char* attributes;
        const char* text;
    };
    for (const auto& [attributes, text] :
         {Row{"", "L:1  Ch:1"},
          {"transpose='+2' key='C'", "L:1  Ch:1  T:+2  K:C"},
          {"key='C'", "L:1  Ch:1"},
          {"transpose='0' velocity='0'", "L:1  Ch:1  T:0  V:0"},
          {"channel='-1' zone='0' minVelocity='1' output='1' velocity='-7' compress='1_2' toggle='type1' mono='yes' "
           "useNoteStack='no'",
           "L:1  Ch:0  Z:1  VR:1-127  O:Out 2  V:-7  Comp:1/2  TOGGLE1  MONO  STACK OFF"}})
        EXPECT_EQ(layerOf(attributes).getLayerString("Out 2"), text) << attributes;
}

TEST(Layers, ASoloedOneSilencesTheOthersAndPlaysThoughMuted)
{
    Stage stage;
    std::vector<Layer> layers(3);
    for (int i = 0; i < 3; ++i) layers[static_cast<std::size_t>(i)].channel = static_cast<std::int8_t>(i);
    layers[1].mute = true;
    stage.setLayers(layers);
    stage.press("C4");
    stage.release("C4");
    EXPECT_EQ(stage.played(), "C4 on, C4 on channel 2, C4 off, C4 off channel 2");
    layers[1].solo = true;
    stage.setLayers(layers);
    stage.press("C4");
    stage.release("C4");
    EXPECT_EQ(stage.played(), "C4 on channel 1, C4 off channel 1");
}

TEST(Layers, ADisabledOutputLeavesTheBookkeepingAlone)
{
    Stage stage;
    Layer mono;
    mono.mono = true;
    mono.output = 1;
    stage.setLayers({mono});
    stage.setOutputEnabled(1, false);
    stage.press("C4");
    EXPECT_EQ(stage.played(), "");
    stage.setOutputEnabled(0, true);  // all are enabled again
    stage.press("E4");
    stage.release("E4");
    EXPECT_EQ(stage.played(), "E4 on on output 1, C4 off on output 1, C4 on on output 1, E4 off on output 1");
}
