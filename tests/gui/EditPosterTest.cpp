#include "gui/framework/EditPoster.h"
#include "tests/core/EditStage.h"

using namespace Backend;

TEST(EditPoster, ADragPostsOneEditAtATimeAndLosesNothing)
{
    EditStage stage;
    stage.setLayers({{}, {}});
    stage.received();
    Gui::EditPoster poster(stage.commands());
    int acknowledged = 0;
    const auto acknowledge = [&] {
        stage.received([&](Message& message) {
            if (message.number == GuiMessage::EDIT_DONE) {
                ++acknowledged;
                GuiMessage::EDIT_DONE.deliver(message, [&](const EditDone& done) { poster.acknowledge(done); });
            }
            return std::string();
        });
    };
    const std::uint32_t gesture = poster.beginGesture();
    for (int step = 1; step <= 100; ++step)
        for (const RecordId layer : {0, 1})
            poster.post({.section = "Layers",
                         .name = "drag",
                         .gesture = gesture,
                         .records = {{.id = layer, .fields = {{"minVelocity", std::to_string(step)}}}}});
    poster.undo();
    poster.redo();
    EXPECT_FALSE(poster.isIdle());
    for (int count = 0; count < 4; ++count) acknowledge();
    EXPECT_EQ(acknowledged, 4) << "the first, the rest as one, undo and redo";
    EXPECT_TRUE(poster.isIdle());
    for (const Layers::Layer& layer : stage.orv->getLayerManager().getLayers().getLayers())
        EXPECT_EQ(layer.minVelocity, 100);
    EXPECT_EQ(stage.undo(), "drag");
    EXPECT_EQ(stage.undo(), "") << "one step";
}
