#pragma once

#include "backend/model/SequenceSetting.h"
#include "platform/Export.h"

namespace Backend::Layers
{
struct Layer;
}

namespace Backend::SequenceManagement
{
// Files of version 2 name a sequence by the number of a template and a mode.

/// The preset that took the place of a template, with its nodes; empty for a number without one. Mode 1 applies the
/// velocities, 2 notes and velocities, any other the notes.
ORV_API SequenceSetting fromTemplate(int number, int mode);

/// Gives a layer of such a file, its arpeggio read already, the sequence of the template. Drums are not transposed, and
/// some of them have half as many steps to the bar as their template.
ORV_API void applyTemplate(Layers::Layer& layer, int number, int mode);
}  // namespace Backend::SequenceManagement
