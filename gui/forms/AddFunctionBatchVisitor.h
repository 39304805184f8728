#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <type_traits>

#include "backend/bindings/functions/Functions.h"
#include "gui/forms/BindingRecords.h"

namespace Gui::Forms
{
/// Gives a function that was added to several keys its note, key after key; one without a note stays as it is.
class AddFunctionBatchVisitor final
    : public Backend::VisitsAny<AddFunctionBatchVisitor, Backend::FunctionManagement::FunctionVisitor,
                                Backend::FunctionManagement::AllFunctions>
{
public:
    AddFunctionBatchVisitor(RisingNotes risingNotes, int firstNote) : notes(risingNotes), first(firstNote) {}

    /// The note of the next key is to be given.
    void goOn() { ++key; }

    template <class Function>
    void visitAny(Function& function)
    {
        if constexpr (std::is_base_of_v<Backend::FunctionManagement::MidiSettingsType, Function>) raise(function);
    }

    static bool hasNote(const Backend::FunctionManagement::MidiSettingsType& settings)
    {
        using enum Backend::MidiEngine::MessageType;
        const auto status = settings.getStatus();
        return status == noteOn || status == noteOff || status == keyPressure;
    }

private:
    static constexpr int HIGHEST_NOTE = 127;
    static constexpr int OCTAVE = 12;
    static constexpr std::array MAJOR{0, 2, 4, 5, 7, 9, 11};
    static constexpr std::array MINOR{0, 2, 3, 5, 7, 8, 10};
    static constexpr std::array PENTATONIC{0, 2, 4, 7, 9};

    void raise(Backend::FunctionManagement::MidiSettingsType& event) const
    {
        if (hasNote(event)) event.setD1(std::min(first + getInterval(), HIGHEST_NOTE));
    }

    int getInterval() const
    {
        switch (notes) {
            case RisingNotes::same:
                return 0;
            case RisingNotes::semitones:
                return key;
            case RisingNotes::majorScale:
                return getIntervalIn(MAJOR);
            case RisingNotes::minorScale:
                return getIntervalIn(MINOR);
            case RisingNotes::pentatonicScale:
                return getIntervalIn(PENTATONIC);
        }
        return 0;
    }
    int getIntervalIn(std::span<const int> scale) const
    {
        const int size = static_cast<int>(scale.size());
        return key / size * OCTAVE + scale[static_cast<std::size_t>(key % size)];
    }

    const RisingNotes notes;
    const int first;
    int key = 0;
};
}  // namespace Gui::Forms
