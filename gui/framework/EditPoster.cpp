#include "gui/framework/EditPoster.h"

#include <algorithm>
#include <utility>

#include "api/OrvMessageManager.h"

namespace Gui
{
using namespace Backend;

namespace
{
using Kind = EditDone::Kind;

/// Sets the fields of later changes in those of an earlier one.
void merge(RecordEdit& record, RecordEdit& later)
{
    for (Field& field : later.fields) {
        const auto same = std::ranges::find(record.fields, field.name, &Field::name);
        if (same == record.fields.end())
            record.fields.push_back(std::move(field));
        else
            same->value = std::move(field.value);
    }
}

/// Whether the order of its records does not matter.
bool setsFieldsOnly(const Edit& edit)
{
    return edit.preset.empty() && std::ranges::all_of(edit.records, [](const RecordEdit& record) {
               return record.kind == RecordEdit::Kind::change;
           });
}
}  // namespace

void EditPoster::post(Edit edit)
{
    edit.program = program;
    if (!joinLast(edit)) add({.edit = std::move(edit)});
}

void EditPoster::change(const char* section, RecordId id, Field field, const std::string& name, std::uint32_t gesture)
{
    post({.section = section, .name = name, .gesture = gesture, .records = {{.id = id, .fields = {std::move(field)}}}});
}

void EditPoster::undo() { add({.kind = Kind::undone}); }

void EditPoster::redo() { add({.kind = Kind::redone}); }

std::uint32_t EditPoster::gestureOf(const std::string& value)
{
    constexpr int ONE_GESTURE = 1000;  // milliseconds
    const bool goesOn = value == lastValue && valueGesture == lastGesture && sinceLastValue.elapsed() <= ONE_GESTURE;
    if (!goesOn) valueGesture = beginGesture();
    lastValue = value;
    sinceLastValue.start();
    return valueGesture;
}

void EditPoster::acknowledge(const EditDone& done)
{
    if (waiting.empty()) return;
    waiting.pop_front();
    if (!waiting.empty()) send(waiting.front());
    isExecuting = true;
    for (const Observer& observer : observers)
        if (observer.owner != nullptr) observer.call(done);
    isExecuting = false;
    executeTasks();
}

void EditPoster::observe(const QObject& owner, std::function<void(const EditDone& done)> observer)
{
    std::erase_if(observers, [](const Observer& known) { return known.owner == nullptr; });
    observers.push_back({&owner, std::move(observer)});
}

void EditPoster::whenIdle(const QObject& owner, std::function<void()> task)
{
    tasks.push_back({&owner, std::move(task)});
    executeTasks();
}

void EditPoster::executeTasks()
{
    if (isExecuting) return;
    isExecuting = true;
    while (isIdle() && !tasks.empty()) {
        const Task task = std::move(tasks.front());
        tasks.pop_front();
        if (task.owner != nullptr) task.execute();
    }
    isExecuting = false;
}

void EditPoster::add(Request request)
{
    waiting.push_back(std::move(request));
    if (waiting.size() == 1) send(waiting.front());
}

/// Adds an edit to the last one that waits, if both set fields in one gesture.
bool EditPoster::joinLast(Edit& edit)
{
    if (waiting.size() < 2 || waiting.back().kind != Kind::edited) return false;
    Edit& last = waiting.back().edit;
    if (last.gesture != edit.gesture || last.section != edit.section || last.program != edit.program) return false;
    if (!setsFieldsOnly(last) || !setsFieldsOnly(edit)) return false;
    for (RecordEdit& record : edit.records) {
        const auto same = std::ranges::find(last.records, record.id, &RecordEdit::id);
        if (same == last.records.end())
            last.records.push_back(std::move(record));
        else
            merge(*same, record);
    }
    return true;
}

void EditPoster::send(const Request& request)
{
    switch (request.kind) {
        case Kind::edited:
            return commands.postEdit(request.edit);
        case Kind::undone:
            return commands.postUndo(beginGesture());
        case Kind::redone:
            return commands.postRedo(beginGesture());
    }
}
}  // namespace Gui
