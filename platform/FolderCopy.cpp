#include "platform/FolderCopy.h"
#include "platform/Path.h"

#include <system_error>

#include "platform/DbgStream.h"
#include "platform/WholeFile.h"

namespace
{
namespace fs = std::filesystem;

void report(const fs::path& path, const std::error_code& error)
{
    if (error) WindowsLib::DbgStream() << textOf(path) << ": not copied: " << error.message();
}

bool isThere(const fs::path& path)
{
    std::error_code none;
    return fs::exists(fs::symlink_status(path, none));
}

/// Calls `fill` with a temporary name, and renames the result to `target` if it succeeded.
template <class Fill>
void create(const fs::path& target, Fill fill)
{
    const fs::path temporary = WholeFile::temporaryBeside(target);
    std::error_code error = fill(temporary);
    if (!error) fs::rename(temporary, target, error);
    if (!error) return;
    report(target, error);
    fs::remove_all(temporary, error);
}

void copyFile(const fs::path& from, const fs::path& to)
{
    if (isThere(to)) return;
    create(to, [&](const fs::path& temporary) {
        std::error_code error;
        fs::copy_file(from, temporary, error);
        // Installed files may be read-only; the copy belongs to the user.
        if (!error) fs::permissions(temporary, fs::perms::owner_write, fs::perm_options::add, error);
        return error;
    });
}

void copyContent(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    fs::directory_iterator entry(from, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code none;
        const fs::path target = to / entry->path().filename();
        if (entry->symlink_status(none).type() == fs::file_type::directory)
            copyFolder(entry->path(), target);
        else if (entry->is_regular_file(none))
            copyFile(entry->path(), target);
        else
            WindowsLib::DbgStream() << textOf(entry->path()) << ": not copied: neither a file nor a folder";
    }
    report(from, error);
}
}  // namespace

bool copyFolder(const fs::path& from, const fs::path& to)
{
    std::error_code error;
    if (!fs::is_directory(from, error)) {
        WindowsLib::DbgStream() << from.string() << ": not copied: no such folder";
        return false;
    }
    if (isThere(to)) {
        copyContent(from, to);
        return true;
    }
    fs::create_directories(to.parent_path(), error);
    create(to, [&](const fs::path& temporary) {
        std::error_code failed;
        if (fs::create_directory(temporary, failed)) copyContent(from, temporary);
        return failed;
    });
    return true;
}
