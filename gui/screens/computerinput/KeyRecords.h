#pragma once

#include "backend/model/KeyConfigurationMap.h"
#include "gui/forms/ButtonRecords.h"

namespace Gui::ComputerInput
{
/// The keys of the board under some modifiers, in reading order, with what they are bound to. The GUI thread.
class KeyRecords final : public Forms::ButtonRecords
{
public:
    using ButtonRecords::ButtonRecords;

    static Key keyOf(Id id) { return Key::fromPacked(static_cast<std::uint32_t>(id)); }
    static Id idOf(const Key& key) { return static_cast<Id>(key.getPacked()); }
    /// "Shift A".
    static QString textOf(const Key& key);

    /// The modifiers under which the records are; the key code is not used.
    void setModifiers(const Key& newModifiers) { modifiers = newModifiers; }
    const Key& getModifiers() const { return modifiers; }
    /// The key of that code under some modifiers; a modifier key does not modify itself.
    static Key withModifiers(int keyCode, const Key& held);

    // The copies
    void take(const Backend::ComputerInput::KeyConfigurationMap& reported);
    const Backend::ComputerInput::KeyConfigurationMap& getKeys() const { return keys; }

    const Kind& getKind() const override;
    std::vector<Id> getIds() const override;
    QString describe(Id id) const override;
    QString nameOf(Id id) const override;
    /// Whether the global keyboard takes it.
    std::vector<Forms::FormField> fieldsOf(Id id) override;
    /// As many keys as were copied from the first selected one on, or all that are selected, if these are more. Without
    /// a selection, the keys that were copied.
    std::vector<Backend::RecordEdit> makeAdditions(std::vector<Backend::Fields> added,
                                                   const Forms::Selection& selection) const override;
    /// They stay, without functions.
    std::vector<Backend::RecordEdit> makeRemovals(const std::vector<Id>& removed) const override;

protected:
    const Backend::ButtonConfiguration* find(Id id) const override { return keys.findElement(keyOf(id)); }
    Backend::ButtonConfiguration& at(Id id) override { return keyAt(id); }

private:
    Backend::ComputerInput::KeyConfiguration& keyAt(Id id);

    Backend::ComputerInput::KeyConfigurationMap keys;
    Key modifiers;
};
}  // namespace Gui::ComputerInput
