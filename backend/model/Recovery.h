#pragma once

namespace Backend
{
/// What became of the recovery files at the start.
enum class RecoveryResult {
    nothing,      ///< there was none, or nothing in it was unsaved
    restored,     ///< what was not saved is there again
    unreadable,   ///< a file is no recovery file or damaged; it was renamed, and the start is an ordinary one
    bankMissing,  ///< the bank of a file cannot be loaded; the file stays for a later start
    notKept       ///< no file can be made, so nothing will be restored after a crash
};
}  // namespace Backend
