#include "backend/files/version2/SequenceTemplates.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>
#include <string_view>

#include "backend/files/SequencePresetManager.h"
#include "backend/model/Layer.h"

namespace Backend::SequenceManagement
{
namespace
{
enum Mode { NOTES = 0, VELOCITIES = 1, NOTES_AND_VELOCITIES = 2 };

constexpr int FIRST_DRUMS = 33;
constexpr int LAST_DRUMS = 44;
constexpr int SLOW_DRUMS_9 = 44;  // the same preset as 41, at half the tempo

constexpr auto FROM_0 = std::to_array<std::string_view>({
    "001 - Oct 1 Up",
    "002 - Oct 2 Up",
    "003 - Oct 3 Up",
    "004 - Oct 1 Down",
    "005 - Oct 2 Down",
    "006 - Oct 3 Down",
    "007 - Oct 2 Up-Down",
    "008 - Oct 3 Up-Down",
    "009 - Oct 2 Down-Up",
    "010 - Oct 3 Down-Up",
    "011 - 5th Up",
    "012 - 5th Down",
    "013 - 5th Oct Up",
    "014 - 5th Oct Down",
    "015 - 5th Oct 5th Up",
    "016 - 5th Oct 5th Down",
    "017 - 5th Oct Up-Down",
    "018 - 5th Oct Down-Up",
    "019 - 5th Oct 5th Up-Down",
    "020 - 5th Oct 5th Down-Up",
    "021 - m2 Up",
    "022 - m2 Down",
    "023 - Seq 0",
    "024 - Seq 1",
    "025 - Seq 2",
    "026 - Seq 3",
    "027 - Seq 4",
    "028 - Seq 5",
    "029 - Seq 6",
    "030 - Seq 7",
    "031 - Seq 8",
    "032 - Seq 9",
    "033 - Seq 10",
    "034 - Drums 1",
    "035 - Drums 2",
    "036 - Drums 3",
    "037 - Drums 4",
    "038 - Drums 5",
    "039 - Drums 6",
    "040 - Drums 7",
    "041 - Drums 8",
    "042 - Drums 9",
    "043 - Drums 10",
    "044 - Drums 11",
    "042 - Drums 9",
});

constexpr auto FROM_49 = std::to_array<std::string_view>({
    "050 - Note 1 of 2", "051 - Note 2 of 2", "052 - Note 1 of 3", "053 - Note 2 of 3", "054 - Note 3 of 3",
    "055 - Note 1 of 4", "056 - Note 2 of 4", "057 - Note 3 of 4", "058 - Note 4 of 4", "059 - Note 1 of 6",
    "060 - Note 2 of 6", "061 - Note 3 of 6", "062 - Note 4 of 6", "063 - Note 5 of 6", "064 - Note 6 of 6",
    "065 - Note 1 of 8", "066 - Note 2 of 8", "067 - Note 3 of 8", "068 - Note 4 of 8", "069 - Note 5 of 8",
    "070 - Note 6 of 8", "071 - Note 7 of 8", "072 - Note 8 of 8",
});

constexpr auto FROM_90 = std::to_array<std::string_view>({
    "073 - Oct 1 Up (2)",
    "074 - Oct 2 Up (2)",
    "075 - Oct 3 Up (2)",
    "076 - Oct 1 Down (2)",
    "077 - Oct 2 Down (2)",
    "078 - Oct 3 Down (2)",
    "079 - Oct 2 Up-Down (2)",
    "080 - Oct 3 Up-Down (2)",
    "081 - Oct 2 Down-Up (2)",
    "082 - Oct 3 Down-Up (2)",
    "083 - 5th Up (2)",
    "084 - 5th Down (2)",
    "085 - 5th Oct Up (2)",
    "086 - 5th Oct Down (2)",
    "087 - 5th Oct 5th Up (2)",
    "088 - 5th Oct 5th Down (2)",
    "089 - 5th Oct Up-Down (2)",
    "090 - 5th Oct Down-Up (2)",
    "091 - 5th Oct 5th Up-Down (2)",
    "092 - 5th Oct 5th Down-Up (2)",
    "093 - m2 Up (2)",
    "094 - m2 Down (2)",
});

struct Range {
    int first;
    std::span<const std::string_view> presets;
};

constexpr auto RANGES = std::to_array<Range>({{0, FROM_0}, {49, FROM_49}, {90, FROM_90}});

std::string_view presetOf(int number)
{
    for (const auto& [first, presets] : RANGES)
        if (number >= first && number - first < static_cast<int>(presets.size()))
            return presets[static_cast<std::size_t>(number - first)];
    return {};
}

bool hasHalfTheSteps(std::string_view preset, int number)
{
    constexpr auto HALVED = std::to_array<std::string_view>({"037 - Drums 4", "039 - Drums 6", "040 - Drums 7"});
    return number == SLOW_DRUMS_9 || std::ranges::find(HALVED, preset) != HALVED.end();
}

std::int32_t doubled(std::int32_t pulses)
{
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(std::int64_t{pulses} * 2, INT32_MIN, INT32_MAX));
}
}  // namespace

SequenceSetting fromTemplate(int number, int mode)
{
    const std::string_view preset = presetOf(number);
    SequenceSetting setting = preset.empty() ? SequenceSetting{} : sequenceFromPreset(preset);
    setting.useNote = mode != VELOCITIES;
    setting.useVelocity = mode == VELOCITIES || mode == NOTES_AND_VELOCITIES;
    return setting;
}

void applyTemplate(Layers::Layer& layer, int number, int mode)
{
    constexpr RelativeFixedValue MIDDLE_C{.relative = false, .value = 60};
    layer.sequenceSetting = fromTemplate(number, mode);
    if (number >= FIRST_DRUMS && number <= LAST_DRUMS && layer.transpose == MIDDLE_C) layer.transpose.value = 0;
    if (layer.arpeggio && hasHalfTheSteps(layer.sequenceSetting.preset, number)) {
        layer.arpeggio->beat = doubled(layer.arpeggio->beat);
        layer.arpeggio->length = doubled(layer.arpeggio->length);
    }
}
}  // namespace Backend::SequenceManagement
