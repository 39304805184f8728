#pragma once

#include "api/Bank.h"
#include "backend/sections/layers/LayerManager.h"
#include "tests/stage/Stage.h"

/// A backend with a folder for its files and a progress dialog.
struct ProgramStage : Stage {
    TemporaryFolder folder;
    TestWindow dialog;

    std::string path(const std::string& name) const { return (folder / name).string(); }

    /// A bank with the programs "P0", "P1" and so on, of tempo 100, 101 and so on, of one layer, two layers and so on.
    std::string makeBank(int programs)
    {
        std::string text = XML_HEAD + "<Bank>\n<!-- Program -->\n";
        for (int number = 0; number < programs; ++number) {
            text += "<Other/><Program name=\"P" + std::to_string(number) + "\" tempo=\"" +
                    std::to_string(100 + number) + "\">\n<Layers>\n";
            for (int layer = 0; layer <= number; ++layer) text += "<Layer/>";
            text += "</Layers>\n</Program>\n";
        }
        folder.write("a.bnk", text + "</Bank>\n");
        return path("a.bnk");
    }
    void loadProgram(const std::string& bank, int number)
    {
        load(bank);
        changeProgram(SelectType::Kind::specific, number);
    }
    /// A program file of these sections.
    void loadSections(const std::string& sections)
    {
        loadFile("a.prg", "<F><Program name='a'>" + sections + "</Program></F>");
    }
    std::string changeProgram(SelectType::Kind kind, int number = 0)
    {
        commands().postChangeProgram({kind, number});
        return current();
    }
    /// Name, number, tempo and number of layers of the program: "P1 1 101 2".
    std::string current()
    {
        rest();
        return orv->getProgram().name + " " + std::to_string(orv->getProgram().number) + " " +
               std::to_string(orv->getProgram().tempo) + " " +
               std::to_string(orv->getLayerManager().getLayers().size());
    }
    /// The programs of the bank.
    std::string names()
    {
        rest();
        return joined(orv->getBank().programNames);
    }
    /// What was reported to the dialog: w for written, f for failed.
    std::string results()
    {
        rest();
        return dialog.received([](Message& message) {
            EXPECT_EQ(message.number, Backend::GuiMessage::OPERATION_DONE);
            return message.wparam == 1 ? "w" : "f";
        });
    }
};
