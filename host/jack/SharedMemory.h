#pragma once

namespace Host
{
/// Unlocks what JACK's library has locked of the server's shared memory: the buffers of every port that the server has
/// room for, 107 MB by default, which the server locks itself. Only what this process uses counts as its own after
/// that. To be called after each opening of a client, before it is activated.
void unlockJackMemory();
}  // namespace Host
