#pragma once

#include <compare>
#include <cstdint>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

#include "backend/values/Cell.h"
#include "backend/values/Key.h"

namespace Backend::Version2
{
/// A kind of incoming event; -1 for every input and every channel.
struct InputEvent {
    int input = -1;
    int channel = -1;
    std::string midiEvent;

    auto operator<=>(const InputEvent&) const = default;
};

/// The sections that a program or preset of version 2 is converted to, as text: each element without indentation, with
/// a line end after each tag.
struct Sections {
    std::map<Key, std::string> keys{};     ///< including those of the default preset
    std::map<Key, std::string> ownKeys{};  ///< those in the file itself
    std::map<InputEvent, std::vector<std::string>> translations{};
    std::map<Cell, std::string> controls{};
    std::vector<std::string> layers{};
    int tempo = 120;
    int tempoSource = -1;

    /// Starts with the keys of the preset "000 - Default", if there is one.
    static Sections withDefaultKeys();

    void putKey(const Key& key, const std::string& element) { keys[key] = ownKeys[key] = element; }

    /// Writes a `Program` element. If its keys are those of the default preset, it names that.
    void writeProgram(std::ostream& out, const std::string& name) const;

    // One section each, indented by `indent` TABs. A section to be merged has only the keys of the file.
    void writeComputerInput(std::ostream& out, int indent, bool merge) const;
    void writeMidiInput(std::ostream& out, int indent, bool merge) const;
    void writeControls(std::ostream& out, int indent, bool merge) const;
    void writeLayers(std::ostream& out, int indent, bool merge) const;
};
}  // namespace Backend::Version2
