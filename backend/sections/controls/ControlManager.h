#pragma once

#include <iosfwd>
#include <span>
#include <vector>

#include "backend/engine/ControlUpdates.h"
#include "backend/messages/ControlMessageManager.h"
#include "backend/model/ControlMap.h"
#include "backend/sections/Section.h"
#include "backend/sections/controls/ControlLink.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectControlType.h"
#include "platform/Export.h"

namespace Backend::Controls
{
/// The controls of the screen. A control sends its value as events and follows the same event when it passes through
/// the engine from anywhere else. The window is notified of every change. The backend thread's.
class ORV_API ControlManager final : public Section<ControlMap, Cell>
{
public:
    ControlManager(OrvIF& backend, MessageManagerMaster& master);

    const ControlMap& getControls() const { return getContent(); }
    ControlMessageManager& getMessageManager() override { return messageManager; }
    /// The time slices' access to the controls.
    ControlUpdates& getUpdates() { return updates; }
    void notifyGui() const override;

    /// As a program or a preset holds it, see `writeXml`.
    void writeSection(std::ostream& out, int indent, std::span<const Cell> cells) const
    {
        writeXml(out, indent, cells);
    }
    void writeXml(std::ostream& out, int indent, std::span<const Cell> cells) const override;

    // What functions do

    /// Moves the selection from the first selected control, past empty cells: left and right run through the grid like
    /// text, up and down stop at its edge. Without one it starts before the first column or above the first row. Or
    /// selects the control of a cell. No control there, no change.
    void selectControl(const SelectControlType& select);
    /// The control of a cell, or else the first selected one, takes a value and sends it.
    void changeControl(const SelectControlType& select, const RelativeFixedValue& amount);
    /// All controls, that of a cell, or else the first selected one, send what they have.
    void sendControlData(const SelectControlType& select);

    /// Every control in the order of the cells, or only those that are to send when a program is loaded.
    void sendAll(bool onlyAutoSend);

    /// The control takes a value, within its range. With `send` it sends it; a bank select or a program change goes out
    /// between its companions, the controls on the same way that hold the other parts: bank MSB, bank LSB, program. If
    /// it is selected, the other selected controls move with it, and send with it.
    void setControlValue(Control& control, std::int32_t value, bool notify, bool send);

    /// Sets every control that follows an event that was sent, except the one that sent it. Sends nothing.
    void updateControls(const MidiEngine::OrvMidiMessage& event);

    // From the window

    /// Each takes the place of the control of its cell; with `deleteMissing` all others go. With `notify` the window
    /// gets the controls back.
    void mergeControls(const std::vector<Control>& changed, bool notify, bool deleteMissing);
    /// As `changeControl` on a cell; it never means the selected one.
    void setValueAt(const Cell& cell, std::int32_t value);
    /// Selects a control beside what is selected, or not any more. The window knows.
    void setSelectedAt(const Cell& cell, bool selected);

private:
    Control* findTarget(const SelectControlType& select);
    Control* findFrom(Cell cell, SelectControlType::Kind direction);
    void sendControl(const Control& control);
    void sendInOrder(const Control& control);
    void moveLinked(const Control& moved, std::int64_t delta, bool send);
    void setSelected(Control& control, bool selected);
    void notifyGuiOfValue(const Control& control) const;
    /// What is read is selected nowhere and sends nothing by itself.
    void readContent(const XmlElement& section, ControlMap& into) override { into.readXml(section); }
    void updatePlaying() override;

    ControlLink link;
    ControlMessageManager messageManager;
    ControlUpdates updates;
};
}  // namespace Backend::Controls
