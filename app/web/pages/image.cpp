// Image panel of either pipe.
#include "camera/image.h"
#include "camera/focus.h"
#include "camera/picture.h"
#include "camera/preset.h"
#include "panel.h"
#include "util/log.h"

namespace
{
using namespace web;

constexpr BU_S32 PANORAMA = 1;

BU_S32 one(BU_S32, BU_S32 *ps32Value, BU_BOOL)
{
    *ps32Value = 1;
    return 0;
}

/// Asking for the item starts a measurement; it has no value.
BU_S32 pushOnce(BU_S32 s32Pipe, BU_S32 *, BU_BOOL bReread)
{
    BU_BOOL bDone = BU_FALSE;
    return ISP_API_TriggerAwbOnePush(s32Pipe, &bDone, bReread);
}

void setOnePush(BU_S32 s32Pipe, const Request &req, Response &)
{
    ISP_API_SetOnePushAwb(s32Pipe, req.s32Value0, BU_TRUE, BU_TRUE);
    UTIL_TRACE_Print("ISP_API_SetOnePushAwb ok");
}

void setAutoIris(BU_S32 s32Pipe, const Request &req, Response &)
{
    ISP_API_SetAutoIrisSwi(s32Pipe, req.s32Value0, BU_TRUE, BU_TRUE);
    UTIL_TRACE_Print("=======ISP_API_SetAutoIrisSwi=========");
}

void resetImage(BU_S32 s32Pipe, const Request &, Response &)
{
    TRACE("===== isp reset =====\n");
    ISP_API_Reset(s32Pipe);
}

void setHdr(BU_S32, const Request &req, Response &)
{
    TRACE("===== isp hdr =====req->s32Value0 =%d\n", req.s32Value0);
    SYS_API_SetHdrSwi(req.s32Value0, BU_TRUE, BU_TRUE);
}

void onImagePreset(BU_S32, const Request &req, Response &res)
{
    enum { SAVE, RECALL, DELETE };
    const BU_S32 s32Preset = req.s32Value1;
    switch (req.s32Value0) {
    case SAVE:
        res.s32Value = IMAGEPRESET_API_SetCur(s32Preset, "");
        return;
    case RECALL:
        IMAGE_PRESET_API_GotoById(s32Preset, PT_CTRL_E_FROM_OTHER, nullptr);
        return;
    case DELETE:
        res.s32Value = IMAGE_PRESET_API_DeleteById(s32Preset);
        return;
    default:
        return;
    }
}

/// When an item can be operated: in these exposure and white-balance modes (bit n is mode n), while a switch is on.
struct Rule {
    BU_U32 u32Ae = ~0U, u32Wb = ~0U;
    bool bCloseUpOnly = false;
    Get pfnSwitch = nullptr;
};
template <class... M> constexpr BU_U32 modes(M... enMode) { return ((1U << enMode) | ...); }

constexpr Rule ALWAYS;
constexpr Rule CLOSE_UP{.bCloseUpOnly = true};
constexpr Rule AE_AUTO{.u32Ae = modes(AE_MODE_E_AUTO)};
constexpr Rule AE_SHUTTER{.u32Ae = modes(AE_MODE_E_SHUTTER, AE_MODE_E_MANUAL)};
constexpr Rule AE_IRIS{.u32Ae = modes(AE_MODE_E_IRIS, AE_MODE_E_MANUAL), .bCloseUpOnly = true};
constexpr Rule AE_FREE_IRIS{.u32Ae = ~AE_IRIS.u32Ae, .bCloseUpOnly = true};
constexpr Rule WB_AUTO{.u32Wb = modes(WB_MODE_E_AUTO)};
constexpr Rule WB_MANUAL{.u32Wb = modes(WB_MODE_E_MANUAL)};

struct ImageItem {
    Item stItem;
    Rule stRule = ALWAYS;
};

// The two modes themselves, items 4 and 22, are read for every get.
constexpr BU_S32 AE_MODE_ITEM = 4, WB_MODE_ITEM = 22;
constexpr BU_U64 EXPOSURE_ITEMS = webItems(4, 16) | webItems(18, 19);
constexpr BU_U64 WHITE_BALANCE_ITEMS = webItems(22, 31) | webItems(33);

constexpr ImageItem ITEMS[] = {
    {{1, one}},
    {{2, ISP_API_GetExposureFullViewFollow, set<ISP_API_SetExposureFullViewFollow>}},
    {{3, ISP_API_GetNDFilter, set<ISP_API_SetNDFilter>}, CLOSE_UP},
    {{AE_MODE_ITEM, nullptr, set<ISP_API_SetAeMode>, EXPOSURE_ITEMS}},
    {{5, ISP_API_GetAeMeterMode, set<ISP_API_SetAeMeterMode>}, AE_AUTO},
    {{6, ISP_API_GetAntiFlicker, set<ISP_API_SetAntiFlicker>}, AE_AUTO},
    {{7, ISP_API_GetBackLight, set<ISP_API_SetBackLight>}, AE_AUTO},
    {{8, ISP_API_GetExpCompSwi, set<ISP_API_SetExpCompSwi>, webItems(9)}, AE_AUTO},
    {{9, ISP_API_GetExpCompLevel, set<ISP_API_SetExpCompLevel>},
     {.u32Ae = modes(AE_MODE_E_AUTO), .pfnSwitch = ISP_API_GetExpCompSwi}},
    {{10, ISP_API_GetGain, set<ISP_API_SetGain>}, {.u32Ae = modes(AE_MODE_E_MANUAL)}},
    {{11, ISP_API_GetGainLimit, set<ISP_API_SetGainLimit>}, {.u32Ae = modes(AE_MODE_E_AUTO, AE_MODE_E_SHUTTER)}},
    {{12, ISP_API_GetShutter, set<ISP_API_SetShutter>}, AE_SHUTTER},
    {{13, ISP_API_GetIrisLevel, set<ISP_API_SetIrisLevel>}, AE_IRIS},
    {{14, ISP_API_GetIrisLevel, set<ISP_API_SetIrisLevel>}, AE_IRIS},
    {{15, ISP_API_GetExpBrightness, set<ISP_API_SetExpBrightness>}, {.u32Ae = modes(AE_MODE_E_BRIGHT)}},
    {{16, ISP_API_GetAutoIrisSwi, setAutoIris}, AE_FREE_IRIS},
    {{18, ISP_API_GetShutterMode, set<ISP_API_SetShutterMode>, 0, BU_TRUE}, AE_SHUTTER},
    {{19, ISP_API_GetShutterValue, set<ISP_API_SetShutterValue>, 0, BU_TRUE}, AE_SHUTTER},
    {{20, one}},
    {{21, ISP_API_GetWhiteBalanceFullViewFollow, set<ISP_API_SetWhiteBalanceFullViewFollow>}},
    {{WB_MODE_ITEM, nullptr, set<ISP_API_SetWbMode>, WHITE_BALANCE_ITEMS}},
    {{23, ISP_API_GetRGain, set<ISP_API_SetRGain>}, WB_MANUAL},
    {{24, ISP_API_GetBGain, set<ISP_API_SetBGain>}, WB_MANUAL},
    {{25, ISP_API_GetGGain, set<ISP_API_SetGGain>}, WB_MANUAL},
    {{26, ISP_API_GetRStrength, set<ISP_API_SetRStrength>}, WB_AUTO},
    {{27, ISP_API_GetGStrength, set<ISP_API_SetGStrength>}, WB_AUTO},
    {{28, ISP_API_GetBStrength, set<ISP_API_SetBStrength>}, WB_AUTO},
    {{29, ISP_API_GetAwbSensitivity, set<ISP_API_SetAwbSensitivity>}, WB_AUTO},
    {{30, ISP_API_GetHue, set<ISP_API_SetHue>}},
    {{31, pushOnce, setOnePush}, {.u32Wb = modes(WB_MODE_E_ONE_PUSH)}},
    {{33, ISP_API_GetStWbMode, set<ISP_API_SetStWbMode>}, {.u32Wb = modes(WB_MODE_E_STATIC)}},
    {{35, ISP_API_GetIspBinUsage, set<ISP_API_SetIspBinUsage>}},
    {{36, ISP_API_GetMonoChromeSwi, set<ISP_API_SetMonoChromeSwi>}},
    {{38, ISP_API_GetSharpness, set<ISP_API_SetSharpness>}},
    {{39, ISP_API_GetBrightness, set<ISP_API_SetBrightness>}},
    {{40, ISP_API_GetContrast, set<ISP_API_SetContrast>}},
    {{41, ISP_API_GetSaturation, set<ISP_API_SetSaturation>}},
    {{42, ISP_API_GetGamma, set<ISP_API_SetGamma>}},
    {{43, ISP_API_Get2DNR, set<ISP_API_Set2DNR>}},
    {{44, ISP_API_Get3DNR, set<ISP_API_Set3DNR>}},
    {{45, ISP_API_GetDrcSwi, set<ISP_API_SetDrcSwi>, webItems(46)}},
    {{46, ISP_API_GetDrcMode, set<ISP_API_SetDrcMode>}, {.pfnSwitch = ISP_API_GetDrcSwi}},
    {{47, cameraGet<SYS_API_GetMirror>, cameraSet<SYS_API_SetMirror>}},
    {{48, cameraGet<SYS_API_GetFlip>, cameraSet<SYS_API_SetFlip>}},
    {{49, nullptr, resetImage}},
    {{50, cameraGet<SYS_API_GetImageFreeze>, cameraSet<SYS_API_SetImageFreeze>}},
    {{51, cameraGet<AF_API_GetDistortionCorrection>, cameraSet<AF_API_SetDistortionCorrection>, 0, BU_TRUE}},
    {{52, cameraGet<SYS_API_GetHdrSwi>, setHdr, 0, BU_TRUE}},
    {{55, nullptr, onImagePreset}},
};

const ImageItem *find(BU_S32 s32Item)
{
    const auto row = std::ranges::find_if(ITEMS, [&](const auto &stRow) { return stRow.stItem.s32Item == s32Item; });
    return row == std::end(ITEMS) ? nullptr : &*row;
}

bool isIn(BU_U32 u32Modes, BU_S32 s32Mode) { return s32Mode >= 0 && s32Mode < 32 && (u32Modes >> s32Mode & 1U) != 0; }

bool isEnabled(const Rule &stRule, BU_S32 s32Pipe, BU_S32 s32Ae, BU_S32 s32Wb)
{
    BU_S32 s32Switch = BU_TRUE;
    if (stRule.pfnSwitch) {
        s32Switch = BU_FALSE;
        stRule.pfnSwitch(s32Pipe, &s32Switch, BU_FALSE);
    }
    return s32Switch && isIn(stRule.u32Ae, s32Ae) && isIn(stRule.u32Wb, s32Wb) &&
           !(stRule.bCloseUpOnly && s32Pipe == PANORAMA);
}

void webRpcGetIspHandler(Request *req, Response *res)
{
    const BU_S32 s32Item = req->s32EventType, s32Pipe = req->s32Id;
    UTIL_TRACE_Print("-- Isp Get %d\n", s32Item);
    res->bEnabled = BU_TRUE;
    BU_S32 s32Ae = AE_MODE_E_AUTO, s32Wb = WB_MODE_E_AUTO;
    ISP_API_GetAeMode(s32Pipe, &s32Ae, BU_FALSE);
    ISP_API_GetWbMode(s32Pipe, &s32Wb, BU_FALSE);
    const ImageItem *pstRow = find(s32Item);
    if (!pstRow) return;
    res->bEnabled = isEnabled(pstRow->stRule, s32Pipe, s32Ae, s32Wb);
    if (s32Item == AE_MODE_ITEM)
        res->s32Value = s32Ae;
    else if (s32Item == WB_MODE_ITEM)
        res->s32Value = s32Wb;
    else
        answerGet(&pstRow->stItem, s32Pipe, *res);
}

void webRpcSetIspHandler(Request *req, Response *res)
{
    const ImageItem *pstRow = find(req->s32EventType);
    if (pstRow) answerSet(&pstRow->stItem, req->s32Id, *req, *res);
}

constexpr void (*EVENTS[])() = {WEB_RPC_RegisterHandler<WEB_RPC_EVENT_GROUP_E_GET_ISP, webRpcGetIspHandler>,
                                WEB_RPC_RegisterHandler<WEB_RPC_EVENT_GROUP_E_SET_ISP, webRpcSetIspHandler>};
} // namespace

const web::Page web::IMAGE{EVENTS};
