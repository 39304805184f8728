#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "backend/recorder/RetroRecordBuffer.h"
#include "tests/recorder/RecordReading.h"
#include "tests/stage/TemporaryFolder.h"
#include "tests/stage/Text.h"

/// A record of one output with a clock of its own, chains in "chain", saved files in "takes".
struct Recorder {
    Recorder(const std::filesystem::path& where, Backend::RetroRecord::Restore restore, int fileSize = 10000)
        : folder(where), buffer(folder / "chain", "Out", restore, fileSize)
    {
        std::filesystem::create_directories(folder / "takes");
        buffer.start(now);
    }

    void play(const Backend::MidiEngine::MidiMessage& message, std::uint32_t silence = 0)
    {
        buffer.addEvent(message, now += silence);
    }
    void note(int number, std::uint32_t silence = 0)
    {
        play(Backend::MidiEngine::MidiMessage(Backend::MidiEngine::MessageType::noteOn, number, 100), silence);
    }

    Backend::RetroRecord::SavedRecord save()
    {
        return buffer.save((folder / "takes/t").string(), [this] { return now; });
    }
    /// What is saved, as `readRecord` reads it, and "" for no file.
    std::string saved()
    {
        const Backend::RetroRecord::SavedRecord record = save();
        EXPECT_FALSE(record.error) << record.error.message();
        return record.file.empty() ? "" : take(textOf(pathOf(record.file).filename()));
    }
    std::string take(const std::string& name) const { return readRecord(fileText(folder / "takes" / name)); }

    const std::filesystem::path folder;
    std::uint32_t now = 1000;
    Backend::RetroRecord::RetroRecordBuffer buffer;
};

/// A test with a folder for it.
struct Record : testing::Test {
    const TemporaryFolder folder;
};
