#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>

#include "platform/Path.h"

/// An empty folder that is gone after the test.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        const std::filesystem::path parent = canonical(std::filesystem::temp_directory_path());
        std::random_device random;
        do path = parent / ("orvane-test-" + std::to_string(random()));
        while (!create_directory(path));
    }
    ~TemporaryFolder()
    {
        using std::filesystem::perms;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(path))  // Windows keeps read-only files
            if (entry.symlink_status().type() == std::filesystem::file_type::regular)
                permissions(entry.path(), perms::owner_write, std::filesystem::perm_options::add);
        std::filesystem::remove_all(path);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return (path / pathOf(name)).make_preferred(); }
    operator const std::filesystem::path&() const { return path; }
    std::string string() const { return textOf(path); }

    /// Writes a file, with the folders above it.
    void write(const std::string& name, const std::string& text) const
    {
        std::filesystem::create_directories((*this / name).parent_path());
        std::ofstream(*this / name, std::ios::binary) << text;
    }

    /// A file's text, "" if there is none.
    std::string read(const std::string& name) const
    {
        std::ifstream file(*this / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// The names in it, or in a folder of it, sorted and separated by blanks.
    std::string contents(const std::string& folder = "") const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(*this / folder))
            names.insert(textOf(entry.path().filename()));
        std::string all;
        for (const std::string& name : names) all += (all.empty() ? "" : " ") + name;
        return all;
    }

private:
    std::filesystem::path path;
};
