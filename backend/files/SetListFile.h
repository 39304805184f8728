#pragma once

#include <string>

#include "backend/model/SetList.h"
#include "platform/Export.h"
#include "platform/Mutex.h"

namespace Backend
{
/// The file of a bank's set list, "Gig.set" beside "Gig.bnk". It is replaced as a whole, and only while it has the
/// content that was last read or written here. Any thread; one waits while the other writes.
class ORV_API SetListFile
{
public:
    /// Nothing is read yet.
    explicit SetListFile(const std::string& bankPath);

    const std::string& getPath() const { return path; }

    /// An empty list if there is no file; a broken one, and a line in the debug stream, if it is no set list.
    SetList read();
    /// A broken list is not written, and a list without entries makes no file.
    SetListWrite write(const SetList& list);

private:
    const std::string path;
    Mutex mutex;
    std::string known GUARDED_BY(mutex);  // the content
};
}  // namespace Backend
