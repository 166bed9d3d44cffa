/// Scalars, booleans and the records that several families share.
#pragma once

#include <cstdint>

typedef int8_t BU_S8;
typedef uint8_t BU_U8;
typedef int16_t BU_S16;
typedef uint16_t BU_U16;
typedef int32_t BU_S32;
typedef uint32_t BU_U32;
typedef int64_t BU_S64;
typedef uint64_t BU_U64;
typedef float BU_FLOAT;
typedef char BU_CHAR;

/// An integer, not an enumeration: flags arrive as numbers from web images and protocol records, and a literal 0 must
/// never select a text overload.
typedef BU_S32 tagBU_BOOL;
typedef tagBU_BOOL BU_BOOL;
enum : BU_S32 { BU_FALSE = 0, BU_TRUE = 1 };

/// Range of an integer setting: limits, factory default, step of one key press, current value.
struct CFG_VALUE_INT_S {
    BU_S32 s32Min, s32Max, s32Def, s32Step, s32Cur;
};

/// Output frame rates, fastest first.
enum tagHDMI_FPS_E : BU_S32 {
    HDMI_FPS_E_FPS60 = 0,
    HDMI_FPS_E_FPS59P94,
    HDMI_FPS_E_FPS50,
    HDMI_FPS_E_FPS30,
    HDMI_FPS_E_FPS29P97,
    HDMI_FPS_E_FPS25,
    HDMI_FPS_E_FPS24,
    HDMI_FPS_E_FPS23P98,
    HDMI_FPS_E_BUTT
};
typedef tagHDMI_FPS_E HDMI_FPS_E;

enum tagHDMI_FORMAT_E : BU_S32 {
    HDMI_FORMAT_E_4K = 0,
    HDMI_FORMAT_E_1080P,
    HDMI_FORMAT_E_1080I,
    HDMI_FORMAT_E_720P,
    HDMI_FORMAT_E_BUTT
};
typedef tagHDMI_FORMAT_E HDMI_FORMAT_E;

enum tagHDMI_CS_E : BU_S32 { HDMI_CS_E_RGB = 0, HDMI_CS_E_YUV422 = 1, HDMI_CS_E_YUV444 = 2, HDMI_CS_E_YUV420 = 3 };
typedef tagHDMI_CS_E HDMI_CS_E;

/// Shutter speeds, slowest first; the number is the denominator of the exposure time in seconds.
// clang-format off
enum tagSHUTTER_TIME_E : BU_S32 {
    SHUTTER_TIME_24 = 0, SHUTTER_TIME_25, SHUTTER_TIME_30, SHUTTER_TIME_48, SHUTTER_TIME_50, SHUTTER_TIME_60,
    SHUTTER_TIME_75, SHUTTER_TIME_90, SHUTTER_TIME_96, SHUTTER_TIME_100, SHUTTER_TIME_120, SHUTTER_TIME_125,
    SHUTTER_TIME_150, SHUTTER_TIME_180, SHUTTER_TIME_215, SHUTTER_TIME_250, SHUTTER_TIME_300, SHUTTER_TIME_350,
    SHUTTER_TIME_425, SHUTTER_TIME_500, SHUTTER_TIME_600, SHUTTER_TIME_725, SHUTTER_TIME_1000, SHUTTER_TIME_1250,
    SHUTTER_TIME_1500, SHUTTER_TIME_1750, SHUTTER_TIME_2000, SHUTTER_TIME_2500, SHUTTER_TIME_3000, SHUTTER_TIME_3500,
    SHUTTER_TIME_4000, SHUTTER_TIME_6000, SHUTTER_TIME_10000, SHUTTER_TIME_BUTT
};
// clang-format on
typedef tagSHUTTER_TIME_E SHUTTER_TIME_E;
static_assert(SHUTTER_TIME_10000 == 32 && SHUTTER_TIME_BUTT == 33);

enum IP_MODE_E : BU_S32 { IP_MODE_E_DHCP = 0, IP_MODE_E_STATIC = 1 };
enum DNS_MODE_E : BU_S32 { DNS_MODE_E_AUTO = 0, DNS_MODE_E_MANUAL = 1 };
