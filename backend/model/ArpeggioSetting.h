#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

#include "platform/Export.h"

class XmlElement;

namespace Backend::ArpeggioManagement
{
/// The setting of a layer's arpeggio: how it plays the notes that are held, on the grid that all arpeggios share.
/// Lengths are in pulses, 480 to the quarter note. See docs/behaviour/arpeggios.md.
struct ORV_API ArpeggioSetting {
    enum class Type { chord, up, down, upDown };

    Type type = Type::chord;
    std::int32_t beat = 480;    ///< from note to note; 0: only the first note is played
    std::int32_t length = 480;  ///< of a note; the next beat ends a longer one

    /// From an element `ChordArpeggio`, `UpArpeggio`, `DownArpeggio` or `UpDownArpeggio`; nothing from any other.
    static std::optional<ArpeggioSetting> fromXml(const XmlElement& element);
    /// Writes the element on one line, indented by `indent` TABs.
    void writeXml(std::ostream& out, int indent) const;

    /// The setting as it is played: except in chords, a length of 0 or less is replaced by the beat.
    ArpeggioSetting normalized() const;

    /// The name of the element.
    std::string getTypeName() const;

    /// The display text, such as "Up + Down Arp 1/8 Len:1/16".
    std::string toString() const;

    bool operator==(const ArpeggioSetting&) const = default;
};
}  // namespace Backend::ArpeggioManagement
