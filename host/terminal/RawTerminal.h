#pragma once

namespace Host
{
/// Puts a terminal into raw mode for the lifetime of this object: each key is read at once and not echoed; the keys
/// that interrupt and suspend still send their signals. The old mode is restored at the end, also by every fatal signal
/// that can be caught, and raw mode returns when the process continues after it was stopped.
///
/// One object per process.
class RawTerminal
{
public:
    /// Throws InputError with one line if `input` is not a terminal.
    explicit RawTerminal(int input);
    ~RawTerminal();

    RawTerminal(const RawTerminal&) = delete;
    RawTerminal& operator=(const RawTerminal&) = delete;

    /// Restore the old mode before the process stops or ends, and raw mode afterwards. Nothing happens while there is
    /// no object. Also in a signal handler.
    static void restoreNow();
    static void applyNow();
};
}  // namespace Host
