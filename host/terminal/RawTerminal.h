#pragma once

namespace Host
{
/// A terminal that gives each key as it is pressed, without showing it, for as long as this object lives. Then it is as
/// it was before: also while the program is suspended, and after every signal that ends it and can be caught. The keys
/// that interrupt and suspend still do.
///
/// One object per process.
class RawTerminal
{
public:
    /// Throws InputError with one line if `input` is no terminal.
    explicit RawTerminal(int input);
    ~RawTerminal();

    RawTerminal(const RawTerminal&) = delete;
    RawTerminal& operator=(const RawTerminal&) = delete;

    /// Puts the terminal back, if there is one, before the process ends at once. Also in a signal handler.
    static void restoreNow();
};
}  // namespace Host
