#include "platform/Module.h"

#include <dlfcn.h>

#include <filesystem>

namespace
{
Dl_info describeThisLibrary()
{
    Dl_info info{};
    return ::dladdr(reinterpret_cast<void*>(&getModuleHandle), &info) != 0 ? info : Dl_info{};
}
}  // namespace

void* getModuleHandle() { return describeThisLibrary().dli_fbase; }

std::string getModuleFolder()
{
    const char* const file = describeThisLibrary().dli_fname;
    return file != nullptr ? std::filesystem::path(file).parent_path().string() : std::string();
}

std::string getLibraryFileName(const std::string& name) { return "lib" + name + ".so"; }

void* openLibrary(const std::string& path, std::string& reason)
{
    void* const library = ::dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr) reason = ::dlerror();
    return library;
}

void closeLibrary(void* library)
{
    if (library != nullptr) ::dlclose(library);
}

void* findInLibrary(void* library, const char* name) { return library != nullptr ? ::dlsym(library, name) : nullptr; }
