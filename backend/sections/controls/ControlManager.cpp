#include "backend/sections/controls/ControlManager.h"

#include <array>
#include <utility>

#include "backend/messages/GuiMessages.h"
#include "backend/model/PresetSections.h"

namespace Backend::Controls
{
using Kind = SelectControlType::Kind;

namespace
{
void updateControls(ControlManager& manager, Message& message)
{
    manager.updateControls(ControlUpdates::read(message));
}

constexpr auto COMMANDS = std::to_array<Command<ControlManager>>({
                              on<ControlMessage::SET_CONTROLS, &ControlManager::mergeControls>(),
                              on<ControlMessage::SET_VALUE, &ControlManager::setValueAt>(),
                              on<ControlMessage::SET_SELECTED, &ControlManager::setSelectedAt>(),
                              {ControlUpdates::MESSAGE, "UpdateControl", updateControls},
                          }) +
                          presetCommands<ControlManager, ControlMessage::Presets>();
}  // namespace

ControlManager::ControlManager(OrvIF& backend, MessageManagerMaster& master)
    : Section(backend, PresetSections::CONTROLS),
      messageManager(master, [this](Message& message) { execute<ControlManager>(COMMANDS, *this, message); }),
      updates(master.getQueue())
{
}

void ControlManager::writeXml(std::ostream& out, int indent, std::span<const Cell> cells) const
{
    getContent().writeXml(out, indent, cells);
}

// --- edits

namespace
{
Cell cellOf(RecordId id) { return Cell::fromPacked(static_cast<std::uint32_t>(id)); }
}  // namespace

std::vector<RecordId> ControlManager::getRecordIds() const
{
    return recordIds(getContent(),
                     [](const Control& control) { return static_cast<RecordId>(control.cell.getPacked()); });
}

std::string ControlManager::writeRecord(RecordId id) const { return textOf(getContent().findElement(cellOf(id))); }

void ControlManager::replaceRecord(RecordId id, const XmlElement& element)
{
    const Control* const old = getContent().findElement(cellOf(id));
    if (old == nullptr) return;
    Control control = Control::fromXml(element);
    control.cell = old->cell;
    control.selected = old->selected;
    edit().put(std::move(control));
}

void ControlManager::addRecord(RecordId id, const XmlElement& element)
{
    Control control = Control::fromXml(element);
    control.cell = cellOf(id);
    edit().put(std::move(control));
}

void ControlManager::removeRecord(RecordId id) { edit().remove(cellOf(id)); }

// --- selection

/// The control of the cell; for a cell of (-1, -1), the selected one.
Control* ControlManager::findTarget(const SelectControlType& select)
{
    if (select.kind == Kind::specific && select.cell != Cell{}) return edit().findElement(select.cell);
    return edit().findSelected();
}

/// The first control after a cell in that direction, or null at the edge of the grid.
Control* ControlManager::findFrom(const Cell& cell, Kind direction)
{
    for (auto next = ControlMap::step(cell, direction); next; next = ControlMap::step(*next, direction))
        if (Control* control = edit().findElement(*next)) return control;
    return nullptr;
}

void ControlManager::selectControl(const SelectControlType& select)
{
    Control* old = edit().findSelected();
    Control* target = nullptr;
    switch (select.kind) {
        case Kind::up:
        case Kind::down:
        case Kind::left:
        case Kind::right:
            target = findFrom(old != nullptr ? old->cell : ControlMap::getOutside(select.kind), select.kind);
            break;
        default:
            target = findTarget(select);
    }
    if (target == nullptr) return;
    if (old != nullptr) setSelected(*old, false);
    setSelected(*target, true);
}

void ControlManager::setSelected(Control& control, bool selected)
{
    control.selected = selected;
    link.forget();
    postToGui(GuiMessage::CONTROL_SELECTED, control.cell, selected);
}

// --- requests of the window

void ControlManager::mergeControls(const std::vector<Control>& changed, bool notify, bool deleteMissing)
{
    if (deleteMissing) edit().clear();
    for (const Control& control : changed) edit().put(control);
    publish(notify);
}

void ControlManager::setValueAt(const Cell& cell, std::int32_t value)
{
    if (Control* control = edit().findElement(cell)) setControlValue(*control, value, true, true);
}

void ControlManager::setSelectedAt(const Cell& cell, bool selected)
{
    if (Control* control = edit().findElement(cell)) setSelected(*control, selected);
}

// --- publishing

/// Forgets the group of linked controls, and passes the events that controls follow to the engine.
void ControlManager::updatePlaying()
{
    link.forget();
    updates.setFollowed(getContent());
}

void ControlManager::notifyGui() const { postToGui(GuiMessage::CONTROLS, getContent()); }

void ControlManager::notifyGuiOfValue(const Control& control) const
{
    postToGui(GuiMessage::CONTROL_VALUE, control.cell, control.value);
}
}  // namespace Backend::Controls
