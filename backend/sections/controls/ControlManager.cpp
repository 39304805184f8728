#include "backend/sections/controls/ControlManager.h"

#include <array>
#include <sstream>

#include "api/OrvIF.h"
#include "backend/messages/GuiMessages.h"
#include "backend/model/PresetSections.h"
#include "backend/xml/XmlDocument.h"

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
    on<ControlMessage::LOAD_PRESET, &ControlManager::loadPreset>(),
    on<ControlMessage::RENAME_PRESET, &ControlManager::renamePreset>(),
    on<ControlMessage::DELETE_PRESET, &ControlManager::deletePreset>(),
    on<ControlMessage::SAVE_PRESET, &ControlManager::savePreset>(),
    on<ControlMessage::SET_VALUE, &ControlManager::setValueAt>(),
    on<ControlMessage::SET_SELECTED, &ControlManager::setSelectedAt>(),
    {ControlUpdates::MESSAGE, "UpdateControl", updateControls},
});
}  // namespace

ControlManager::ControlManager(OrvIF& backend, MessageManagerMaster& master)
    : orv(backend),
      presets(PresetSections::CONTROLS),
      messageManager(master, [this](Message& message) { execute<ControlManager>(COMMANDS, *this, message); }),
      updates(master.getQueue())
{
}

// --- files

void ControlManager::loadSection(const XmlElement& section)
{
    controls.readXml(section);
    publish();
    tellGui();
}

void ControlManager::writeSection(std::ostream& out, int indent, std::span<const Cell> cells) const
{
    controls.writeXml(out, indent, cells);
}

void ControlManager::loadPreset(const std::string& name)
{
    const std::string path = presets.findPreset(name);
    if (path.empty()) return;
    const XmlElement root = XmlDocument(path, XmlDocument::Source::file).getRoot();
    if (root.hasElement()) loadSection(root);
}

void ControlManager::savePreset(const std::string& name, const std::vector<Cell>& cells)
{
    presets.save(name, [&](std::string& text) {
        std::ostringstream out;
        writeSection(out, 0, cells);
        text += out.str();
    });
}

void ControlManager::renamePreset(const std::string& name, const std::string& newName)
{
    presets.rename(name, newName);
}

void ControlManager::deletePreset(const std::string& name) { presets.remove(name); }

void ControlManager::setDefaults()
{
    controls.clear();
    publish();
    tellGui();
}

// --- selection

/// A cell of (-1, -1) is none given: the selected control.
Control* ControlManager::findTarget(const SelectControlType& select)
{
    if (select.kind == Kind::specific && select.cell != Cell{}) return controls.findElement(select.cell);
    return controls.findSelected();
}

/// The first control behind a cell, or null at the edge of the grid.
Control* ControlManager::findFrom(Cell cell, Kind direction)
{
    while (true) {
        if (direction == Kind::up) --cell.row;
        if (direction == Kind::down) ++cell.row;
        if (direction == Kind::left && --cell.col < 0) cell = {cell.row - 1, ControlMap::COLUMNS - 1};
        if (direction == Kind::right && ++cell.col >= ControlMap::COLUMNS) cell = {cell.row + 1, 0};
        if (cell.row < 0 || cell.row >= ControlMap::ROWS) return nullptr;
        if (Control* control = controls.findElement(cell)) return control;
    }
}

void ControlManager::selectControl(const SelectControlType& select)
{
    Control* old = controls.findSelected();
    Control* target = nullptr;
    switch (select.kind) {
        case Kind::up:
        case Kind::down:
        case Kind::left:
        case Kind::right: {
            const Cell outside = select.kind == Kind::down ? Cell{-1, 0} : Cell{0, -1};
            target = findFrom(old != nullptr ? old->cell : outside, select.kind);
            break;
        }
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
    orv.getGuiWindowHandle().post(
        {.number = GuiMessage::CONTROL_SELECTED, .wparam = control.cell.getPacked(), .lparam = selected});
}

// --- the window's wishes

void ControlManager::mergeControls(const std::vector<Control>& changed, bool notifyGui, bool deleteMissing)
{
    if (deleteMissing) controls.clear();
    for (const Control& control : changed) controls.put(control);
    publish();
    if (notifyGui) tellGui();
}

void ControlManager::setValueAt(const Cell& cell, std::int32_t value)
{
    if (Control* control = controls.findElement(cell)) setControlValue(*control, value, true, true);
}

void ControlManager::setSelectedAt(const Cell& cell, bool selected)
{
    Control* control = controls.findElement(cell);
    if (control == nullptr) return;
    control->selected = selected;
    link.forget();
}

// --- publishing

/// Another list of controls is another group of linked ones, and time slices learn what to tell of.
void ControlManager::publish()
{
    link.forget();
    updates.setFollowed(controls);
}

void ControlManager::tellGui() const
{
    const WindowHandle window = orv.getGuiWindowHandle();
    if (window) window.post({.number = GuiMessage::CONTROLS, .payload = Payload::of(ControlMap(controls))});
}

void ControlManager::tellValue(const Control& control) const
{
    orv.getGuiWindowHandle().post(
        {.number = GuiMessage::CONTROL_VALUE, .wparam = control.cell.getPacked(), .lparam = control.value});
}
}  // namespace Backend::Controls
