/// Picture in picture.
#pragma once

#include "base/types.h"

enum MPP_PIP_SOURCE_E : BU_S32 { MPP_PIP_SOURCE_CLOSEUP = 0, MPP_PIP_SOURCE_PANORAMA = 1 };
enum MPP_PIP_POS_E : BU_S32 {
    MPP_PIP_POS_TOP_LEFT = 0,
    MPP_PIP_POS_TOP_RIGHT,
    MPP_PIP_POS_BOTTOM_LEFT,
    MPP_PIP_POS_BOTTOM_RIGHT
};
enum MPP_PIP_SIZE_E : BU_S32 { MPP_PIP_SIZE_LARGE = 0, MPP_PIP_SIZE_MIDDLE, MPP_PIP_SIZE_SMALL };
/// Picture in picture.
struct MPP_PIP_CONFIG_S {
    BU_S32 enMainVideo, enSubVideo, enDefaultVideo; ///< MPP_PIP_SOURCE_E, or 2: none
    BU_BOOL bEnablePip;
    BU_S32 enPos, enSize; ///< MPP_PIP_POS_E, MPP_PIP_SIZE_E
};

/// Picture in picture; default off, close-up in front [PipEnable, PipMainVideo, PipSubVideo, PipDefaultVideo, PipPos,
/// PipSize]. @return 0; -1: null, a field outside its range (nothing changed), or not stored
BU_S32 SYS_API_GetPipConfig(MPP_PIP_CONFIG_S *pstCfg, BU_BOOL bReread = BU_FALSE);
BU_S32 SYS_API_SetPipConfig(const MPP_PIP_CONFIG_S *pstCfg, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
