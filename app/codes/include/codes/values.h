/// The tables: every setting whose values a protocol numbers in a way of its own.
#pragma once

#include "board/lamp.h"
#include "camera/image.h"
#include "camera/tracking.h"
#include "codes/codes.h"
#include "protocol/visca.h"

namespace codes
{
// clang-format off
/// On and off; any other value of a switch is on.
inline constexpr Table SWITCHES{{{BU_TRUE, VISCA_MSG_E_SWITCH_ON}, {BU_FALSE, VISCA_MSG_E_SWITCH_OFF}},
                                {Wider{&Row::s32Visca, VISCA_MSG_E_SWITCH_ON}}};
inline constexpr Table AUDIO_MUTES{{{BU_TRUE, VISCA_MSG_E_AUDIO_MUTE_ON}, {BU_FALSE, VISCA_MSG_E_AUDIO_MUTE_OFF}},
                                   {Wider{&Row::s32Visca, VISCA_MSG_E_AUDIO_MUTE_ON}}};

inline constexpr Table WB_MODES{{{WB_MODE_E_AUTO,     VISCA_MSG_E_WB_AUTO},
                                 {WB_MODE_E_INDOOR,   VISCA_MSG_E_WB_INDOOR},
                                 {WB_MODE_E_OUTDOOR,  VISCA_MSG_E_WB_OUTDOOR},
                                 {WB_MODE_E_ONE_PUSH, VISCA_MSG_E_WB_ONE_PUSH_WB},
                                 {WB_MODE_E_MANUAL,   VISCA_MSG_E_WB_MANUAL},
                                 {WB_MODE_E_STATIC,   VISCA_MSG_E_WB_COLOR_TEMPERATURE}}};
inline constexpr Table AE_MODES{{{AE_MODE_E_AUTO,    VISCA_MSG_E_AE_FULL_AUTO},
                                 {AE_MODE_E_MANUAL,  VISCA_MSG_E_AE_NANUAL},
                                 {AE_MODE_E_SHUTTER, VISCA_MSG_E_AE_SHUTTER_PRIORITY},
                                 {AE_MODE_E_IRIS,    VISCA_MSG_E_AE_IRIS_PRIORITY},
                                 {AE_MODE_E_BRIGHT,  VISCA_MSG_E_AE_BRIGHT}}};
inline constexpr Table ANTI_FLICKERS{{{FREQ_MODE_E_OUTDOOR, 0}, {FREQ_MODE_E_50HZ, 1}, {FREQ_MODE_E_60HZ, 2}}};
inline constexpr Table IMAGE_STYLES{{{NON_STYLE, 0}, {Bright_STYLE, 1}, {Soft_STYLE, 2}}};
inline constexpr Table FOCUS_AREAS{{{0, VISCA_MSG_E_SET_FOCUS_ZONE_GlOBAL},
                                    {1, VISCA_MSG_E_SET_FOCUS_ZONE_CENTER},
                                    {2, VISCA_MSG_E_SET_FOCUS_ZONE_UPPER},
                                    {3, VISCA_MSG_E_SET_FOCUS_ZONE_DOWN},
                                    {4, VISCA_MSG_E_SET_FOCUS_ZONE_FUTURE}}};
inline constexpr Table SPEED_ACCURACIES{{{1, 0}, {10, 1}, {100, 2}}};
inline constexpr Table TALLY_MODES{{{LED_TALLY_MODE_E_CLOSE,            VISCA_MSG_TKV_NORMAL_TALLY_OFF},
                                    {LED_TALLY_MODE_E_COLOR_W,          VISCA_MSG_TKV_NORMAL_TALLY_WHITE},
                                    {LED_TALLY_MODE_E_COLOR_CUSTOM,     VISCA_MSG_TKV_NORMAL_TALLY_CUSTOM},
                                    {LED_TALLY_MODE_E_COLOR_RGB_CIRCLE, VISCA_MSG_TKV_NORMAL_TALLY_RGBCYCLE}}};

inline constexpr Table TRACK_MODES{{{TRACK_MODE_E_AUTO_FRAMEING,       VISCA_MSG_E_AUTO_TRACKING_AUTOFRAM},
                                    {TRACK_MODE_E_DUAL_TRACKING,       VISCA_MSG_E_AUTO_TRACKING_DUAL},
                                    {TRACK_MODE_E_EVERYWHERE_TRACKING, VISCA_MSG_E_AUTO_TRACKING_EVERYTHING},
                                    {TRACK_MODE_E_ZONE_TRACKING,       VISCA_MSG_E_AUTO_TRACKING_ZONE},
                                    {TRACK_MODE_E_STAGE_TRACKING,      VISCA_MSG_E_AUTO_TRACKING_STAGE}}};
/// The other numbers: the tracking-start inquiry.
inline constexpr Table START_POSITIONS{{{TRACK_LOST_ACTION_E_PRESET_HOME, 0},
                                        {TRACK_LOST_ACTION_E_PRESET_0,    1, 2},
                                        {TRACK_LOST_ACTION_E_PRESET_1,    2, 0},
                                        {TRACK_LOST_ACTION_E_NONE,        3}}};
inline constexpr Table BODY_SIZES{{{TRACK_BODY_SIZE_E_FULL,     VISCA_MSG_E_FIGURE_SIZE_FULL},
                                   {TRACK_BODY_SIZE_E_HALF,     VISCA_MSG_E_FIGURE_SIZE_HALF_BODY},
                                   {TRACK_BODY_SIZE_E_CLOSE_UP, VISCA_MSG_E_FIGURE_SIZE_CLOSE_UP},
                                   {TRACK_BODY_SIZE_E_CUSTOM,   VISCA_MSG_E_FIGURE_SIZE_CUSTOMIZED}}};
inline constexpr Table PLACEMENTS{{{TRACK_PEOPLE_POS_LEFT,   VISCA_MSG_E_PLACEMENT_LEFT},
                                   {TRACK_PEOPLE_POS_CENTER, VISCA_MSG_E_PLACEMENT_CENTER},
                                   {TRACK_PEOPLE_POS_RIGHT,  VISCA_MSG_E_PLACEMENT_RIGHT}},
                                  {Wider{&Row::s32Visca, VISCA_MSG_E_PLACEMENT_LEFT}}};
inline constexpr Table LOST_TIMES{{{0, 2}, {1, 4}, {2, 6}}}; ///< the numbers are seconds
inline constexpr Table OSD_REMINDERS{{{0, VISCA_MSG_E_OSD_REMINDER_OFF}, {1, VISCA_MSG_E_OSD_REMINDER_ON}}};
/// The setting's low, mid, high, smooth and fast. The other numbers: the grouped command and its inquiry.
inline constexpr Table TRACK_SPEEDS{{{0, VISCA_MSG_E_AT_SPEED_SLOW},
                                     {1, VISCA_MSG_E_AT_SPEED_MID},
                                     {2, VISCA_MSG_E_AT_SPEED_FASET},
                                     {3, NONE, 0},
                                     {4, NONE, 1}},
                                    {Wider{&Row::s32Visca, VISCA_MSG_E_AT_SPEED_FASET}, Wider{&Row::s32ViscaOther, 1}}};

/// Output format and frame rate as one value.
constexpr BU_S32 video(BU_S32 s32Format, BU_S32 s32Fps) { return s32Format << 8 | s32Fps; }
constexpr BU_S32 formatOf(BU_S32 s32Video) { return s32Video >> 8; }
constexpr BU_S32 fpsOf(BU_S32 s32Video) { return s32Video & 0xFF; }
/// The other numbers: the block inquiry.
inline constexpr Table VIDEO_FORMATS{{{video(HDMI_FORMAT_E_4K,    HDMI_FPS_E_FPS60),    VISCA_MSG_E_VIDEO_4KP60,          0x38},
                                      {video(HDMI_FORMAT_E_4K,    HDMI_FPS_E_FPS59P94), NONE,                             0x37},
                                      {video(HDMI_FORMAT_E_4K,    HDMI_FPS_E_FPS50),    VISCA_MSG_E_VIDEO_4KP50,          0x36},
                                      {video(HDMI_FORMAT_E_4K,    HDMI_FPS_E_FPS30),    VISCA_MSG_E_VIDEO_4KP30,          0x35},
                                      {video(HDMI_FORMAT_E_4K,    HDMI_FPS_E_FPS29P97), NONE,                             0x34},
                                      {video(HDMI_FORMAT_E_4K,    HDMI_FPS_E_FPS25),    VISCA_MSG_E_VIDEO_4KP25,          0x33},
                                      {video(HDMI_FORMAT_E_1080P, HDMI_FPS_E_FPS60),    VISCA_MSG_E_VIDEO_1920x1080P60,   0x08},
                                      {video(HDMI_FORMAT_E_1080P, HDMI_FPS_E_FPS59P94), VISCA_MSG_E_VIDEO_1920x1080P5994, 0x07},
                                      {video(HDMI_FORMAT_E_1080P, HDMI_FPS_E_FPS50),    VISCA_MSG_E_VIDEO_1920x1080P50,   0x06},
                                      {video(HDMI_FORMAT_E_1080P, HDMI_FPS_E_FPS30),    VISCA_MSG_E_VIDEO_1920x1080P30,   0x05},
                                      {video(HDMI_FORMAT_E_1080P, HDMI_FPS_E_FPS29P97), VISCA_MSG_E_VIDEO_1920x1080P2997, 0x04},
                                      {video(HDMI_FORMAT_E_1080P, HDMI_FPS_E_FPS25),    VISCA_MSG_E_VIDEO_1920x1080P25,   0x03},
                                      {video(HDMI_FORMAT_E_1080I, HDMI_FPS_E_FPS60),    VISCA_MSG_E_VIDEO_1920x1080I60,   0x15},
                                      {video(HDMI_FORMAT_E_1080I, HDMI_FPS_E_FPS59P94), NONE,                             0x14},
                                      {video(HDMI_FORMAT_E_1080I, HDMI_FPS_E_FPS50),    NONE,                             0x13},
                                      {video(HDMI_FORMAT_E_1080I, HDMI_FPS_E_FPS25),    VISCA_MSG_E_VIDEO_1920x1080I25},
                                      {video(HDMI_FORMAT_E_720P,  HDMI_FPS_E_FPS60),    VISCA_MSG_E_VIDEO_1280x720P60,    0x28},
                                      {video(HDMI_FORMAT_E_720P,  HDMI_FPS_E_FPS59P94), VISCA_MSG_E_VIDEO_1280x720P5994},
                                      {video(HDMI_FORMAT_E_720P,  HDMI_FPS_E_FPS50),    VISCA_MSG_E_VIDEO_1280x720P50,    0x26},
                                      {video(HDMI_FORMAT_E_720P,  HDMI_FPS_E_FPS30),    VISCA_MSG_E_VIDEO_1280x720P30},
                                      {video(HDMI_FORMAT_E_720P,  HDMI_FPS_E_FPS25),    VISCA_MSG_E_VIDEO_1280x720P25}},
                                     {Wider{&Row::s32ViscaOther, 0x38}}};
// clang-format on
} // namespace codes
