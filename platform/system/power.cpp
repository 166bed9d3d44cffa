// Start of the running state, stand-by, language, clock.
#include "camera/power.h"
#include "board/lamp.h"
#include "camera/clock.h"
#include "camera/menu.h"
#include "camera/startup.h"
#include "camera/video.h"

#include "board/device.h"
#include "board/profile.h"
#include "lampManager.h"
#include "media/pipeline.h"
#include "motion/standby.h"
#include "settings/settings.h"
#include "store/store.h"
#include "util/file.h"
#include "util/journal.h"
#include "util/log.h"
#include "vocabulary/words.h"

#include <algorithm>

namespace
{
constexpr const BU_CHAR *ASLEEP_KEY = "Standby/Asleep";
constexpr const BU_CHAR *POWER_OFF_RECORD = "/var/ViscaCtrlPowerOff";

/// The pictures of the camera: its first two lens devices; a board that lists none has a picture all the same.
BU_S32 pictureCount()
{
    tagHW_ABILITY_S stAbility{};
    BSP_HW_ABI_GetHwAbility(&stAbility);
    return std::clamp(stAbility.stLens.s32DevCnt, 1, 2);
}

/// The power-off command that began stand-by is answered by the next start.
void handOverPowerOffRecord()
{
    if (UTIL_FILE_IsExist(POWER_OFF_RECORD)) UTIL_CMD_RunSafe("mv /var/ViscaCtrlPowerOff /app/ViscaCtrlPowerOn");
}
} // namespace

BU_S32 SYSTEM_API_InitializeGlobalVirableByXml()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    settings::reload();
    BU_S32 s32Asleep = BU_FALSE;
    if (CFG_STORE_GetInt(ASLEEP_KEY, &s32Asleep) == 0 && s32Asleep) {
        LOG_INFO("started from stand-by\n");
        handOverPowerOffRecord();
        CFG_STORE_SetInt(ASLEEP_KEY, BU_FALSE);
    }
    return 0;
}

BU_S32 SYSTEM_API_InitializeMppBusinessByXml(MPP_BUSINESS_CFG_S *pstCfg)
{
    if (const auto injected = journal::call(__func__)) return *injected;
    if (!pstCfg) return -1;
    pstCfg->s32PipeCnt = BSP_PROFILE_GetInt("sensor/count", pictureCount());
    pstCfg->s32Width = BSP_PROFILE_GetInt("sensor/width", 3840);
    pstCfg->s32Height = BSP_PROFILE_GetInt("sensor/height", 2160);
    pstCfg->enFormat = static_cast<HDMI_FORMAT_E>(settings::value(settings::SYSTEM_API_HdmiFormat));
    pstCfg->enFps = static_cast<HDMI_FPS_E>(settings::value(settings::SYSTEM_API_HdmiFps));
    pstCfg->bMirror = settings::value(settings::SYS_API_Mirror);
    pstCfg->bFlip = settings::value(settings::SYS_API_Flip);
    return 0;
}

BU_S32 SYSTEM_API_SleepAppService()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    if (motion::setStandby(true)) return 0;
    LOG_INFO("stand-by\n");
    CFG_STORE_SetInt(ASLEEP_KEY, BU_TRUE);
    lamp::triggerUpdate(LED_EVENT_FROM_E_SLEEP);
    return 0;
}

BU_S32 SYSTEM_API_WakeAppService()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    if (!motion::setStandby(false)) return -1;
    LOG_INFO("end of stand-by\n");
    CFG_STORE_SetInt(ASLEEP_KEY, BU_FALSE);
    handOverPowerOffRecord();
    return UTIL_CMD_RunSafe("reboot");
}

BU_BOOL SYSTEM_API_IsAsleep() { return motion::isStandby(); }

BU_S32 SYSTEM_API_SetLanguage(const BU_CHAR *pcWord, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, pcWord, bSaveCfg)) return *injected;
    return settings::set(settings::SYSTEM_API_Language, 0, vocabulary::valueOf<MAP_SYS_LANGUAGE>(pcWord), bSaveCfg,
                         BU_TRUE);
}

BU_S32 SYSTEM_API_SetEnableNTP(BU_BOOL bOn, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, bOn, bSaveCfg)) return *injected;
    return settings::set(settings::SYSTEM_API_NTPEnabled, 0, bOn, bSaveCfg, BU_TRUE);
}
