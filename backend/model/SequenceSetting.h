#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Export.h"

class XmlElement;

namespace Backend::SequenceManagement
{
/// One note of a node, relative to the note of the arpeggio.
struct SequenceOffset {
    static constexpr std::int32_t WHOLE_NOTE = 1920;

    std::int32_t note = 0;             ///< semitones to add
    std::int32_t velocity = 0;         ///< velocity to add
    std::int32_t length = WHOLE_NOTE;  ///< pulses; stored, but not played
    bool rest = false;                 ///< plays nothing

    bool operator==(const SequenceOffset&) const = default;
};

/// One step of a sequence: every note of the arpeggio is played once for each offset.
using SequenceNode = std::vector<SequenceOffset>;

/// The sequence of a layer's arpeggio, from a preset or of the layer's own. See docs/behaviour/arpeggios.md.
struct ORV_API SequenceSetting {
    std::string preset;               ///< the name of a preset, empty if the nodes are the layer's own
    std::vector<SequenceNode> nodes;  ///< none: notes are played unchanged
    bool useNote = true;              ///< applies the notes of the offsets
    bool useVelocity = true;          ///< applies their velocities
    bool useLength = false;           ///< stored, not used

    /// From a `SequenceSetting` element. One that names a preset has no nodes: they are in the preset's file.
    static SequenceSetting fromXml(const XmlElement& element);
    /// Writes the element, one tag a line, indented by `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    /// Sets nodes of the layer's own. Never fails; see `parseSequence`.
    void setSequenceText(std::string_view text);
    std::string getSequenceText() const;

    bool operator==(const SequenceSetting&) const = default;
};

/// Nodes separated by ",", in them offsets separated by "|", in those up to three words separated by one blank: a
/// number is the note, V and a number the velocity, L and a number the length, "-" or nothing a rest; a later word
/// replaces an earlier one of its kind. "0|7,-,12 V-20" is a fifth, a rest and a quieter octave. A word that is no
/// number counts as 0. Blank text has no nodes.
ORV_API std::vector<SequenceNode> parseSequence(std::string_view text);
ORV_API std::string printSequence(const std::vector<SequenceNode>& nodes);
}  // namespace Backend::SequenceManagement
