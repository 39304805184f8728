#pragma once

#include <functional>
#include <string>
#include <system_error>
#include <vector>

#include "platform/Export.h"

namespace Backend::RetroRecord
{
/// The result of saving one output's record.
struct ORV_API SavedRecord {
    std::string file;       ///< the MIDI file; empty if nothing was played
    std::error_code error;  ///< why it could not be written; then the record is unchanged

    bool operator==(const SavedRecord&) const = default;
};

/// The result of a save, an entry for each recorded output in ascending order. The payload of
/// GuiMessage::RETRO_RECORD_SAVED.
using SaveReport = std::vector<SavedRecord>;

/// Gets the result on the recorder's thread, so it must not wait.
using SaveListener = std::function<void(const SaveReport& report)>;
}  // namespace Backend::RetroRecord
