#pragma once

#include <QStringList>

#include "backend/values/MidiMessage.h"

namespace Backend::MidiEngine
{
class OrvMidiMessage;
}
namespace Backend::MidiInput
{
class MidiEventConfiguration;
struct MidiEvent;
namespace TranslationManagement
{
class Translation;
}
}  // namespace Backend::MidiInput

namespace Gui::Forms
{
struct FieldLists;
}

/// Events, and what is made of them, as the screen of the MIDI inputs words them.
namespace Gui::MidiInput::EventText
{
/// "All inputs", or the name of the port, or its number from 1 if it has none.
QString inputOf(int input, const QStringList& inputs);
/// "All channels", "Channel 3".
QString channelOf(int channel);
/// "Note On C4", "Control Change 7: Channel Volume", "Pitch Bend".
QString kindOf(const Backend::MidiEngine::MidiMessage& message);
/// The velocity or the value; empty for an event without one.
QString valueOf(const Backend::MidiEngine::MidiMessage& message);
/// The keyed event: "In 1, channel 3, Note On C4".
QString describe(const Backend::MidiInput::MidiEvent& event, const QStringList& inputs);
/// The name of a translation and what it changes: "Unchanged, D1 +12".
QString describe(const Backend::MidiInput::TranslationManagement::Translation& translation,
                 const Forms::FieldLists& lists);
/// What an entry, null for none, makes of an event: "C4 100 -> C5 100 on channel 2, Next Program".
QString preview(const Backend::MidiEngine::OrvMidiMessage& received,
                const Backend::MidiInput::MidiEventConfiguration* entry, const Forms::FieldLists& lists);
/// The right-hand side of it alone; "Unchanged" without an entry.
QString resultOf(const Backend::MidiEngine::OrvMidiMessage& received,
                 const Backend::MidiInput::MidiEventConfiguration* entry, const Forms::FieldLists& lists);
}  // namespace Gui::MidiInput::EventText
