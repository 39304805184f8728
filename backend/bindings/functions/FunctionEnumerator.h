#pragma once

#include "backend/bindings/functions/FunctionInfo.h"
#include "platform/Export.h"

namespace Backend::FunctionManagement
{
/// Receives the functions that can be picked.
class FunctionEnumerator
{
public:
    virtual ~FunctionEnumerator() = default;
    virtual void addFunction(const FunctionInfo& function) = 0;
};

/// Adds every function that is offered, in the order of the pickers; the first one means no function.
ORV_API void enumerateFunctions(FunctionEnumerator& enumerator);
}  // namespace Backend::FunctionManagement
