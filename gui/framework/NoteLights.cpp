#include "gui/framework/NoteLights.h"

#include <chrono>
#include <utility>

#include "api/OrvIF.h"
#include "api/OrvMessageManager.h"

namespace Gui
{
namespace
{
constexpr auto NOTE_FRAME = std::chrono::milliseconds(34);  // up to 30 times a second
}

NoteLights::NoteLights(Backend::OrvIF& orv, Receiver receiver) : backend(orv), show(std::move(receiver))
{
    QObject::connect(&pull, &QTimer::timeout, &pull, [this] {
        if (backend.takeNoteActivity(activity)) show(activity);
    });
}

NoteLights::~NoteLights()
{
    if (pull.isActive()) backend.getOrvMessageManager().postWatchNotes(false);
}

void NoteLights::setOn(bool on)
{
    if (on == pull.isActive()) return;
    backend.getOrvMessageManager().postWatchNotes(on);
    if (on) return pull.start(NOTE_FRAME);
    pull.stop();
    activity = {};
    show(activity);
}
}  // namespace Gui
