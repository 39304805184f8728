#pragma once

#include <cstddef>

#include "backend/engine/Slice.h"
#include "backend/model/SequenceSetting.h"
#include "backend/values/OrvMidiMessage.h"

namespace Backend::MidiEngine
{
class MidiEngine;
}

namespace Backend::SequenceManagement
{
/// Plays the notes of an arpeggio through a sequence: the setting and the node that the arpeggio has reached. Time
/// slice only.
class SequencePlayer
{
public:
    explicit SequencePlayer(const SequenceSetting& sequence) : setting(sequence) {}

    /// True without nodes; then the notes of the arpeggio are played unchanged.
    bool isEmpty() const { return setting.nodes.empty(); }

    std::size_t getCurrentNode() const { return currentNode; }
    bool isOnFirstNode() const { return currentNode == 0; }
    bool isOnLastNode() const { return currentNode + 1 >= setting.nodes.size(); }

    /// Goes to the next node, from the last one to the first.
    void advance() { currentNode = isOnLastNode() ? 0 : currentNode + 1; }
    /// Goes to the previous node, from the first one to the last.
    void retreat()
    {
        if (currentNode == 0) currentNode = setting.nodes.size();
        if (currentNode > 0) --currentNode;
    }
    void rewind() { currentNode = 0; }
    /// Goes to the node that another player of the same sequence has reached.
    void continueFrom(const SequencePlayer& other) { currentNode = other.currentNode; }

    /// Plays a note-on or note-off once for each offset of a node.
    void play(MidiEngine::Slice& slice, MidiEngine::MidiEngine& engine, const MidiEngine::OrvMidiMessage& event,
              std::size_t node) const;

private:
    const SequenceSetting setting;
    std::size_t currentNode = 0;
};
}  // namespace Backend::SequenceManagement
