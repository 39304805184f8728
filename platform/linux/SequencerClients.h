#pragma once

#include <string>
#include <string_view>
#include <vector>

/// The ports in the text of /proc/asound/seq/clients (the ALSA sequencer) that all programs may read from:
///
///     Client  14 : "Midi Through" [Kernel]
///       Port   0 : "Midi Through Port-0" (RWe-)
std::vector<std::string> readablePorts(std::string_view clients);
