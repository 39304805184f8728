#include "backend/sections/layers/LayerManager.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "backend/messages/GuiMessages.h"
#include "tests/stage/Stage.h"

using namespace Backend;
using namespace Backend::Layers;
using Kind = SelectType::Kind;

namespace
{
/// The backend at rest: its layers may be asked and told from here.
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

TEST(LayerOperations, ActOnTheLayersTheyName)
{
    LayerStage stage;
    stage.layers().setSelected({0, 2, 9});
    stage.layers().changeTranspose({Kind::all}, {true, 5});
    stage.layers().changeTranspose({Kind::selected}, {false, 60});
    stage.layers().changeTranspose({Kind::specific, 1}, {true, -7});
    stage.layers().changeTranspose({Kind::up}, {true, 1});
    EXPECT_EQ(stage.layer(0).transpose, (RelativeFixedValue{true, 60})) << "its kind stays as it was";
    EXPECT_EQ(stage.layer(1).transpose, (RelativeFixedValue{true, -2}));
    EXPECT_EQ(stage.layer(2).transpose, (RelativeFixedValue{true, 60}));

    stage.layers().changeMute({Kind::specific, 1}, {OnOffToggle::State::on});
    stage.layers().changeMute({Kind::all}, {OnOffToggle::State::toggle});
    stage.layers().changeSolo({Kind::specific, 2}, {OnOffToggle::State::on});
    stage.layers().changeMono({Kind::all}, {OnOffToggle::State::on});
    stage.layers().changeNoteToggle({Kind::specific, 0}, {NoteToggle::Mode::type2});
    stage.layers().changeVelocity({Kind::specific, 0}, {true, 3});
    EXPECT_TRUE(stage.layer(0).mute);
    EXPECT_FALSE(stage.layer(1).mute);
    EXPECT_TRUE(stage.layer(2).solo);
    EXPECT_TRUE(stage.layer(1).mono);
    EXPECT_EQ(stage.layer(0).toggle.mode, NoteToggle::Mode::type2);
    EXPECT_EQ(stage.layer(0).velocity.value, 3);
    stage.rest();
}

TEST(LayerOperations, AreHeardBehindAResetAndSeen)
{
    LayerStage stage;
    const auto window = std::make_shared<MessageQueue>(64);
    stage.setLayers({{}});
    stage.press("C4");
    stage.played();
    stage.orv->setGuiWindowHandle(WindowHandle(window));
    stage.layers().changeTranspose({Kind::specific, 0}, {true, 2});
    stage.rest();
    EXPECT_EQ(stage.heard(), "C4 off") << "with the velocity of a reset, before the list is replaced";
    stage.release("C4");
    stage.press("C4");
    EXPECT_EQ(stage.played(), "D4 off, D4 on");
    ASSERT_TRUE(window->handleNext([](Message& message) {
        EXPECT_EQ(message.number, static_cast<unsigned>(GuiMessage::LAYER_TRANSPOSE));
        EXPECT_EQ(message.wparam, 0u);
        EXPECT_EQ(message.lparam, 2);
    }));
}

TEST(LayerOperations, MoveTheSelection)
{
    struct Row {
        const char* before;
        SelectType select;
        const char* after;
    };
    for (const auto& [before, select, after] : {Row{"", {Kind::up}, "0"},
                                                {"", {Kind::down}, ""},
                                                {"0", {Kind::down}, "0"},
                                                {"1", {Kind::up}, "2"},
                                                {"2", {Kind::up}, "2"},
                                                {"1", {Kind::down}, "0"},
                                                {"1", {Kind::specific, 2}, "2"},
                                                {"1", {Kind::specific, 3}, "1"},
                                                {"1", {Kind::selected}, "1"},
                                                {"02", {Kind::up}, "12"}}) {
        LayerStage stage;
        std::vector<LayerId> ids;
        for (const char* id = before; *id != '\0'; ++id) ids.push_back(*id - '0');
        stage.layers().setSelected(ids);
        stage.layers().dataSelect(select);
        EXPECT_EQ(stage.selected(), after) << before;
    }
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

TEST(LayerPresets, AreSavedLoadedMergedRenamedAndDeleted)
{
    LayerStage stage;
    auto& messages = stage.orv->getLayerMessageManager();
    stage.layers().changeMute({Kind::specific, 1}, {OnOffToggle::State::on});
    messages.postSavePreset("All", {});
    messages.postSavePreset("One", {1});
    messages.postSavePreset("../outside", {});
    stage.rest();
    ASSERT_EQ(stage.layers().getPresets().getList().find("All")->merge, false);
    ASSERT_EQ(stage.layers().getPresets().getList().find("One")->merge, true);
    std::ifstream file(stage.layers().getPresets().getPresetPath("All"));
    std::string first, second, third;
    std::getline(file, first), std::getline(file, second), std::getline(file, third);
    EXPECT_EQ(second, "");
    EXPECT_EQ(third, "<Layers merge=\"false\">");

    messages.postLoadPreset("One");
    stage.rest();
    ASSERT_EQ(stage.layers().getLayers().size(), 4u) << "merged";
    EXPECT_TRUE(stage.layer(3).mute);
    messages.postLoadPreset("All");
    messages.postLoadPreset("None");
    stage.rest();
    EXPECT_EQ(stage.layers().getLayers().size(), 3u) << "replaced, and the missing one left it so";
    messages.postRenamePreset("One", "Solo");
    messages.postDeletePreset("All");
    stage.rest();
    EXPECT_EQ(stage.layers().getPresets().getList().find("All"), nullptr);
    EXPECT_NE(stage.layers().getPresets().getList().find("Solo"), nullptr);
}
