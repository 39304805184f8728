#include "backend/messages/LayerMessageManager.h"
#include "backend/sections/layers/LayerManager.h"
#include "gui/forms/RecordForm.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/EditPoster.h"
#include "gui/musickeyboard/MusicKeyboardCtl.h"
#include "gui/screens/layers/LayerCtl.h"
#include "gui/screens/layers/SequenceGrid.h"
#include "tests/gui/WindowStage.h"

using namespace Gui::Layers;
using Backend::Layers::Layer;
using Backend::MidiEngine::Note;
using Part = LayerGeometry::Part;

TEST(LayerGeometry, PutsEachBarUnderItsKeysAndFindsItsParts)
{
    const Gui::Output::KeyOutlines keys;
    const LayerGeometry geometry(keys);
    Layer layer;
    layer.minNote = Note(60);
    layer.maxNote = Note(71);
    const QRect bar = geometry.barOf(2, layer);
    EXPECT_EQ(bar, QRect(QPoint(keys.leftEdge(60), 34), QPoint(keys.rightEdge(71) - 1, 44)));
    const auto partAt = [&](int x, int y = 40) { return geometry.partAt(2, layer, {x, y}); };
    const std::pair<int, Part> ROWS[] = {{bar.left() - 6, Part::row},      {bar.left() - 5, Part::lowEnd},
                                         {bar.left() + 1, Part::lowEnd},   {bar.left() + 2, Part::button},
                                         {bar.left() + 13, Part::button},  {bar.left() + 14, Part::bar},
                                         {bar.right() - 2, Part::bar},     {bar.right() - 1, Part::highEnd},
                                         {bar.right() + 5, Part::highEnd}, {bar.right() + 6, Part::row}};
    for (const auto& [x, part] : ROWS) EXPECT_EQ(partAt(x), part) << x - bar.left();
    EXPECT_EQ(partAt(bar.center().x(), 46), Part::row) << "between two rows";
    EXPECT_EQ(geometry.rowAt(33, 3), 1);
    EXPECT_EQ(geometry.rowAt(50, 3), -1);

    for (const int note : {0, 1, 60, 127}) {
        EXPECT_EQ(geometry.lowNoteAt(keys.leftEdge(note)), note);
        EXPECT_EQ(geometry.highNoteAt(keys.rightEdge(note) - 1), note);
    }
    layer.maxNote = Note(60);
    EXPECT_EQ(geometry.buttonOf(geometry.barOf(0, layer)).width(), geometry.barOf(0, layer).width() / 2);
    layer.maxNote = Note(40);
    EXPECT_EQ(geometry.barOf(0, layer).left(), keys.leftEdge(60)) << "it takes no note, but it is seen";
    EXPECT_GT(geometry.barOf(0, layer).width(), 0);
}

/// A window with the keys Q, C4, and Z, C3, and one layer, as in a new program.
struct LayerScreen : WindowStage, testing::Test {
    LayerScreen()
    {
        open({.system = false, .help = false, .computerInput = false, .output = false});
        gui->showScreen(Backend::Screen::layers, true);
        const auto key = [](const char* id, const char* note) {
            const std::string event = std::string(" note='") + note + "'/>";
            return std::string("<Key id='") + id + "'><Function><Down><MidiNoteOn" + event + "</Down><Up><MidiNoteOff" +
                   event + "</Up></Function></Key>";
        };
        load(key("Q", "C4") + key("Z", "C3"));
        list = &control<LayerCtl>("Layers");
    }
    void showLayers(const std::vector<Layer>& layers)
    {
        Backend::Layers::LayerList all;
        for (const Layer& layer : layers) all.add(layer);
        orv->getLayerMessageManager().postSetLayers(all, true);
        settle();
    }
    QRect bar(int row)
    {
        settle();
        return LayerGeometry(keys).barOf(row,
                                         orv->getLayerManager().getLayers().getLayers()[static_cast<std::size_t>(row)]);
    }
    void click(int row, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers held = {})
    {
        QTest::mouseClick(list, button, held, bar(row).center());
    }
    void clickButton(int row) { QTest::mouseClick(list, Qt::LeftButton, {}, bar(row).topLeft() + QPoint(6, 5)); }
    void clickPiano(int note, Qt::MouseButton button)
    {
        const QRect key = keys.keyRectangle(note);
        QTest::mouseClick(&control("Music keyboard"), button, {}, {key.center().x(), key.bottom() - 5});
    }
    void operate(const QString& name) { Hands::click(control(name)); }
    /// The rows, a line each.
    std::string rows()
    {
        settle();
        std::string all;
        for (int row = 0; row < list->getRowCount(); ++row)
            all += (row == 0 ? "" : "\n") + list->getRowName(row).toStdString();
        return all;
    }
    /// The first event that a key plays, its bytes.
    std::string statusAndNote(const char* key)
    {
        settle();
        takePlayed();
        player.events.clear();
        down(key);
        up(key);
        playSlices();
        if (player.events.empty()) return "nothing";
        const auto event = player.events.front();
        takePlayed();
        char text[8];
        std::snprintf(text, sizeof text, "%02x %02x", event.getStatusWithChannel(), event.getD1());
        return text;
    }

    const Gui::Output::KeyOutlines keys;
    LayerCtl* list;
};

TEST_F(LayerScreen, SplitsTheKeyboardWithTheMouse)
{
    EXPECT_EQ(rows(), "Layer 1, C-1 to G9, channel 1");
    operate("Add layer");
    gui->getEdits().change("Layers", 1, {"channel", "1"}, "channel", gui->getEdits().beginGesture());
    settle();
    click(1, Qt::MiddleButton);
    clickPiano(60, Qt::LeftButton);
    EXPECT_EQ(played(), "") << "it chooses instead of playing";
    clickPiano(127, Qt::RightButton);
    EXPECT_EQ(rows(), "Layer 1, C-1 to G9, channel 1\nLayer 2, C4 to G9, channel 2");

    const QPoint end = QPoint(bar(0).right(), bar(0).center().y());
    QTest::mousePress(list, Qt::LeftButton, {}, end);
    for (const int note : {100, 80, 59}) mouseMove(*list, {keys.rightEdge(note), end.y()});
    QTest::mouseRelease(list, Qt::LeftButton, {}, end);
    EXPECT_EQ(rows(), "Layer 1, C-1 to B3, channel 1\nLayer 2, C4 to G9, channel 2");
    EXPECT_EQ(statusAndNote("Q"), "91 3c");
    EXPECT_EQ(statusAndNote("Z"), "90 30");
    clickPiano(60, Qt::LeftButton);
    EXPECT_EQ(played(), "C4 on channel 1, C4 off channel 1") << "the piano plays again";

    gui->getEdits().undo();
    EXPECT_EQ(rows(), "Layer 1, C-1 to G9, channel 1\nLayer 2, C4 to G9, channel 2") << "the drag is a step";
    click(0, Qt::MiddleButton);
    QTest::keyClick(&focus(), Qt::Key_Escape);
    clickPiano(60, Qt::LeftButton);
    EXPECT_EQ(played(), "C4 on, C4 on channel 1, C4 off, C4 off channel 1");
}

TEST_F(LayerScreen, LightsWhatSoundsAndTakesARangeFromTwoPlayedNotes)
{
    Layer muted;
    muted.mute = true;
    showLayers({{}, muted});
    const auto isLit = [&](int row, int note) {
        playSlices();
        return QTest::qWaitFor([&] { return list->getLitNotes(row)[static_cast<std::size_t>(note)]; });
    };
    const auto isDark = [&] {
        playSlices();
        return QTest::qWaitFor([&] { return list->getLitNotes(0).none(); });
    };
    down("Q");
    EXPECT_TRUE(isLit(0, 60));
    EXPECT_TRUE(list->getLitNotes(1).none()) << "it is muted";
    click(1, Qt::MiddleButton);
    down("Z");
    EXPECT_TRUE(isLit(0, 48));
    up("Z");
    up("Q");
    EXPECT_TRUE(isDark());
    EXPECT_NE(rows().find("Layer 2, C-1 to G9"), std::string::npos) << "the note before does not count";
    down("Q");
    EXPECT_TRUE(isLit(0, 60));
    up("Q");
    EXPECT_TRUE(isDark());
    EXPECT_NE(rows().find("Layer 2, C3 to C4"), std::string::npos) << rows();
    gui->getEdits().undo();
    EXPECT_NE(rows().find("Layer 2, C-1 to G9"), std::string::npos) << "both ends are one step";
}

TEST_F(LayerScreen, MutesSolosCopiesAndDeletes)
{
    Layer lost;
    lost.output = 7;
    showLayers({lost});
    EXPECT_EQ(rows(), "Layer 1, C-1 to G9, channel 1 of 7 (missing)");
    showLayers({{}, {}, {}});
    clickButton(1);
    EXPECT_NE(rows().find("Layer 2, C-1 to G9, channel 1, muted"), std::string::npos);
    operate("Solo mode");
    clickButton(2);
    EXPECT_NE(rows().find("Layer 3, C-1 to G9, channel 1, solo"), std::string::npos);
    clickButton(2);
    EXPECT_EQ(rows().find("solo"), std::string::npos);

    click(1);
    settle();
    EXPECT_TRUE(orv->getLayerManager().getLayers().getLayers()[1].selected) << "for functions, too";
    EXPECT_TRUE(list->isRowSelected(1));
    click(0, Qt::LeftButton, Qt::ControlModifier);
    EXPECT_TRUE(list->isRowSelected(0) && list->isRowSelected(1));

    operate("Menu of the layer");
    EXPECT_NE(menu().find("Copy Layer 1 To Channel"), std::string::npos) << menu();
    choose("Show Layer Info");
    EXPECT_TRUE(control<QPushButton>("Layer info").isChecked());

    operate("Delete layers");
    EXPECT_EQ(rows(), "Layer 1, C-1 to G9, channel 1") << "both that were selected";
    gui->getEdits().undo();
    EXPECT_EQ(rows().substr(rows().rfind('\n')), "\nLayer 3, C-1 to G9, channel 1");
    EXPECT_EQ(list->getRowCount(), 3);
    for (const int selected : {0, 1}) click(selected, Qt::LeftButton, Qt::ControlModifier);
    operate("Delete layers");
    EXPECT_EQ(list->getRowCount(), 3) << "it was posted";
    EXPECT_NE(rows().find("Layer 2, C-1 to G9, channel 1, muted"), std::string::npos) << "the last one went";
    EXPECT_EQ(list->getRowCount(), 2);
}

TEST_F(LayerScreen, SetsWhatIsSelectedBeneathIt)
{
    showLayers({{}, {}});
    const auto isOpen = [this] {
        return std::ranges::any_of(surroundings.findChildren<QWidget*>(), [](const QWidget* each) {
            return dynamic_cast<const Gui::Forms::RecordForm*>(each) != nullptr && each->isVisible();
        });
    };
    EXPECT_FALSE(isOpen());
    const int height = size.height();
    click(1, Qt::RightButton);
    settle();
    EXPECT_TRUE(isOpen());
    EXPECT_GT(size.height(), height + 100);
    click(0, Qt::LeftButton, Qt::ShiftModifier);
    const auto type = [&](const char* field, const char* text) {
        auto& edit = control<QLineEdit>(field);
        edit.setFocus();
        edit.selectAll();
        QTest::keyClicks(&edit, text);
        QTest::keyClick(&edit, Qt::Key_Return);
        settle();
    };
    type("Transpose", "+12");
    type("Highest note", "b3");
    EXPECT_EQ(statusAndNote("Z"), "90 3c");
    EXPECT_EQ(rows(), "Layer 1, C-1 to B3, channel 1\nLayer 2, C-1 to B3, channel 1");
    gui->getEdits().undo();
    EXPECT_EQ(rows(), "Layer 1, C-1 to G9, channel 1\nLayer 2, C-1 to G9, channel 1");
    QTest::keyClick(list, Qt::Key_Return);
    settle();
    EXPECT_FALSE(isOpen());
}

TEST_F(LayerScreen, IsOperatedByKeys)
{
    showLayers({{}, {}});
    list->setFocus();
    const auto key = [&](Qt::Key pressed, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(list, pressed, modifiers);
        settle();
        return list->getRowName(list->getCurrentRow()).toStdString();
    };
    EXPECT_EQ(key(Qt::Key_Down), "Layer 2, C-1 to G9, channel 1");
    EXPECT_EQ(key(Qt::Key_Right), "Layer 2, C#-1 to G9, channel 1");
    EXPECT_EQ(key(Qt::Key_Left, Qt::ControlModifier), "Layer 2, C-1 to G9, channel 1") << "as far as it goes";
    EXPECT_EQ(key(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier), "Layer 2, C-1 to G8, channel 1");
    EXPECT_EQ(key(Qt::Key_Space), "Layer 2, C-1 to G8, channel 1, muted");
    EXPECT_EQ(key(Qt::Key_D, Qt::ControlModifier), "Layer 3, C-1 to G8, channel 1, muted");
    EXPECT_EQ(list->getRowCount(), 3);
    EXPECT_EQ(key(Qt::Key_Home), "Layer 1, C-1 to G9, channel 1");
    key(Qt::Key_Delete);
    EXPECT_EQ(rows(), "Layer 1, C-1 to G8, channel 1, muted\nLayer 2, C-1 to G8, channel 1, muted");
    key(Qt::Key_Insert);
    EXPECT_EQ(list->getRowCount(), 3);
    takePlayed();
    keyDown('Q');
    keyUp('Q');
    EXPECT_EQ(played(), "C4 on, C4 off") << "other keys play";
}

/// Two layers with an arpeggio, both selected, and their settings open.
struct SequenceScreen : LayerScreen {
    SequenceScreen()
    {
        Layer layer;
        layer.arpeggio.emplace().beat = 8;
        showLayers({layer, layer});
        click(0);
        click(1, Qt::LeftButton, Qt::ControlModifier);
        list->setFocus();
        QTest::keyClick(list, Qt::Key_Return);
        grid = &control<SequenceGrid>("Steps of the sequence");
    }
    /// Presses there, moves on and releases.
    void draw(std::initializer_list<std::pair<int, int>> cells)
    {
        bool pressed = false;
        for (const auto& [step, note] : cells) {
            const QPoint place = grid->cellOf(step, note).center();
            std::exchange(pressed, true) ? mouseMove(*grid, place) : QTest::mousePress(grid, Qt::LeftButton, {}, place);
        }
        QTest::mouseRelease(grid, Qt::LeftButton);
    }
    void keys(std::initializer_list<QKeyCombination> pressed)
    {
        for (const auto& each : pressed) QTest::keyClick(grid, each.key(), each.keyboardModifiers());
    }
    /// As the form shows it, after the backend has it in both layers: edits go to it one at a time.
    std::string sequence()
    {
        std::string text;
        const auto arrived = [&](const Layer& layer) { return layer.sequenceSetting.getSequenceText() == text; };
        const auto allArrived = [&] {
            settle();
            text = control<QLineEdit>("Sequence: text").text().toStdString();
            return std::ranges::all_of(orv->getLayerManager().getLayers().getLayers(), arrived);
        };
        EXPECT_TRUE(QTest::qWaitFor(allArrived, 20'000)) << text;
        return text;
    }

    SequenceGrid* grid;
};

TEST_F(SequenceScreen, IsDrawnAndTypedAndBothAgree)
{
    draw({{0, 0}});
    draw({{1, 7}});
    draw({{0, 12}});
    EXPECT_EQ(sequence(), "0|12,7");
    draw({{2, -5}, {2, -4}, {2, -3}, {1, 2}});
    EXPECT_EQ(sequence(), "0|12,2|7,-3") << "a line, with one note in each step";
    gui->getEdits().undo();
    EXPECT_EQ(sequence(), "0|12,7") << "the drag is a step";
    draw({{1, 7}});
    const QRect first = grid->getRowPlace(0);
    QTest::mouseClick(grid, Qt::LeftButton, {}, {first.center().x(), first.bottom()});
    EXPECT_EQ(sequence(), "0 V-127|12 V-127,-");

    auto& text = control<QLineEdit>("Sequence: text");
    text.setFocus();
    replaceText(text, "3 V5 L960,,36");
    QTest::keyClick(&text, Qt::Key_Return);
    draw({{0, 5}});
    EXPECT_EQ(sequence(), "3 V5 L960|5 V5,-,36") << "what the grid does not show stays";
    EXPECT_EQ(grid->getRowName(0), "Step 1: +3, +5; velocity +5; at +5");
}

TEST_F(SequenceScreen, IsWrittenWithKeysAndButtons)
{
    grid->setFocus();
    keys({Qt::Key_Space, Qt::Key_Right, Qt::Key_PageUp, Qt::Key_Space, Qt::Key_Down, Qt::Key_Space});
    keys({Qt::SHIFT | Qt::Key_Up, Qt::CTRL | Qt::SHIFT | Qt::Key_Down});
    EXPECT_EQ(sequence(), "0,11 V-9|12 V-9");
    gui->getEdits().undo();
    EXPECT_EQ(sequence(), "0,11 V1|12 V1");
    keys({Qt::Key_Insert, Qt::Key_Home, Qt::Key_Delete, Qt::Key_End});
    operate("Make the step a rest");
    EXPECT_EQ(sequence(), "-,11 V1|12 V1,-");
    for (int step = 0; step < 3; ++step) {
        keys({Qt::Key_Home});
        operate("Delete step");
    }
    EXPECT_EQ(sequence(), "") << "no steps: off";
}

TEST_F(SequenceScreen, LightsTheStepThatPlays)
{
    draw({{0, 0}, {1, 12}});
    sequence();
    const auto shown = [this] {
        playSlices();
        orv->sendSequenceSteps();
        settle();
        return grid->getPlayingStep();
    };
    EXPECT_EQ(shown(), -1);
    down("Q");
    EXPECT_EQ(shown(), 0);
    playSlices(8);
    EXPECT_EQ(shown(), 1) << "after a beat";
    up("Q");
    EXPECT_EQ(shown(), -1);
}

TEST_F(SequenceScreen, SavesRenamesChoosesAndDeletesPresets)
{
    draw({{0, 3}, {1, 5}});
    const auto enter = [this](const QString& name) {
        auto* line = QApplication::activeModalWidget()->findChild<QLineEdit*>();
        replaceText(*line, name);
        QTest::keyClick(line, Qt::Key_Return);
        settle();
    };
    operate("Presets of sequences");
    choose("Save Preset As...");
    enter("Third");
    operate("Presets of sequences");
    choose("Edit Presets...");
    auto* names = QApplication::activeModalWidget()->findChild<QListWidget*>();
    names->setCurrentItem(names->findItems("Third", Qt::MatchExactly).at(0));
    names->itemDoubleClicked(names->currentItem());
    enter("Fourth");
    QTest::keyClick(names, Qt::Key_Escape);

    draw({{0, 3}});
    auto& chosen = control<Gui::ComboBox>("Sequence");
    EXPECT_EQ(chosen.text(), "--local--");
    chosen.openMenu();
    choose("Fourth");
    EXPECT_EQ(sequence(), "3,5") << "the backend reads it";
    gui->deleteSequencePreset("Fourth");
    EXPECT_EQ(sequence(), "3,5") << "the layers keep its steps";
    for (const std::string& name : gui->getSequencePresetList()) EXPECT_TRUE(name != "Third" && name != "Fourth");
}
