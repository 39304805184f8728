#include "host/common/SetupFile.h"

#include "api/Bank.h"
#include "host/common/InputError.h"
#include "host/common/WholeFile.h"

namespace Host
{
void checkSetupFile(const std::filesystem::path& path)
{
    if (path.extension() != ".prg" && path.extension() != ".bnk")
        throw InputError(path.string() + ": neither a program (.prg) nor a bank (.bnk)");
    readWholeFile(path);
    if (Backend::Bank::fromFile(path.string()).programNames.empty())
        throw InputError(path.string() + ": the file contains no program");
}

void postLoad(Backend::OrvMessageManager& backend, const std::string& path)
{
    if (path.ends_with(".prg"))
        backend.postLoadProgram(path);
    else
        backend.postLoadBank(path);
}
}  // namespace Host
