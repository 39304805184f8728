#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "host/midi/ShortMessage.h"
#include "host/synthesizer/Sound.h"

namespace Host
{
/// A synthesizer on a sound output of the system. Any thread.
class SoundOutput
{
public:
    virtual ~SoundOutput() = default;

    /// Takes seconds if the sound font is another one; what goes on sounds meanwhile. `news` gets a sentence for what
    /// cannot be done.
    virtual void setSound(const Sound& sound, std::vector<std::string>& news) = 0;

    /// Plays at once. May wait for the rendering thread, so it must not be called in a time slice.
    virtual void play(const ShortMessage& message) = 0;
};

/// Opens the sound output. Throws std::runtime_error with one line for the user if that fails. Prints nothing.
using OpenSoundOutput = std::function<std::unique_ptr<SoundOutput>(const Sound& sound, std::vector<std::string>& news)>;
}  // namespace Host
