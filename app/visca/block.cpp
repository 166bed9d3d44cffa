// The block inquiry: many settings in one answer of 92 bytes.
#include "inquiry.h"
#include "replies.h"

#include "board/lamp.h"
#include "camera/menu.h"
#include "camera/picture.h"
#include "camera/sound.h"
#include "camera/video.h"
#include "util/log.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <utility>

using namespace visca;

namespace
{
using B = VISCA_MSG_TKV_BLOCK_STATUE_S;

template <BU_S32 (*Get)(BU_S32, BU_S32, BU_S32 *, BU_BOOL), BU_S32 Colour> BU_S32 colour(BU_S32 *ps32Value)
{
    return Get(0, Colour, ps32Value, BU_TRUE);
}
BU_S32 hueFromLeast(BU_S32 s32Hue) { return fromLeast(s32Hue, "RColorHue"); }

template <BU_S32 Value> BU_S32 always(BU_S32 *ps32Value) { return *ps32Value = Value, 0; }

BU_S32 askAutomations(BU_S32 *ps32Bits)
{
    const auto isOn = [](BU_S32 s32Value) { return s32Value != 0; };
    *ps32Bits = isOn(ask<ALG_API_GetAutoZoom>(BU_FALSE)) | isOn(ask<ALG_API_GetAutoTilt>(BU_FALSE)) << 1 |
                isOn(ask<ALG_API_GetAutoPan>(BU_FALSE)) << 2;
    return 0;
}
BU_S32 askMenu(BU_S32 *ps32Shown) { return *ps32Shown = CMD_MENU_GetMenuStatus() == 1, 0; }
BU_S32 askVideo(BU_S32 *ps32Video)
{
    *ps32Video = codes::video(ask<SYSTEM_API_GetHdmiFormat>(0xFF), ask<SYSTEM_API_GetHdmiFps>(0xFF));
    return 0;
}
BU_S32 askTallyMode(BU_S32 *ps32Value) { return LED_API_GetTallyMode("TallyLed", ps32Value, BU_FALSE); }

/// A place in the answer: some bits of the field. Byte 0 is a literal, so it stands for none.
struct Place {
    BU_U8 u8Offset = 0, u8Shift = 0, u8Mask = 0xFF;
};
/// A field of the block in the order of its trace: the question that fills it, its conversion, and its bytes.
struct BlockField {
    const BU_CHAR *pcName;
    BU_S32 B::*pField;
    PFN_QUESTION pfnAsk;
    PFN_CONVERT pfnConvert;
    Place astPlace[2];
    bool bHex = false; ///< traced in hexadecimal
};
#define FIELD(name) #name, &B::name
// clang-format off
constexpr BlockField FIELDS[] = {
    {FIELD(ExpMode),             question<ISP_API_GetAeMode>,               codeOf<codes::AE_MODES>,                                  {{1}}, true},
    {FIELD(GainLimit),           question<ISP_API_GetGainLimit>,            asRead,                                                   {{5}}},
    {FIELD(Gain),                question<ISP_API_GetGain>,                 asRead,                                                   {{6}}},
    {FIELD(ExpCompMode),         question<ISP_API_GetExpCompSwi>,           onOff,                                                    {{7}}},
    {FIELD(ExpCompLevel),        question<ISP_API_GetExpCompLevel>,         expCompPosition,                                          {{8}}},
    {FIELD(Iris),                question<ISP_API_GetIrisLevel>,            asRead,                                                   {{10}}},
    {FIELD(Shutter),             askShutterPosition,                        asRead,                                                   {{11}}},
    {FIELD(Bright),              question<ISP_API_GetExpBrightness>,        asRead,                                                   {{12}}},
    {FIELD(WbMode),              question<ISP_API_GetWbMode>,               codeOf<codes::WB_MODES>,                                  {{13}}},
    {FIELD(RGain),               question<ISP_API_GetRGain>,                asRead,                                                   {{14}}},
    {FIELD(BGain),               question<ISP_API_GetBGain>,                asRead,                                                   {{15}}},
    {FIELD(ColorTemp),           question<ISP_API_GetStWbMode>,             asRead,                                                   {{16}, {17, 8}}},
    {FIELD(Brightness),          question<ISP_API_GetBrightness>,           asRead,                                                   {{24}}},
    {FIELD(Sharpness),           question<ISP_API_GetSharpness>,            asRead,                                                   {{25}}},
    {FIELD(Flip),                question<SYS_API_GetFlip>,                 onOff,                                                    {{29}}},
    {FIELD(Mirror),              question<SYS_API_GetMirror>,               onOff,                                                    {{30}}},
    {FIELD(WideDynamic),         question<ISP_API_GetDrcSwi>,               onOff,                                                    {{31}}},
    {FIELD(Contrast),            question<ISP_API_GetContrast>,             asRead,                                                   {{32}}},
    {FIELD(AntiFlicker),         question<ISP_API_GetAntiFlicker>,          codeOf<codes::ANTI_FLICKERS>,                             {{34}}},
    {FIELD(TwoDNR),              question<ISP_API_Get2DNR>,                 asRead,                                                   {{35}}},
    {FIELD(ThreeDNR),            question<ISP_API_Get3DNR>,                 asRead,                                                   {{36}}},
    {FIELD(BackLight),           question<ISP_API_GetBackLight>,            onOff,                                                    {{41}}},
    {FIELD(Gamma),               question<ISP_API_GetGamma>,                asRead,                                                   {{43}}},
    {FIELD(Saturation),          question<ISP_API_GetSaturation>,           asRead,                                                   {{44}}},
    {FIELD(Hue),                 question<ISP_API_GetHue>,                  asRead,                                                   {{45}}},
    {FIELD(RedHue),              colour<ISP_API_GetColorHue, 1>,            hueFromLeast,                                             {{56}}},
    {FIELD(YellowHue),           colour<ISP_API_GetColorHue, 2>,            hueFromLeast,                                             {{57}}},
    {FIELD(GreenHue),            colour<ISP_API_GetColorHue, 3>,            hueFromLeast,                                             {{58}}},
    {FIELD(CayennHue),           colour<ISP_API_GetColorHue, 4>,            hueFromLeast,                                             {{59}}},
    {FIELD(BlueHue),             colour<ISP_API_GetColorHue, 5>,            hueFromLeast,                                             {{60}}},
    {FIELD(MagentaHue),          colour<ISP_API_GetColorHue, 6>,            hueFromLeast,                                             {{55}}},
    {FIELD(RedSat),              colour<ISP_API_GetColorSat, 1>,            asRead,                                                   {{50}}},
    {FIELD(YellowSat),           colour<ISP_API_GetColorSat, 2>,            asRead,                                                   {{51}}},
    {FIELD(GreenSat),            colour<ISP_API_GetColorSat, 3>,            asRead,                                                   {{52}}},
    {FIELD(CayennSat),           colour<ISP_API_GetColorSat, 4>,            asRead,                                                   {{53}}},
    {FIELD(BlueSat),             colour<ISP_API_GetColorSat, 5>,            asRead,                                                   {{54}}},
    {FIELD(MagentaSat),          colour<ISP_API_GetColorSat, 6>,            asRead,                                                   {{49}}},
    {FIELD(AiTrack),             question<ALG_API_GetEnable>,               onOff,                                                    {{61}}},
    {FIELD(AiMode),              question<ALG_API_GetTrackMode>,            codeOf<codes::TRACK_MODES>,                               {{62}}},
    {FIELD(AiHumanoidFrame),     question<ALG_API_GetDebug>,                onOff,                                                    {{63}}},
    {FIELD(AiTrackingHint),      question<ALG_API_GetTallyIndicator>,       onOff,                                                    {{64}}},
    {FIELD(AiAutomations),       askAutomations,                            asRead,                                                   {{65}}, true},
    {FIELD(AiLostTime),          question<ALG_API_GetLostTime>,             codeOf<codes::LOST_TIMES>,                                {{66}, {79}}},
    {FIELD(AiBodySize),          question<ALG_API_GetBodySize>,             asRead,                                                   {{67}}},
    {FIELD(AiBodySizeadjust),    question<ALG_API_GetBodySizeCustom>,       asRead,                                                   {{68}}},
    {FIELD(AiStartPos),          question<ALG_API_GetStartPos>,             codeOf<codes::START_POSITIONS>,                           {{69}}},
    {FIELD(AiCharacterPosition), question<ALG_API_GetPeoplePos>,            codeOf<codes::PLACEMENTS>,                                {{73}}},
    {FIELD(Focus),               question<AF_API_GetFocusAuto>,             onOff,                                                    {{70}}},
    {FIELD(Freeze),              question<SYS_API_GetImageFreeze, BU_TRUE>, onOff,                                                    {{71}}},
    {FIELD(Power),               always<VISCA_MSG_E_POWER_ON>,              asRead,                                                   {{72}}},
    {FIELD(MenuDisaply),         askMenu,                                   onOff,                                                    {{83}}},
    {FIELD(Mute),                question<SYS_API_GetAudioMute>,            onOff,                                                    {{84}}},
    {FIELD(VideoFormat),         askVideo,                                  codeOf<codes::VIDEO_FORMATS, &codes::Row::s32ViscaOther>, {{85}}, true},
    {FIELD(CameraVersion),       always<0x30>,                              asRead,                                                   {{86, 0, 0x0F}, {87, 0, 0xF0}}},
    {FIELD(Tally),               askTallyMode,                              codeOf<codes::TALLY_MODES>,                               {{88}}},
};
// clang-format on
#undef FIELD

// The answer: literal bytes, and fields laid over them.
constexpr std::size_t BLOCK_SIZE = 92;

constexpr std::array<BU_U8, BLOCK_SIZE> LITERALS = [] {
    std::array<BU_U8, BLOCK_SIZE> au8{};
    au8.fill(0x03);
    au8[0] = 0xEE;
    au8[90] = 0xA5;
    au8[91] = 0x5A;
    return au8;
}();

static_assert(
    [] {
        std::array<bool, BLOCK_SIZE> used{true};
        for (const BlockField &field : FIELDS)
            for (const Place &place : field.astPlace)
                if (place.u8Offset && std::exchange(used.at(place.u8Offset), true)) return false;
        return !used[90] && !used[91];
    }(),
    "a field a byte, inside the block");

void print(const B &st)
{
    std::string strLine;
    BU_CHAR acHex[12];
    for (const BlockField &field : FIELDS) {
        const BU_S32 s32Value = st.*field.pField;
        if (field.bHex) std::snprintf(acHex, sizeof(acHex), "0x%02X", s32Value);
        strLine.append(strLine.empty() ? "" : ", ").append(field.pcName).append("=");
        strLine += field.bHex ? acHex : std::to_string(s32Value);
    }
    UTIL_TRACE_Print("[Block Data] %s\n", strLine.c_str());
}
} // namespace

BU_S32 viscaInquiryBlockData(tagVISCA_CTRL_INFO_S *pstInfo)
{
    auto &st = pstInfo->stTkvBlockStatue;
    for (const BlockField &field : FIELDS) {
        BU_S32 s32Value = UNREAD;
        field.pfnAsk(&s32Value);
        s32Value = field.pfnConvert(s32Value);
        if (s32Value != UNREAD) st.*field.pField = s32Value;
    }
    print(st);
    return 0;
}

void visca::replyBlock(const I &st, ReplyWriter &writer)
{
    auto au8Block = LITERALS;
    for (const BlockField &field : FIELDS)
        for (const Place &place : field.astPlace)
            if (place.u8Offset)
                au8Block[place.u8Offset] =
                    static_cast<BU_U8>(st.stTkvBlockStatue.*field.pField >> place.u8Shift & place.u8Mask);
    for (const BU_U8 u8Byte : au8Block) writer.put(u8Byte);
}
