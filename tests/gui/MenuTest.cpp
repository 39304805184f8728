#include "gui/framework/PopupMenu.h"
#include "tests/gui/GuiStage.h"

using Gui::PopupMenu;

struct PopupMenus : GuiStage, testing::Test {
    void show()
    {
        menu.show(window.mapToGlobal(QPoint(10, 10)));
        menu.setActiveAction(nullptr);
        settle();
    }

    PopupMenu menu{&window};
};

TEST_F(PopupMenus, ReportWhatWasChosenAlsoInASubmenu)
{
    expectAccessible(menu, QAccessible::PopupMenu);
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
    show();
    QTest::keyClick(&menu, Qt::Key_Up);
    QTest::keyClick(&menu, Qt::Key_Right);
    choose("Grand");
    EXPECT_EQ(chosen, 40);

    show();
    QTest::keyClicks(&menu, "r");
    QTest::keyClick(&menu, Qt::Key_Return);
    EXPECT_EQ(chosen, 0) << "found by typing";

    menu.clear();
    settle();
    EXPECT_TRUE(menu.actions().isEmpty());
    EXPECT_EQ(menu.findChild<PopupMenu*>(), nullptr);
}

TEST_F(PopupMenus, AreDrawnFromTheRolesAndMarksOfTheirItems)
{
    const QString block = QString(4, QChar(0x2588));  // full blocks: pixels of pure ink
    menu.addItem(block);
    menu.addItem({.text = block, .enabled = false});
    menu.addItem({.text = block, .brush = colour(Role::frame)});
    menu.addItem({.text = block, .useBold = true});
    menu.setSelected(3);
    show();
    const auto has = [&](int item, Role role) {
        return shows(menu.grab(menu.actionGeometry(menu.actions()[item])).toImage(), colour(role));
    };
    const Role inks[] = {Role::unselectedButton, Role::disabledButton, Role::frame, Role::selectedButton};
    for (int item = 0; item < 4; ++item) EXPECT_TRUE(has(item, inks[item])) << item;
    EXPECT_TRUE(has(3, Role::background)) << "what is current can be read";
    EXPECT_FALSE(has(0, Role::selectedButton));
    EXPECT_TRUE(menu.actions()[3]->font().bold());
    EXPECT_FALSE(menu.actions()[0]->font().bold());
}
