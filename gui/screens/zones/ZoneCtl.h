#pragma once

#include <optional>
#include <vector>

#include "backend/model/ZoneMap.h"
#include "gui/framework/Wheel.h"
#include "gui/musickeyboard/BarList.h"
#include "gui/screens/zones/ZoneGeometry.h"

namespace Gui
{
class OrvGuiIF;
}

namespace Gui::Zones
{
/// The zones as bars below the music keyboard, which are dragged to transpose them: by octaves with the left button, by
/// semitones with the right one. Its own changes are shown at once, and those of the backend when none of its own are
/// on their way.
class ZoneCtl final : public Output::BarList
{
public:
    ZoneCtl(OrvGuiIF& owner, QWidget* parent);

    void showNotes(const Backend::MidiEngine::NoteActivity& activity);

    // Changes that the backend reports
    void handleZones(const Backend::Zones::ZoneMap& zones);
    void handleZoneTranspose(Backend::Zones::ZoneId id, int transpose);
    void handleZoneSelected(Backend::Zones::ZoneId id, bool selected);

    int getRowCount() const override { return static_cast<int>(rows.size()); }
    /// "Zone 1, C3 to G4, transposed by -12". What plays in it is said if it is not the keys alone.
    QString getRowName(int row) const override;
    QRect getRowPlace(int row) const override;
    bool isRowSelected(int row) const override { return at(row).selected; }
    /// Selects this zone alone.
    void selectRow(int row) override;

protected:
    int getLogicalHeight() const override;
    QString getEmptyText() const override;
    void paintRow(QPainter& painter, int row) override;
    bool useKey(const QKeyEvent& event) override;
    void showRowMenu(int row, const QPoint& globalPosition) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Drag {
        Backend::Zones::ZoneId zone;
        int x;  // where the last step was made
        Qt::MouseButton button;
        std::uint32_t gesture;
        bool moved = false;
    };
    /// The last transposition of this window. It is shown until the backend has acknowledged it.
    struct Wanted {
        Backend::Zones::ZoneId zone;
        int transpose;
    };

    const Backend::Zones::Zone& at(int row) const { return rows[static_cast<std::size_t>(row)]; }
    Backend::Zones::Zone shownZone(int row) const;
    int rowOf(Backend::Zones::ZoneId id) const;
    ZoneGeometry geometry() const;
    int barAt(const QPoint& point) const;
    QString nameOf(Backend::Zones::ZoneId id) const;
    void reachFor(const QPoint& point);
    std::uint32_t ongoingGesture(int row) const;
    void setTranspose(int row, int transpose, std::uint32_t gesture);
    void changed(int row);

    OrvGuiIF& gui;
    std::vector<Backend::Zones::Zone> rows;  // as the backend reported them
    std::optional<Wanted> wanted;
    std::optional<Drag> drag;
    Wheel wheel;
};
}  // namespace Gui::Zones
