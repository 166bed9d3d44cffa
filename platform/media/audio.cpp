// The audio input, whose volume is a setting of the camera; its encoder; the outputs of the board.
#include "media/audio.h"

#include "camera/settingEvent.h"
#include "config/config.h"
#include "internal.h"
#include "util/journal.h"
#include "util/log.h"

#include <iterator>

namespace
{
constexpr BU_S32 INPUT = 0, NONE = -1, FORMAT_S16_LE = 0;
constexpr BU_S32 CHANNELS = 2, SAMPLE_RATE = 48000;
constexpr const BU_CHAR *VOLUME_KEY = "AudioVolume";

CFG_FEATURE_LIST_S features()
{
    CFG_FEATURE_LIST_S stList{};
    CFG_FEATURE_GetConfiguration(&stList);
    return stList;
}
bool hasAudio() { return features().stGeneral.bAudio; }

/// The outputs; the id of one is its place.
constexpr struct {
    AUDIO_DEV_TYPE_E enDev;
    decltype(&CFG_FEATURE_AV_S::stHdmi) pstIntf;
} OUTPUTS[] = {{AUDIO_DEV_ALSA, &CFG_FEATURE_AV_S::stHdmi}, {AUDIO_DEV_UAC, &CFG_FEATURE_AV_S::stUsb}};
bool hasOutput(BU_S32 s32Id)
{
    return s32Id >= 0 && s32Id < static_cast<BU_S32>(std::size(OUTPUTS)) &&
           (features().stAv.*OUTPUTS[s32Id].pstIntf).bSupport;
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

BU_S32 AUDIO_AENC_GetAttr(BU_S32 s32Id, AENC_ATTR_S &stAttr)
{
    if (const auto injected = journal::ask(__func__, s32Id)) return *injected;
    if (s32Id != INPUT || !hasAudio()) return AUDIO_AI_NOT_AVAILABLE;
    stAttr = {AUDIO_SOUND_MODE_STEREO, media::AUDIO_BIT_RATE / 1024};
    return 0;
}

BU_S32 AUDIO_AENC_GetStreamCacheId(AENC_TYPE_E enType)
{
    if (const auto injected = journal::ask(__func__, enType)) return *injected;
    return enType == AENC_TYPE_E_AAC && hasAudio() ? media::AUDIO_CACHE : NONE;
}

BU_S32 AUDIO_AO_GetIdByDevId(AUDIO_DEV_TYPE_E enDev)
{
    if (const auto injected = journal::ask(__func__, enDev)) return *injected;
    for (BU_S32 i = 0; i < static_cast<BU_S32>(std::size(OUTPUTS)); ++i)
        if (OUTPUTS[i].enDev == enDev && hasOutput(i)) return i;
    return NONE;
}

BU_S32 AUDIO_AO_SetEnable(BU_S32 s32Id, BU_BOOL bOn, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Id, bOn, bSaveCfg)) return *injected;
    if (!hasOutput(s32Id)) return -1;
    LOG_INFO("audio output %d is %s\n", s32Id, bOn ? "on" : "off");
    return 0;
}
