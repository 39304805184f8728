#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "api/Bank.h"

class QMimeData;

namespace Gui::Files
{
/// Programs of a bank that were copied or cut, or are dragged, also to another window.
struct CarriedPrograms {
    Backend::Bank bank;         ///< as the user saw it
    std::vector<int> programs;  ///< from 0
    bool isCut = false;

    static constexpr const char* FORMAT = "application/x-orvane-programs";

    /// Owned by the caller. Other programs get the names as text.
    std::unique_ptr<QMimeData> toMimeData() const;
    /// Nothing if the data has no programs.
    static std::optional<CarriedPrograms> fromMimeData(const QMimeData* data);
};
}  // namespace Gui::Files
