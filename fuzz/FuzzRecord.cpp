// Whatever lies in the files of an earlier run's record, it is taken over: what is saved is a MIDI file by our reader,
// and ends with what was played since.
#include <filesystem>
#include <fstream>

#include "backend/recorder/RetroRecordBuffer.h"
#include "fuzz/Fuzzing.h"
#include "host/midifile/MidiFileReader.h"
#include "tests/stage/TemporaryFolder.h"

using namespace Backend;

void tryInput(std::string_view input)
{
    static const TemporaryFolder folder;
    const std::string text(input);
    // The first byte says where the older file ends.
    const std::size_t older = text.empty() ? 0 : static_cast<unsigned char>(text[0]) % text.size();
    folder.write("chain/1_Out.tmp", text.substr(0, older));
    folder.write("chain/0_Out.tmp", text.substr(older));

    RetroRecord::RetroRecordBuffer buffer(folder / "chain", "Out", RetroRecord::Restore::yes, 10000);
    buffer.start(0);
    buffer.addEvent(MidiEngine::MidiMessage(MidiEngine::MessageType::noteOn, 60, 100, 5), 0);
    const auto saved = buffer.save((folder / "take").string(), [] { return 0u; });
    require(!saved.error && !saved.file.empty());
    const auto events = Host::readMidiFile(std::filesystem::path(saved.file));
    require(events.size() >= 2);
    const auto& [time, status, d1, d2] = events[events.size() - 2];  // after it all sound off
    require(status == 0x95 && d1 == 60 && d2 == 100 && events.back().time == time);
    std::filesystem::remove(saved.file);
}
