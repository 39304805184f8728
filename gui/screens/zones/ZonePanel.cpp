#include "gui/screens/zones/ZonePanel.h"

#include "api/OrvGuiIF.h"
#include "gui/framework/GdiManager.h"
#include "gui/musickeyboard/BarView.h"
#include "gui/screens/zones/ZoneCtl.h"

namespace Gui::Zones
{
namespace
{
constexpr int WIDTH = 960;  // logical pixels
constexpr int MOST_ROWS = 6;
}  // namespace

ZonePanel::ZonePanel(OrvGuiIF& owner, Panel* around)
    : Panel(around),
      zones(new ZoneCtl(owner, nullptr)),
      view(new Output::BarView(owner.getGdiManager(), *zones, MOST_ROWS * ZoneGeometry::PITCH, this))
{
    fit();
}

void ZonePanel::scaleChanged()
{
    zones->rescale();
    fit();
}

void ZonePanel::fit()
{
    const QSize size(WIDTH, view->getLogicalHeight());
    place(*view, {{0, 0}, size});
    setPanelSize(size);
}

void ZonePanel::showNotes(const Backend::MidiEngine::NoteActivity& activity) { zones->showNotes(activity); }

void ZonePanel::handleZones(const Backend::Zones::ZoneMap& map)
{
    zones->handleZones(map);
    fit();
}

void ZonePanel::handleZoneTranspose(Backend::Zones::ZoneId zone, int transpose)
{
    zones->handleZoneTranspose(zone, transpose);
}

void ZonePanel::handleZoneSelected(Backend::Zones::ZoneId zone, bool selected)
{
    zones->handleZoneSelected(zone, selected);
}
}  // namespace Gui::Zones
