#include "host/run/LiveWindow.h"

#include <algorithm>
#include <utility>

#include "backend/messages/GuiMessages.h"
#include "backend/recorder/RetroRecordManager.h"
#include "host/terminal/LineOutput.h"
#include "host/terminal/StatusLine.h"

namespace Host
{
using Backend::RetroRecord::SavedRecord;
using Backend::RetroRecord::SaveReport;

namespace
{
constexpr unsigned int CLOSE = 1;
constexpr std::size_t ROOM_FOR_EVENTS = 1024;
}  // namespace

LiveWindow::LiveWindow(Report reportLine)
    : report(std::move(reportLine)),
      worker(std::make_shared<Worker>(
          "orvane window", CLOSE, [this](Message& message) { handleMessage(message); }, ROOM_FOR_EVENTS))
{
    worker->start();
}

void LiveWindow::showEventsOf(Backend::OrvIF& orv)
{
    shown = &orv;
    orv.setGuiWindowHandle(getHandle());
}

void LiveWindow::handleMessage(Message& message) const
{
    if (message.number == Backend::GuiMessage::MIDI_OUTPUT_EVENT)
        shown->displayMidiOutputEvent({message.wparam, message.lparam});
    const auto* saved = message.payload.get<SaveReport>();
    if (saved == nullptr) return;
    for (const auto& [file, error] : *saved) {
        if (error)
            report(file + ": the record was not saved, it goes on: " + error.message());
        else if (!file.empty())
            report("saved " + file);
    }
    if (std::ranges::all_of(*saved, [](const SavedRecord& record) { return record == SavedRecord(); }))
        report("nothing was played, so no record was saved");
}

void LiveDisplay::addText(const char* text)
{
    std::string lines = text;
    std::erase(lines, '\r');
    standardOutput().write(StatusLine::eraser() + lines);
}
}  // namespace Host
