#include "backend/sections/layers/LayerManager.h"

#include "tests/sections/SectionStage.h"

using namespace Backend;
using namespace Backend::Layers;

TEST(LayerOperations, TakeEffectAfterAResetAndAreShown)
{
    SectionStage stage(&OrvIF::getLayerManager);
    stage.press("C4");
    stage.played();
    stage.openWindow();
    stage.section.changeTranspose({SelectType::Kind::specific, 0}, {true, 2});
    stage.rest();
    EXPECT_EQ(stage.takePlayed(), "C4 off") << "with the velocity of a reset, before the list is replaced";
    EXPECT_TRUE(stage.received().starts_with(std::to_string(GuiMessage::LAYER_TRANSPOSE) + " 0 2"));
    stage.release("C4");
    stage.press("C4");
    EXPECT_EQ(stage.played(), "D4 off, D4 on");
}

TEST(LayerMessages, ReplaceSingleLayersOrAddThemAndSelect)
{
    SectionStage stage(&OrvIF::getLayerManager);
    LayerMessageManager& messages = stage.section.getMessageManager();
    Layer layer;
    for (const int id : {4, -1}) {
        layer.id = id;
        layer.channel = 9;
        messages.postMergeLayers({layer}, false);
    }
    messages.postSetSelected({4});
    stage.rest();
    EXPECT_EQ(joined(stage.section.getLayers().getLayers(),
                     [](const Layer& each) {
                         return std::to_string(each.id) + ":" + std::to_string(each.channel) +
                                (each.selected ? "!" : "");
                     }),
              "0:0 1:0 2:0 3:0 4:9!");
}
