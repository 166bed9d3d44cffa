// The block inquiry: many settings in one answer of 92 bytes.
#include "visca/viscaInquiry.h"
#include "visca/viscaReplies.h"

#include "camera/menu.h"
#include "camera/system.h"
#include "camera/systemService.h"
#include "util/log.h"

#include <algorithm>
#include <array>

using namespace visca;

namespace
{
using B = VISCA_MSG_TKV_BLOCK_STATUE_S;

constexpr tagVISCA_MAP_S AI_MODES[] = {{TRACK_MODE_E_EVERYWHERE_TRACKING, 2},
                                       {TRACK_MODE_E_ZONE_TRACKING, VISCA_MSG_E_AUTO_TRACKING_ZONE},
                                       {TRACK_MODE_E_AUTO_FRAMEING, VISCA_MSG_E_AUTO_TRACKING_AUTOFRAM},
                                       {TRACK_MODE_E_DUAL_TRACKING, VISCA_MSG_E_AUTO_TRACKING_DUAL},
                                       {TRACK_MODE_E_STAGE_TRACKING, VISCA_MSG_E_AUTO_TRACKING_STAGE}};
constexpr tagVISCA_MAP_S START_POSITIONS[] = {{TRACK_LOST_ACTION_E_PRESET_HOME, 0},
                                              {TRACK_LOST_ACTION_E_PRESET_0, 1},
                                              {TRACK_LOST_ACTION_E_PRESET_1, 2},
                                              {TRACK_LOST_ACTION_E_NONE, 3}};

/// The lost time of tracking: steps of two seconds.
constexpr BU_S32 lostSeconds(BU_S32 s32Step) { return s32Step == UNREAD ? UNREAD : (s32Step + 1) * 2; }

BU_S32 askTallyMode(BU_S32 *ps32Value) { return LED_API_GetTallyMode("TallyLed", ps32Value, BU_FALSE); }

/// A field that is one question and one conversion.
struct tagBLOCK_FIELD_S {
    BU_S32 B::*pField;
    PFN_QUESTION pfnAsk;
    PFN_CONVERT pfnConvert = asRead;
};
constexpr tagBLOCK_FIELD_S BLOCK_FIELDS[] = {
    {&B::ExpMode, question<ISP_API_GetAeMode>, mapped<AE_MODES>},
    {&B::GainLimit, question<ISP_API_GetGainLimit>},
    {&B::Gain, question<ISP_API_GetGain>},
    {&B::ExpCompMode, question<ISP_API_GetExpCompSwi>, onOff},
    {&B::Iris, question<ISP_API_GetIrisLevel>},
    {&B::Bright, question<ISP_API_GetExpBrightness>},
    {&B::WbMode, question<ISP_API_GetWbMode>, mapped<WB_MODES>},
    {&B::RGain, question<ISP_API_GetRGain>},
    {&B::BGain, question<ISP_API_GetBGain>},
    {&B::ColorTemp, question<ISP_API_GetStWbMode>},
    {&B::Brightness, question<ISP_API_GetBrightness>},
    {&B::Sharpness, question<ISP_API_GetSharpness>},
    {&B::Flip, question<SYS_API_GetFlip>, onOff},
    {&B::Mirror, question<SYS_API_GetMirror>, onOff},
    {&B::WideDynamic, question<ISP_API_GetDrcSwi>, onOff},
    {&B::Contrast, question<ISP_API_GetContrast>},
    {&B::AntiFlicker, question<ISP_API_GetAntiFlicker>, mapped<ANTI_FLICKERS>},
    {&B::TwoDNR, question<ISP_API_Get2DNR>},
    {&B::ThreeDNR, question<ISP_API_Get3DNR>},
    {&B::BackLight, question<ISP_API_GetBackLight>, onOff},
    {&B::Gamma, question<ISP_API_GetGamma>},
    {&B::Saturation, question<ISP_API_GetSaturation>},
    {&B::Hue, question<ISP_API_GetHue>},
    {&B::AiTrack, question<ALG_API_GetEnable>, onOff},
    {&B::AiMode, question<ALG_API_GetTrackMode>, mapped<AI_MODES>},
    {&B::AiHumanoidFrame, question<ALG_API_GetDebug>, onOff},
    {&B::AiTrackingHint, question<ALG_API_GetTallyIndicator>, onOff},
    {&B::AiLostTime, question<ALG_API_GetLostTime>, lostSeconds},
    {&B::AiBodySize, question<ALG_API_GetBodySize>},
    {&B::AiBodySizeadjust, question<ALG_API_GetBodySizeCustom>},
    {&B::AiStartPos, question<ALG_API_GetStartPos>, mapped<START_POSITIONS>},
    {&B::AiCharacterPosition, question<ALG_API_GetPeoplePos>, mappedOr<PLACEMENTS, VISCA_MSG_E_PLACEMENT_LEFT>},
    {&B::Focus, question<AF_API_GetFocusAuto>, onOff},
    {&B::Freeze, question<SYS_API_GetImageFreeze, BU_TRUE>, onOff},
    {&B::Mute, question<SYS_API_GetAudioMute>, onOff},
    {&B::Tally, askTallyMode, mapped<TALLY_MODES>}};

// Of the colours 1 to 6.
constexpr BU_S32 B::*HUES[] = {&B::RedHue, &B::YellowHue, &B::GreenHue, &B::CayennHue, &B::BlueHue, &B::MagentaHue};
constexpr BU_S32 B::*SATURATIONS[] = {&B::RedSat,    &B::YellowSat, &B::GreenSat,
                                      &B::CayennSat, &B::BlueSat,   &B::MagentaSat};

void storeField(BU_S32 &s32Field, BU_S32 s32Value, BU_S32 s32Minimum = 0)
{
    if (s32Value != UNREAD) s32Field = s32Value - s32Minimum;
}

void readColours(B &st)
{
    const BU_S32 s32HueMin = rangeOf("RColorHue").s32Min;
    for (BU_S32 s32Colour = 1; s32Colour <= 6; ++s32Colour) {
        BU_S32 s32Hue = UNREAD, s32Saturation = UNREAD;
        ISP_API_GetColorHue(0, s32Colour, &s32Hue, BU_TRUE);
        ISP_API_GetColorSat(0, s32Colour, &s32Saturation, BU_TRUE);
        storeField(st.*HUES[s32Colour - 1], s32Hue, s32HueMin);
        storeField(st.*SATURATIONS[s32Colour - 1], s32Saturation);
    }
}

/// Video format codes by output format and frame rate; every other pair has the code of 4K at 60.
BU_S32 videoFormatCode(BU_S32 s32Format, BU_S32 s32Fps)
{
    constexpr BU_U8 OTHER = 0x38;
    constexpr BU_U8 CODES[][6] = {
        // 60, 59.94, 50, 30, 29.97, 25
        {0x38, 0x37, 0x36, 0x35, 0x34, 0x33},     // 4K
        {0x08, 0x07, 0x06, 0x05, 0x04, 0x03},     // 1080P
        {0x15, 0x14, 0x13, OTHER, OTHER, OTHER},  // 1080I
        {0x28, OTHER, 0x26, OTHER, OTHER, OTHER}, // 720P
    };
    static_assert(HDMI_FORMAT_E_720P == 3 && HDMI_FPS_E_FPS25 == 5);
    const bool bListed = s32Format >= 0 && s32Format < HDMI_FORMAT_E_BUTT && s32Fps >= 0 && s32Fps <= HDMI_FPS_E_FPS25;
    return bListed ? CODES[s32Format][s32Fps] : OTHER;
}

void readOutput(B &st)
{
    const BU_S32 s32Fps = ask<SYSTEM_API_GetHdmiFps>(), s32Shutter = ask<ISP_API_GetShutter>();
    st.VideoFormat = videoFormatCode(ask<SYSTEM_API_GetHdmiFormat>(), s32Fps);
    if (s32Shutter != UNREAD)
        st.Shutter =
            convertShutterTimeToViscaValue(static_cast<HDMI_FPS_E>(s32Fps), static_cast<SHUTTER_TIME_E>(s32Shutter));
}

void print(const B &st)
{
    UTIL_TRACE_Print(
        "[Block Data] ExpMode=0x%02X, GainLimit=%d, Gain=%d, ExpCompMode=%d, ExpCompLevel=%d, Iris=%d, Shutter=%d, "
        "Bright=%d, WbMode=%d, RGain=%d, BGain=%d, ColorTemp=%d, Brightness=%d, Sharpness=%d, Flip=%d, Mirror=%d, "
        "WideDynamic=%d, Contrast=%d, AntiFlicker=%d, TwoDNR=%d, ThreeDNR=%d, BackLight=%d, Gamma=%d, Saturation=%d, "
        "Hue=%d, RedHue=%d, YellowHue=%d, GreenHue=%d, CayennHue=%d, BlueHue=%d, MagentaHue=%d, RedSat=%d, "
        "YellowSat=%d, GreenSat=%d, CayennSat=%d, BlueSat=%d, MagentaSat=%d, AiTrack=%d, AiMode=%d, "
        "AiHumanoidFrame=%d, AiTrackingHint=%d, AiAutomations=0x%02X, AiLostTime=%d, AiBodySize=%d, "
        "AiBodySizeadjust=%d, AiStartPos=%d, AiCharacterPosition=%d, Focus=%d, Freeze=%d, Power=%d, MenuDisaply=%d, "
        "Mute=%d, VideoFormat=0x%02X, CameraVersion=%d, Tally=%d\n",
        st.ExpMode, st.GainLimit, st.Gain, st.ExpCompMode, st.ExpCompLevel, st.Iris, st.Shutter, st.Bright, st.WbMode,
        st.RGain, st.BGain, st.ColorTemp, st.Brightness, st.Sharpness, st.Flip, st.Mirror, st.WideDynamic, st.Contrast,
        st.AntiFlicker, st.TwoDNR, st.ThreeDNR, st.BackLight, st.Gamma, st.Saturation, st.Hue, st.RedHue, st.YellowHue,
        st.GreenHue, st.CayennHue, st.BlueHue, st.MagentaHue, st.RedSat, st.YellowSat, st.GreenSat, st.CayennSat,
        st.BlueSat, st.MagentaSat, st.AiTrack, st.AiMode, st.AiHumanoidFrame, st.AiTrackingHint, st.AiAutomations,
        st.AiLostTime, st.AiBodySize, st.AiBodySizeadjust, st.AiStartPos, st.AiCharacterPosition, st.Focus, st.Freeze,
        st.Power, st.MenuDisaply, st.Mute, st.VideoFormat, st.CameraVersion, st.Tally);
}

// The answer: literal bytes, and fields laid over them.
constexpr BU_U32 BLOCK_SIZE = 92;

constexpr std::array<BU_U8, BLOCK_SIZE> BLOCK_LITERALS = [] {
    std::array<BU_U8, BLOCK_SIZE> au8{};
    au8.fill(0x03);
    au8[0] = 0xEE;
    au8[90] = 0xA5;
    au8[91] = 0x5A;
    return au8;
}();

struct tagBLOCK_BYTE_S {
    BU_U8 u8Offset;
    BU_S32 B::*pField;
    BU_U8 u8Shift = 0, u8Mask = 0xFF;
};
// clang-format off
constexpr tagBLOCK_BYTE_S BLOCK_BYTES[] = {
    {1, &B::ExpMode},
    {5, &B::GainLimit}, {6, &B::Gain}, {7, &B::ExpCompMode}, {8, &B::ExpCompLevel},
    {10, &B::Iris}, {11, &B::Shutter}, {12, &B::Bright}, {13, &B::WbMode}, {14, &B::RGain}, {15, &B::BGain},
    {16, &B::ColorTemp}, {17, &B::ColorTemp, 8},
    {24, &B::Brightness}, {25, &B::Sharpness},
    {29, &B::Flip}, {30, &B::Mirror}, {31, &B::WideDynamic}, {32, &B::Contrast},
    {34, &B::AntiFlicker}, {35, &B::TwoDNR}, {36, &B::ThreeDNR},
    {41, &B::BackLight},
    {43, &B::Gamma}, {44, &B::Saturation}, {45, &B::Hue},
    {49, &B::MagentaSat}, {50, &B::RedSat}, {51, &B::YellowSat}, {52, &B::GreenSat}, {53, &B::CayennSat}, {54, &B::BlueSat},
    {55, &B::MagentaHue}, {56, &B::RedHue}, {57, &B::YellowHue}, {58, &B::GreenHue}, {59, &B::CayennHue}, {60, &B::BlueHue},
    {61, &B::AiTrack}, {62, &B::AiMode}, {63, &B::AiHumanoidFrame}, {64, &B::AiTrackingHint}, {65, &B::AiAutomations},
    {66, &B::AiLostTime}, {67, &B::AiBodySize}, {68, &B::AiBodySizeadjust}, {69, &B::AiStartPos},
    {70, &B::Focus}, {71, &B::Freeze}, {72, &B::Power}, {73, &B::AiCharacterPosition},
    {79, &B::AiLostTime},
    {83, &B::MenuDisaply}, {84, &B::Mute}, {85, &B::VideoFormat},
    {86, &B::CameraVersion, 0, 0x0F}, {87, &B::CameraVersion, 0, 0xF0},
    {88, &B::Tally},
};
// clang-format on
static_assert(std::ranges::adjacent_find(BLOCK_BYTES, std::ranges::greater_equal{}, &tagBLOCK_BYTE_S::u8Offset) ==
                  std::end(BLOCK_BYTES) &&
              std::end(BLOCK_BYTES)[-1].u8Offset < BLOCK_SIZE);
} // namespace

BU_S32 viscaInquiryBlockData(tagVISCA_CTRL_INFO_S *pstInfo)
{
    auto &st = pstInfo->stTkvBlockStatue;
    for (const auto &stRow : BLOCK_FIELDS) {
        BU_S32 s32Value = UNREAD;
        stRow.pfnAsk(&s32Value);
        storeField(st.*stRow.pField, stRow.pfnConvert(s32Value));
    }
    storeField(st.ExpCompLevel, ask<ISP_API_GetExpCompLevel>(), rangeOf("ExposureCompLevel").s32Min);
    readColours(st);
    readOutput(st);
    const auto isOn = [](BU_S32 s32Value) { return s32Value != 0; };
    st.AiAutomations = isOn(ask<ALG_API_GetAutoZoom>(BU_FALSE)) | isOn(ask<ALG_API_GetAutoTilt>(BU_FALSE)) << 1 |
                       isOn(ask<ALG_API_GetAutoPan>(BU_FALSE)) << 2;
    st.Power = VISCA_MSG_E_POWER_ON;
    st.MenuDisaply = CMD_MENU_GetMenuStatus() == 1 ? ON : OFF;
    st.CameraVersion = 0x30;
    print(st);
    return 0;
}

void visca::replyBlock(const I &st, ReplyWriter &writer)
{
    auto au8Block = BLOCK_LITERALS;
    for (const auto &stByte : BLOCK_BYTES)
        au8Block[stByte.u8Offset] =
            static_cast<BU_U8>(st.stTkvBlockStatue.*stByte.pField >> stByte.u8Shift & stByte.u8Mask);
    for (const BU_U8 u8Byte : au8Block) writer.put(u8Byte);
}
