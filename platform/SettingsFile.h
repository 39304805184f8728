#pragma once

#include <filesystem>
#include <string>

#include "platform/SettingsText.h"

/// The values of a key of settings in a file (see SettingsStore).
class SettingsFile
{
public:
    explicit SettingsFile(const std::string& key);

    bool isOpen() const { return !path.empty(); }
    bool exists() const { return isThere; }

    SettingsText& getValues() { return values; }

    bool save();

private:
    void read();
    bool moveAside() const;

    std::filesystem::path path;
    SettingsText values;
    std::string onDisk;
    bool isThere = false;
    bool readable = true;
};
