#include "backend/model/LayerList.h"

#include <gtest/gtest.h>

#include "tests/stage/Text.h"

using namespace Backend::Layers;

namespace
{
Layer layerOf(const std::string& attributes, const std::string& children = "")
{
    return Layer::fromXml(rootOf("<Layer " + attributes + ">" + children + "</Layer>"), 0);
}
}  // namespace

TEST(LayerList, HasALayerForEachElement)
{
    LayerList list;
    list.readXml(rootOf("<Layers><Other/><Layer/><Layer channel='2'/></Layers>"));
    EXPECT_EQ(list.findElement(1)->channel, 2);
    EXPECT_EQ(list.findElement(1)->id, 1);
    EXPECT_EQ(list.findElement(2), nullptr);
    EXPECT_EQ(list.findElement(-1), nullptr);
}

TEST(Layer, DescribesItselfInOneLine)
{
    const struct {
        const char* attributes;
        const char* children;
        const char* text;
    } rows[] = {
        {"", "", "L:1  Ch:1"},
        {"transpose='+2' key='C'", "", "L:1  Ch:1  T:+2  K:C"},
        {"key='C'", "", "L:1  Ch:1"},
        {"transpose='0' velocity='0'", "", "L:1  Ch:1  T:0  V:0"},
        {"channel='-1' zone='0' minVelocity='1' output='1' velocity='-7' compress='1_2' toggle='type1' mono='yes' "
         "useNoteStack='no'",
         "", "L:1  Ch:0  Z:1  VR:1-127  O:Out 2  V:-7  Comp:1/2  TOGGLE1  MONO  STACK OFF"},
        {"", "<Arpeggio><Odd/></Arpeggio><Arpeggio><!-- --><ChordArpeggio/><UpArpeggio/></Arpeggio>",
         "L:1  Ch:1  Chord Arp 1/4 Len:1/4"},
        {"", "<Arpeggio><UpDownArpeggio beat='240' length='120'/></Arpeggio><Arpeggio><UpArpeggio/></Arpeggio>",
         "L:1  Ch:1  Up + Down Arp 1/8 Len:1/16"},
        {"", "<Arpeggio><UpArpeggio beat='100' length='0'/></Arpeggio>", "L:1  Ch:1  Up Arp 100 Len:100"}};
    for (const auto& [attributes, children, text] : rows)
        EXPECT_EQ(layerOf(attributes, children).getLayerString("Out 2"), text) << attributes << children;
}
