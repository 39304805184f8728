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

/// The preset that replaced a template, with its nodes; empty for an unknown number. Mode 1 applies the velocities, 2
/// notes and velocities, any other mode the notes.
ORV_API SequenceSetting fromTemplate(int number, int mode);

/// Sets the sequence of a layer, whose arpeggio was read before, to that of the template. Drums are not transposed, and
/// some of them have half as many steps in a bar as their template.
ORV_API void applyTemplate(Layers::Layer& layer, int number, int mode);
}  // namespace Backend::SequenceManagement
