#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Export.h"

/// Named values under one key, such as "Software\Brinlow Software\Orvane 3\3.2". A value has a type, and can
/// only be read with that type.
///
/// On Windows the values are in the registry, below HKEY_CURRENT_USER: a text is REG_SZ, a number REG_DWORD, bytes are
/// REG_BINARY. On other systems, and where the host has chosen a folder for settings, a key is a file below
/// `Folders::getSettings`, without the leading "Software": one line
/// for each value, `Name=string:text`, `Name=number:-1`, `Name=hex:00ff`, in which a backslash, line feed, carriage
/// return and NUL of a text are written \\, \n, \r and \0. A missing file is an empty key. Lines of any
/// other form are kept. A file that cannot be read is never overwritten: `save` first renames it to the same name with
/// ".unreadable" appended.
class ORV_API SettingsStore
{
public:
    /// Opens a key and reads its values. A part of `key` that cannot be a file name (empty, ".", "..", with a slash)
    /// leaves it closed.
    explicit SettingsStore(const std::string& key);
    ~SettingsStore();
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    /// False if the key is not possible; then there are no values, and nothing is saved.
    bool isOpen() const;

    /// True if the key exists.
    bool exists() const;

    std::optional<std::string> getString(std::string_view name) const;
    std::optional<std::int32_t> getNumber(std::string_view name) const;
    std::optional<std::vector<std::uint8_t>> getBytes(std::string_view name) const;

    void setString(std::string_view name, std::string_view text);
    void setNumber(std::string_view name, std::int32_t number);
    void setBytes(std::string_view name, std::span<const std::uint8_t> bytes);

    /// Writes the values: at any instant the file has the old values or the new ones; the registry has each value old
    /// or new. False if not all could be written; a file then has the old ones.
    bool save();

private:
    struct Values;
    std::unique_ptr<Values> values;
};
