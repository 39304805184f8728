#pragma once

#include <string>

#include "platform/Export.h"

/// The address of the library that contains this code, which is its handle for the system. It must not be closed.
ORV_API void* getModuleHandle();

/// The folder that this library was loaded from; empty if it is unknown.
ORV_API std::string getModuleFolder();

/// The file name of a library: "X" is libX.so.
ORV_API std::string getLibraryFileName(const std::string& name);

/// Loads a library until `closeLibrary` is called with the handle. Null on failure; then `reason` is one line.
ORV_API void* openLibrary(const std::string& path, std::string& reason);
/// Null is allowed.
ORV_API void closeLibrary(void* library);

/// The function of that name in a library, null if there is none. The caller gives its type.
ORV_API void* findInLibrary(void* library, const char* name);
template <class Function>
Function* findFunction(void* library, const char* name)
{
    return reinterpret_cast<Function*>(findInLibrary(library, name));
}
