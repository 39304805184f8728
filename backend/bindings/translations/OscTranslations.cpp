#include "backend/bindings/translations/FunctionTranslations.h"
#include "backend/sections/oscillators/OscManager.h"

namespace Backend::MidiInput::TranslationManagement::Translations
{
void ChangeOscSpeed::run(OrvIF& orv, const MidiEngine::OrvMidiMessage& message) const
{
    if (value.kind == MidiTranslationValue::Kind::specific) return SelectTranslation::run(orv, message);
    orv.getOscManager().setSpeedFromMidi(getSelectType().getSelectType(message), value.getValue(message).value);
}
}  // namespace Backend::MidiInput::TranslationManagement::Translations
