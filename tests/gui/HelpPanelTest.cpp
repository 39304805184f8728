#include <QPlainTextEdit>
#include <QWindow>

#include "api/OrvUtils.h"
#include "backend/bindings/functions/HelpTexts.h"
#include "tests/gui/WindowStage.h"

struct HelpPanel : OpenWindow, testing::Test {
    QPlainTextEdit& area() { return control<QPlainTextEdit>("Help"); }
    std::string help() { return area().toPlainText().toStdString(); }
    bool fits() { return area().document()->size().height() + 1 <= 4; }
    void pointAt(QWidget& widget)
    {
        const QPointF middle = widget.rect().center();
        QEnterEvent event(middle, middle, widget.mapToGlobal(middle));
        QApplication::sendEvent(&widget, &event);
        settle();
    }
};

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

TEST_F(HelpPanel, OpensTheManualWhereThereIsOne)
{
    EXPECT_THROW(button("Manual"), std::runtime_error);

    folder.write("prog/Manual/index.htm", "");
    folder.write("xdg-open", "#!/bin/sh\nprintf '%s' \"$1\" >\"" + path("opened") + "\"\n");
    std::filesystem::permissions(path("xdg-open"), std::filesystem::perms::owner_all);
    Backend::OrvUtils::setOrvProgDir(path("prog"));
    qputenv("PATH", QByteArray::fromStdString(folder.string()) + ":" + qgetenv("PATH"));
    reopen();
    EXPECT_TRUE(fits());
    EXPECT_FALSE(area().geometry().intersects(button("Manual").geometry()));
    Hands::click(button("Manual"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return !folder.read("opened").empty(); }));
    EXPECT_EQ(folder.read("opened"), path("prog/Manual/index.htm"));

    folder.write("xdg-open", "#!/bin/sh\nexit 3\n");
    Hands::click(button("Manual"));
    EXPECT_TRUE(QTest::qWaitFor([this] { return help().starts_with("The manual"); }, 30000));
    EXPECT_EQ(help(), "The manual cannot be opened because xdg-open finds no program for it. Its file is " +
                          path("prog/Manual/index.htm") + ".");
}
