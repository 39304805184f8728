// L <mute> <mono> <toggle> <note stack> <min note> <max note> <min velocity> <max velocity> <zone> <output> <channel>
//   <transpose> <key> <velocity> <numerator> <denominator>
//   <arpeggio> <beat> <length> <template> <template mode> <tempo> <tempo source>
//
// Toggle is 0 to 2. In transpose and velocity, "+5" and "-5" are added, "60" replaces, "_" leaves unchanged. The key
// counts from 1 for C; numerator and denominator compress the velocity. The arpeggio is a word, beat and length are in
// pulses. A template of -1 is none. A line with a tempo sets the tempo of the program.

#include "backend/files/version2/LayerBlock.h"

#include <algorithm>
#include <array>
#include <climits>
#include <sstream>

#include "backend/files/version2/SequenceTemplates.h"
#include "backend/model/Layer.h"
#include "backend/model/Program.h"

namespace Backend::Version2
{
using ArpeggioManagement::ArpeggioSetting;
using Layers::Layer;
using MidiEngine::Note;

namespace
{
constexpr int HIGHEST = 127;

std::int8_t byte(int value) { return static_cast<std::int8_t>(value); }

RelativeFixedValue readChange(Words& words)
{
    std::string_view text = words.word();
    if (text.empty() || text == "_") return {.relative = true};
    const auto value = RelativeFixedValue::fromXmlString(text);
    if (text.front() == '+' || text.front() == '-') text.remove_prefix(1);
    if (text.empty() || text.size() > 3 || text.find_first_not_of("0123456789") != std::string_view::npos)
        words.refuse();
    return value;
}

void readRange(Words& words, Layer& layer)
{
    layer.minNote = Note(words.number(0, HIGHEST, 0));
    layer.maxNote = Note(words.number(0, HIGHEST, HIGHEST));
    layer.minVelocity = byte(words.number(0, HIGHEST, 0));
    layer.maxVelocity = byte(words.number(0, HIGHEST, HIGHEST));
    layer.zone = byte(words.ordinal(HIGHEST - 1));
}

Layer readSetting(Words& words)
{
    Layer layer;
    layer.mute = words.flag(layer.mute);
    layer.mono = words.flag(layer.mono);
    layer.toggle.mode = static_cast<NoteToggle::Mode>(words.number(0, 2, 0));
    layer.useNoteStack = words.flag(layer.useNoteStack);
    readRange(words, layer);
    layer.output = byte(words.ordinal(HIGHEST - 1));
    layer.channel = byte(words.number(0, 16, 1) - 1);
    layer.transpose = readChange(words);
    layer.key = Note(words.ordinal(11));
    layer.velocity = readChange(words);
    layer.compress.numerator = words.number(1, 99, 1);
    layer.compress.denominator = words.number(1, 99, 1);
    return layer;
}

std::optional<ArpeggioSetting> readArpeggio(Words& words)
{
    using Type = ArpeggioSetting::Type;
    struct Row {
        std::string_view word;
        std::optional<Type> type;
    };
    constexpr auto TYPES = std::to_array<Row>({{"off", std::nullopt},
                                               {"", std::nullopt},
                                               {"chord", Type::chord},
                                               {"up", Type::up},
                                               {"down", Type::down},
                                               {"updown", Type::upDown}});
    constexpr int LONGEST = 30720;  // sixteen whole notes
    const auto row = std::ranges::find(TYPES, words.word(), &Row::word);
    if (row == TYPES.end()) words.refuse();
    ArpeggioSetting arpeggio;
    arpeggio.beat = words.number(1, LONGEST, arpeggio.beat);
    arpeggio.length = words.number(1, LONGEST, arpeggio.length);
    if (row == TYPES.end() || !row->type) return std::nullopt;
    arpeggio.type = *row->type;
    return arpeggio;
}

std::string textOf(const Layer& layer)
{
    std::ostringstream out;
    layer.writeXml(out, 0);
    return out.str();
}
}  // namespace

bool readLayer(Words& words, Sections& sections)
{
    Layer layer = readSetting(words);
    layer.arpeggio = readArpeggio(words);
    const int number = words.number(-1, INT_MAX, -1);
    const int mode = words.number(INT_MIN, INT_MAX, 0);
    const int tempo = words.number(Program::LOWEST_TEMPO, Program::HIGHEST_TEMPO, sections.tempo);
    const int tempoSource = words.number(0, HIGHEST, sections.tempoSource + 1) - 1;
    if (!words.areUnderstood()) return false;
    SequenceManagement::applyTemplate(layer, number, mode);
    sections.layers.push_back(textOf(layer));
    sections.tempo = tempo;
    sections.tempoSource = tempoSource;
    return true;
}
}  // namespace Backend::Version2
