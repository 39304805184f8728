#include "backend/sections/layers/LayerManager.h"

#include <gtest/gtest.h>

#include "backend/messages/GuiMessages.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::Layers;
using Kind = SelectType::Kind;

namespace
{
/// The backend at rest: its layers may be called from here.
struct LayerStage : Stage {
    LayerStage() { setLayers(std::vector<Layer>(3)); }

    LayerManager& layers() { return orv->getLayerManager(); }
    const Layer& layer(int id) { return *layers().getLayers().findElement(id); }

    std::string selected()
    {
        std::string ids;
        for (const Layer& each : layers().getLayers().getLayers())
            if (each.selected) ids += std::to_string(each.id);
        return ids;
    }
};
}  // namespace

TEST(LayerOperations, TakeEffectAfterAResetAndAreShown)
{
    LayerStage stage;
    const auto window = std::make_shared<MessageQueue>(64);
    stage.setLayers({{}});
    stage.press("C4");
    stage.played();
    stage.orv->setGuiWindowHandle(WindowHandle(window));
    stage.layers().changeTranspose({Kind::specific, 0}, {true, 2});
    stage.rest();
    EXPECT_EQ(stage.takePlayed(), "C4 off") << "with the velocity of a reset, before the list is replaced";
    stage.release("C4");
    stage.press("C4");
    EXPECT_EQ(stage.played(), "D4 off, D4 on");
    ASSERT_TRUE(window->handleNext([](Message& message) {
        EXPECT_EQ(message.number, static_cast<unsigned>(GuiMessage::LAYER_TRANSPOSE));
        EXPECT_EQ(message.wparam, 0u);
        EXPECT_EQ(message.lparam, 2);
    }));
}

TEST(LayerMessages, ReplaceSingleLayersOrTheWholeList)
{
    LayerStage stage;
    Layer fifth;
    fifth.id = 4;
    fifth.channel = 9;
    stage.orv->getLayerMessageManager().postMergeLayers({fifth}, false);
    stage.rest();
    ASSERT_EQ(stage.layers().getLayers().size(), 5u);
    EXPECT_EQ(stage.layer(3).id, 3);
    EXPECT_EQ(stage.layer(4).channel, 9);
    fifth.id = -1;
    stage.orv->getLayerMessageManager().postMergeLayers({fifth}, false);
    stage.orv->getLayerMessageManager().postSetSelected({4});
    stage.rest();
    EXPECT_EQ(stage.layers().getLayers().size(), 5u);
    EXPECT_EQ(stage.selected(), "4");
}
