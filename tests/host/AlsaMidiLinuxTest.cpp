#include "host/alsa/AlsaMidi.h"

#include <gtest/gtest.h>

namespace Host
{
TEST(AlsaMidi, TheNameOfASequencerDeviceHasNoAddress)
{
    EXPECT_EQ(withoutAddress("Keys:Keys MIDI 1 24:0"), "Keys:Keys MIDI 1");
    EXPECT_EQ(withoutAddress("Keys:Keys MIDI 1"), "Keys:Keys MIDI 1");
    EXPECT_EQ(withoutAddress("24:0"), "24:0");
}
}  // namespace Host
