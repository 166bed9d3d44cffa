/// Configuration: ranges, texts, feature list. All calls: any thread. Records given back are filled
/// completely; on a result other than 0 they are untouched.
#pragma once

#include "base/types.h"
#include "config/feature.h"

struct CFG_VALUE_TXT_S {
    BU_CHAR acDef[64];
    BU_CHAR acCur[64];
};

/// The feature list of the board profile. @return 0, or -1: the profile is missing or faulty, see the log
BU_S32 CFG_FEATURE_GetConfiguration(tagCFG_FEATURE_LIST_S *pstList);

/// Opens the settings store of the device root, unless one is open, and checks its file.
/// @return 0, or -1: settings are kept in memory only
BU_S32 CFG_VerifyFileFormat();

/// Range and current value of an integer setting, by its key alone ("Gain"). @return 0, or -1: no such setting
BU_S32 CFG_COM_GetIntParams(const BU_CHAR *pcKey, CFG_VALUE_INT_S *pstRange);

/// Default and current text of a setting, by its key alone. @return 0, or -1: no such setting
BU_S32 CFG_COM_GetTxtParams(const BU_CHAR *pcKey, CFG_VALUE_TXT_S *pstValue);
/// Sets a setting from its text. @return 0, or -1: no such setting, or a text that it does not take
BU_S32 CFG_COM_SetTxtParams(const BU_CHAR *pcKey, const BU_CHAR *pcValue, BU_BOOL bSaveCfg);
/// The same by section and key. @param pcBuffer  64 bytes; longer texts are cut
BU_S32 CFG_COM_GetTxtParam(const BU_CHAR *pcSection, const BU_CHAR *pcKey, BU_CHAR *pcBuffer);
BU_S32 CFG_COM_SetTxtParam(const BU_CHAR *pcSection, const BU_CHAR *pcKey, const BU_CHAR *pcValue, BU_BOOL bSaveCfg);
