#pragma once

#include "backend/model/Edit.h"
#include "tests/core/ProgramStage.h"

/// A backend with a window that edits the current program.
struct EditStage : ProgramStage {
    EditStage() { openWindow(); }

    void edit(Backend::Edit edit)
    {
        edit.program = orv->getProgram().number;
        commands().postEdit(edit);
        rest();
    }
    /// Changes a field of a record. Without a gesture it is a step of its own.
    void set(const std::string& section, Backend::RecordId id, const std::string& field, const std::string& value,
             std::uint32_t gesture = 0)
    {
        edit({.section = section,
              .name = field + " " + value,
              .gesture = gesture != 0 ? gesture : ++lastGesture,
              .records = {{.id = id, .fields = {{field, value}}}}});
    }
    void rename(const std::string& name) { set("Program", 0, "name", name); }

    /// The names of the edits that were undone, or done again; empty if there was none.
    std::string undo() { return executed(&Backend::OrvMessageManager::postUndo); }
    std::string redo() { return executed(&Backend::OrvMessageManager::postRedo); }

    std::string text() { return commands().sendGetProgramAsString(); }
    /// What the window received about edited programs since the last call: "edited 1" with the number of the others.
    std::string marks()
    {
        drain();
        return std::exchange(marked, {});
    }

    std::uint32_t lastGesture = 1000;

private:
    std::string executed(void (Backend::OrvMessageManager::*post)(std::uint32_t))
    {
        drain();
        (commands().*post)(++lastGesture);
        return drain();
    }

    /// The names in the acknowledgements that the window received.
    std::string drain()
    {
        return received([this](Message& message) {
            std::string name;
            if (message.number == Backend::GuiMessage::PROGRAM_EDITED)
                marked += std::string(marked.empty() ? "" : ", ") + (message.wparam != 0 ? "edited " : "as saved ") +
                          std::to_string(message.lparam);
            if (message.number == Backend::GuiMessage::EDIT_DONE)
                Backend::GuiMessage::EDIT_DONE.deliver(message, [&](const Backend::EditDone& done) {
                    EXPECT_LE(done.gesture, lastGesture);
                    name = done.name;
                });
            return name;
        });
    }

    std::string marked;
};
