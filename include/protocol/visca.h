/// VISCA records: the decoded control record, the reply buffer, the call tables, and the calls of the VISCA library.
///
/// Packet formats: the VISCA command lists of PTZ camera manuals; docs/visca.md lists every packet of this camera.
#pragma once

#include "base/types.h"
#include "protocol/viscaNet.h"

#include <cstddef>

/// Where a message came from; its answer goes back there.
enum CMD_FROM_E : BU_S32 {
    CMD_FROM_E_UART_RS232 = 0,
    CMD_FROM_E_UART_RS422,
    CMD_FROM_E_NET_IN,
    CMD_FROM_E_NET_OUT,
    CMD_FROM_E_OVER_IP_IN,
    CMD_FROM_E_NET_UDP_IN,
    CMD_FROM_E_NET_TCP_IN,
    CMD_FROM_E_BUTT
};

enum OVER_IP_MSG_TYPE_E : BU_S32 {
    OVER_IP_MSG_E_VISCA_CMD = 0,
    OVER_IP_MSG_E_VISCA_INQ,
    OVER_IP_MSG_E_VISCA_REPLY,
    OVER_IP_MSG_E_VISCA_SET_CMD,
    OVER_IP_MSG_E_CTRL_CMD,
    OVER_IP_MSG_E_CTRL_REPLY
};

/// The kind of a message: 1...56 commands, 58...122 inquiries.
// clang-format off
enum tagVISCA_CMD_INQ_TYPE_E : BU_S32 {
    VISCA_CMD_E_NONE = 0,
    VISCA_CMD_E_CANCEL = 1,
    VISCA_CMD_E_SET_ADDRESS = 2,
    VISCA_CMD_E_POWER = 3,
    VISCA_CMD_E_ZOOM = 4,
    VISCA_CMD_E_DZOOM = 5,
    VISCA_CMD_E_FOCUS = 6,
    VISCA_CMD_E_ZOOM_FOCUS = 7,
    VISCA_CMD_E_WB_MODE = 8,
    VISCA_CMD_E_WB_COLOR_TMP = 9,
    VISCA_CMD_E_WB_SENSI = 10,
    VISCA_CMD_E_RGAIN = 11,
    VISCA_CMD_E_BGAIN = 12,
    VISCA_CMD_E_GGAIN = 13,
    VISCA_CMD_E_AWB_GAIN = 14,
    VISCA_CMD_E_AE = 15,
    VISCA_CMD_E_SHUTTER = 16,
    VISCA_CMD_E_IRIS = 17,
    VISCA_CMD_E_GAIN = 18,
    VISCA_CMD_E_BRIGHT = 19,
    VISCA_CMD_E_EXP_COMP = 20,
    VISCA_CMD_E_WDR = 21,
    VISCA_CMD_E_BACKLIGHT = 22,
    VISCA_CMD_E_APERTURE = 23,
    VISCA_CMD_E_MEMORY = 24,
    VISCA_CMD_E_TALLYLED = 25,
    VISCA_CMD_E_IR_RECV = 26,
    VISCA_CMD_E_IRCTRL = 27,
    VISCA_CMD_E_VIDEO_RESOLUTION = 28,
    VISCA_CMD_E_PAN_TILT = 29,
    VISCA_CMD_E_AUDIO_VOLUME = 30,
    VISCA_CMD_E_VIDEO_PARAMETER = 31,
    VISCA_CMD_E_IP = 32,
    VISCA_CMD_E_SYSTEM_FACTORY = 33,
    VISCA_CMD_E_SYS_MENU = 34,
    VISCA_CMD_E_EXTRA_ISP = 35,
    VISCA_CMD_E_YM_AUTO_TRACKING = 36,
    VISCA_CMD_E_YM_AUTO_ZOOM = 37,
    VISCA_CMD_E_YM_AUTO_TILT = 38,
    VISCA_CMD_E_YM_INDICATOR = 39,
    VISCA_CMD_E_YM_TRACKING_START_PRESET = 40,
    VISCA_CMD_E_YM_OSD_REMINDER = 41,
    VISCA_CMD_E_YM_FIGURE_SIZE = 42,
    VISCA_CMD_E_YM_SELECY_SUBJECT = 43,
    VISCA_CMD_E_YM_PLACEMENT = 44,
    VISCA_CMD_E_YM_AT_SPEED = 45,
    VISCA_CMD_E_YM_TALLY_LED = 46,
    VISCA_CMD_E_YM_DEVICE_MODEL = 47,
    VISCA_CMD_E_YM_PAN_TILT = 48,
    VISCA_CMD_E_YM_RECORD = 49,
    VISCA_CMD_E_YM_PAN_REVERSE = 50,
    VISCA_CMD_E_YM_TILT_REVERSE = 51,
    VISCA_CMD_E_TKV_VIDEO = 52,
    VISCA_CMD_E_TKV_TRACKING = 53,
    VISCA_CMD_E_TKV_AUDIO = 54,
    VISCA_CMD_E_TKV_TALLY_LED = 55,
    VISCA_CMD_E_TKV_PT_SPEED = 56,
    VISCA_INQ_E_NONE = 57,
    VISCA_INQ_E_GET_ADDRESS = 58,
    VISCA_INQ_E_POWER = 59,
    VISCA_INQ_E_ZOOM_POS = 60,
    VISCA_INQ_E_ZOOM_SPEED = 61,
    VISCA_INQ_E_DZOOM_LIMIT = 62,
    VISCA_INQ_E_FOCUS_MODE = 63,
    VISCA_INQ_E_FOCUS_POS = 64,
    VISCA_INQ_E_WB_MODE = 65,
    VISCA_INQ_E_RGAIN = 66,
    VISCA_INQ_E_BGAIN = 67,
    VISCA_INQ_E_GGAIN = 68,
    VISCA_INQ_E_AE_MODE = 69,
    VISCA_INQ_E_SHUTTER_POS = 70,
    VISCA_INQ_E_IRIS_POS = 71,
    VISCA_INQ_E_GAIN_POS = 72,
    VISCA_INQ_E_BRIGHT_POS = 73,
    VISCA_INQ_E_EXP_COMP_MODE = 74,
    VISCA_INQ_E_EXP_COMP_POS = 75,
    VISCA_INQ_E_DZOOM_MODE = 76,
    VISCA_INQ_E_BACKLIGHT_MODE = 77,
    VISCA_INQ_E_APERTURE = 78,
    VISCA_INQ_E_IR_RECV = 79,
    VISCA_INQ_E_IR_INFO = 80,
    VISCA_INQ_E_VIDEO_RESOLUTION = 81,
    VISCA_INQ_E_PAN_TILT_POS = 82,
    VISCA_INQ_E_PAN_TILT_MAX_SPEED = 83,
    VISCA_INQ_E_AUDIO_VOLUME = 84,
    VISCA_INQ_E_VIDEO_PARAMETER = 85,
    VISCA_INQ_E_AWB_GAIN = 86,
    VISCA_INQ_E_WB_COLOR_TMP = 87,
    VISCA_INQ_E_IP = 88,
    VISCA_INQ_E_IP_DHCP_MODE = 89,
    VISCA_INQ_E_IP_INFO_ASCLL = 90,
    VISCA_INQ_E_VERSION = 91,
    VISCA_INQ_E_MENU = 92,
    VISCA_INQ_E_TALLY_MODE = 93,
    VISCA_INQ_E_NDI_TALLY_MODE = 94,
    VISCA_INQ_E_CUSTOM_TALLY = 95,
    VISCA_INQ_E_YM_SYSTEM_STATUS = 96,
    VISCA_INQ_E_YM_AUTO_TRACKING_STATUS = 97,
    VISCA_INQ_E_YM_ZOOM_STATUS = 98,
    VISCA_INQ_E_YM_TILT_STATUS = 99,
    VISCA_INQ_E_YM_DETECTED_INDICATOR = 100,
    VISCA_INQ_E_YM_TRACKING_START = 101,
    VISCA_INQ_E_YM_TRACKING_START_POSITION = 102,
    VISCA_INQ_E_YM_OSD_REMINDER = 103,
    VISCA_INQ_E_YM_FIGURE_SIZE = 104,
    VISCA_INQ_E_YM_CURRENT_CUSTOMIZED_FIGURE_SIZE = 105,
    VISCA_INQ_E_YM_PLACEMENT_STATUS = 106,
    VISCA_INQ_E_YM_AUTO_TRACKING_SPEED = 107,
    VISCA_INQ_E_YM_RECORD_STATUS = 108,
    VISCA_INQ_E_YM_PAN_REVERSE = 109,
    VISCA_INQ_E_YM_TILT_REVERSE = 110,
    VISCA_INQ_E_YM_LAST_PT_OPERATED = 111,
    VISCA_INQ_E_TKV_BLOCK_DATA = 112,
    VISCA_INQ_E_TKV_VDIEO_PARAMETER = 113,
    VISCA_INQ_E_TKV_AUDIO = 114,
    VISCA_INQ_E_TKV_PT_SPEED = 115,
    VISCA_INQ_E_TKV_PT_SPEED_MATCH = 116,
    VISCA_INQ_E_TKV_PT_SPEED_ACCUARCY = 117,
    VISCA_INQ_E_TKV_HEAD_POS = 118,
    VISCA_INQ_E_TKV_TRACKSPEED = 119,
    VISCA_INQ_E_TKV_GESTURE_DETECT = 120,
    VISCA_INQ_E_MEMORY_STATUE = 121,
    VISCA_INQ_E_EXTRA_STATUE = 122,
    VISCA_CMD_INQ_E_BUTT = 123
};
// clang-format on
typedef tagVISCA_CMD_INQ_TYPE_E VISCA_CMD_INQ_TYPE_E;

enum VISCA_CTRL_POWER_E : BU_S32 { VISCA_MSG_E_POWER_ON = 2, VISCA_MSG_E_POWER_OFF };

enum VISCA_CTRL_ZOOM_E : BU_S32 {
    VISCA_MSG_E_SET_ZOOM_STOP = 0,
    VISCA_MSG_E_SET_ZOOM_TELE_STANDARD,
    VISCA_MSG_E_SET_ZOOM_WIDE_STANDARD,
    VISCA_MSG_E_SET_ZOOM_TELE_VARIABLE,
    VISCA_MSG_E_SET_ZOOM_WIDE_VARIABLE,
    VISCA_MSG_E_SET_ZOOM_DIRECT_POS
};

enum VISCA_CTRL_DZOOM_E : BU_S32 { VISCA_MSG_E_DZOOM_ON = 2, VISCA_MSG_E_DZOOM_OFF, VISCA_MSG_E_DZOOM_SET_LIMIT };

enum VISCA_CTRL_FOCUS_E : BU_S32 {
    VISCA_MSG_E_FOCUS_AUTO = 2,
    VISCA_MSG_E_FOCUS_MANUAL,
    VISCA_MSG_E_FOCUS_AUTO_MANUAL,
    VISCA_MSG_E_FOCUS_ONE_PUSH_TRIGGER,
    VISCA_MSG_E_SET_FOCUS_STOP,
    VISCA_MSG_E_SET_FOCUS_FAR_STANDARD,
    VISCA_MSG_E_SET_FOCUS_NEAR_STANDARD,
    VISCA_MSG_E_SET_FOCUS_FAR_VARIABLE,
    VISCA_MSG_E_SET_FOCUS_NEAR_VARIABLE,
    VISCA_MSG_E_SET_FOCUS_DIRECT_POS,
    VISCA_MSG_E_SET_FOCUS_ZONE_UPPER,
    VISCA_MSG_E_SET_FOCUS_ZONE_CENTER,
    VISCA_MSG_E_SET_FOCUS_ZONE_DOWN,
    VISCA_MSG_E_SET_FOCUS_ZONE_GlOBAL,
    VISCA_MSG_E_SET_FOCUS_ZONE_FUTURE
};

enum VISCA_CTRL_WB_MODE_E : BU_S32 {
    VISCA_MSG_E_WB_AUTO = 0,
    VISCA_MSG_E_WB_INDOOR,
    VISCA_MSG_E_WB_OUTDOOR,
    VISCA_MSG_E_WB_ONE_PUSH_WB,
    VISCA_MSG_E_WB_MANUAL = 5,
    VISCA_MSG_E_WB_COLOR_TEMPERATURE = 11,
    VISCA_MSG_E_WB_ONE_PUSH_TRIGGER
};

enum VISCA_CTRL_RGAIN_E : BU_S32 {
    VISCA_MSG_E_RGAIN_RESET = 0,
    VISCA_MSG_E_RGAIN_UP,
    VISCA_MSG_E_RGAIN_DOWN,
    VISCA_MSG_E_RGAIN_DIRECT
};

enum VISCA_CTRL_BGAIN_E : BU_S32 {
    VISCA_MSG_E_BGAIN_RESET = 0,
    VISCA_MSG_E_BGAIN_UP,
    VISCA_MSG_E_BGAIN_DOWN,
    VISCA_MSG_E_BGAIN_DIRECT
};

enum VISCA_CTRL_GGAIN_E : BU_S32 {
    VISCA_MSG_E_GGAIN_RESET = 0,
    VISCA_MSG_E_GGAIN_UP,
    VISCA_MSG_E_GGAIN_DOWN,
    VISCA_MSG_E_GGAIN_DIRECT
};

enum VISCA_CTRL_COLORTEMP_E : BU_S32 {
    VISCA_MSG_E_COLORTEMP_RESET = 0,
    VISCA_MSG_E_COLORTEMP_UP,
    VISCA_MSG_E_COLORTEMP_DOWN,
    VISCA_MSG_E_COLORTEMP_DIRECT
};

enum VISCA_CTRL_SHUTTER_E : BU_S32 {
    VISCA_MSG_E_SHUTTER_RESET = 0,
    VISCA_MSG_E_SHUTTER_UP,
    VISCA_MSG_E_SHUTTER_DOWN,
    VISCA_MSG_E_SHUTTER_DIRECT
};

enum VISCA_CTRL_IRIS_E : BU_S32 {
    VISCA_MSG_E_IRIS_RESET = 0,
    VISCA_MSG_E_IRIS_UP,
    VISCA_MSG_E_IRIS_DOWN,
    VISCA_MSG_E_IRIS_DIRECT
};

enum VISCA_CTRL_GAIN_E : BU_S32 {
    VISCA_MSG_E_GAIN_RESET = 0,
    VISCA_MSG_E_GAIN_UP,
    VISCA_MSG_E_GAIN_DOWN,
    VISCA_MSG_E_GAIN_DIRECT
};

enum VISCA_CTRL_BRIGHT_E : BU_S32 {
    VISCA_MSG_E_BRIGHT_RESET = 0,
    VISCA_MSG_E_BRIGHT_UP,
    VISCA_MSG_E_BRIGHT_DOWN,
    VISCA_MSG_E_BRIGHT_DIRECT
};

enum VISCA_CTRL_APERTURE_E : BU_S32 {
    VISCA_MSG_E_APERTURE_RESET = 0,
    VISCA_MSG_E_APERTURE_UP,
    VISCA_MSG_E_APERTURE_DOWN,
    VISCA_MSG_E_APERTURE_DIRECT
};

enum VISCA_CTRL_AUDIO_VOL_E : BU_S32 {
    VISCA_MSG_E_AUDIO_VOL_RESET = 0,
    VISCA_MSG_E_AUDIO_VOL_UP,
    VISCA_MSG_E_AUDIO_VOL_DOWN,
    VISCA_MSG_E_AUDIO_VOL_DIRECT
};

enum VISCA_CTRL_AWB_GAIN_E : BU_S32 { VISCA_MSG_E_AWB_RGAIN = 0, VISCA_MSG_E_AWB_BGAIN, VISCA_MSG_E_AWB_GGAIN };

enum VISCA_CTRL_AE_E : BU_S32 {
    VISCA_MSG_E_AE_FULL_AUTO = 0,
    VISCA_MSG_E_AE_NANUAL = 3,
    VISCA_MSG_E_AE_SHUTTER_PRIORITY = 10,
    VISCA_MSG_E_AE_IRIS_PRIORITY,
    VISCA_MSG_E_AE_BRIGHT = 13,
    VISCA_MSG_E_AE_GAIN_LIMIT_POS
};

enum VISCA_CTRL_EXP_COMP_E : BU_S32 {
    VISCA_MSG_E_EXP_COMP_ON = 2,
    VISCA_MSG_E_EXP_COMP_OFF,
    VISCA_MSG_E_EXP_COMP_RESET,
    VISCA_MSG_E_EXP_COMP_UP,
    VISCA_MSG_E_EXP_COMP_DOWN,
    VISCA_MSG_E_EXP_COMP_DIRECT
};

enum VISCA_CTRL_WDR_E : BU_S32 {
    VISCA_MSG_E_WDR_ON = 2,
    VISCA_MSG_E_WDR_OFF,
    VISCA_MSG_E_WDR_RESET,
    VISCA_MSG_E_WDR_UP,
    VISCA_MSG_E_WDR_DOWN,
    VISCA_MSG_E_WDR_DIRECT
};

enum VISCA_CTRL_BACKLIGHT_E : BU_S32 { VISCA_MSG_E_BACKLIGHT_ON = 2, VISCA_MSG_E_BACKLIGHT_OFF };

enum VISCA_CTRL_MEMORY_E : BU_S32 {
    VISCA_MSG_E_MEMORY_RESET = 0,
    VISCA_MSG_E_MEMORY_SET,
    VISCA_MSG_E_MEMORY_RECALL,
    VISCA_MSG_E_MEMORY_SPEED,
    VISCA_MSG_E_MEMORY_POWERUP,
    VISCA_MSG_E_MEMORY_MODE
};

enum VISCA_CTRL_LED_E : BU_S32 {
    VISCA_MSG_E_LED_RED_SWITCH = 0,
    VISCA_MSG_E_LED_GREEN_SWITCH,
    VISCA_MSG_E_LED_BLUE_SWITCH,
    VISCA_MSG_E_LED_ALL_ON,
    VISCA_MSG_E_LED_ALL_OFF,
    VISCA_MSG_E_LED_RED_FLICKER,
    VISCA_MSG_E_LED_GREEN_FLICKER,
    VISCA_MSG_E_LED_BLUE_FLICKER
};

enum VISCA_CTRL_IR_RECV_E : BU_S32 { VISCA_MSG_E_IR_RECV_ON = 2, VISCA_MSG_E_IR_RECV_OFF, VISCA_MSG_E_IR_RECV_ON_OFF };

enum VISCA_CTRL_VIDEO_RESOLUTION_E : BU_S32 {
    VISCA_MSG_E_VIDEO_1920x1080P60 = 0,
    VISCA_MSG_E_VIDEO_1920x1080P30,
    VISCA_MSG_E_VIDEO_1920x1080I60,
    VISCA_MSG_E_VIDEO_1280x720P60,
    VISCA_MSG_E_VIDEO_1280x720P30,
    VISCA_MSG_E_VIDEO_4KP60 = 6,
    VISCA_MSG_E_VIDEO_4KP30,
    VISCA_MSG_E_VIDEO_1920x1080P50,
    VISCA_MSG_E_VIDEO_1920x1080P25,
    VISCA_MSG_E_VIDEO_1920x1080I25,
    VISCA_MSG_E_VIDEO_1280x720P50,
    VISCA_MSG_E_VIDEO_1280x720P25,
    VISCA_MSG_E_VIDEO_4KP50 = 14,
    VISCA_MSG_E_VIDEO_4KP25,
    VISCA_MSG_E_VIDEO_1920x1080P5994,
    VISCA_MSG_E_VIDEO_1920x1080P2997,
    VISCA_MSG_E_VIDEO_1280x720P5994
};

enum VISCA_CTRL_PT_E : BU_S32 {
    VISCA_MSG_E_PT_UP = 0,
    VISCA_MSG_E_PT_DOWN,
    VISCA_MSG_E_PT_LEFT,
    VISCA_MSG_E_PT_RIGHT,
    VISCA_MSG_E_PT_UP_LEFT,
    VISCA_MSG_E_PT_UP_RIGHT,
    VISCA_MSG_E_PT_DOWN_LEFT,
    VISCA_MSG_E_PT_DOWN_RIGHT,
    VISCA_MSG_E_PT_STOP,
    VISCA_MSG_E_PT_ABS_POS,
    VISCA_MSG_E_PT_REL_POS,
    VISCA_MSG_E_PT_HOME,
    VISCA_MSG_E_PT_RESET,
    VISCA_MSG_E_PT_UP_PRECISE,
    VISCA_MSG_E_PT_DOWN_PRECISE,
    VISCA_MSG_E_PT_LEFT_PRECISE,
    VISCA_MSG_E_PT_RIGHT_PRECISE,
    VISCA_MSG_E_PT_UP_LEFT_PRECISE,
    VISCA_MSG_E_PT_UP_RIGHT_PRECISE,
    VISCA_MSG_E_PT_DOWN_LEFT_PRECISE,
    VISCA_MSG_E_PT_DOWN_RIGHT_PRECISE
};

enum VISCA_CTRL_PTSPEED_E : BU_S32 {
    VISCA_MSG_E_PTSPEED_MATCH_ON = 2,
    VISCA_MSG_E_PTSPEED_MATCH_OFF,
    VISCA_MSG_E_PAN_SPEED,
    VISCA_MSG_E_Tilt_SPEED,
    VISCA_MSG_E_PanTilt_SPEED,
    VISCA_MSG_E_PTSPEED_ACCURACY
};

enum VISCA_CTRL_VIDEO_PARAM_E : BU_S32 {
    VISCA_MSG_E_DIRECT_SHARPNESS = 0,
    VISCA_MSG_E_DIRECT_BRIGHTNESS,
    VISCA_MSG_E_DIRECT_CONTRAST,
    VISCA_MSG_E_DIRECT_SATURATION,
    VISCA_MSG_E_DIRECT_HUE,
    VISCA_MSG_E_DIRECT_2DNR,
    VISCA_MSG_E_DIRECT_3DNR,
    VISCA_MSG_E_DIRECT_GAMMA,
    VISCA_MSG_E_DIRECT_WDR,
    VISCA_MSG_E_DIRECT_MIRROR,
    VISCA_MSG_E_DIRECT_FILP,
    VISCA_MSG_E_DIRECT_ANTI_FLICKER,
    VISCA_MSG_E_DIRECT_FREEZE,
    VISCA_MSG_E_DIRECT_EXP_METER,
    VISCA_MSG_E_DIRECT_IMAGE_STYLE,
    VISCA_MSG_E_DIRECT_COLOR_MATRIX_BLUE_HUE,
    VISCA_MSG_E_DIRECT_COLOR_MATRIX_CYAN_HUE,
    VISCA_MSG_E_DIRECT_COLOR_MATRIX_GREEN_HUE,
    VISCA_MSG_E_DIRECT_COLOR_MATRIX_RED_HUE,
    VISCA_MSG_E_DIRECT_COLOR_MATRIX_YELLOW_HUE,
    VISCA_MSG_E_DIRECT_COLOR_MATRIX_MEGENTA_HUE,
    VISCA_MSG_E_DIRECT_COLOR_MATRIX_BLUE_SAT,
    VISCA_MSG_E_DIRECT_COLOR_MATRIX_CYAN_SAT,
    VISCA_MSG_E_DIRECT_COLOR_MATRIX_GREEN_SAT,
    VISCA_MSG_E_DIRECT_COLOR_MATRIX_RED_SAT,
    VISCA_MSG_E_DIRECT_COLOR_MATRIX_YELLOW_SAT,
    VISCA_MSG_E_DIRECT_COLOR_MATRIX_MEGENTA_SAT
};

enum VISCA_CTRL_IP_E : BU_S32 {
    VISCA_MSG_E_IP_DHCP_ON = 2,
    VISCA_MSG_E_IP_DHCP_OFF,
    VISCA_MSG_E_IP_ADDRESS,
    VISCA_MSG_E_IP_MASK,
    VISCA_MSG_E_IP_GATEWAY,
    VISCA_MSG_E_IP_APPLYA
};

enum VISCA_CTRL_AUDIO_MUTE_E : BU_S32 { VISCA_MSG_E_AUDIO_MUTE_OFF = 2, VISCA_MSG_E_AUDIO_MUTE_ON };

enum VISCA_CTRL_QLS500_MODEL_E : BU_S32 { VISCA_MSG_E_MODEL_QLS500 = 0, VISCA_MSG_E_MODEL_QLS500_12GSDI };

enum VISCA_CTRL_EXTREA_ISP_E : BU_S32 {
    VISCA_MSG_E_EXP_FULLVIEW_FOLLOW_MODE = 0,
    VISCA_MSG_E_WB_FULLVIEW_FOLLOW_MODE,
    VISCA_MSG_E_ISP_STYLE_DEFAULT,
    VISCA_MSG_E_ISP_STYLE_SONY,
    VISCA_MSG_E_ISP_STYLE_BMD,
    VISCA_MSG_E_ISP_STYLE_PANASONIC,
    VISCA_MSG_E_WB_SENSI,
    VISCA_MSG_E_INSTALL_MODE,
    VISCA_MSG_E_LENS_CORRECTION_MODE,
    VISCA_MSG_E_IMAGE_RESET,
    VISCA_MSG_E_EXP_ND_FILTER,
    VISCA_MSG_E_TELE_MODE,
    VISCA_MSG_E_FACE_AF_MODE,
    VISCA_MSG_E_IRIS_AUTO_MODE
};

enum VISCA_CTRL_IR_E : BU_S32 { VISCA_MSG_E_IR_MODE = 0, VISCA_MSG_E_IR_ADDR };

enum VISCA_MSG_SYS_MENU_E : BU_S32 {
    VISCA_MSG_SYS_MENU_E_ON_OFF = 0,
    VISCA_MSG_SYS_MENU_E_ON,
    VISCA_MSG_SYS_MENU_E_OFF,
    VISCA_MSG_SYS_MENU_E_UP,
    VISCA_MSG_SYS_MENU_E_DOWN,
    VISCA_MSG_SYS_MENU_E_LEFT,
    VISCA_MSG_SYS_MENU_E_RIGHT,
    VISCA_MSG_SYS_MENU_E_ENTER,
    VISCA_MSG_SYS_MENU_E_RETURN
};

enum VISCA_MSG_YM_TALLY_TYPE_E : BU_S32 { VISCA_MSG_YM_TALLY_OFF = 0, VISCA_MSG_YM_TALLY_NONE, VISCA_MSG_YM_TALLY_ON };

enum VISCA_MSG_TKV_TALLY_TYPE_E : BU_S32 {
    VISCA_MSG_TKV_NDI_TALLY_ON = 0,
    VISCA_MSG_TKV_NDI_TALLY_OFF,
    VISCA_MSG_TKV_NDI_TALLY_PREVIEW,
    VISCA_MSG_TKV_NDI_TALLY_PROGRAM,
    VISCA_MSG_TKV_NDI_TALLY_CLOSE,
    VISCA_MSG_TKV_NORMAL_TALLY_OFF = 10,
    VISCA_MSG_TKV_NORMAL_TALLY_WHITE,
    VISCA_MSG_TKV_NORMAL_TALLY_CUSTOM,
    VISCA_MSG_TKV_NORMAL_TALLY_RGBCYCLE,
    VISCA_MSG_TKV_NORMAL_TALLY_CUSTOM_SAVE
};

enum VISCA_MSG_YM_RECORD_E : BU_S32 { VISCA_MSG_YM_RECORD_ON = 2, VISCA_MSG_YM_RECORD_OFF };

enum VISCA_MSG_YM_SWITCH_E : BU_S32 { VISCA_MSG_YM_SWITCH_OFF = 0, VISCA_MSG_YM_SWITCH_ON };

enum VISCA_CTRL_AUTO_TRACKING_E : BU_S32 {
    VISCA_MSG_E_AUTO_TRACKING_ON = 2,
    VISCA_MSG_E_AUTO_TRACKING_OFF,
    VISCA_MSG_E_AUTO_TRACKING_ON_OFF
};

enum tagVISCA_CTRL_AUTO_TRACK_MDOE_E : BU_S32 {
    VISCA_MSG_E_AUTO_TRACKING_AUTOFRAM = 0,
    VISCA_MSG_E_AUTO_TRACKING_DUAL,
    VISCA_MSG_E_AUTO_TRACKING_EVERYTHING,
    VISCA_MSG_E_AUTO_TRACKING_ZONE,
    VISCA_MSG_E_AUTO_TRACKING_STAGE
};

/// On and off of the automatic axes and of gesture detection.
enum VISCA_CTRL_SWITCH_E : BU_S32 { VISCA_MSG_E_SWITCH_ON = 2, VISCA_MSG_E_SWITCH_OFF };

enum VISCA_CTRL_INDICATOR_E : BU_S32 {
    VISCA_MSG_E_INDICATOR_ON = 2,
    VISCA_MSG_E_INDICATOR_OFF,
    VISCA_MSG_E_INDICATOR_DEFAULT
};

enum VISCA_CTRL_OSD_REMINDER_E : BU_S32 { VISCA_MSG_E_OSD_REMINDER_OFF = 0, VISCA_MSG_E_OSD_REMINDER_ON };

enum VISCA_CTRL_FIGURE_SIZE_E : BU_S32 {
    VISCA_MSG_E_FIGURE_SIZE_FULL = 0,
    VISCA_MSG_E_FIGURE_SIZE_HALF_BODY,
    VISCA_MSG_E_FIGURE_SIZE_CLOSE_UP,
    VISCA_MSG_E_FIGURE_SIZE_CUSTOMIZED,
    VISCA_MSG_E_FIGURE_SIZE_SAVE,
    VISCA_MSG_E_FIGURE_SIZE_BACK_TO_DEFAULT
};

enum VISCA_CTRL_SELECT_SUBJECT_E : BU_S32 {
    VISCA_MSG_E_SELECT_SUBJECT_LEFT = 2,
    VISCA_MSG_E_SELECT_SUBJECT_RIGHT,
    VISCA_MSG_E_SELECT_SUBJECT_SELECT
};

enum VISCA_CTRL_PLACEMENT_E : BU_S32 {
    VISCA_MSG_E_PLACEMENT_LEFT = 0,
    VISCA_MSG_E_PLACEMENT_CENTER,
    VISCA_MSG_E_PLACEMENT_RIGHT
};

enum VISCA_CTRL_AT_SPEED_E : BU_S32 {
    VISCA_MSG_E_AT_SPEED_FASET = 0,
    VISCA_MSG_E_AT_SPEED_MID,
    VISCA_MSG_E_AT_SPEED_SLOW
};

enum VISCA_CTRL_PRESET_AREA_E : BU_S32 { VISCA_MSG_E_PRESET_AREA_SAVE = 2, VISCA_MSG_E_PRESET_AREA_DELETE };

enum VISCA_CTRL_TRACK_PARAM_E : BU_S32 {
    VISCA_MSG_E_TKV_AUTO_TRACKING = 0,
    VISCA_MSG_E_TKV_AUTO_TRACKING_MODE,
    VISCA_MSG_E_TKV_AUTO_ZOOM,
    VISCA_MSG_E_TKV_AUTO_TILT,
    VISCA_MSG_E_TKV_AUTO_PAN,
    VISCA_MSG_E_TKV_TRACKING_START_PRESET,
    VISCA_MSG_E_TKV_FIGURE_SIZE,
    VISCA_MSG_E_TKV_SELECY_SUBJECT,
    VISCA_MSG_E_TKV_PLACEMENT,
    VISCA_MSG_E_TKV_LOSTTIME,
    VISCA_MSG_E_TKV_ZONE_SETTINGS_AREA,
    VISCA_MSG_E_TKV_ZONE_SETTINGS_TRIGGER,
    VISCA_MSG_E_TKV_ZONE_TRACKING_START_AREA,
    VISCA_MSG_E_TKV_ZONE_ZONE_CALL,
    VISCA_MSG_E_TKV_HUMANOID_FRAME,
    VISCA_MSG_E_TKV_TRACKING_HIT,
    VISCA_MSG_E_TKV_HEADPOS,
    VISCA_MSG_E_TKV_TRACKSPEED,
    VISCA_MSG_E_TKV_GESTURE_DETECT
};

struct VISCA_CTRL_CANCEL_S {
    tagVISCA_CMD_INQ_TYPE_E enMsgType;
    BU_U8 u8Cancel; ///< socket number to cancel
};
struct VISCA_CTRL_ZOOM_S {
    VISCA_CTRL_ZOOM_E enZoomType;
    BU_U8 u8ZoomVariable; ///< speed 0...7
    BU_U16 u16ZoomPos;
};
struct VISCA_CTRL_DZOOM_S {
    VISCA_CTRL_DZOOM_E enDZoomType;
    BU_U8 u8DzoomLimit; ///< largest digital magnification, 1...16
};
struct VISCA_CTRL_FOCUS_S {
    VISCA_CTRL_FOCUS_E enFocusType;
    BU_U8 u8FocusVariable; ///< speed 0...7
    BU_U16 u16FocusPos;
};
struct VISCA_CTRL_ZOOM_FOCUS_S {
    BU_U16 u16ZoomPos, u16FocusPos;
};
struct VISCA_CTRL_RGAIN_S {
    VISCA_CTRL_RGAIN_E enRGainType;
    BU_U8 u8RGainDirect;
};
struct VISCA_CTRL_BGAIN_S {
    VISCA_CTRL_BGAIN_E enBGainType;
    BU_U8 u8BGainDirect;
};
struct VISCA_CTRL_GGAIN_S {
    VISCA_CTRL_GGAIN_E enGGainType;
    BU_U8 u8GGainDirect;
};
struct VISCA_CTRL_AWB_GAIN_S {
    VISCA_CTRL_AWB_GAIN_E enAwbGainType;
    BU_U8 u8AwbGainDirect;
};
struct VISCA_CTRL_COLORTEMP_S {
    VISCA_CTRL_COLORTEMP_E enColorTempType;
    BU_U8 u8RGainDirect;
};
struct VISCA_CTRL_AE_S {
    VISCA_CTRL_AE_E enAEType;
    BU_U8 u8AeGainLimit;
};
struct VISCA_CTRL_SHUTTER_S {
    VISCA_CTRL_SHUTTER_E enShutterType;
    BU_U8 u8ShutterDirect;
};
struct VISCA_CTRL_IRIS_S {
    VISCA_CTRL_IRIS_E enIrisType;
    BU_U8 u8IrisDirect;
};
struct VISCA_CTRL_GAIN_S {
    VISCA_CTRL_GAIN_E enGainType;
    BU_U8 u8GainDirect;
};
struct VISCA_CTRL_BRIGHT_S {
    VISCA_CTRL_BRIGHT_E enBrightType;
    BU_U8 u8BrightDirect;
};
struct VISCA_CTRL_EXP_COMP_S {
    VISCA_CTRL_EXP_COMP_E enExpCompType;
    BU_U8 u8ExpCompDirect;
};
struct VISCA_CTRL_WDR_S {
    VISCA_CTRL_WDR_E enWDRType;
    BU_U8 u8WDRDirect;
};
struct VISCA_CTRL_APERTURE_S {
    VISCA_CTRL_APERTURE_E enApertureType;
    BU_U8 u8ApertureDirect;
};
struct VISCA_CTRL_MEMORY_S {
    VISCA_CTRL_MEMORY_E enMemoryType;
    BU_U8 u8MemVal;
};
struct VISCA_CTRL_AUDIO_VOL_S {
    VISCA_CTRL_AUDIO_VOL_E enAudioVolType;
    BU_U8 u8AudioVolDirect;
};
struct VISCA_CTRL_VIDEO_PARAM_S {
    VISCA_CTRL_VIDEO_PARAM_E enVideoParamType;
    BU_U8 u8VideoParamDirect;
};
struct VISCA_CTRL_IR_S {
    VISCA_CTRL_IR_E enIrType;
    BU_U8 u8IrVal;
};
struct VISCA_CTRL_EXTRA_ISP_S {
    VISCA_CTRL_EXTREA_ISP_E enExtraIspType;
    BU_U8 u8Val;
};
struct VISCA_CTRL_PT_S {
    VISCA_CTRL_PT_E enPanTiltType;
    BU_U8 u8PanSpeed, u8TiltSpeed;            ///< speed levels; 0 selects the configured speed
    BU_U16 u16PanPos, u16TiltPos;             ///< VISCA positions, two's complement
    BU_U32 u32PanPos, u32TiltPos, u32ZoomPos; ///< not read by the service
};
struct VISCA_CTRL_PTSPEED_S {
    VISCA_CTRL_PTSPEED_E enPanTiltType;
    BU_U32 u32PTSpeedParam;
};
struct VISCA_CTRL_IP_S {
    VISCA_CTRL_IP_E enIpType;
    BU_U32 u32IpVal; ///< first octet in bits 31...24
    BU_CHAR acIpInfoAscll[128];
};
/// Where on the network a message came from. Besides port and address the library keeps its own marks of a command in
/// the upper halves; a record is routed by what it holds, also as a copy and also after a restart.
struct VISCA_OVER_IP_MSG_S {
    OVER_IP_MSG_TYPE_E enMsgType;
    BU_U32 u32SnNum;  ///< sequence number, echoed in every answer
    BU_U32 u32Port;   ///< bits 0...15: UDP port of the controller
    BU_U64 u64IpAddr; ///< bits 0...31: its IPv4 address, first octet highest; TCP: the number of the connection
    BU_BOOL bEnable;  ///< it came with the 8-byte header, and answers get one
};
struct VISCA_MSG_PRI_S {
    tagVISCA_CMD_INQ_TYPE_E enMsgType;
    CMD_FROM_E enFrom;
    BU_U8 u8SocketNum; ///< 1 or 2; 0 for inquiries
    VISCA_OVER_IP_MSG_S stIpMsg;
};
struct VISCA_MSG_SYSTEM_STATUE_S {
    BU_S32 AA, VideoFormat, WebMod, RGain, BGain, FocusMode, IrisMode, AgcMode, VideoFlip, PtSpeed;
};
struct VISCA_MSG_AUTO_TRACKING_S {
    VISCA_CTRL_AUTO_TRACKING_E enAutoTrackingCtrl;
    tagVISCA_CTRL_AUTO_TRACK_MDOE_E enAutoTrackModeCtrl;
    VISCA_CTRL_SWITCH_E enAutoZoomCtrl, enAUtoTiltCtrl, enAUtoPanCtrl;
    VISCA_CTRL_INDICATOR_E enDetectedIndicatorCtrl;
    BU_S32 s32TrackingStartPositionpreset;
    VISCA_CTRL_OSD_REMINDER_E enOsdReminderCtrl;
    VISCA_CTRL_FIGURE_SIZE_E enFigureSizeCtrl;
    BU_S32 s32FigureSize; ///< 1...360
    VISCA_CTRL_SELECT_SUBJECT_E enSelectSubjectCtrl;
    VISCA_CTRL_PLACEMENT_E enPlacementCtrl;
    VISCA_CTRL_AT_SPEED_E enAtSpeedCtrl;
    BU_S32 s32AtLostTime; ///< seconds
    VISCA_CTRL_TRACK_PARAM_E enTRackParamType;
    BU_S32 s32PresetAreaId;
    VISCA_CTRL_PRESET_AREA_E enPresetAreaType;
    BU_S32 s32HeadPos, s32TrackSpeed;
    VISCA_CTRL_SWITCH_E enGestureDetect;
};
struct VISCA_MSG_TKV_TALLY_TYPE_S {
    BU_S32 RGBLed; ///< 0xRRGGBB
    VISCA_MSG_TKV_TALLY_TYPE_E enledmode;
};
struct VISCA_MSG_TKV_BLOCK_STATUE_S {
    BU_S32 ExpMode, GainLimit, Gain, ExpCompMode, ExpCompLevel, Iris, Shutter, Bright, WbMode, RGain, BGain, ColorTemp;
    BU_S32 Brightness, Sharpness, Flip, Mirror, WideDynamic, Contrast, AntiFlicker, TwoDNR, ThreeDNR, BackLight, Gamma;
    BU_S32 Saturation, Hue;
    BU_S32 RedHue, YellowHue, GreenHue, CayennHue, BlueHue, MagentaHue;
    BU_S32 RedSat, YellowSat, GreenSat, CayennSat, BlueSat, MagentaSat;
    BU_S32 AiTrack, AiMode, AiHumanoidFrame, AiTrackingHint, AiAutomations, AiLostTime, AiBodySize, AiBodySizeadjust;
    BU_S32 AiStartPos, AiCharacterPosition, Focus, Freeze, Power, MenuDisaply, Mute, VideoFormat, CameraVersion, Tally;
};
/// Extension pan/tilt data: a record, whatever its suffix says.
struct VISCA_MSG_YM_PAN_TILT_E {
    BU_U32 u32Type, u32PanSpeed, u32TiltSpeed, u32PanPos, u32TiltPos;
};
struct VISCA_MSG_YM_REVERSE_S {
    VISCA_MSG_YM_SWITCH_E enPanReverse, enTiltReverse;
};
struct VISCA_MSG_YM_VERSION_S {
    BU_U32 ModelCode, McpuVersion, FpgaVersion, MotorCtlVersion;
};

/// One decoded message. The library fills the fields that the message carries and zeroes the rest; inquiry handlers
/// write the fields that the reply carries. Its raw image is kept in a file over a power cycle, so the size is fixed.
struct tagVISCA_CTRL_INFO_S {
    BU_U8 u8Address;
    VISCA_CTRL_CANCEL_S stCancelCtrl;
    VISCA_CTRL_POWER_E enPowerCtrl;
    VISCA_CTRL_ZOOM_S stZoomCtrl;
    VISCA_CTRL_DZOOM_S stDZoomCtrl;
    VISCA_CTRL_FOCUS_S stFocusCtrl;
    VISCA_CTRL_ZOOM_FOCUS_S stZoomFocusCtrl;
    VISCA_CTRL_WB_MODE_E enWbModeCtrl;
    VISCA_CTRL_RGAIN_S stRGainCtrl;
    VISCA_CTRL_BGAIN_S stBGainCtrl;
    VISCA_CTRL_GGAIN_S stGGainCtrl;
    VISCA_CTRL_AWB_GAIN_S stAwbGainCtrl;
    VISCA_CTRL_COLORTEMP_S stColorTempCtrl;
    VISCA_CTRL_AE_S stAECtrl;
    VISCA_CTRL_SHUTTER_S stShutterCtrl;
    VISCA_CTRL_IRIS_S stIrisCtrl;
    VISCA_CTRL_GAIN_S stGainCtrl;
    VISCA_CTRL_BRIGHT_S stBrightCtrl;
    VISCA_CTRL_EXP_COMP_S stExpCompCtrl;
    VISCA_CTRL_WDR_S stWDRCtrl;
    VISCA_CTRL_BACKLIGHT_E enBalklightCtrl;
    VISCA_CTRL_APERTURE_S stApertureCtrl;
    VISCA_CTRL_MEMORY_S stMemoryCtrl;
    VISCA_CTRL_LED_E enTallyLed;
    VISCA_CTRL_IR_RECV_E enIrRecvCtrl;
    VISCA_CTRL_VIDEO_RESOLUTION_E enVideoCtrl;
    VISCA_CTRL_PT_S stPTCtlr;
    VISCA_CTRL_PTSPEED_S stPTSpeedCtrl;
    VISCA_CTRL_AUDIO_VOL_S stAudioVolCtrl;
    VISCA_CTRL_VIDEO_PARAM_S stVideoParamCtrl;
    VISCA_CTRL_IP_S stIpCtrl;
    VISCA_CTRL_AUDIO_MUTE_E enAudioMuteCtrl;
    VISCA_CTRL_QLS500_MODEL_E enQLS500Model;
    VISCA_CTRL_EXTRA_ISP_S stExtraIspCtrl;
    BU_U8 u8WbColorTmpDirect;
    VISCA_CTRL_IR_S stIrCtrl;
    VISCA_MSG_SYS_MENU_E eSysMenuOpt;
    BU_U16 u16Version;
    VISCA_MSG_PRI_S stMsgPri; ///< origin; the library routes the answer by it
    VISCA_MSG_SYSTEM_STATUE_S stSystemStatue;
    VISCA_MSG_AUTO_TRACKING_S stAutoTracking;
    VISCA_MSG_YM_TALLY_TYPE_E enTallyType;
    VISCA_MSG_TKV_TALLY_TYPE_S stTKVtTally;
    VISCA_MSG_TKV_BLOCK_STATUE_S stTkvBlockStatue;
    VISCA_MSG_YM_PAN_TILT_E stYMPt;
    VISCA_MSG_YM_RECORD_E enYMRecord;
    VISCA_MSG_YM_REVERSE_S stYMReverse;
    VISCA_MSG_YM_VERSION_S stYMVersion;
    VISCA_MSG_YM_PAN_TILT_E stYMPTCtrl;
    BU_S32 s32LastMemoryOperated;
};
typedef tagVISCA_CTRL_INFO_S VISCA_CTRL_INFO_S;
static_assert(sizeof(tagVISCA_CTRL_INFO_S) == 872 && sizeof(VISCA_OVER_IP_MSG_S) == 32);
static_assert(offsetof(tagVISCA_CTRL_INFO_S, stMsgPri) == 400 && offsetof(tagVISCA_CTRL_INFO_S, stSystemStatue) == 448);
static_assert(offsetof(tagVISCA_CTRL_INFO_S, stAutoTracking) == 488 && offsetof(tagVISCA_CTRL_INFO_S, stYMPt) == 800);
static_assert(offsetof(tagVISCA_CTRL_INFO_S, stTkvBlockStatue) == 580);
static_assert(offsetof(tagVISCA_CTRL_INFO_S, s32LastMemoryOperated) == 868);

/// Reply buffer. The library writes the head, the encoder the payload and the terminator.
struct tagVISCA_MSG_REQ_S {
    CMD_FROM_E enFrom;
    BU_U8 acCmd[128];
    BU_U32 u32CmdLen; ///< used bytes of acCmd
    VISCA_OVER_IP_MSG_S stIpMsg;
};
typedef tagVISCA_MSG_REQ_S VISCA_MSG_REQ_S;

/// Transmits an answer.
/// @param pvPrivate  the origin of the message: a `const VISCA_MSG_PRI_S *`
/// @param pvExtra    null
/// @return 0 sent, -1 the peer is gone
typedef BU_S32 (*PFN_VISCA_TRANS)(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *pvExtra);

struct VISCA_TRANS_HANDLER_S {
    CMD_FROM_E enCmdFrom;
    PFN_VISCA_TRANS pfnViscaCallTrans; ///< null: no answers on this origin
};
struct VISCA_TRAN_CALL_FUNC_S {
    BU_U32 u32FuncNum; ///< used entries
    VISCA_TRANS_HANDLER_S stViscaTransHandlers[7];
    void *pvPrivateData;
};

/// pfnViscaMsgCtrl: runs one decoded message, on the receiver's thread; several receivers may call at once.
///   It answers through VISCA_CtrlMsgReturn, now or when the message's motion has ended, and returns 0 or -1 when it
///   has answered, more than 0 when the answer follows, any other value when none will: the library then answers "not
///   executable".
/// pfnViscaMsgComplete: writes the payload of a successful message from acCmd[u32Offset] on, then 0xFF, and sets
///   u32CmdLen; called inside VISCA_CtrlMsgReturn.
struct VISCA_CTRL_CALL_FUNC_S {
    BU_S32 (*pfnViscaMsgCtrl)(tagVISCA_CMD_INQ_TYPE_E enType, tagVISCA_CTRL_INFO_S *pstInfo);
    BU_S32(*pfnViscaMsgComplete)
    (tagVISCA_CTRL_INFO_S *pstInfo, tagVISCA_MSG_REQ_S *pstReq, tagVISCA_CMD_INQ_TYPE_E enType, BU_U32 u32Offset);
};

/// Starts the receivers: the plain endpoint (UDP and TCP), VISCA over IP, and the serial ports set to VISCA.
/// The records are copied. A port that cannot be opened is logged; the others run.
/// @return 0, or -1: null, or no receiver of the network could be started
/// Starting again ends what runs first. Not from inside a dispatch, as VISCA_HandlerExit.
BU_S32 VISCA_HandlerInit(const VISCA_TRAN_CALL_FUNC_S *pstTrans, const VISCA_CTRL_CALL_FUNC_S *pstCtrl,
                         const tagCFG_VISCA_NET_S *pstNet, const tagCFG_VISCA_NET_S *pstOverIp);

/// Stops the receivers and closes every connection; commands that still run get no answer. Returns after the last
/// dispatch has ended.
BU_S32 VISCA_HandlerExit();

/// Finishes a message: sends completion, reply or error to the origin in pstInfo->stMsgPri.
/// May be called inside pfnViscaMsgCtrl, later from any thread with a copy of the record, or with one read from a file.
/// A command that has ended already (cancelled, superseded, timed out) is not answered again.
/// @param bOk  BU_FALSE: answered with "not executable", or, when the message has been waiting for its motion, with
///   "cancelled"
/// @return 0 sent or nothing to send, -1 null or the controller is gone
/// Thread: any.
BU_S32 VISCA_CtrlMsgReturn(tagVISCA_CTRL_INFO_S *pstInfo, BU_BOOL bOk);

/// The transmitters of the network origins, for the transmitter table.
BU_S32 VISCA_OverIpSendMsg(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *pvExtra);
BU_S32 VISCA_NetUdpSendMsg(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *pvExtra);
BU_S32 VISCA_NetTcpSendMsg(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *pvExtra);

/// The camera's VISCA address, 1...7.
/// @return 0, or -1: outside the range, or not stored
BU_S32 VISCA_API_GetAddr(BU_U8 *pu8Addr, BU_BOOL bReread);
BU_S32 VISCA_API_SetAddr(BU_U8 u8Addr, BU_BOOL bSaveCfg);

/// The running endpoints; an update stores the record and applies it at once. Connections of a changed endpoint close,
/// an unchanged one is not touched. @return 0, or -1 and all as before: port outside 1...65535, unknown protocol type,
/// port not free, not stored, or another update is under way
BU_S32 VISCA_NET_GetCurConfig(tagCFG_VISCA_NET_S *pstCfg);
BU_S32 VISCA_NET_UpdateConfig(const tagCFG_VISCA_NET_S *pstCfg);
BU_S32 VISCA_OverIp_GetCurConfig(tagCFG_VISCA_NET_S *pstCfg);
BU_S32 VISCA_OverIp_UpdateConfig(const tagCFG_VISCA_NET_S *pstCfg);
