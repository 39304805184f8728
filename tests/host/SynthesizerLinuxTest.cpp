#include "host/synthesizer/SoundFont.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/host/HostTesting.h"
#include "tests/stage/Allocations.h"

namespace Host
{
namespace
{
using Testing::on;
constexpr double SAMPLE_RATE = 48000;

/// The loudest sample of the next fifth of a second.
float loudest(Synthesizer& synthesizer)
{
    std::vector<float> left(static_cast<std::size_t>(SAMPLE_RATE / 5)), right(left.size());
    synthesizer.render(left.data(), right.data(), static_cast<int>(left.size()));
    return std::abs(*std::ranges::max_element(left, {}, [](float sample) { return std::abs(sample); }));
}

TEST(Synthesizer, KeepsItsChannelsWithAnotherSoundFontAndStaysIfThatCannotBeLoaded)
{
    std::vector<std::string> news;
    const Sound unreadable{.soundFont = "/dev/null"};
    auto first = makeSynthesizer(unreadable, SAMPLE_RATE, SynthesizerUse::oneThread, news);
    EXPECT_EQ(makeNextSynthesizer(unreadable, SAMPLE_RATE, SynthesizerUse::oneThread, news), nullptr);
    EXPECT_EQ(news, (std::vector<std::string>{
                        "The built-in synthesizer has the installed sounds: /dev/null is not a sound font.",
                        "The built-in synthesizer keeps its sounds: /dev/null is not a sound font."}));
    first->play(on(60));
    EXPECT_GT(loudest(*first), 0.01F);
    first->setVolume(0);
    for (int times = 0; times < 10; ++times) loudest(*first);  // the reverb
    EXPECT_LT(loudest(*first), 0.0001F);
    first->setVolume(100);
    first->play({{0xB0, 7, 0}, 3});

    const auto next = makeNextSynthesizer({.reverb = false}, SAMPLE_RATE, SynthesizerUse::oneThread, news);
    const auto before = allocationsOfThisThread() + releasesOfThisThread();
    next->takeChannels(*first);
    next->setReverb(true);
    next->setVolume(50);
    EXPECT_EQ(allocationsOfThisThread() + releasesOfThisThread(), before);
    next->play(on(60));
    EXPECT_LT(loudest(*next), 0.001F) << "the volume of the channel";
}
}  // namespace
}  // namespace Host
