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
/// The oscillators of the program. A new list is published: the engine gets a reset and then a copy, and the window a
/// copy. Speed and playing change in the engine's present list. The backend thread's.
class ORV_API OscManager final : public Section<OscList, OscId>
{
public:
    OscManager(OrvIF& backend, MessageManagerMaster& master);

    const OscList& getOscillators() const { return getContent(); }
    OscMessageManager& getMessageManager() override { return messageManager; }
    void notifyGui() const override;

    void writeXml(std::ostream& out, int indent, std::span<const OscId> ids) const override;

    // From the window: with `redraw` it gets the list back.

    /// Each takes the place of the oscillator of its id.
    void mergeOscillators(const std::vector<Oscillator>& changed, bool redraw);
    void setOscillators(const OscList& newOscillators, bool redraw);
    void setSelected(const std::vector<OscId>& ids);
    void setSpeedMode(OscId id, TimeIntervalType mode);

    /// Moves the selection up or down from the first selected oscillator, or to an oscillator. A target outside the
    /// list changes nothing.
    void dataSelect(const SelectType& select);

    // On the oscillators that `select` names: all, the selected ones, or the one of that id, and with it, if it is
    // selected, all that are; other kinds name none. Speeds end up within `Oscillator::FASTEST` and `SLOWEST`.

    void changePlaying(const SelectType& select, const OnOffToggle& value);
    /// Fixed: pulses per cycle. Relative: one note interval longer or shorter, up to "8 Whole", or, where the speed is
    /// shown in pulses, so many of the 127 steps of a logarithmic knob, which turns towards the faster end.
    void changeSpeed(const SelectType& select, const RelativeFixedValue& value);
    /// A knob, 0 to 127, from the slowest speed to the fastest: over the note intervals, or logarithmically.
    void setSpeedFromMidi(const SelectType& select, std::int32_t value);

private:
    template <class Change>
    void changeNamed(const SelectType& select, Change&& change);
    void setSpeed(Oscillator& oscillator, std::int32_t speed);
    void readContent(const XmlElement& section, OscList& into) override { into.readXml(section); }
    void updatePlaying() override;

    OscMessageManager messageManager;
};
}  // namespace Backend::Oscillators
