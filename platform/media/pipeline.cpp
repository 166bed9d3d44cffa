// Bring-up of the media pipeline, and the configuration of its video outputs.
#include "media/pipeline.h"

#include "board/profile.h"
#include "camera/settingEvent.h"
#include "internal.h"
#include "util/journal.h"
#include "util/log.h"
#include "vencChannel.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace
{
constexpr BU_S32 OUTPUTS = 3, PIPES_MAX = 2;
constexpr BU_U32 SIZE_MAX_PIXELS = 8192;

struct OutputSize {
    BU_U32 u32Width, u32Height;
    BU_BOOL bInterlaced;
};
constexpr OutputSize SIZES[] = {
    {3840, 2160, BU_FALSE}, {1920, 1080, BU_FALSE}, {1920, 1080, BU_TRUE}, {1280, 720, BU_FALSE}};
static_assert(std::size(SIZES) == HDMI_FORMAT_E_BUTT);
constexpr BU_S32 RATES[] = {60, 59940, 50, 30, 29970, 25, 24, 23980};
static_assert(std::size(RATES) == HDMI_FPS_E_BUTT);

/// The keys of the settings that an output follows.
struct OutputKeys {
    const BU_CHAR *pcFormat, *pcFps, *pcCs;
};
constexpr OutputKeys SDI{"SdiFormat", "SdiFps", "SdiCs"}, HDMI{"Format", "Fps", "HdmiCs"};
const OutputKeys &keysOf(BU_S32 enOut) { return enOut == MPP_VOUT_ID_0 ? SDI : HDMI; }

struct Pipeline {
    std::mutex lock; // guards all members
    std::vector<BU_S32 (*)(void *)> beforeInit;
    bool bUp = false;
    std::array<std::optional<MPP_VOUT_CFG_S>, OUTPUTS> ownCfg; // set by MPP_SetVoutCfg
};
Pipeline &pipeline()
{
    static auto *pstPipeline = new Pipeline;
    return *pstPipeline;
}

bool isOutput(BU_S32 enOut) { return enOut >= 0 && enOut < OUTPUTS; }

MPP_VOUT_CFG_S cfgOfSettings(BU_S32 enOut)
{
    BU_S32 enFormat = HDMI_FORMAT_E_1080P, enFps = HDMI_FPS_E_FPS60, enCs = HDMI_CS_E_YUV422;
    CFG_SETTING_Get(keysOf(enOut).pcFormat, 0, &enFormat, BU_FALSE);
    CFG_SETTING_Get(keysOf(enOut).pcFps, 0, &enFps, BU_FALSE);
    CFG_SETTING_Get(keysOf(enOut).pcCs, 0, &enCs, BU_FALSE);
    const OutputSize &stSize = SIZES[enFormat];
    return {{stSize.u32Width, stSize.u32Height}, RATES[enFps], stSize.bInterlaced, enCs};
}

/// The sensors run at the rate of the HDMI output.
void followOutputRate()
{
    MPP_VOUT_CFG_S stCfg{};
    if (MPP_GetVoutCfg(MPP_VOUT_ID_2, &stCfg) != 0) return;
    if (const auto stRate = media::FrameRate::ofCode(stCfg.s32Fps)) media::setOutputRate(*stRate);
}

/// A change of its format ends what MPP_SetVoutCfg gave to an output.
void followSettings()
{
    static const BU_S32 s32Listener = CFG_SETTING_Listen([](const CFG_SETTING_EVENT_S &stEvent) {
        const std::string_view strKey = stEvent.pcKey;
        {
            const std::lock_guard guard(pipeline().lock);
            for (BU_S32 i = 0; i < OUTPUTS; ++i) {
                const OutputKeys &stKeys = keysOf(i);
                if (strKey == stKeys.pcFormat || strKey == stKeys.pcFps || strKey == stKeys.pcCs)
                    pipeline().ownCfg[static_cast<std::size_t>(i)].reset();
            }
        }
        if (strKey == HDMI.pcFps) followOutputRate();
    });
    static_cast<void>(s32Listener);
}

bool isPossible(const MPP_VOUT_CFG_S &stCfg)
{
    return stCfg.stResolution.u32Width - 1 < SIZE_MAX_PIXELS && stCfg.stResolution.u32Height - 1 < SIZE_MAX_PIXELS &&
           std::ranges::find(RATES, stCfg.s32Fps) != std::end(RATES);
}
} // namespace

std::string journalText(const MPP_VOUT_CFG_S &stCfg)
{
    return std::to_string(stCfg.stResolution.u32Width) + 'x' + std::to_string(stCfg.stResolution.u32Height) +
           (stCfg.bInterlaced ? "i" : "p") + std::to_string(stCfg.s32Fps);
}

BU_S32 MPP_RegisterBeforeInit(BU_S32 (*pfnCb)(void *))
{
    if (const auto injected = journal::call(__func__, pfnCb != nullptr)) return *injected;
    if (!pfnCb) return -1;
    const std::lock_guard guard(pipeline().lock);
    pipeline().beforeInit.push_back(pfnCb);
    return 0;
}

BU_S32 MPP_InitCfg(MPP_BUSINESS_CFG_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, pstCfg != nullptr)) return *injected;
    if (!pstCfg || pstCfg->s32PipeCnt < 1 || pstCfg->s32PipeCnt > PIPES_MAX || pstCfg->s32Width < 1 ||
        pstCfg->s32Height < 1)
        return -1;
    std::vector<BU_S32 (*)(void *)> beforeInit;
    {
        const std::lock_guard guard(pipeline().lock);
        beforeInit = pipeline().beforeInit;
    }
    for (const auto pfnCb : beforeInit)
        if (pfnCb(pstCfg) != 0) return -1;
    followSettings();
    media::setPipeCount(pstCfg->s32PipeCnt);
    followOutputRate();
    LOG_INFO("media pipeline is up: %d sensors, %d x %d\n", pstCfg->s32PipeCnt, pstCfg->s32Width, pstCfg->s32Height);
    const std::lock_guard guard(pipeline().lock);
    pipeline().bUp = true;
    return 0;
}

BU_S32 MPP_InitStream()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    {
        const std::lock_guard guard(pipeline().lock);
        if (!pipeline().bUp) return -1;
    }
    media::startChannels();
    media::startPipes();
    media::startAudio();
    media::openVencConsole();
    return 0;
}

BU_S32 MPP_GetVoutCfg(MPP_VOUT_ID enOut, MPP_VOUT_CFG_S *pstCfg)
{
    if (const auto injected = journal::ask(__func__, enOut)) return *injected;
    if (!isOutput(enOut) || !pstCfg) return -1;
    *pstCfg = cfgOfSettings(enOut);
    const std::lock_guard guard(pipeline().lock);
    if (const auto &ownCfg = pipeline().ownCfg[static_cast<std::size_t>(enOut)]) *pstCfg = *ownCfg;
    return 0;
}

BU_S32 MPP_SetVoutCfg(MPP_VOUT_ID enOut, const MPP_VOUT_CFG_S *pstCfg)
{
    if (const auto injected = journal::call(__func__, enOut, pstCfg)) return *injected;
    if (!isOutput(enOut) || !pstCfg || !isPossible(*pstCfg)) return -1;
    followSettings();
    {
        const std::lock_guard guard(pipeline().lock);
        pipeline().ownCfg[static_cast<std::size_t>(enOut)] = *pstCfg;
    }
    if (enOut == MPP_VOUT_ID_2) followOutputRate();
    return 0;
}

BU_S32 MPP_SwitchVoutVideo(MPP_VOUT_ID enOut, BU_BOOL bOn)
{
    if (const auto injected = journal::call(__func__, enOut, bOn)) return *injected;
    return isOutput(enOut) ? 0 : -1;
}

BU_S32 MPP_GetHdmiDistributor(MPP_HDMI_DISTRIBUTOR_TYPE_E enType)
{
    constexpr BU_S32 NONE = 255;
    constexpr const BU_CHAR *KEYS[] = {"hdmi", "3gSdi", "ca12gSdi", "ym12gSdi", "fullNdi"};
    static_assert(std::size(KEYS) == MPP_HDMI_DISTRIBUTOR_MAX);
    if (const auto injected = journal::ask(__func__, enType)) return *injected;
    if (enType < 0 || enType >= MPP_HDMI_DISTRIBUTOR_MAX) return NONE;
    return BSP_PROFILE_GetInt((std::string("hdmiDistributor/") + KEYS[enType]).c_str(), NONE);
}

BU_S32 MPP_IsChangeHdmiEdid() { return journal::ask(__func__).value_or(0); }
