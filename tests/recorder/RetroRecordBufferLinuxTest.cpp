#include "tests/recorder/Recorder.h"
#include "tests/stage/FullDisk.h"

using Backend::RetroRecord::Restore;

TEST_F(Record, GoesOnWhenAFullDiskHasRoomAgain)
{
    Recorder recorder(folder, Restore::no);
    recorder.note(60);
    recorder.buffer.flush();
    {
        const FullDisk full(7);  // the first event and most of the second
        for (int note = 0; note < 100; ++note) {
            recorder.note(note, 10);
            recorder.buffer.flush();
        }
        EXPECT_TRUE(recorder.save().error);
    }
    recorder.note(61, 100);
    recorder.buffer.flush();
    recorder.note(62, 10000);
    EXPECT_EQ(recorder.saved(), "0:90.3C.64 218:90.3D.64 1400:90.3E.64")
        << "but for the event that met the full disk, and its ten milliseconds";
}

// Windows does not remove a file that is open.
TEST_F(Record, OutlivesItsFolder)
{
    Recorder recorder(folder, Restore::no, 100);
    recorder.note(60);
    std::filesystem::remove_all(folder / "chain");
    folder.write("chain", "in its place");
    for (int note = 0; note < 100; ++note) recorder.note(note);
    EXPECT_EQ(recorder.saved(), "") << "nothing is left to be saved";
    std::filesystem::remove(folder / "chain");
    recorder.note(1, 5000);
    recorder.note(2, 5000);
    EXPECT_EQ(recorder.saved(), "1400:90.02.64") << "tried again after ten seconds";
}
