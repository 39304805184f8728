#include "gui/forms/LearnButton.h"

#include "gui/framework/InputWatch.h"
#include "tests/gui/WindowStage.h"

using namespace Backend;
using Gui::Forms::LearnButton;

struct Learn : OpenWindow, testing::Test {
    LearnButton* make(const LearnKinds& kinds)
    {
        auto* button = new LearnButton(gui->getLearner(), kinds, &panel);
        button->onLearned = [this](const auto& input) {
            const auto* const key = std::get_if<Key>(&input);
            learned = key != nullptr ? key->toXmlString() : "MIDI";
        };
        button->show();
        return button;
    }
    void start(LearnButton& button)
    {
        Hands::click(button);
        settle();
        ASSERT_TRUE(QAccessible::queryAccessibleInterface(&button)->state().checked);
    }
    /// What is played and learned while a key goes down and up.
    std::string typed(quint32 place, int key = 0, Qt::KeyboardModifiers held = {})
    {
        keyDown(place, key, held), keyUp(place, key, held);
        settle();
        return played() + std::exchange(learned, "");
    }

    QWidget& panel = *control("Playing keyboard").parentWidget();
    LearnButton* ofKeys = make({.key = true});
    LearnButton* ofMidi = make({.midiEvent = true});
    std::string learned;
};

TEST_F(Learn, TakesTheNextKeyWhateverItDoesElsewhere)
{
    start(*ofKeys);
    EXPECT_EQ(typed('Q'), "Q");
    EXPECT_FALSE(ofKeys->isChecked());
    EXPECT_EQ(typed('Q'), "C4 on, C4 off");
    start(*ofKeys);
    EXPECT_EQ(typed('Z', Qt::Key_Z, Qt::ControlModifier), "Control Z") << "and undoes nothing";
    ofKeys->setFocus();
    EXPECT_EQ(typed(Key::SPACE, Qt::Key_Space), "");
    EXPECT_TRUE(ofKeys->isChecked());
    EXPECT_EQ(typed(Key::SPACE, Qt::Key_Space), "Space") << "and is no click";
    start(*ofMidi);
    EXPECT_EQ(typed('Q'), "C4 on, C4 off");
    press("C4");
    settle();
    EXPECT_EQ(std::exchange(learned, ""), "MIDI");
    EXPECT_EQ(played(), "");
}

TEST_F(Learn, IsEndedByTheUser)
{
    QWidget other;
    QLineEdit text(&panel);
    text.show();
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"Escape", [&] { keyDown(Key::ESCAPE, Qt::Key_Escape), keyUp(Key::ESCAPE, Qt::Key_Escape); }},
        {"a second click", [&] { Hands::click(*ofKeys); }},
        {"a text", [&] { text.setFocus(); }},
        {"hiding", [&] { ofKeys->hide(), ofKeys->show(); }},
        {"another window", [&] { other.show(), other.activateWindow(); }},
        {"another one", [&] { Hands::click(*ofMidi); }},
    };
    for (const auto& [name, end] : ends) {
        comeBack();
        start(*ofKeys);
        end();
        settle();
        EXPECT_FALSE(ofKeys->isChecked()) << name;
        comeBack();
        text.clearFocus();
        gui->setFocus();
        EXPECT_EQ(typed('Q'), "C4 on, C4 off") << name;
    }
    EXPECT_TRUE(ofMidi->isChecked());
    text.setParent(nullptr);
    gui->destroy();
    press("C4");
    EXPECT_EQ(played(), "C4 on") << "the window is closed";
}

TEST_F(Learn, ShowsTheLastEventOfEachKindWhileItIsWatched)
{
    std::vector<int> shown;
    gui->getInputWatch().start([&](const auto& events) {
        shown.clear();
        for (const auto& event : events) shown.push_back(event.getD2());
    });
    settle();
    for (const int value : {1, 2, 3}) arrive(controller(7, value).input(0));
    orv->playMidiInputEvent(controller(8, 4).input(0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return shown == std::vector{3, 4}; }));
    gui->getInputWatch().stop();
    arrive(controller(7, 5).input(0));
    orv->sendReceivedEvents();
    settle();
    EXPECT_EQ(shown[0], 3);
}
