#include "backend/messages/SettingMessages.h"
#include "gui/framework/Panel.h"
#include "gui/framework/Properties.h"
#include "tests/gui/DialogHands.h"

/// What is wrong with the controls that are seen, a line each: no help, or a text that is cut off.
static std::string unhelpfulOrCutOff(const QWidget& window)
{
    std::string all;
    for (const auto* control : window.findChildren<QWidget*>()) {
        if (!control->isVisible()) continue;
        const QString text = control->property("text").toString();
        const auto* label = qobject_cast<const QLabel*>(control);
        const bool isPlainLabel = label != nullptr && !label->wordWrap();
        const bool isButton = qobject_cast<const QAbstractButton*>(control) != nullptr;
        const int needed = control->fontMetrics().horizontalAdvance(text) + (isButton ? 4 : 0);
        const std::string name = (control->accessibleName() + " '" + text + "'").toStdString();
        if ((isPlainLabel || isButton) && control->width() < needed) all += name + " is cut off\n";
        if (control->focusPolicy() == Qt::NoFocus) continue;
        if (control->accessibleDescription().isEmpty()) all += name + " has no description\n";
        if (!control->property(Gui::Property::HELP).isValid()) all += name + " has no help\n";
    }
    return all;
}
using ControlNames = DialogHands;

TEST_F(ControlNames, OfTheSystemPanelHaveHelpAndRoomForTheirTexts)
{
    for (auto* candidate : surroundings.findChildren<QWidget*>()) {
        if (candidate->focusPolicy() == Qt::NoFocus) continue;
        const auto* accessible = QAccessible::queryAccessibleInterface(candidate);
        EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << candidate->metaObject()->className();
    }
    for (const int skin : {0, 1}) {
        commands().postSetting(Backend::SETTING<Backend::Settings::SKIN>(skin));
        settle();
        for (const char* part : {"Tempo", "Files", "Computer keyboard", "Music keyboard"})
            EXPECT_EQ(unhelpfulOrCutOff(*control(part).parentWidget()), "") << part << skin;
    }
}

TEST_F(ControlNames, OfTheSetupHaveHelpAndRoomForTheirTexts)
{
    click("Setup");
    QDialog& setup = dialog("Setup");
    auto& titles = control<QListWidget>("Pages");
    auto& line = *setup.findChild<QLabel*>("help");
    for (int page = 0; page < titles.count(); ++page) {
        titles.setCurrentRow(page);
        QTest::qWait(1);
        dialog("Setup");  // which checks the names
        EXPECT_EQ(unhelpfulOrCutOff(setup), "") << page;
        for (const auto* helped : setup.findChildren<QWidget*>()) {
            line.setText(helped->property(Gui::Property::HELP).toString());
            EXPECT_LE(line.heightForWidth(line.width()), line.height()) << line.text().toStdString();
        }
    }
    EXPECT_LE(titles.sizeHintForColumn(0), titles.viewport()->width());
}

TEST_F(ControlNames, AreWalkedByTabAloneFromTopToBottomAlsoWhereTheColumnIsScrolled)
{
    for (const auto screen : {Backend::Screen::zones, Backend::Screen::oscillators, Backend::Screen::display})
        gui->showScreen(screen, true);
    const auto heightOf = [](const QWidget* control) {
        int height = 0;  // of the screen in the column
        for (int around = 0; control != nullptr; control = control->parentWidget())
            if (dynamic_cast<const Gui::Panel*>(control) != nullptr) height = std::exchange(around, control->y());
        return height;
    };
    int last = 0, timesUp = 0;
    surroundings.resize(surroundings.width(), 300);
    settle();
    std::vector<QWidget*> missing;
    for (auto* control : surroundings.findChildren<QWidget*>())
        if ((control->focusPolicy() & Qt::TabFocus) != 0 && control->isVisible() && control->isEnabled())
            missing.push_back(control);
    EXPECT_GT(missing.size(), 25u);
    QTest::keyClick(&focus(), Qt::Key_Tab, Qt::ControlModifier);
    for (std::size_t tabs = 0; tabs < 200 && !missing.empty(); ++tabs) {
        QWidget& here = focus();
        std::erase(missing, &here);
        timesUp += heightOf(&here) < std::exchange(last, heightOf(&here));
        EXPECT_FALSE(QAccessible::queryAccessibleInterface(&here)->text(QAccessible::Name).isEmpty())
            << here.metaObject()->className();
        EXPECT_FALSE(here.visibleRegion().isEmpty()) << here.accessibleName().toStdString() << " is scrolled away";
        QTest::keyClick(&here, Qt::Key_Tab);
    }
    EXPECT_LE(timesUp, 1) << "the focus does not go from top to bottom";
    for (const auto* control : missing) ADD_FAILURE() << control->accessibleName().toStdString() << " is not reached";
    QTest::keyClick(&focus(), Qt::Key_Escape);
    EXPECT_TRUE(isPlaying());
}
