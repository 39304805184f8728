#pragma once

#include <string>

#include "backend/messages/MessageManagerMaster.h"
#include "backend/messages/TypedMessage.h"

namespace Backend
{
/// The preset commands of a section: four numbers from `FIRST`. `Ids` is the type of the list of items to be saved; a
/// section that always saves all items has none.
template <unsigned int FIRST, class... Ids>
struct PresetMessages {
    static constexpr TypedMessage<std::string> LOAD_PRESET{FIRST, "LoadPreset"};
    static constexpr TypedMessage<std::string, std::string> RENAME_PRESET{FIRST + 1, "RenamePreset"};
    static constexpr TypedMessage<std::string> DELETE_PRESET{FIRST + 2, "DeletePreset"};
    static constexpr TypedMessage<std::string, Ids...> SAVE_PRESET{FIRST + 3, "SavePreset"};
};

/// A message manager with the preset commands.
template <class Messages>
class PresetMessageManager;

template <unsigned int FIRST, class... Ids>
class PresetMessageManager<PresetMessages<FIRST, Ids...>> : public MessageManager
{
    using Messages = PresetMessages<FIRST, Ids...>;

public:
    using MessageManager::MessageManager;

    void postLoadPreset(const std::string& name) { master.post(Messages::LOAD_PRESET(name)); }

    void postRenamePreset(const std::string& name, const std::string& newName)
    {
        master.post(Messages::RENAME_PRESET(name, newName));
    }

    void postDeletePreset(const std::string& name) { master.post(Messages::DELETE_PRESET(name)); }

    /// Saves the items of `ids`, to be merged when they are loaded, or with an empty list all items.
    void postSavePreset(const std::string& name, const Ids&... ids)
    {
        master.post(Messages::SAVE_PRESET(name, ids...));
    }
};
}  // namespace Backend
