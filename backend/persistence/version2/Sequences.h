#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "backend/layers/Layer.h"

namespace Backend::Version2
{
/// A layer's arpeggio as it is stored.
struct Arpeggio {
    std::string_view type{};    ///< the name of its element, empty for none
    std::int32_t beat = 480;    ///< pulses
    std::int32_t length = 480;  ///< pulses
};

/// A child of a layer's element; nothing if there is none.
std::string arpeggioText(const Arpeggio& arpeggio);

/// The name of the preset that took the place of a template, empty for a number without one.
std::string presetOf(int number);

/// The child of a layer's element that a template becomes, nothing if it has no preset. Mode 1 applies the velocities,
/// 2 notes and velocities, any other the notes. Drums are not transposed, and some of them have half as many steps to
/// the bar as their template.
std::string applyTemplate(Layers::Layer& layer, Arpeggio& arpeggio, int number, int mode);
}  // namespace Backend::Version2
