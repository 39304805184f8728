#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "backend/values/Fraction.h"
#include "backend/values/MidiMessage.h"
#include "backend/values/MidiTranslationValue.h"
#include "backend/values/NoteToggle.h"
#include "backend/values/OnOffToggle.h"
#include "backend/values/RelativeFixedValue.h"
#include "backend/values/SelectControlType.h"
#include "backend/values/SelectType.h"
#include "gui/forms/BindingFields.h"

namespace Gui::Forms
{
/// Makes the fields of the values that functions, translations and records have. A value is given by what reads and
/// stores it; both are kept in the field.
class FieldMaker
{
public:
    using Choices = std::vector<FormField::Choice>;
    using IsUsed = std::function<bool()>;
    template <class Value>
    struct Access {
        std::function<Value()> get;
        std::function<void(Value)> set;
    };

    explicit FieldMaker(const FieldLists& names) : lists(names) {}

    std::vector<FormField> take() { return std::move(fields); }

    void addList(const QString& name, Choices choices, Access<int> value, IsUsed isUsed = {});
    void addText(const QString& name, const QStringList& choices, Access<std::string> value, IsUsed isUsed = {});
    /// Shown as the number + `offset`; with `none` also blank, which is stored as that number.
    struct Limits {
        int lowest = 0;
        int highest = 127;
        int offset = 0;
        std::optional<int> none{};
        bool isNote = false;
        std::function<FormField::Range()> follow{};  ///< limits that follow another value
    };
    void addNumber(const QString& name, Limits limits, Access<int> value, IsUsed isUsed = {});
    void addChange(const QString& name, FormField::Range limits, Access<RelativeFixedValue> value, IsUsed isUsed = {},
                   int wideStep = 10);

    void addSwitch(const QString& name, Access<bool> value);
    /// Two fields, of which the first is never above the second. The limits are those of the whole range.
    void addRange(const QString& lowName, const QString& highName, const Limits& limits, const Access<int>& low,
                  const Access<int>& high);
    void addFraction(const QString& name, Access<Fraction> value);
    /// In pulses, by the names of note lengths.
    void addLength(const QString& name, FormField::Range pulses, Access<int> value, IsUsed isUsed = {});

    void addOutput(const QString& name, Access<int> value, IsUsed isUsed = {});
    void addZone(Access<int> value);
    /// `isTranslation` offers "Unchanged" as well.
    void addChannel(bool isTranslation, Access<int> value);
    /// The data bytes with the names of their controllers: "7 Volume".
    static Choices getDataMenu();
    /// The programs of General MIDI: "0 Acoustic Grand".
    static Choices getGmProgramMenu();
    void addController(const QString& name, Access<int> value, IsUsed isUsed = {});
    /// An event that is sent with a value, which replaces one of its data bytes: the kind, and the controller or the
    /// velocity of those that have one.
    void addValueEvent(const Access<Backend::MidiEngine::MidiMessage>& value);
    /// The highest value that such an event is sent with: two data bytes in a pitch bend, else one.
    static int getHighestValue(const Backend::MidiEngine::MidiMessage& event);
    /// A list of the kinds of events that carry a value, and none; the controller, or the note, of those that have one.
    void addEvent(const QString& name, const Access<Backend::MidiEngine::MidiMessage>& value);
    /// The values that an event carries: two data bytes in a pitch bend or a song position, else one.
    static FormField::Range getValueRange(const Backend::MidiEngine::MidiMessage& event);
    void addProgram(const QString& name, Access<int> value);

    void addValue(const QString& name, Access<OnOffToggle> value);
    void addValue(const QString& name, Access<NoteToggle> value);
    void addValue(const QString& name, Access<RelativeFixedValue> value);
    /// From the event, or fixed.
    void addValue(const QString& name, Access<MidiTranslationValue> value);

    /// The kinds that are offered.
    struct Kinds {
        bool upDown = false;
        bool selected = false;
        bool specific = false;
        bool all = false;
        bool fromEvent = false;
        bool isOutput = false;  ///< a specific one is chosen from the outputs
    };
    void addSelect(const Kinds& kinds, Access<SelectType> value);
    void addSelect(const Kinds& kinds, Access<MidiTranslationValue> value);
    void addControlSelect(const Kinds& kinds, Access<SelectControlType> value);

private:
    void addChangeOfData(const QString& name, const Access<MidiTranslationValue>& value);
    void addSpecific(const Kinds& kinds, Access<int> number, IsUsed isUsed);

    const FieldLists& lists;
    std::vector<FormField> fields;
};
}  // namespace Gui::Forms
