#include "api/Bank.h"

#include "backend/files/BankFile.h"

namespace Backend
{
Bank Bank::fromFile(const std::string& path)
{
    BankFile file;
    if (!path.empty()) file.open(path);
    return {path, file.getProgramNames()};
}
}  // namespace Backend
