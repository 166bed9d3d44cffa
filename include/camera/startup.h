/// What the service loads once, at its start.
#pragma once

#include "base/types.h"

struct MPP_BUSINESS_CFG_S;

/// Loads the stored configuration into the running state. Once, at the start. @return 0
BU_S32 SYSTEM_API_InitializeGlobalVirableByXml();
/// Fills what the media pipeline is brought up with. @return 0, or -1 on null
BU_S32 SYSTEM_API_InitializeMppBusinessByXml(MPP_BUSINESS_CFG_S *pstCfg);
/// Freezes the picture again when it was stored so. @return whether it is frozen
BU_S32 SYSTEM_API_GetImgFreeze();
