#pragma once

#include <string>

#include "platform/Export.h"

/// Where the library that this code is part of lies in memory: what the system calls it by. Not to be closed.
ORV_API void* getModuleHandle();

/// The folder that this library was loaded from; empty if the system does not know.
ORV_API std::string getModuleFolder();

/// What a library of this name is called as a file: "X" is libX.so.
ORV_API std::string getLibraryFileName(const std::string& name);

/// Loads a library for as long as `closeLibrary` has not been called for the handle. Null if that cannot be done; then
/// `reason` is one line.
ORV_API void* openLibrary(const std::string& path, std::string& reason);
/// Null is allowed and nothing.
ORV_API void closeLibrary(void* library);

/// The function of that name in a library, as a pointer of the type asked for; null if there is none.
ORV_API void* findInLibrary(void* library, const char* name);
template <class Function>
Function* findFunction(void* library, const char* name)
{
    return reinterpret_cast<Function*>(findInLibrary(library, name));
}
