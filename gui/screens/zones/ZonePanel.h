#pragma once

#include "backend/model/ZoneMap.h"
#include "gui/framework/Panel.h"

namespace Backend::MidiEngine
{
struct NoteActivity;
}

namespace Gui
{
class OrvGuiIF;

namespace Output
{
class BarView;
}
}  // namespace Gui

namespace Gui::Zones
{
class ZoneCtl;

/// The zone screen: the zones below the music keyboard.
class ZonePanel final : public Panel
{
public:
    ZonePanel(OrvGuiIF& owner, Panel* around);

    void showNotes(const Backend::MidiEngine::NoteActivity& activity);

    // Changes that the backend reports
    void handleZones(const Backend::Zones::ZoneMap& zones);
    void handleZoneTranspose(Backend::Zones::ZoneId zone, int transpose);
    void handleZoneSelected(Backend::Zones::ZoneId zone, bool selected);

protected:
    void scaleChanged() override;

private:
    void fit();

    ZoneCtl* zones;
    Output::BarView* view;
};
}  // namespace Gui::Zones
