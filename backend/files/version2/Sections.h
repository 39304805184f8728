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

/// What a program or a preset of version 2 becomes: the elements of its sections as text, each element without
/// indentation and with a line end after each tag.
struct Sections {
    std::map<Key, std::string> keys{};     ///< all, those of the default preset included
    std::map<Key, std::string> ownKeys{};  ///< those that the file itself names
    std::map<InputEvent, std::vector<std::string>> translations{};
    std::map<Cell, std::string> controls{};
    std::vector<std::string> layers{};
    int tempo = 120;
    int tempoSource = -1;

    /// Begins with the keys of the preset "000 - Default", if there is one.
    static Sections withDefaultKeys();

    void putKey(const Key& key, const std::string& element) { keys[key] = ownKeys[key] = element; }

    /// A `Program` element. While its keys are those of the default preset it names that too.
    void writeProgram(std::ostream& out, const std::string& name) const;

    // One section each, after `indent` TABs. A section to be merged has only the keys that the file names.
    void writeComputerInput(std::ostream& out, int indent, bool merge) const;
    void writeMidiInput(std::ostream& out, int indent, bool merge) const;
    void writeControls(std::ostream& out, int indent, bool merge) const;
    void writeLayers(std::ostream& out, int indent, bool merge) const;
};
}  // namespace Backend::Version2
