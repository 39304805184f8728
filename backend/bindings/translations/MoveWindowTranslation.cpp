#include "backend/bindings/translations/FunctionTranslations.h"
#include "backend/model/WindowMove.h"

namespace Backend::MidiInput::TranslationManagement::Translations
{
namespace
{
bool comesFromEvent(const MidiTranslationValue& value)
{
    using Kind = MidiTranslationValue::Kind;
    return value.kind == Kind::useD1 || value.kind == Kind::useD2 || value.kind == Kind::d1Relative ||
           value.kind == Kind::d2Relative;
}

WindowCoordinate coordinateFor(const MidiTranslationValue& value, const MidiEngine::OrvMidiMessage& message)
{
    return {value.getValue(message),
            comesFromEvent(value) ? WindowCoordinate::Unit::dataByte : WindowCoordinate::Unit::pixels};
}
}  // namespace

void MoveWindowTranslation::run(OrvIF& orv, const MidiEngine::OrvMidiMessage& message) const
{
    orv.moveWindow(WindowMove{coordinateFor(x, message), coordinateFor(y, message)});
}
}  // namespace Backend::MidiInput::TranslationManagement::Translations
