#include "host/common/SetupFile.h"

#include "api/Bank.h"
#include "host/common/InputError.h"
#include "host/common/WholeFile.h"
#include "platform/Path.h"

namespace Host
{
void checkSetupFile(const std::filesystem::path& path)
{
    if (path.extension() != ".prg" && path.extension() != ".bnk")
        throw InputError(textOf(path) + ": neither a program (.prg) nor a bank (.bnk)");
    readWholeFile(path);
    if (Backend::Bank::fromFile(textOf(path)).programNames.empty())
        throw InputError(textOf(path) + ": the file contains no program");
}

void postLoad(Backend::OrvMessageManager& backend, const std::string& path)
{
    if (path.ends_with(".prg"))
        backend.postLoadProgram(path);
    else
        backend.postLoadBank(path);
}
}  // namespace Host
