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
/// What becomes of an arpeggio's note in one voice of a step.
struct SequenceOffset {
    static constexpr std::int32_t WHOLE_NOTE = 1920;

    std::int32_t note = 0;             ///< semitones to add
    std::int32_t velocity = 0;         ///< to add
    std::int32_t length = WHOLE_NOTE;  ///< pulses; kept in text and files, not played
    bool rest = false;                 ///< plays nothing

    bool operator==(const SequenceOffset&) const = default;
};

/// One step: every note that the arpeggio plays sounds once for each offset.
using SequenceNode = std::vector<SequenceOffset>;

/// The steps that a layer's arpeggio walks through, from a preset or the layer's own.
struct ORV_API SequenceSetting {
    std::string preset;               ///< its name, empty if the nodes are the layer's own
    std::vector<SequenceNode> nodes;  ///< none: the arpeggio's notes go out unchanged
    bool useNote = true;              ///< apply what the offsets say of notes
    bool useVelocity = true;          ///< and of velocities
    bool useLength = false;           ///< stored, not used

    /// From a `SequenceSetting` element. One that names a preset has no nodes: they stand in the preset's file.
    static SequenceSetting fromXml(const XmlElement& element);
    /// The element, one tag a line after `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    /// Makes the nodes the layer's own. Never fails; see `parseSequence`.
    void setSequenceText(std::string_view text);
    std::string getSequenceText() const;

    bool operator==(const SequenceSetting&) const = default;
};

/// Nodes separated by ",", in them offsets separated by "|", in those up to three words separated by one blank: a
/// number is the note, V and a number the velocity, L and a number the length, "-" or nothing a rest; a later word
/// replaces an earlier one of its kind. "0|7,-,12 V-20" is a fifth, a rest and a quieter octave. What is not a number
/// is 0. Blank text has no nodes.
ORV_API std::vector<SequenceNode> parseSequence(std::string_view text);
ORV_API std::string printSequence(const std::vector<SequenceNode>& nodes);
}  // namespace Backend::SequenceManagement
