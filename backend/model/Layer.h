#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

#include "backend/model/ArpeggioSetting.h"
#include "backend/model/SequenceSetting.h"
#include "backend/values/Fraction.h"
#include "backend/values/Note.h"
#include "backend/values/NoteToggle.h"
#include "backend/values/RelativeFixedValue.h"
#include "platform/Export.h"

class XmlElement;

namespace Backend::Layers
{
/// The index of a layer in its list, -1 if it is in none.
using LayerId = std::int32_t;

/// The settings of a layer, one row of the routing table: which notes it takes, how it changes them, and to which
/// output and channel it sends them. A plain value.
struct ORV_API Layer {
    static constexpr const char* SECTION = "Layers";
    static constexpr const char* ELEMENT = "Layer";

    LayerId id = -1;
    bool selected = false;  ///< functions with "selected" act on it; not stored
    bool mute = false;
    bool mono = false;
    bool solo = false;         ///< not stored
    bool useNoteStack = true;  ///< delays a note-off while the same note sounds for another press
    MidiEngine::Note minNote{0};
    MidiEngine::Note maxNote{127};
    std::int8_t minVelocity = 0;
    std::int8_t maxVelocity = 127;
    std::int8_t zone = -1;                           ///< the zone that it takes, -1 for all zones
    std::int8_t output = -1;                         ///< -1 for the default output
    std::int8_t channel = 0;                         ///< below 0 for the default channel
    RelativeFixedValue transpose{.relative = true};  ///< semitones, or steps of the scale; fixed replaces the note
    MidiEngine::Note key;                            ///< tonic of the major scale, 0 to 11; none for chromatic
    RelativeFixedValue velocity{.relative = true};   ///< added to the compressed velocity; a fixed value replaces it
    Fraction compress;                               ///< multiplied by the velocity, unless that is replaced
    NoteToggle toggle;
    std::optional<ArpeggioManagement::ArpeggioSetting> arpeggio;  ///< none: notes are played as they come
    SequenceManagement::SequenceSetting sequenceSetting;          ///< the sequence of the arpeggio

    /// From a `Layer` element; absent attributes have the defaults above. Values are not checked.
    static Layer fromXml(const XmlElement& element, LayerId id);
    /// Writes the element, one tag a line, indented by `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    /// One line for the screens: "L:1  Ch:1  T:+2  K:C", with `outputName` if the layer has an output of its own.
    std::string getLayerString(const std::string& outputName) const;

    bool hasVelocityRange() const { return minVelocity != 0 || maxVelocity != 127; }

    /// A copy without number and selection: two layers are played alike if these are equal.
    Layer asPlayed() const;

    bool operator==(const Layer&) const = default;
};
}  // namespace Backend::Layers
