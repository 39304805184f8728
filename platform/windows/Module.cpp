#include "platform/Module.h"

#include <windows.h>

#include <filesystem>

#include "platform/Path.h"
#include "platform/windows/Wide.h"

void* getModuleHandle()
{
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&getModuleHandle), &module);
    return module;
}

std::string getModuleFolder()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD size =
            GetModuleFileNameW(static_cast<HMODULE>(getModuleHandle()), path.data(), static_cast<DWORD>(path.size()));
        if (size == 0) return "";
        if (size < path.size()) return textOf(std::filesystem::path(path.substr(0, size)).parent_path());
        path.resize(path.size() * 2);
    }
}

std::string getLibraryFileName(const std::string& name) { return name + ".dll"; }

void* openLibrary(const std::string& path, std::string& reason)
{
    const HMODULE library = LoadLibraryW(widen(path).c_str());
    if (library == nullptr) reason = path + ": " + describe(GetLastError());
    return library;
}

void closeLibrary(void* library)
{
    if (library != nullptr) FreeLibrary(static_cast<HMODULE>(library));
}

void* findInLibrary(void* library, const char* name)
{
    if (library == nullptr) return nullptr;
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}
