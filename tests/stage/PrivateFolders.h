#pragma once

#include "platform/Folders.h"
#include "tests/stage/TemporaryFolder.h"

/// A user's folders for one test: application data in "data", settings in "config". Nothing of the real user's is read
/// or written while it exists.
class PrivateFolders : public TemporaryFolder
{
public:
    PrivateFolders()
    {
        Folders::setLocalApplicationData((*this / "data").string());
        Folders::setSettings((*this / "config").string());
    }
    ~PrivateFolders()
    {
        Folders::setLocalApplicationData("");
        Folders::setSettings("");
    }
};
