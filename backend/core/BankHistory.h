#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "backend/core/Drafts.h"
#include "backend/core/StepHistory.h"
#include "backend/files/BankFile.h"

namespace Backend
{
/// A change of a bank's programs that can be undone or, after that, done again.
struct BankStep {
    std::string name;
    Arrangement order{};                          ///< what has to be arranged for that
    std::size_t programs = 0;                     ///< how many the bank has before it
    std::vector<std::pair<int, Draft>> drafts{};  ///< of programs that come back then, by their numbers
};

using BankHistory = StepHistory<BankStep>;  ///< since the bank was loaded
}  // namespace Backend
