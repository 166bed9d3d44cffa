/// The board a bring-up test describes, and what the bring-up did on it.
#pragma once

#include "board/ability.h"
#include "config/feature.h"

#include <string>
#include <vector>

struct tagBOARD_S {
    tagCFG_FEATURE_LIST_S stFeatures{};
    HW_CAPS_LENS_ARRAY_S stLens{};
    BU_S32 s32FeatureResult = 0, s32PipelineResult = 0;
    BU_BOOL bNtpEnabled = BU_FALSE;

    void *pvBusiness = nullptr;
    std::vector<std::string> calls, log;
};
extern tagBOARD_S g_stBoard;

/// Thrown when the service has nothing left to do but sleep.
struct tagIDLE_S {
};
