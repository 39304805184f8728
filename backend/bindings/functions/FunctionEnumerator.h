#pragma once

#include "backend/bindings/functions/FunctionInfo.h"
#include "platform/Export.h"

namespace Backend::FunctionManagement
{
/// Takes what there is to pick from.
class FunctionEnumerator
{
public:
    virtual ~FunctionEnumerator() = default;
    virtual void addFunction(const FunctionInfo& function) = 0;
};

/// Adds every function that is offered, in the order in which pickers show them; the first stands for none.
ORV_API void enumerateFunctions(FunctionEnumerator& enumerator);
}  // namespace Backend::FunctionManagement
