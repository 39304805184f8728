#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>

/// An empty folder that is gone after the test.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "orvane-test-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder " + pattern);
        path = pattern;
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return path / name; }
    std::string string() const { return path.string(); }

    /// Writes a file, with the folders above it.
    void write(const std::string& name, const std::string& text) const
    {
        std::filesystem::create_directories((path / name).parent_path());
        std::ofstream(path / name, std::ios::binary) << text;
    }

    /// A file's text, "" if there is none.
    std::string read(const std::string& name) const
    {
        std::ifstream file(path / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    /// The names in it, or in a folder of it, sorted and separated by blanks.
    std::string contents(const std::string& folder = "") const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path / folder))
            names.insert(entry.path().filename());
        std::string all;
        for (const std::string& name : names) all += (all.empty() ? "" : " ") + name;
        return all;
    }

private:
    std::filesystem::path path;
};
