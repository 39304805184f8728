#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "backend/model/Edit.h"

namespace Backend
{
class OrvMessageManager;
}

namespace Gui
{
/// Posts the edits of the window, each when the one before it was acknowledged, so that no drag floods the backend:
/// what waits of one gesture is posted as one edit. Undo and redo take their turn. The GUI thread.
class EditPoster
{
public:
    /// `backend` must outlive it.
    explicit EditPoster(Backend::OrvMessageManager& backend) : commands(backend) {}

    /// A number for the edits of a drag, or of the typing of a value.
    std::uint32_t beginGesture() { return ++lastGesture; }

    /// The program that the window shows, to which the edits belong.
    void setProgram(int number) { program = number; }

    /// Sets `program` of the edit.
    void post(Backend::Edit edit);
    /// Posts an edit of one field.
    void change(const char* section, Backend::RecordId id, Backend::Field field, const std::string& name,
                std::uint32_t gesture);
    void undo();
    void redo();

    /// To be called for each `GuiMessage::EDIT_DONE`.
    void acknowledge();

    /// Whether everything was acknowledged: until then the backend reports values that will be replaced.
    bool isIdle() const { return waiting.empty(); }

private:
    /// An edit, or undo or redo, which have no records and no preset.
    struct Request {
        Backend::EditDone::Kind kind = Backend::EditDone::Kind::edited;
        Backend::Edit edit{};
    };

    void add(Request request);
    bool joinLast(Backend::Edit& edit);
    void send(const Request& request);

    Backend::OrvMessageManager& commands;
    std::deque<Request> waiting;  // the first one was posted
    std::uint32_t lastGesture = 0;
    int program = 0;
};
}  // namespace Gui
