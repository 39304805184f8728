#include "backend/input/midi/translations/FunctionTranslations.h"
#include "platform/DbgStream.h"

namespace Backend::MidiInput::TranslationManagement::Translations
{
void ChangeOscSpeed::run(OrvIF& orv, const MidiEngine::OrvMidiMessage& message) const
{
    if (value.kind == MidiTranslationValue::Kind::specific) return SelectTranslation::run(orv, message);
    WindowsLib::DbgStream() << info.displayName << " by a knob: there is no oscillator";
}
}  // namespace Backend::MidiInput::TranslationManagement::Translations
