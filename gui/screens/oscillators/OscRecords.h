#pragma once

#include "backend/model/Oscillator.h"
#include "gui/forms/BindingFields.h"
#include "gui/forms/ListRecords.h"

namespace Gui::Oscillators
{
/// The oscillators of the program as the window knows them. The GUI thread.
class OscRecords final : public Forms::ListRecords<Backend::Oscillators::Oscillator>
{
public:
    using Id = Backend::RecordId;
    using Oscillator = Backend::Oscillators::Oscillator;

    /// The lists must outlive it.
    explicit OscRecords(const Forms::FieldLists& names) : lists(names) {}

    bool has(Id id) const { return id >= 0 && id < static_cast<Id>(size()); }
    /// Those that change together: all that are selected if it is one of them, else it alone; none for an unknown one.
    std::vector<Id> getTogether(Id id, const Forms::Selection& selection) const;

    const Kind& getKind() const override;
    /// "Oscillator 1, Control Change 1: Modulation wheel, sine, 1/4, running".
    QString describe(Id id) const override;
    std::vector<Forms::FormField> fieldsOf(Id id) override;

private:
    const Forms::FieldLists& lists;
};

/// The name of the event that carries the values; "No event".
QString eventNameOf(const Backend::Oscillators::Oscillator& oscillator);
/// "1/4", or "480 PPQ".
QString speedTextOf(const Backend::Oscillators::Oscillator& oscillator);
}  // namespace Gui::Oscillators
