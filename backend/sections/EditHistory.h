#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "backend/sections/Records.h"
#include "platform/Export.h"

namespace Backend
{
/// What one gesture of the window changed, in order.
struct EditStep {
    std::string name;
    std::uint32_t gesture = 0;
    RecordChanges changes{};
    std::uint64_t state = 0;  ///< after the step; set by the history
};

/// The preset that a section was loaded from or saved as most recently; empty for none.
struct SectionPreset {
    std::string name;
    bool isEdited = false;  ///< whether steps have changed the section since, or the preset itself was replaced

    bool operator==(const SectionPreset&) const = default;
};

/// The edits of a program since it was loaded. A plain value. It executes nothing: the caller applies the steps that it
/// returns.
class ORV_API EditHistory
{
public:
    /// What the program is after some step, for `setSaved`.
    using State = std::uint64_t;

    /// Adds a step after the present one; those that were undone are gone. If the present step is of the same gesture,
    /// it takes the changes; if nothing differs then, it is gone.
    void add(EditStep step);

    /// The step to be undone, or to be done again, which counts as executed; null if there is none. Valid until the
    /// history is changed.
    const EditStep* undo() { return position == 0 ? nullptr : &steps[--position]; }
    const EditStep* redo() { return position == steps.size() ? nullptr : &steps[position++]; }

    bool isEmpty() const { return steps.empty(); }

    /// Whether the program differs from what the bank has.
    bool isEdited() const { return getState() != saved; }
    State getState() const { return stateAfter(position); }
    /// The bank has this state now.
    void setSaved(State state) { saved = state; }
    /// The bank has none of the states, as after loading another file.
    void setUnsaved() { saved = NONE; }

    /// In the present state, the section was loaded from this preset, or saved as it.
    void setPreset(const std::string& section, const std::string& name) { presets[{getState(), section}] = {name}; }
    /// A preset was written, or renamed from `oldName`, or removed without a new name.
    void presetChanged(const std::string& section, const std::string& oldName, const std::string& newName);
    SectionPreset getPreset(const std::string& section) const { return presetAfter(position, section); }

    /// A copy with at most so many steps on both sides of the present state, and some 256 KB of texts.
    EditHistory getLatest(std::size_t count) const;
    std::string toXml() const;
    /// False if that is no history; then nothing changes.
    bool readXml(const XmlElement& element);

private:
    static constexpr State LOADED = 0;
    static constexpr State NONE = ~State{0};

    State stateAfter(std::size_t count) const { return count == 0 ? first : steps[count - 1].state; }
    SectionPreset presetAfter(std::size_t count, const std::string& section) const;

    std::vector<EditStep> steps;
    std::map<std::pair<State, std::string>, SectionPreset> presets;  // by state and section
    std::size_t position = 0;  // steps before it are executed, those from it on were undone
    State first = LOADED;      // before the first step
    State newest = LOADED;
    State saved = LOADED;
};
}  // namespace Backend
