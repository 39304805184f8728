#include <gtest/gtest.h>

#include "gui/framework/PopupMenu.h"
#include "tests/gui/GuiStage.h"

namespace
{
using Gui::PopupMenu;
using Role = Gui::GdiManager::Role;

TEST(PopupMenu, ReportsWhatWasChosenAlsoInASubmenu)
{
    GuiStage stage;
    PopupMenu menu(&stage.window);
    int chosen = -1;
    menu.onChosen = [&](int id) { chosen = id; };
    menu.addItem("R&B");
    menu.addItem({.text = "Locked", .enabled = false});
    PopupMenu& pianos = menu.addSubMenu("Piano");
    pianos.addItem({.text = "Grand", .id = 40});
    EXPECT_EQ(menu.actions()[0]->text(), "R&&B");
    EXPECT_FALSE(menu.actions()[1]->isEnabled());
    menu.actions()[0]->trigger();
    EXPECT_EQ(chosen, 0);

    menu.setSelected(40);
    EXPECT_TRUE(pianos.actions()[0]->isChecked());
    menu.show(stage.window.mapToGlobal(QPoint(10, 10)));
    GuiStage::settle();
    QTest::keyClick(&menu, Qt::Key_Up);
    QTest::keyClick(&menu, Qt::Key_Right);
    GuiStage::choose("Grand");
    EXPECT_EQ(chosen, 40);

    menu.clear();
    GuiStage::settle();
    EXPECT_TRUE(menu.actions().isEmpty());
    EXPECT_EQ(menu.findChild<PopupMenu*>(), nullptr);
}

TEST(PopupMenu, IsDrawnFromTheRolesAndMarksOfItsItems)
{
    GuiStage stage;
    PopupMenu menu(&stage.window);
    const QString block = QString(4, QChar(0x2588));  // full blocks: pixels of pure ink
    menu.addItem(block);
    menu.addItem({.text = block, .enabled = false});
    menu.addItem({.text = block, .brush = stage.colour(Role::frame)});
    menu.addItem({.text = block, .useBold = true});
    menu.setSelected(3);
    menu.show(stage.window.mapToGlobal(QPoint(10, 10)));
    menu.setActiveAction(nullptr);
    GuiStage::settle();
    const auto shows = [&](int item, const QColor& colour) {
        return GuiStage::shows(menu.grab(menu.actionGeometry(menu.actions()[item])).toImage(), colour);
    };
    EXPECT_TRUE(shows(0, stage.colour(Role::unselectedButton)));
    EXPECT_TRUE(shows(1, stage.colour(Role::disabledButton)));
    EXPECT_TRUE(shows(2, stage.colour(Role::frame)));
    EXPECT_TRUE(shows(3, stage.colour(Role::selectedButton)));
    EXPECT_TRUE(shows(3, stage.colour(Role::background))) << "what is current can be read";
    EXPECT_FALSE(shows(0, stage.colour(Role::selectedButton)));
    EXPECT_TRUE(menu.actions()[3]->font().bold());
    EXPECT_FALSE(menu.actions()[0]->font().bold());
}
}  // namespace
