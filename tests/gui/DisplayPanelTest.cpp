#include "gui/screens/display/DisplayPanel.h"

#include <QClipboard>
#include <QScrollBar>

#include "backend/display/DisplayMessageManager.h"
#include "gui/framework/ComboBox.h"
#include "gui/framework/DisplayHeight.h"
#include "gui/screens/display/HeightEdge.h"
#include "gui/screens/display/LogView.h"
#include "tests/gui/WindowStage.h"

using namespace Gui::Display;
namespace DisplayHeight = Gui::DisplayHeight;

/// The window with its display.
struct DisplayScreen : WindowStage, testing::Test {
    DisplayScreen()
    {
        open({.system = false, .help = false, .display = true, .computerInput = false, .output = false});
        log = &control<LogView>("Events");
        edge = &control<HeightEdge>("Height of the display");
        panel = dynamic_cast<DisplayPanel*>(edge->parentWidget());
        playing = surroundings.focusWidget();
    }
    Backend::Display::DisplayMessageManager& display() { return orv->getDisplayMessageManager(); }
    std::string text() const { return log->toPlainText().toStdString(); }
    bool comesToEndWith(const std::string& end)
    {
        return QTest::qWaitFor([&] { return text().ends_with(end); });
    }
    void press(const char* button) { control<QPushButton>(button).click(); }

    LogView* log;
    HeightEdge* edge;
    DisplayPanel* panel;
    QWidget* playing;
};

TEST_F(DisplayScreen, ShowsTheLogAndWhatIsNew)
{
    EXPECT_TRUE(comesToEndWith("Orvane 3.2")) << "what was there before";
    play(noteOn(60).output(1).channel(0));
    play(noteOff(60).output(1).channel(0));
    playSlices();
    EXPECT_TRUE(comesToEndWith("64"));
    EXPECT_EQ(text(), "Orvane 3.2\nOut 2\t1\tNote On\t60 (C4)\t100\nOut 2\t1\tNote Off\t60 (C4)\t64");

    press("Clear");
    EXPECT_EQ(text(), "");
    display().postAddText("new\r\n");
    EXPECT_TRUE(comesToEndWith("new"));

    gui->showScreen(Backend::Screen::display, false);
    display().postAddText("newer\r\n");
    rest();
    QTest::qWait(150);
    EXPECT_EQ(text(), "new") << "out of sight it costs nothing";
    gui->showScreen(Backend::Screen::display, true);
    EXPECT_TRUE(comesToEndWith("\nnew\nnewer"));
    EXPECT_TRUE(text().starts_with("Orvane 3.2\n"));
}

TEST_F(DisplayScreen, FollowsTheEndUnlessAReaderLooksElsewhere)
{
    std::string lines;
    for (int i = 0; i < 100; ++i) lines += "line\r\n";
    panel->setText(lines);
    QScrollBar& bar = *log->verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
    EXPECT_GT(bar.maximum(), 50);
    panel->addText(lines);
    EXPECT_EQ(bar.value(), bar.maximum());
    bar.setValue(30);
    panel->addText(lines);
    EXPECT_EQ(bar.value(), 30);
    for (int i = 0; i < LogView::MOST_LINES / 100; ++i) panel->addText(lines);
    EXPECT_EQ(log->blockCount(), LogView::MOST_LINES) << "the oldest go";
}

TEST_F(DisplayScreen, ShowsWhatPassesTheFilterAndStandsStillInAPause)
{
    const auto choose = [&](const char* name, const char* entry) {
        auto& list = control<Gui::ComboBox>(name);
        const auto chosen = std::ranges::find(list.getEntries(), QString(entry), &Gui::ComboBox::Entry::text);
        list.setSelectedIndex(static_cast<int>(chosen - list.getEntries().begin()));
        list.onChange(list.getSelectedIndex());
    };
    const std::string in = "12  09:05:00.042  > In 2\t1\tNote On\t60 (C4)\t100";
    const std::string out = "Out 2\t16\tNote Off\t60 (C4)\t64";
    const std::string bend = "09:05:00.042  Out 2\t1\tPitch Bend\t8192";
    panel->setText(in + "\r\n" + out + "\r\n" + bend + "\r\n");
    choose("Shown port", "Out 2");
    EXPECT_EQ(text(), out + "\n" + bend);
    choose("Shown channel", "Channel 16");
    EXPECT_EQ(text(), out);
    choose("Shown port", "> In 2");
    choose("Shown channel", "All channels");
    EXPECT_EQ(text(), in);
    choose("Shown port", "All ports");
    choose("Shown events", "Notes");
    EXPECT_EQ(text(), in + "\n" + out);

    press("Pause");
    panel->addText(bend + "\r\n" + in + "\r\n");
    EXPECT_EQ(text(), in + "\n" + out);
    choose("Shown events", "Pitch bend");
    EXPECT_EQ(text(), bend) << "a filter does not end the pause";
    press("Pause");
    EXPECT_EQ(text(), bend + "\n" + bend);
    press("Copy");
    EXPECT_EQ(QApplication::clipboard()->text().toStdString(), text()) << "all, as nothing is selected";
}

TEST_F(DisplayScreen, PostsItsSettingsAndShowsThem)
{
    EXPECT_TRUE(settings().getDisplayMidiOutputEvents());
    for (const char* button :
         {"Show input events", "Show output events", "Number the lines", "Show the time", "Large font"})
        press(button);
    EXPECT_TRUE(settings().getDisplayMidiInputEvents());
    EXPECT_FALSE(settings().getDisplayMidiOutputEvents());
    EXPECT_TRUE(settings().getDisplayNumbers());
    EXPECT_TRUE(settings().get<Backend::Settings::DISPLAY_TIMES>());
    EXPECT_TRUE(settings().getLargeDisplayFont());

    const QColor ink = gui->getGdiManager().getColour(Gui::GdiManager::Role::text);
    const auto isLarge = [&] {  // letters reach into what the lines of the log leave empty
        const QImage picture = log->grab().toImage();
        for (int x = 0; x < picture.width() / 2; ++x)
            if (picture.pixelColor(x, picture.height() / 2) == ink) return true;
        return false;
    };
    const std::pair<const char*, const char*> NEWEST[] = {{"Out 2\t1\tNote On\t60 (C4)\t100", "C4  100  ch 1"},
                                                          {"1  Out 2\t16\tNote Off\t60 (C4)\t64", "C4  off  ch 16"},
                                                          {"Out\t1\tPitch Bend\t8192", "Pitch Bend  8192  ch 1"},
                                                          {"Out\t\tStart", "Start"}};
    for (const auto& [line, shown] : NEWEST) {
        panel->addText(line + std::string("\r\n"));
        EXPECT_EQ(log->getNewestEvent().toStdString(), shown);
    }
    EXPECT_TRUE(isLarge());
    commands().postSetLargeDisplayFont(false);
    settle();
    EXPECT_FALSE(isLarge());
    EXPECT_FALSE(control<QPushButton>("Large font").isChecked());
    reopen();
    EXPECT_TRUE(control<QPushButton>("Show input events").isChecked());
    EXPECT_FALSE(control<QPushButton>("Show output events").isChecked());
}

TEST_F(DisplayScreen, IsAsHighAsItsEdgeIsDragged)
{
    EXPECT_EQ(panel->height(), 200);
    const int before = surroundings.height();
    QTest::mousePress(edge, Qt::LeftButton, {}, {100, 3});
    const int start = edge->mapToGlobal(QPoint(100, 3)).y();
    const auto dragBy = [&](int pixels) {
        mouseMove(*edge, edge->mapFromGlobal(QPoint(100, start + pixels)));
        return panel->height();
    };
    EXPECT_EQ(dragBy(50), 250);
    EXPECT_EQ(surroundings.height(), before + 50);
    EXPECT_EQ(settings().getDisplayHeight(), 200) << "kept when it is let go";
    EXPECT_EQ(dragBy(1000), DisplayHeight::HIGHEST);
    EXPECT_EQ(dragBy(-1000), DisplayHeight::LOWEST);
    EXPECT_EQ(dragBy(-40), 160);
    QTest::mouseRelease(edge, Qt::LeftButton);
    EXPECT_EQ(settings().getDisplayHeight(), 160);
    QTest::keyClick(edge, Qt::Key_Down);
    EXPECT_GT(settings().getDisplayHeight(), 160) << "by the keyboard too";

    commands().postSetDisplayHeight(10000);
    reopen();
    EXPECT_EQ(control("Height of the display").parentWidget()->height(), DisplayHeight::HIGHEST);
}

TEST_F(DisplayScreen, CopiesWhatIsSelectedAndTakesNoOtherKey)
{
    panel->setText("one\r\ntwo\r\n");
    QWidget& view = *log->viewport();
    QTest::mouseClick(&view, Qt::LeftButton, {}, {5, 5});
    ASSERT_NE(playing, log);
    EXPECT_EQ(surroundings.focusWidget(), playing) << "a click goes on playing";

    QTest::mousePress(&view, Qt::LeftButton, {}, {5, 5});
    QTest::mouseMove(&view, {view.width() - 5, 5});
    QTest::mouseRelease(&view, Qt::LeftButton, {}, {view.width() - 5, 5});
    EXPECT_EQ(surroundings.focusWidget(), log);
    QTest::keyPress(log, Qt::Key_Control);
    QTest::keyClick(log, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "one");
    EXPECT_EQ(surroundings.focusWidget(), log);

    load(noteKey("Q", "C4"));
    QTest::keyPress(log, Qt::Key_Q);
    EXPECT_EQ(played(), "C4 on");
    EXPECT_EQ(surroundings.focusWidget(), playing);
    EXPECT_EQ(text(), "one\ntwo");
}
