#include "backend/persistence/version2/Sequences.h"

#include <array>

#include "backend/persistence/XmlWriter.h"

namespace Backend::Version2
{
namespace
{
constexpr auto STEPS = std::to_array<std::string_view>({"Oct 1 Up",
                                                        "Oct 2 Up",
                                                        "Oct 3 Up",
                                                        "Oct 1 Down",
                                                        "Oct 2 Down",
                                                        "Oct 3 Down",
                                                        "Oct 2 Up-Down",
                                                        "Oct 3 Up-Down",
                                                        "Oct 2 Down-Up",
                                                        "Oct 3 Down-Up",
                                                        "5th Up",
                                                        "5th Down",
                                                        "5th Oct Up",
                                                        "5th Oct Down",
                                                        "5th Oct 5th Up",
                                                        "5th Oct 5th Down",
                                                        "5th Oct Up-Down",
                                                        "5th Oct Down-Up",
                                                        "5th Oct 5th Up-Down",
                                                        "5th Oct 5th Down-Up",
                                                        "m2 Up",
                                                        "m2 Down"});
constexpr int FIRST_SEQUENCE = 22;
constexpr int FIRST_DRUMS = 33;
constexpr int LAST_DRUMS = 44;
constexpr int SLOW_DRUMS_9 = 44;  // the preset of 41 again, at half the pace
constexpr int FIRST_NOTE = 49;
constexpr int FIRST_SECOND_STEPS = 90;

/// "011 - 5th Up"
std::string numbered(int number, const std::string& name)
{
    const std::string digits = std::to_string(number);
    return std::string(3 - digits.size(), '0') + digits + " - " + name;
}

/// "Note 2 of 3": one of the notes of each of five groups.
std::string noteOfGroup(int index)
{
    for (const int size : {2, 3, 4, 6, 8}) {
        if (index < size) return "Note " + std::to_string(index + 1) + " of " + std::to_string(size);
        index -= size;
    }
    return "";
}

bool hasHalfTheSteps(std::string_view preset, int number)
{
    return number == SLOW_DRUMS_9 || preset == "037 - Drums 4" || preset == "039 - Drums 6" ||
           preset == "040 - Drums 7";
}
}  // namespace

std::string arpeggioText(const Arpeggio& arpeggio)
{
    if (arpeggio.type.empty()) return "";
    return "\t" + xmlStartTag("Arpeggio") + "\n\t\t" + xmlOpenTag(arpeggio.type) +
           xmlIntAttribute("beat", arpeggio.beat) + xmlIntAttribute("length", arpeggio.length) + xmlCloseEmpty() +
           "\n\t" + xmlEndTag("Arpeggio") + "\n";
}

std::string presetOf(int number)
{
    constexpr int STEP_COUNT = STEPS.size();
    const auto step = [](int index) { return std::string(STEPS[static_cast<std::size_t>(index)]); };
    if (number < 0) return "";
    if (number < STEP_COUNT) return numbered(number + 1, step(number));
    if (number < FIRST_DRUMS) return numbered(number + 1, "Seq " + std::to_string(number - FIRST_SEQUENCE));
    if (number < LAST_DRUMS) return numbered(number + 1, "Drums " + std::to_string(number - FIRST_DRUMS + 1));
    if (number == SLOW_DRUMS_9) return presetOf(41);
    if (number >= FIRST_NOTE && !noteOfGroup(number - FIRST_NOTE).empty())
        return numbered(number + 1, noteOfGroup(number - FIRST_NOTE));
    if (number >= FIRST_SECOND_STEPS && number - FIRST_SECOND_STEPS < STEP_COUNT)
        return numbered(number - 17, step(number - FIRST_SECOND_STEPS) + " (2)");
    return "";
}

std::string applyTemplate(Layers::Layer& layer, Arpeggio& arpeggio, int number, int mode)
{
    constexpr RelativeFixedValue MIDDLE_C{.relative = false, .value = 60};
    const std::string preset = presetOf(number);
    if (number >= FIRST_DRUMS && number <= LAST_DRUMS && layer.transpose == MIDDLE_C) layer.transpose.value = 0;
    if (hasHalfTheSteps(preset, number)) {
        arpeggio.beat *= 2;
        arpeggio.length *= 2;
    }
    if (preset.empty()) return "";
    return "\t" + xmlOpenTag("SequenceSetting") + xmlStringAttribute("preset", preset) +
           xmlBoolAttribute("useNote", mode != 1) + xmlBoolAttribute("useVelocity", mode == 1 || mode == 2) +
           xmlBoolAttribute("useLength", true) + xmlCloseOpen() + "\n\t" + xmlEndTag("SequenceSetting") + "\n";
}
}  // namespace Backend::Version2
