#pragma once

#include <gtest/gtest.h>

#include "host/window/SingleInstance.h"
#include "tests/stage/PrivateFolders.h"
#include "tests/stage/System.h"

using Files = std::vector<std::string>;
using Result = Host::SingleInstance::Result;

/// A user with an empty folder of run-time files.
struct SingleInstance : testing::Test {
    SingleInstance() { System::setVariable("XDG_RUNTIME_DIR", runtime.string()); }
    ~SingleInstance() { System::setVariable("XDG_RUNTIME_DIR", ""); }
    static auto acquire() { return Host::SingleInstance::acquire(); }
    static Result notify(const Files& files = {}) { return Host::SingleInstance::notify(files); }

    TemporaryFolder runtime;
    PrivateFolders folders;
};
