/// Bring-up of the service: which module starts when, and under which condition. Main thread only.
#pragma once

#include "board/ability.h"
#include "config/feature.h"

/// The self-check result of a device's interface; DEVICE_SELFCHECK_E_FAIL for an index outside the array.
BU_S32 appServiceGetInterfaceStatus(INTF_INFO_S *pstDev, BU_S32 s32DevCnt, BU_S32 s32DevNO);

/// SIGQUIT, SIGINT and SIGTERM end the process with status 0. Thread: the one that waits for signals.
void appServiceOnGetQuitSignal(int sig);

// The steps, in their order. Each returns 0; a module that fails to start reports it itself.
BU_S32 APP_SERVICE_PrepareInit();
BU_S32 APP_SERVICE_InitDisplayModules(tagHW_ABILITY_S *pstHwAbi, tagCFG_FEATURE_DISPLAY_S *pstDisplay);
/// @param pbSensorInitOk  BU_FALSE when the media pipeline did not come up
BU_S32 APP_SERVICE_InitBasicModules(tagHW_ABILITY_S *pstHwAbi, tagCFG_FEATURE_LIST_S *pstFeatureList,
                                    tagBU_BOOL *pbSensorInitOk);
BU_S32 APP_SERVICE_InitGeneralModules(tagHW_ABILITY_S *pstHwAbi, tagCFG_FEATURE_GENERAL_S *pstGeneral);
BU_S32 APP_SERVICE_InitAvModules(tagHW_ABILITY_S *pstHwAbi, tagCFG_FEATURE_AV_S *pstAv);
BU_S32 APP_SERVICE_InitControlModules(tagHW_ABILITY_S *pstHwAbi, tagCFG_FEATURE_CONTROL_S *pstControl,
                                      tagBU_BOOL bSensorInitOk);
BU_S32 APP_SERVICE_InitMiscModules(tagHW_ABILITY_S *pstHwAbi);
BU_S32 APP_SERVICE_InitOver(tagCFG_FEATURE_LIST_S stFeatureList);
