// The audio input. Its volume is a setting of the camera.
#include "media/audio.h"

#include "camera/settingEvent.h"
#include "camera/system.h"
#include "config/config.h"
#include "util/journal.h"
#include "util/log.h"

namespace
{
constexpr BU_S32 INPUT = 0, NONE = -1, FORMAT_S16_LE = 0;
constexpr BU_S32 CHANNELS = 2, SAMPLE_RATE = 48000;
constexpr const BU_CHAR *VOLUME_KEY = "AudioVolume";

bool hasAudio()
{
    CFG_FEATURE_LIST_S stList{};
    return CFG_FEATURE_GetConfiguration(&stList) == 0 && stList.stGeneral.bAudio;
}
} // namespace

std::string journalText(const tagAI_ATTR_S &stAttr) { return "volume " + std::to_string(stAttr.s32Volume); }

BU_S32 AUDIO_InitCfg(BU_S32 enFormat)
{
    if (const auto injected = journal::call(__func__, enFormat)) return *injected;
    if (enFormat == FORMAT_S16_LE) return 0;
    LOG_ERROR("sample format %d is not one of this camera\n", enFormat);
    return -1;
}

BU_S32 AUDIO_AI_GetFirstEnabledId()
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return hasAudio() ? INPUT : NONE;
}

BU_S32 AUDIO_AI_GetAttr(BU_S32 s32Id, tagAI_ATTR_S *pstAttr)
{
    if (const auto injected = journal::ask(__func__, s32Id)) return *injected;
    if (s32Id != INPUT || !hasAudio()) return AUDIO_AI_NOT_AVAILABLE;
    if (!pstAttr) return -1;
    *pstAttr = {0, CHANNELS, SAMPLE_RATE};
    return CFG_SETTING_Get(VOLUME_KEY, 0, &pstAttr->s32Volume, BU_FALSE);
}

BU_S32 AUDIO_AI_GetDefAttr(BU_S32 s32Id, tagAI_ATTR_S *pstAttr)
{
    if (const auto injected = journal::ask(__func__, s32Id)) return *injected;
    if (s32Id != INPUT || !hasAudio()) return AUDIO_AI_NOT_AVAILABLE;
    CFG_VALUE_INT_S stRange{};
    if (!pstAttr || CFG_COM_GetIntParams(VOLUME_KEY, &stRange) != 0) return -1;
    *pstAttr = {stRange.s32Def, CHANNELS, SAMPLE_RATE};
    return 0;
}

BU_S32 AUDIO_AI_SetAttr(BU_S32 s32Id, const tagAI_ATTR_S *pstAttr, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Id, pstAttr, bSaveCfg)) return *injected;
    if (s32Id != INPUT || !hasAudio()) return AUDIO_AI_NOT_AVAILABLE;
    return pstAttr ? CFG_SETTING_Set(VOLUME_KEY, 0, pstAttr->s32Volume, bSaveCfg, BU_TRUE) : -1;
}
