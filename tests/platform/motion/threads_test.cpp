// Many commanders at once in real time, and what a command costs.
#include "motionTest.h"
#include "support/await.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <thread>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
#define COUNTS_ALLOCATIONS 0
#else
#define COUNTS_ALLOCATIONS 1
static thread_local BU_U64 g_u64Allocations;

[[gnu::noinline]] void *operator new(std::size_t size)
{
    ++g_u64Allocations;
    if (void *pv = std::malloc(size)) return pv;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void *pv) noexcept { std::free(pv); }
[[gnu::noinline]] void operator delete(void *pv, std::size_t) noexcept { std::free(pv); }
#endif

namespace
{
using namespace std::chrono_literals;

/// Data of the size that a protocol hands over.
struct tagCOMMAND_S {
    std::array<BU_U8, 868> au8Filler;
    BU_S32 s32Number;
};
std::atomic<BU_S32> g_s32Awaited, g_s32Damaged; // reports
BU_S32 onEnd(void *pvPrivate, BU_BOOL)
{
    const auto &st = *static_cast<tagCOMMAND_S *>(pvPrivate);
    g_s32Damaged += std::ranges::count(st.au8Filler, static_cast<BU_U8>(st.s32Number)) != 868;
    --g_s32Awaited;
    return 0;
}

struct MotionThreads : FreshDevice {
    MotionThreads()
    {
        BSP_PTProcInit(0, nullptr);
        ZF_API_StartService();
        const PT_CTRL_CALL_FUNC_S st{PT_CTRL_E_FROM_VISCA, onEnd, sizeof(tagCOMMAND_S)};
        BSP_PTRegisterRetCallFunc(0, PT_CTRL_E_FROM_VISCA, &st);
        BSP_ZFRegisterRetCallFunc(ZF_CTRL_E_FROM_VISCA, &st);
        PRESET_API_RegisterSuperseded(PT_CTRL_E_FROM_VISCA, nullptr);
    }
};

TEST_F(MotionThreads, EveryMoveOfManyCommandersEndsOnceWithItsOwnData)
{
    const auto commander = [](BU_S32 s32Thread) {
        for (BU_S32 i = 0; i < 300; ++i) {
            tagCOMMAND_S stData{};
            stData.s32Number = s32Thread * 50 + i;
            stData.au8Filler.fill(static_cast<BU_U8>(stData.s32Number));
            PT_MOTION_CTRL_S stHead{};
            stHead.enMotionType = i % 3 ? PT_MOTION_E_ABS_POS : PT_MOTION_E_LEFT;
            stHead.stPos = {static_cast<BU_U32>(540000 + i), 540000};
            ++g_s32Awaited; // before the call: the end may come before it returns
            if (BSP_PTCtrlMotion(PT_CTRL_E_FROM_VISCA, &stHead, &stData) != 1) --g_s32Awaited;
            ZF_MOTION_CTRL_S stLens{};
            stLens.enMotionType = static_cast<ZF_MOTION_TYPE_E>(i % 9);
            stLens.u32ZoomPos = static_cast<BU_U32>(i);
            stLens.u32FocusPos = static_cast<BU_U32>(300 + i);
            ++g_s32Awaited;
            if (BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_VISCA, &stLens, &stData) != 1) --g_s32Awaited;
            if (i % 50 == 0) AF_API_SetFocusAuto(0, i / 50 % 2, BU_FALSE, BU_TRUE);
            PRESET_API_SetCur(s32Thread, "");
            PRESET_API_GotoById(s32Thread, PT_CTRL_E_FROM_ALG, nullptr);
        }
    };
    {
        std::vector<std::jthread> threads;
        for (BU_S32 i = 0; i < 4; ++i) threads.emplace_back(commander, i);
    }
    PT_MOTION_CTRL_S stStop{};
    stStop.enMotionType = PT_MOTION_E_STOP;
    BSP_PTCtrlMotion(PT_CTRL_E_FROM_REMOTE, &stStop, nullptr);
    EXPECT_TRUE(await([] { return g_s32Awaited == 0; }, 20s)) << g_s32Awaited << " reports are missing";
    EXPECT_EQ(g_s32Damaged, 0);
}

TEST_F(MotionThreads, JoystickCommandsAllocateNothing)
{
#if !COUNTS_ALLOCATIONS
    GTEST_SKIP() << "allocations are the sanitizer's here";
#else
    tagCOMMAND_S stData{};
    PT_MOTION_CTRL_S stHead{};
    ZF_MOTION_CTRL_S stLens{};
    const auto joystick = [&](BU_S32 i) {
        stHead.enMotionType = static_cast<PT_MOTION_TYPE_E>(i % (PT_MOTION_E_STOP + 1));
        PT_API_CalcMotionType(&stHead.enMotionType);
        PT_API_CalcMotionSpeed(PT_CTRL_E_FROM_VISCA, &stHead, i % 24, i % 24);
        BSP_PTCtrlMotion(PT_CTRL_E_FROM_VISCA, &stHead, &stData);
        stLens.enMotionType = static_cast<ZF_MOTION_TYPE_E>(i % (ZF_E_ZOOM_WIDE + 1));
        BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_VISCA, &stLens, &stData);
        PT_POS_S stPos{};
        BSP_PTGetCurPos(0, &stPos, PT_DEV_TYPE_PAN_TILE_E);
    };
    joystick(0);
    const BU_U64 u64Before = g_u64Allocations;
    for (BU_S32 i = 0; i < 1000; ++i) joystick(i);
    EXPECT_EQ(g_u64Allocations, u64Before);
#endif
}
} // namespace
