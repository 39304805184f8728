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
/// The controls of the screen. A control sends its value as events, and follows the same event when the engine plays it
/// for any other reason. The window is notified of every change. The backend thread's. See docs/behaviour/controls.md.
class ORV_API ControlManager final : public Section<ControlMap, Cell>
{
public:
    ControlManager(OrvIF& backend, MessageManagerMaster& master);

    const ControlMap& getControls() const { return getContent(); }
    ControlMessageManager& getMessageManager() override { return messageManager; }
    /// For the engine, which posts played events with it.
    ControlUpdates& getUpdates() { return updates; }
    void notifyGui() const override;

    /// Writes the element as a program or a preset holds it, see `writeXml`.
    void writeSection(std::ostream& out, int indent, std::span<const Cell> cells) const
    {
        writeXml(out, indent, cells);
    }
    void writeXml(std::ostream& out, int indent, std::span<const Cell> cells) const override;

    std::vector<RecordId> getRecordIds() const override;
    std::string writeRecord(RecordId id) const override;
    void replaceRecord(RecordId id, const XmlElement& element) override;
    void addRecord(RecordId id, const XmlElement& element) override;
    void removeRecord(RecordId id) override;

    // Operations of functions

    /// Moves the selection from the first selected control to the next control, past empty cells: left and right
    /// through the grid like text, up and down within the column. Without a selected control it starts before the first
    /// column or above the first row. Or selects the control of a cell. Without a control there nothing changes.
    void selectControl(const SelectControlType& select);
    /// Changes the value of the control of a cell, or else of the first selected one, and sends it.
    void changeControl(const SelectControlType& select, const RelativeFixedValue& amount);
    /// Sends the value of all controls, of that of a cell, or else of the first selected one.
    void sendControlData(const SelectControlType& select);

    /// Sends all values in the order of the cells, or only those of controls that send when a program is loaded.
    void sendAll(bool onlyAutoSend);

    /// Sets the value of a control, limited to its range. With `send` it is sent; a bank select or a program change is
    /// sent together with those of the other controls that have the same output, channel and zone, in the order bank
    /// MSB, bank LSB, program. If the control is selected, the other selected controls move with it, and send too.
    void setControlValue(Control& control, std::int32_t value, bool notify, bool send);

    /// Sets every control that follows an event that was played, except the control that sent it. Nothing is sent.
    void updateControls(const MidiEngine::OrvMidiMessage& event);

    // Operations of the window

    /// Each replaces the control of its cell; with `deleteMissing` all other controls are removed. With `notify` the
    /// controls are sent back to the window.
    void mergeControls(const std::vector<Control>& changed, bool notify, bool deleteMissing);
    /// As `changeControl`, but never for the selected control.
    void setValueAt(const Cell& cell, std::int32_t value);
    /// Adds a control to the selection or removes it.
    void setSelectedAt(const Cell& cell, bool selected);

private:
    Control* findTarget(const SelectControlType& select);
    Control* findFrom(const Cell& cell, SelectControlType::Kind direction);
    void sendControl(const Control& control);
    void sendInOrder(const Control& control);
    void moveLinked(const Control& moved, std::int64_t delta, bool send);
    void setSelected(Control& control, bool selected);
    void notifyGuiOfValue(const Control& control) const;
    /// Controls that are read are not selected, and do not send.
    void readContent(const XmlElement& section, ControlMap& into) override { into.readXml(section); }
    void updatePlaying() override;

    ControlLink link;
    ControlMessageManager messageManager;
    ControlUpdates updates;
};
}  // namespace Backend::Controls
