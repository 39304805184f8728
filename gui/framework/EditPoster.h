#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

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
    /// The number for an edit of the wheel: those of the same value that follow each other within a second are one
    /// gesture, unless another one begins between them.
    std::uint32_t gestureOf(const std::string& value);

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
    void acknowledge(const Backend::EditDone& done);
    /// Calls `observer` with each acknowledgement, before `whenIdle` goes on, as long as `owner` exists.
    void observe(const QObject& owner, std::function<void(const Backend::EditDone& done)> observer);

    /// Whether everything was acknowledged: until then the backend reports values that will be replaced.
    bool isIdle() const { return waiting.empty(); }
    /// Calls `task` when everything was acknowledged, after the earlier tasks, unless `owner` is gone by then; a task
    /// that posts makes the later ones wait.
    void whenIdle(const QObject& owner, std::function<void()> task);

private:
    /// An edit, or undo or redo, which have no records and no preset.
    struct Request {
        Backend::EditDone::Kind kind = Backend::EditDone::Kind::edited;
        Backend::Edit edit{};
    };

    void add(Request request);
    bool joinLast(Backend::Edit& edit);
    void send(const Request& request);
    void executeTasks();

    Backend::OrvMessageManager& commands;
    std::deque<Request> waiting;  // the first one was posted
    struct Observer {
        QPointer<const QObject> owner;
        std::function<void(const Backend::EditDone&)> call;
    };
    struct Task {
        QPointer<const QObject> owner;
        std::function<void()> execute;
    };
    std::vector<Observer> observers;
    std::deque<Task> tasks;
    bool isExecuting = false;

    std::uint32_t lastGesture = 0;
    std::uint32_t valueGesture = 0;
    std::string lastValue;
    QElapsedTimer sinceLastValue;
    int program = 0;
};
}  // namespace Gui
