#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "host/synthesizer/Sound.h"
#include "host/synthesizer/Synthesizer.h"

namespace Host
{
/// The installed General MIDI sound font; an empty path if there is none.
std::filesystem::path findSoundFont();

/// A synthesizer with the sound. If its sound font cannot be loaded, that is added to `news` in one sentence, and it
/// has the installed one. Throws as the constructor of `Synthesizer`.
std::unique_ptr<Synthesizer> makeSynthesizer(const Sound& sound, double sampleRate, SynthesizerUse use,
                                             std::vector<std::string>& news);

/// The same for a change of the sound font while another one plays: null, with a sentence in `news`, if it cannot be
/// loaded.
std::unique_ptr<Synthesizer> makeNextSynthesizer(const Sound& sound, double sampleRate, SynthesizerUse use,
                                                 std::vector<std::string>& news);
}  // namespace Host
