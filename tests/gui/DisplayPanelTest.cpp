#include "gui/screens/display/DisplayPanel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QPushButton>
#include <QScrollBar>
#include <atomic>
#include <thread>

#include "backend/display/DisplayMessageManager.h"
#include "backend/files/RegistrySettings.h"
#include "gui/framework/DisplayHeight.h"
#include "gui/framework/GdiManager.h"
#include "gui/screens/display/HeightEdge.h"
#include "gui/screens/display/LogView.h"
#include "tests/gui/ScreenStage.h"

using namespace Gui::Display;
using namespace Backend::MidiEngine;
using Backend::Screen;

namespace
{
/// The window with its display.
struct DisplayStage : ScreenStage {
    DisplayPanel* panel = nullptr;
    LogView* log = nullptr;

    DisplayStage() { look(); }

    void look()
    {
        gui->showScreen(Screen::display, true);
        panel = find<DisplayPanel>();
        log = find<LogView>();
    }
    Backend::Display::DisplayMessageManager& display() { return orv->getDisplayMessageManager(); }
    bool comesToShow(const QString& text)
    {
        return QTest::qWaitFor([&] { return log->toPlainText() == text; });
    }
    void press(const char* button) { control<QPushButton>(button).click(); }
    const Backend::RegistrySettings& settings()
    {
        settle();
        return orv->getRegistrySettings();
    }
};
}  // namespace

TEST(DisplayPanel, ShowsTheLogAndWhatIsNew)
{
    DisplayStage stage;
    EXPECT_TRUE(stage.comesToShow("Orvane 3.2")) << "what was there before";
    stage.play(noteOn(60).output(1).channel(0));
    stage.play(noteOff(60).output(1).channel(0));
    stage.playSlices();
    EXPECT_TRUE(stage.comesToShow("Orvane 3.2\nOut 2\t1\tNote On\t60 (C4)\t100\nOut 2\t1\tNote Off\t60 (C4)\t64"));

    stage.press("Clear");
    EXPECT_TRUE(stage.log->toPlainText().isEmpty());
    stage.display().postAddText("new\r\n");
    EXPECT_TRUE(stage.comesToShow("new"));

    stage.gui->showScreen(Screen::display, false);
    stage.display().postAddText("newer\r\n");
    stage.rest();
    QTest::qWait(150);
    EXPECT_EQ(stage.log->toPlainText(), "new") << "out of sight it costs nothing";
    stage.gui->showScreen(Screen::display, true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.log->toPlainText().endsWith("\nnew\nnewer"); }));
    EXPECT_TRUE(stage.log->toPlainText().startsWith("Orvane 3.2\n"));
}

TEST(DisplayPanel, FollowsTheEndUnlessAReaderLooksElsewhere)
{
    DisplayStage stage;
    std::string lines;
    for (int i = 0; i < 100; ++i) lines += "line\r\n";
    stage.panel->setText(lines);
    QScrollBar& bar = *stage.log->verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
    EXPECT_GT(bar.maximum(), 50);
    stage.panel->addText(lines);
    EXPECT_EQ(bar.value(), bar.maximum());
    bar.setValue(30);
    stage.panel->addText(lines);
    EXPECT_EQ(bar.value(), 30);
    for (int i = 0; i < LogView::MOST_LINES / 100; ++i) stage.panel->addText(lines);
    EXPECT_EQ(stage.log->blockCount(), LogView::MOST_LINES) << "the oldest go";
}

TEST(DisplayPanel, PostsItsSettingsAndShowsThem)
{
    DisplayStage stage;
    EXPECT_TRUE(stage.settings().getDisplayMidiOutputEvents());
    stage.press("Show input events");
    stage.press("Show output events");
    stage.press("Number the lines");
    stage.press("Large font");
    EXPECT_TRUE(stage.settings().getDisplayMidiInputEvents());
    EXPECT_FALSE(stage.settings().getDisplayMidiOutputEvents());
    EXPECT_TRUE(stage.settings().getDisplayNumbers());
    EXPECT_TRUE(stage.settings().getLargeDisplayFont());
    const auto& gdi = stage.gui->getGdiManager();
    EXPECT_EQ(stage.log->font(), gdi.getFont(Gui::GdiManager::FontRole::large));

    stage.commands().postSetLargeDisplayFont(false);
    stage.settle();
    EXPECT_EQ(stage.log->font(), gdi.getFont(Gui::GdiManager::FontRole::font4));
    EXPECT_FALSE(stage.control<QPushButton>("Large font").isChecked());

    stage.gui->destroy();
    stage.open();
    stage.settle();
    EXPECT_TRUE(stage.control<QPushButton>("Show input events").isChecked());
    EXPECT_FALSE(stage.control<QPushButton>("Show output events").isChecked());
}

TEST(DisplayPanel, IsAsHighAsItsEdgeIsDragged)
{
    DisplayStage stage;
    EXPECT_EQ(stage.panel->height(), 200);
    auto* edge = stage.find<HeightEdge>();
    const int window = stage.surroundings.height();
    const auto dragTo = [&](int y) {
        QMouseEvent move(QEvent::MouseMove, QPointF(), QPointF(100, y), Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(edge, &move);
    };
    QTest::mousePress(edge, Qt::LeftButton, Qt::NoModifier, {100, 3});
    const int start = edge->mapToGlobal(QPoint(100, 3)).y();
    dragTo(start + 50);
    EXPECT_EQ(stage.panel->height(), 250);
    EXPECT_EQ(stage.surroundings.height(), window + 50);
    EXPECT_EQ(stage.settings().getDisplayHeight(), 200) << "kept when it is let go";
    dragTo(start + 1000);
    EXPECT_EQ(stage.panel->height(), Gui::DisplayHeight::HIGHEST);
    dragTo(start - 1000);
    EXPECT_EQ(stage.panel->height(), Gui::DisplayHeight::LOWEST);
    dragTo(start - 40);
    QTest::mouseRelease(edge, Qt::LeftButton);
    EXPECT_EQ(stage.panel->height(), 160);
    EXPECT_EQ(stage.settings().getDisplayHeight(), 160);
    QTest::keyClick(edge, Qt::Key_Down);
    EXPECT_GT(stage.settings().getDisplayHeight(), 160) << "by the keyboard too";

    stage.commands().postSetDisplayHeight(10000);
    stage.gui->destroy();
    stage.open();
    stage.settle();
    EXPECT_EQ(stage.find<DisplayPanel>()->height(), Gui::DisplayHeight::HIGHEST);
}

TEST(DisplayPanel, CopiesWhatIsSelectedAndTakesNoOtherKey)
{
    DisplayStage stage;
    stage.panel->setText("one\r\ntwo\r\n");
    stage.surroundings.activateWindow();
    QWidget* player = stage.surroundings.focusWidget();
    ASSERT_NE(player, stage.log);
    QTest::mouseClick(stage.log->viewport(), Qt::LeftButton, Qt::NoModifier, {5, 5});
    EXPECT_EQ(stage.surroundings.focusWidget(), player) << "a click goes on playing";

    const QPoint end(stage.log->viewport()->width() - 5, 5);
    QTest::mousePress(stage.log->viewport(), Qt::LeftButton, Qt::NoModifier, {5, 5});
    QTest::mouseMove(stage.log->viewport(), end);
    QTest::mouseRelease(stage.log->viewport(), Qt::LeftButton, Qt::NoModifier, end);
    EXPECT_EQ(stage.surroundings.focusWidget(), stage.log);
    QTest::keyPress(stage.log, Qt::Key_Control);
    QTest::keyClick(stage.log, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), "one");
    EXPECT_EQ(stage.surroundings.focusWidget(), stage.log);

    struct Keys final : QObject {
        QString typed;
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::KeyPress) typed += static_cast<QKeyEvent*>(event)->text();
            return false;
        }
    } keys;
    player->installEventFilter(&keys);
    QTest::keyClick(stage.log, Qt::Key_Q);
    EXPECT_EQ(keys.typed, "q") << "it plays";
    EXPECT_EQ(stage.surroundings.focusWidget(), player);
    EXPECT_EQ(stage.log->toPlainText(), "one\ntwo");
}

TEST(DisplayPanel, ClosesAtAnyMomentWhileTheDisplayPrints)
{
    DisplayStage stage;
    std::atomic<bool> over = false;
    std::thread printer([&] {
        while (!over) {
            stage.display().postAddText("a line of some length\r\n");
            stage.display().postUpdateListener();
            std::this_thread::yield();
        }
    });
    for (int i = 0; i < 100; ++i) {
        stage.gui->destroy();
        stage.gui->create(stage);
        if (i % 4 == 0) QApplication::processEvents();
    }
    over = true;
    printer.join();
    stage.look();
    EXPECT_TRUE(QTest::qWaitFor([&] { return stage.log->toPlainText().endsWith("some length"); }));
    stage.gui->destroy();
    stage.display().postResendText();
    stage.rest();
}
