#include "backend/engine/NoteWatch.h"

namespace Backend::MidiEngine
{
namespace
{
constexpr std::size_t WORD = 64;
constexpr auto RELAXED = std::memory_order_relaxed;
constexpr std::uint8_t MOST = 255;

constexpr std::uint64_t bitOf(std::size_t note) { return std::uint64_t{1} << note % WORD; }
}  // namespace

void NoteWatch::Row::start(std::size_t note)
{
    if (counts[note] < MOST) ++counts[note];
    std::atomic<std::uint64_t>& word = held[note / WORD];
    word.store(word.load(RELAXED) | bitOf(note), RELAXED);  // nobody else writes
    started[note / WORD].fetch_or(bitOf(note), RELAXED);
}

/// A note-off without a note-on is ignored.
void NoteWatch::Row::end(std::size_t note)
{
    if (counts[note] == 0 || --counts[note] > 0) return;
    std::atomic<std::uint64_t>& word = held[note / WORD];
    word.store(word.load(RELAXED) & ~bitOf(note), RELAXED);
}

void NoteWatch::Row::clear()
{
    counts.fill(0);
    for (auto& word : held) word.store(0, RELAXED);
    for (auto& word : started) word.store(0, RELAXED);
}

NoteActivity::Notes NoteWatch::Row::take(bool& ended)
{
    NoteActivity::Notes notes;
    for (std::size_t word = WORDS; word-- > 0;) {
        const std::uint64_t now = held[word].load(RELAXED);
        const std::uint64_t begun = started[word].load(RELAXED) != 0 ? started[word].exchange(0, RELAXED) : 0;
        if ((begun & ~now) != 0) ended = true;
        notes = notes << WORD | NoteActivity::Notes(now | begun);
    }
    return notes;
}

void NoteWatch::clear()
{
    for (Row& row : zones) row.clear();
    for (Row& row : layers) row.clear();
    isChanged.store(true);
}

/// A note-on with velocity 0 ends a note.
void NoteWatch::count(Row& row, const OrvMidiMessage& event, std::size_t note)
{
    if (note >= WORD * WORDS) return;
    if (event.isNoteOn() && event.getD2() > 0)
        row.start(note);
    else
        row.end(note);
    isChanged.store(true, std::memory_order_release);
}

void NoteWatch::pass(const OrvMidiMessage& note)
{
    const auto zone = note.getZone() < 0 ? NO_ZONE : static_cast<std::size_t>(note.getZone());
    count(zones[zone], note, note.getD1());
}

void NoteWatch::play(const OrvMidiMessage& note)
{
    if (note.getLayer() > 0) count(layers[note.getLayer() - 1u], note, note.getLayerNote());
}

bool NoteWatch::take(NoteActivity& activity)
{
    if (!isChanged.exchange(false, std::memory_order_acquire)) return false;
    bool ended = false;
    activity.played = zones[NO_ZONE].take(ended);
    for (std::size_t zone = 0; zone < NoteActivity::ZONES; ++zone) {
        activity.zones[zone] = zones[zone].take(ended);
        activity.played |= activity.zones[zone];
    }
    for (std::size_t layer = 0; layer < NoteActivity::LAYERS; ++layer)
        activity.layers[layer] = layers[layer].take(ended);
    if (ended) isChanged.store(true);
    return true;
}
}  // namespace Backend::MidiEngine
