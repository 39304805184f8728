#pragma once

// Includes every function class.

#include "backend/bindings/functions/ControlFunctions.h"
#include "backend/bindings/functions/LayerFunctions.h"
#include "backend/bindings/functions/MidiFunctions.h"
#include "backend/bindings/functions/OscFunctions.h"
#include "backend/bindings/functions/PresetFunctions.h"
#include "backend/bindings/functions/ScreenFunctions.h"
#include "backend/bindings/functions/SystemFunctions.h"
