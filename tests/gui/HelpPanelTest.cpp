#include <gtest/gtest.h>

#include <QPlainTextEdit>
#include <QWindow>

#include "api/OrvUtils.h"
#include "backend/bindings/functions/HelpTexts.h"
#include "tests/gui/OpenWindow.h"

namespace
{
struct HelpPanel : OpenWindow, testing::Test {
    QPlainTextEdit& area() { return control<QPlainTextEdit>("Help"); }
    std::string help() { return area().toPlainText().toStdString(); }
    void pointAt(QWidget& widget)
    {
        QTest::mouseMove(surroundings.windowHandle(), widget.mapTo(&surroundings, widget.rect().center()));
        settle();
    }
};
}  // namespace

TEST_F(HelpPanel, BeginsWithWhatANewUserNeeds)
{
    for (const char* word : {"Q", "Z", "Ctrl+Tab", "Escape"}) EXPECT_NE(help().find(word), std::string::npos) << word;
    EXPECT_TRUE(area().isReadOnly());
    EXPECT_LE(area().document()->size().height() + 1, 4) << "lines that fit";
}

TEST_F(HelpPanel, SaysWhatIsPointedAtAndKeepsTheLastText)
{
    pointAt(button("Reset"));
    EXPECT_EQ(help(), "Reset (panic): ends every note on all channels of all outputs.");
    pointAt(control("Playing keyboard"));
    pointAt(area());
    EXPECT_EQ(help(), "Reset (panic): ends every note on all channels of all outputs.") << "they have nothing to say";
    gui->displayHelp(Backend::HelpId::changeTempo);
    EXPECT_EQ(help(), Backend::helpText(Backend::HelpId::changeTempo));
    gui->displayHelp(1), gui->displayHelp(std::string());
    EXPECT_EQ(help(), Backend::helpText(Backend::HelpId::changeTempo));
    gui->displayHelp(std::string("Größe"));
    EXPECT_EQ(help(), "Größe");
    gui->showScreen(Backend::Screen::help, false);
    pointAt(edit("Tempo"));
    gui->showScreen(Backend::Screen::help, true);
    EXPECT_EQ(help().substr(0, 6), "Tempo:");
}

TEST_F(HelpPanel, FollowsTheKeyboard)
{
    button("MIDI thru").setFocus();
    EXPECT_EQ(help().substr(0, 10), "MIDI thru:");
    edit("Default MIDI output").setFocus();
    EXPECT_EQ(help().substr(0, 20), "Default MIDI output:");
    gui->setFocus();
    EXPECT_EQ(help().substr(0, 20), "Default MIDI output:") << "playing leaves it";
}

TEST_F(HelpPanel, OpensTheManualWhereThereIsOne)
{
    EXPECT_THROW(button("Manual"), std::runtime_error);

    folder.write("prog/Manual/index.htm", "");
    folder.write("xdg-open", "#!/bin/sh\nprintf '%s' \"$1\" >\"" + (folder / "opened").string() + "\"\n");
    std::filesystem::permissions(folder / "xdg-open", std::filesystem::perms::owner_all);
    Backend::OrvUtils::setOrvProgDir((folder / "prog").string());
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", QByteArray::fromStdString(folder.string()) + ":" + path);
    gui->destroy();
    gui->create(*this);
    EXPECT_LE(area().document()->size().height() + 1, 4) << "lines that fit";
    EXPECT_FALSE(area().geometry().intersects(button("Manual").geometry()));
    QTest::mouseClick(&button("Manual"), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !folder.read("opened").empty(); }));
    EXPECT_EQ(folder.read("opened"), (folder / "prog/Manual/index.htm").string());

    folder.write("xdg-open", "#!/bin/sh\nexit 3\n");
    QTest::mouseClick(&button("Manual"), Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([this] { return help().starts_with("The manual"); }, 30000));
    EXPECT_EQ(help(), "The manual cannot be opened because xdg-open finds no program for it. Its file is " +
                          (folder / "prog/Manual/index.htm").string() + ".");
    qputenv("PATH", path);
}
