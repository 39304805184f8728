#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>

#include "platform/Path.h"
#include "tests/stage/System.h"
#include "tests/stage/TemporaryFolder.h"

/// Runs this test in a process of its own, which does `action(folder, call)` there and ends; with a FileFault that
/// kills it in the call of that number. False if it was not killed. What stands before it in the test happens there
/// too.
template <class Action>
bool isKilledIn(int call, const TemporaryFolder& folder, Action&& action)
{
    if (const char* task = std::getenv("ORVANE_TEST_VICTIM")) {
        std::istringstream words(task);
        std::string path;
        std::getline(words >> call >> std::ws, path);
        action(pathOf(path), call);
        std::_Exit(0);
    }
    const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
    const std::string program = testing::internal::GetArgvs()[0];
    System::setVariable("ORVANE_TEST_VICTIM", std::to_string(call) + " " + folder.string());
    const std::string filter = std::string(test.test_suite_name()) + "." + test.name();
    const int status = std::system(("\"" + program + "\" --gtest_filter=" + filter).c_str());
    System::setVariable("ORVANE_TEST_VICTIM", "");
    return status != 0;
}
