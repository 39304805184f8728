#pragma once

#include "tests/gui/Windowed.h"

/// A window that is open and shows the screens that a test asks for.
struct ScreenStage : Windowed<> {
    ScreenStage()
    {
        open();
        showScreens({.system = false, .help = false, .computerInput = false, .output = false});
    }
};
