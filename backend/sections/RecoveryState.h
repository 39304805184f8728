#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "backend/sections/EditHistory.h"
#include "platform/Export.h"

namespace Backend
{
/// A program that was left: its history and, if it was edited, its text.
struct Draft {
    std::string text;
    EditHistory history;
};

/// What is not saved: which program is the current one, its text, and the drafts of others. A plain value; the texts of
/// drafts are shared.
struct RecoveryState {
    struct Program {
        std::string bank;  ///< its absolute path
        int number = 0;
        std::shared_ptr<const Draft> draft;  ///< never null
    };

    std::string bank;     ///< absolute path of the current one; empty for none
    int number = 0;       ///< of the current program
    std::string screens;  ///< those that are open, as the settings have them
    Draft program{};      ///< the current program, always with its text
    std::vector<Program> drafts{};

    /// Whether any program differs from what its bank has.
    ORV_API bool hasEdits() const;

    /// A text in which each document follows its length in bytes. Of a long history it has the most recent steps.
    ORV_API std::string toText() const;
    /// Nothing if the text is not complete.
    ORV_API static std::optional<RecoveryState> fromText(std::string_view text);
};
}  // namespace Backend
