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
/// A layer's index in its list, -1 for one that stands in none.
using LayerId = std::int32_t;

/// One row of the routing table that every default-routed event passes: which notes it takes, what it does to them and
/// where it sends them. A plain value without any state of playing.
struct ORV_API Layer {
    static constexpr const char* SECTION = "Layers";
    static constexpr const char* ELEMENT = "Layer";

    LayerId id = -1;
    bool selected = false;  ///< the target of functions that say "selected"; not saved
    bool mute = false;
    bool mono = false;
    bool solo = false;         ///< not saved
    bool useNoteStack = true;  ///< hold a note off back while the same note sounds on
    MidiEngine::Note minNote{0};
    MidiEngine::Note maxNote{127};
    std::int8_t minVelocity = 0;
    std::int8_t maxVelocity = 127;
    std::int8_t zone = -1;                           ///< the only zone taken, -1 for every zone
    std::int8_t output = -1;                         ///< -1 for the default output
    std::int8_t channel = 0;                         ///< below 0 the event stays on the default channel
    RelativeFixedValue transpose{.relative = true};  ///< semitones, or steps of the scale; fixed replaces the note
    MidiEngine::Note key;                            ///< tonic of the major scale, 0 to 11; none for chromatic
    RelativeFixedValue velocity{.relative = true};   ///< added to the compressed velocity; fixed replaces it
    Fraction compress;                               ///< applied to the velocity, if that is relative
    NoteToggle toggle;
    std::optional<ArpeggioManagement::ArpeggioSetting> arpeggio;  ///< none: notes are played straight through
    SequenceManagement::SequenceSetting sequenceSetting;          ///< what the arpeggio's notes go through

    /// From a `Layer` element; what is absent is as above. Values are not checked: a channel of 16 or more stays.
    static Layer fromXml(const XmlElement& element, LayerId id);
    /// The element, one tag a line after `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    /// One line for the screens, such as "L:1  Ch:1  T:+2  K:C". `outputName` is shown if the layer names an output.
    std::string getLayerString(const std::string& outputName) const;

    bool hasVelocityRange() const { return minVelocity != 0 || maxVelocity != 127; }

    bool operator==(const Layer&) const = default;
};
}  // namespace Backend::Layers
