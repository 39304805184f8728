#include "gui/musickeyboard/SoundingNotes.h"

#include <cstddef>

namespace Gui::Output
{
using Backend::MidiEngine::MessageType;
using Backend::MidiEngine::OrvMidiMessage;

namespace
{
constexpr int ALL_SOUND_OFF = 120;
constexpr int ALL_NOTES_OFF = 123;

constexpr bool isNote(int number) { return number >= 0 && number < SoundingNotes::NOTES; }
}  // namespace

void SoundingNotes::take(const OrvMidiMessage& event)
{
    const auto output = event.getOutput();
    const auto channel = event.getChannel();
    const int first = event.getD1();
    if (event.getStatus() == MessageType::systemReset) return clearOutput(output);
    if (channel < 0 || channel >= CHANNELS || !isNote(first)) return;
    if (event.isControllerChange() && (first == ALL_SOUND_OFF || first == ALL_NOTES_OFF))
        clearChannel(output, channel);
    else if (event.isNoteOn() && event.getD2() > 0)
        start(output, channel, first);
    else if (event.isNote())
        end(output, channel, first);
}

int& SoundingNotes::countOf(int output, int channel, int note)
{
    return outputs[output][static_cast<std::size_t>(channel) * NOTES + static_cast<std::size_t>(note)];
}

void SoundingNotes::start(int output, int channel, int note)
{
    ++countOf(output, channel, note);
    ++sounding[static_cast<std::size_t>(note)];
}

/// A note-off without a note-on is ignored.
void SoundingNotes::end(int output, int channel, int note)
{
    int& count = countOf(output, channel, note);
    if (count == 0) return;
    --count;
    --sounding[static_cast<std::size_t>(note)];
}

void SoundingNotes::clearChannel(int output, int channel)
{
    for (int note = 0; note < NOTES; ++note) {
        int& count = countOf(output, channel, note);
        sounding[static_cast<std::size_t>(note)] -= count;
        count = 0;
    }
}

void SoundingNotes::clearOutput(int output)
{
    if (!outputs.contains(output)) return;
    for (int channel = 0; channel < CHANNELS; ++channel) clearChannel(output, channel);
}

void SoundingNotes::clear()
{
    outputs.clear();
    sounding.fill(0);
}

void SoundingNotes::handleMidiOutputPortsChanged(const Backend::MidiEngine::MidiOutputPorts& ports)
{
    for (const auto& [output, counts] : outputs)
        if (!isEnabled(ports, output) || !ports[static_cast<std::size_t>(output)].found) clearOutput(output);
}

bool SoundingNotes::isSounding(int note) const { return isNote(note) && sounding[static_cast<std::size_t>(note)] > 0; }
}  // namespace Gui::Output
