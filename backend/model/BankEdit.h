#pragma once

#include <string>
#include <vector>

#include "api/Bank.h"

namespace Backend
{
/// A change of the programs of a bank by the user, one step of the bank's history. Programs are counted from 0, as the
/// bank has them before it. With a number that the bank does not have, nothing is changed.
struct BankEdit {
    enum class Kind {
        add,     ///< an empty program with `programName` before the program `to`
        copy,    ///< the programs of `source`, in the order given, before the program `to`
        move,    ///< the same, and `source` does not have them any more
        rename,  ///< the program gets `programName`
        remove   ///< one program at least stays
    };

    Kind kind = Kind::add;
    std::string name{};  ///< as the user reads it: "move program 3"
    std::string bank{};  ///< the path of its file; empty for the current bank
    std::vector<int> programs{};
    int to = 0;            ///< the number of programs for the end
    std::string source{};  ///< the path of another bank; empty for `bank` itself
    std::string programName{};
    /// The programs of these banks as the user sees them. If one has others, nothing is changed.
    std::vector<Bank> shown{};
};

/// What a new bank has.
enum class NewBank {
    empty,  ///< an empty program
    copy    ///< the programs of the current bank
};

/// The acknowledgement of a change of a bank, and of undo and redo.
struct BankEditDone {
    enum class Kind {
        edited,
        undone,
        redone,
        failed,
        stale  ///< nothing was changed, because a bank has other programs than those that were shown
    };

    Kind kind = Kind::edited;
    std::string bank{};         ///< the path of its file
    std::string name{};         ///< of the step; empty if there is none
    std::vector<Bank> banks{};  ///< those that could be read, as they are now

    bool operator==(const BankEditDone&) const = default;
};
}  // namespace Backend
