#include "host/common/InputError.h"
#include "host/render/SoundFile.h"

namespace Host
{
std::vector<std::uint8_t> renderSound(const RenderPlayer&, std::int32_t)
{
    throw InputError("--wav: this program has no built-in synthesizer");
}
}  // namespace Host
