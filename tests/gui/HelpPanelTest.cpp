#include <QWindow>

#include "backend/bindings/functions/HelpTexts.h"
#include "tests/gui/HelpPanelStage.h"

TEST_F(HelpPanel, BeginsWithWhatANewUserNeedsAndSaysWhatIsPointedAtOrHasTheFocus)
{
    QCursor::setPos(790, 790);  // beside the window
    reopen();
    for (const char* word : {"Q", "Z", "Ctrl+Tab", "Escape"}) EXPECT_NE(help().find(word), std::string::npos) << word;
    EXPECT_TRUE(area().isReadOnly() && fits());
    const char* reset = "Reset (panic): ends every note on all channels of all outputs.";
    pointAt(button("Reset"));
    EXPECT_EQ(help(), reset);
    pointAt(control("Playing keyboard"));
    pointAt(area());
    EXPECT_EQ(help(), reset) << "they have nothing to say";
    gui->displayHelp(Backend::HelpId::changeTempo);
    gui->displayHelp(1);
    gui->displayHelp(std::string());
    EXPECT_EQ(help(), Backend::helpText(Backend::HelpId::changeTempo));
    gui->displayHelp(std::string("Größe"));
    EXPECT_EQ(help(), "Größe");
    gui->showScreen(Backend::Screen::help, false);
    pointAt(edit("Tempo"));
    gui->showScreen(Backend::Screen::help, true);
    EXPECT_TRUE(help().starts_with("Tempo:"));

    button("MIDI thru").setFocus();
    EXPECT_TRUE(help().starts_with("MIDI thru:"));
    edit("Default MIDI output").setFocus();
    EXPECT_TRUE(help().starts_with("Default MIDI output:"));
    gui->setFocus();
    EXPECT_TRUE(help().starts_with("Default MIDI output:")) << "playing leaves it";
}
