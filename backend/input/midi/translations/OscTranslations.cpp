#include "backend/input/midi/translations/FunctionTranslations.h"
#include "backend/layers/OscManager.h"

namespace Backend::MidiInput::TranslationManagement::Translations
{
void ChangeOscSpeed::run(OrvIF& orv, const MidiEngine::OrvMidiMessage& message) const
{
    if (value.kind == MidiTranslationValue::Kind::specific) return SelectTranslation::run(orv, message);
    orv.getOscManager().setSpeedFromMidi(getSelectType().getSelectType(message), value.getValue(message).value);
}
}  // namespace Backend::MidiInput::TranslationManagement::Translations
