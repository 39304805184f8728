#pragma once

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <set>
#include <string>

#include <gtest/gtest.h>

#include "host/InputError.h"

namespace Host::Testing
{
/// The line that the user gets, "" if nothing is wrong.
inline std::string complaintOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const InputError& error) {
        return error.what();
    }
    return "";
}

/// An empty folder that is gone after the test.
class TemporaryFolder
{
public:
    TemporaryFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "orvane-test-XXXXXX").string();
        if (::mkdtemp(pattern.data()) == nullptr) ADD_FAILURE() << "no temporary folder " << pattern;
        path = pattern;
    }
    ~TemporaryFolder() { std::filesystem::remove_all(path); }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::filesystem::path operator/(const std::string& name) const { return path / name; }

    /// The names in it, sorted and separated by blanks.
    std::string contents() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(path)) names.insert(entry.path().filename());
        std::string all;
        for (const std::string& name : names) all += (all.empty() ? "" : " ") + name;
        return all;
    }

private:
    std::filesystem::path path;
};
}  // namespace Host::Testing
