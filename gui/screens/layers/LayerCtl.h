#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "backend/model/Layer.h"
#include "gui/musickeyboard/BarList.h"
#include "gui/screens/layers/LayerGeometry.h"

namespace Gui
{
class OrvGuiIF;

namespace Forms
{
class LayerRecords;
class Selection;
}  // namespace Forms
}  // namespace Gui

namespace Gui::Layers
{
class LayerEdits;

/// The layers as bars below the music keyboard: a click selects, the ends are dragged, and the button at the left end
/// mutes, or in solo mode solos. A range that is being dragged is shown until the backend has acknowledged it. The GUI
/// thread.
class LayerCtl final : public Output::BarList
{
public:
    using Id = Backend::Layers::LayerId;

    /// All must outlive it.
    LayerCtl(OrvGuiIF& owner, const Forms::LayerRecords& shownLayers, Forms::Selection& selected, LayerEdits& changes,
             QWidget* parent);

    std::function<void()> onOpenSettings;      ///< opens those of the selected layers, or closes them
    std::function<void(Id id)> onSelectRange;  ///< a click with the middle button, or from the menu
    std::function<void()> onModeChange;

    void showNotes(const Backend::MidiEngine::NoteActivity& activity);
    /// The layers, or the selected ones, are others.
    void layersChanged();
    /// Sets an end, or both; one below 0 stays.
    void setRange(Id id, int lowNote, int highNote, std::uint32_t gesture);
    /// The layer whose range is taken from the music keyboard, -1 for none: it is marked.
    void setRangedLayer(Id id);

    /// Whether the buttons solo instead of muting.
    bool isSoloMode() const { return soloMode; }
    void setSoloMode(bool on);
    /// Whether bars show settings instead of numbers.
    bool isInfoMode() const { return infoMode; }
    void setInfoMode(bool on);

    /// The popup menu of a layer.
    void showRowMenu(int row, const QPoint& globalPosition) override;

    int getRowCount() const override;
    /// "Layer 2, C4 to G9, channel 2, muted".
    QString getRowName(int row) const override;
    QRect getRowPlace(int row) const override;
    bool isRowSelected(int row) const override;
    void selectRow(int row) override;

protected:
    int getLogicalHeight() const override;
    QString getEmptyText() const override;
    void paintRow(QPainter& painter, int row) override;
    bool useKey(const QKeyEvent& event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Range {
        Id layer;
        int low;
        int high;

        bool operator==(const Range&) const = default;
    };
    struct Drag {
        Id layer;
        LayerGeometry::Part end;
        std::uint32_t gesture;
    };

    Backend::Layers::Layer shownLayer(int row) const;
    LayerGeometry geometry() const;
    bool isHeard(const Backend::Layers::Layer& layer) const;
    void click(int row, LayerGeometry::Part part, Qt::KeyboardModifiers held);
    void moveEnd(int row, LayerGeometry::Part end, int note, std::uint32_t gesture);
    void pressButton(int row);
    bool selectByKey(const QKeyEvent& event);
    bool moveEndByKey(const QKeyEvent& event);
    void showCursor(const QPoint& point);
    QString textOf(const Backend::Layers::Layer& layer) const;
    QString endOf(const Backend::Layers::Layer& layer) const;
    QString routeOf(const Backend::Layers::Layer& layer) const;
    QString outputName(int output) const;
    GdiManager::Role fillOf(const Backend::Layers::Layer& layer) const;

    OrvGuiIF& gui;
    const Forms::LayerRecords& layers;
    Forms::Selection& selection;
    LayerEdits& edits;
    bool soloMode = false;
    bool infoMode = false;
    Id ranged = -1;
    std::optional<Range> wanted;
    std::optional<Drag> drag;
};
}  // namespace Gui::Layers
