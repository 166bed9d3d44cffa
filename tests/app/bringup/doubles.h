/// The board a bring-up test describes, and what the bring-up did on it.
#pragma once

#include "board/ability.h"
#include "config/feature.h"

#include <string>
#include <vector>

using Calls = std::vector<std::string>;

struct TestBoard {
    tagCFG_FEATURE_LIST_S stFeatures{};
    HW_CAPS_LENS_ARRAY_S stLens{};
    BU_S32 s32FeatureResult = 0, s32PipelineResult = 0;
    BU_BOOL bNtpEnabled = BU_FALSE;
    bool bThreads = false; ///< the threads asked for really run

    Calls calls, log;
};
extern TestBoard g_stBoard;

/// Thrown when the service has nothing left to do but sleep.
struct Idle {
};
