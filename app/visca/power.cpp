// Power off and on: the command that put the camera to sleep is answered after it has come up again.
#include "handlers.h"

#include "camera/power.h"
#include "util/file.h"
#include "util/log.h"
#include "util/thread.h"
#include "util/time.h"

#include <cstdlib>
#include <cstring>
#include <memory>

namespace
{
constexpr BU_S64 ANSWER_DELAY_MS = 5000;
constexpr const BU_CHAR *POWER_OFF_FILE = "/var/ViscaCtrlPowerOff", *POWER_ON_FILE = "/app/ViscaCtrlPowerOn";

void answerPowerOff()
{
    BU_CHAR *pcBuf = nullptr;
    BU_S32 s32Size = 0;
    if (UTIL_FILE_ReadFileToBuf(POWER_ON_FILE, &pcBuf, &s32Size) != 0) {
        TRACE("bspReadFileToBuf error\n");
        return;
    }
    const std::unique_ptr<BU_CHAR, decltype(&std::free)> buf(pcBuf, std::free);
    tagVISCA_CTRL_INFO_S stInfo;
    if (s32Size < static_cast<BU_S32>(sizeof(stInfo))) return;
    std::memcpy(&stInfo, buf.get(), sizeof(stInfo));
    VISCA_CtrlMsgReturn(&stInfo, BU_TRUE);
}
} // namespace

BU_S32 viscaCtrlPower(tagVISCA_CTRL_INFO_S *pstInfo)
{
    if (pstInfo->enPowerCtrl != VISCA_MSG_E_POWER_OFF) {
        TRACE("%d\n", pstInfo->enPowerCtrl);
        return 0;
    }
    UTIL_FILE_WriteBufToFile(POWER_OFF_FILE, pstInfo, sizeof(*pstInfo));
    SYSTEM_API_SleepAppService();
    return 1;
}

BU_S32 viscaCtrlPowerReturnMsg()
{
    UTIL_THREAD_RunFuncAsync(
        [](void *) {
            if (!UTIL_FILE_IsExist(POWER_ON_FILE)) return;
            UTIL_TIME_SleepMs(ANSWER_DELAY_MS);
            answerPowerOff();
            UTIL_CMD_RunSafe("rm /app/ViscaCtrlPowerOn -f");
        },
        nullptr);
    return 0;
}
