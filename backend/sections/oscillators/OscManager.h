#pragma once

#include <iosfwd>
#include <span>
#include <vector>

#include "backend/messages/OscMessageManager.h"
#include "backend/model/OscList.h"
#include "backend/sections/Section.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectType.h"
#include "platform/Export.h"

namespace Backend::Oscillators
{
/// The oscillators of the program. A new list is published: the engine is reset and gets a copy, and the window gets a
/// copy. Speed and playing are changed in the list that the engine has. The backend thread's.
class ORV_API OscManager final : public ListSection<OscList, Oscillator, OscId>
{
public:
    OscManager(OrvIF& backend, MessageManagerMaster& master);

    const OscList& getOscillators() const { return getContent(); }
    OscMessageManager& getMessageManager() override { return messageManager; }
    void notifyGui() const override;

    void addRecord(OscId id, const XmlElement& element) override;
    void removeRecord(OscId id) override;
    void publishRecords() override;

    // Operations of the window: with `redraw` the list is sent back to it.

    /// Each replaces the oscillator of its id.
    void mergeOscillators(const std::vector<Oscillator>& changed, bool redraw);
    void setOscillators(const OscList& newOscillators, bool redraw);
    void setSelected(const std::vector<OscId>& ids);
    void setSpeedMode(OscId id, TimeIntervalType mode);

    /// Selects the oscillator above or below the first selected one, or that of an id. Without an oscillator there
    /// nothing changes.
    void dataSelect(const SelectType& select);

    // Operations on the oscillators that `select` names: all, the selected ones, or that of an id and, if it is
    // selected, all selected ones; other kinds name none. Speeds are limited to `Oscillator::FASTEST` to `SLOWEST`.

    void changePlaying(const SelectType& select, const OnOffToggle& value);
    /// A fixed value is in pulses per cycle. A relative one goes one note interval longer or shorter, up to "8 Whole";
    /// if the speed is shown in pulses, it moves a logarithmic knob of 127 steps, whose upper end is the fastest speed.
    void changeSpeed(const SelectType& select, const RelativeFixedValue& value);
    /// The position of a knob, 0 to 127, from the slowest speed to the fastest: in note intervals, or logarithmically.
    void setSpeedFromMidi(const SelectType& select, std::int32_t value);

private:
    template <class Change>
    void changeNamed(const SelectType& select, Change&& change);
    void setSpeed(Oscillator& oscillator, std::int32_t speed);
    void readContent(const XmlElement& section, OscList& into) override;
    Oscillator readItem(const XmlElement& element, OscId id) const override { return Oscillator::fromXml(element, id); }
    /// A change of the speed alone does not interrupt what plays.
    void replaceItem(Oscillator& oscillator, Oscillator read) override;
    void updatePlaying() override;

    bool isListEdited = false;  // by more than speeds
    OscMessageManager messageManager;
};
}  // namespace Backend::Oscillators
