#include "backend/model/ScreenState.h"

#include <array>
#include <cstddef>

namespace Backend
{
namespace
{
constexpr std::array SCREENS{&ScreenState::system,        &ScreenState::help,     &ScreenState::display,
                             &ScreenState::oscillators,   &ScreenState::joystick, &ScreenState::midiInput,
                             &ScreenState::computerInput, &ScreenState::controls, &ScreenState::output,
                             &ScreenState::layers,        &ScreenState::cc,       &ScreenState::zones};
}  // namespace

std::vector<bool> ScreenState::toBits() const
{
    std::vector<bool> bits;
    for (const auto screen : SCREENS) bits.push_back(this->*screen);
    return bits;
}

ScreenState ScreenState::fromBits(const std::vector<bool>& bits)
{
    ScreenState state;
    for (std::size_t i = 0; i < bits.size() && i < SCREENS.size(); ++i) state.*SCREENS[i] = bits[i];
    return state;
}
}  // namespace Backend
