// The two-position switch that sets the remotes' address. A change of the switch sets the address; one set by other
// means stays until the switch changes next.
#include "board/gpio.h"
#include "camera/serial.h"
#include "input/input.h"
#include "util/log.h"
#include "util/thread.h"
#include "util/time.h"

#include <atomic>
#include <cerrno>
#include <memory>
#include <system_error>

namespace
{
constexpr BU_S32 POLL_MS = 1000;
constexpr BSP_GPIO_GETIDX SWITCH0{"IR-DIP-SWITCH0", BSP_GPIO_TYPE_PWR}, SWITCH1{"IR-DIP-SWITCH1", BSP_GPIO_TYPE_PWR};

std::atomic<BU_BOOL> bspIrEventLoopRunning{BU_FALSE};

/// The thread, none while it does not run. Leaked: it may still run when the process ends.
std::unique_ptr<util::Thread> &bspIrEventLoopThread()
{
    static auto *pThread = new std::unique_ptr<util::Thread>;
    return *pThread;
}

/// Takes the lines of the switch into use. @return whether both are there
bool openSwitch(BU_S32 &s32Gpio0, BU_S32 &s32Gpio1)
{
    s32Gpio0 = BSP_GetGpioNum(&SWITCH0);
    s32Gpio1 = BSP_GetGpioNum(&SWITCH1);
    if (s32Gpio0 < 0 || s32Gpio1 < 0) {
        UTIL_TRACE_Print("call BSP_GetGpioNum failed, ret:%d %d\n", s32Gpio0, s32Gpio1);
        return false;
    }
    const BU_S32 s32Ret0 = BSP_RequestGpioMode(s32Gpio0), s32Ret1 = BSP_RequestGpioMode(s32Gpio1);
    if (s32Ret0 < 0 || s32Ret1 < 0) {
        UTIL_TRACE_Print("call BSP_RequestGpioMode failed, ret:%d %d\n", s32Gpio0, s32Gpio1);
        return false;
    }
    BSP_SetGpioDir(s32Gpio0, IO_DIR_E_IN);
    BSP_SetGpioDir(s32Gpio1, IO_DIR_E_IN);
    return true;
}

void bspIrEventLoop()
{
    BU_U8 lastirid = 0;
    IR_API_GetAddr(&lastirid, BU_FALSE);
    BU_S32 s32Gpio0, s32Gpio1;
    if (!openSwitch(s32Gpio0, s32Gpio1)) return;
    while (bspIrEventLoopRunning) {
        UTIL_TIME_SleepMs(POLL_MS);
        const auto curirid = static_cast<BU_U8>(BSP_GetGpioValue(s32Gpio0) * 2 + BSP_GetGpioValue(s32Gpio1) + 1);
        if (curirid == lastirid) continue;
        IR_API_SetAddr(curirid, BU_TRUE, IRADDR_SWITCH_E_DIP);
        IR_API_GetAddr(&lastirid, BU_FALSE);
    }
}
} // namespace

BU_S32 BSP_DipSwitchIrIdInit()
{
    bspIrEventLoopRunning = BU_TRUE;
    try {
        bspIrEventLoopThread() =
            std::make_unique<util::Thread>("irDipSwitch", [](const std::stop_token &) { bspIrEventLoop(); });
        return 0;
    } catch (const std::system_error &error) {
        UTIL_TRACE_Print("%s failed, s32Ret = %d\n", __func__, error.code().value());
        return -1;
    }
}

BU_S32 BSP_DipSwitchIrIdDeinit()
{
    bspIrEventLoopRunning = BU_FALSE;
    if (!bspIrEventLoopThread()) {
        UTIL_TRACE_Print("Failed to join bspIrEventLoop thread, ret = %d\n", ESRCH);
        return -1;
    }
    bspIrEventLoopThread() = nullptr;
    return 0;
}
