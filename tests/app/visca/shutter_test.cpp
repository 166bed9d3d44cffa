#include "visca/visca.h"
#include "vocabulary/tables.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{
constexpr HDMI_FPS_E NO_FPS = HDMI_FPS_E_BUTT;

/// Denominators of the steps of a frame rate.
std::vector<int> steps(HDMI_FPS_E enFps)
{
    SHUTTER_TIME_E *penList = nullptr;
    int iCount = 0;
    getAvailableShutterValuesByFps(enFps, &penList, &iCount);
    std::vector<int> listSteps;
    for (int i = 0; i < iCount; ++i)
        listSteps.push_back(std::stoi(std::string(MAP_SHUTTER_TIME[penList[i]].text).substr(2)));
    return listSteps;
}
const std::vector<int> STEPS_24{24,  48,   96,   100,  125,  180,  250,  350,  500,
                                725, 1000, 1500, 2000, 3000, 4000, 6000, 10000};
const std::vector<int> STEPS_25{25, 50, 75, 100, 120, 150, 215, 425, 600, 1000, 1250, 1750, 2500, 3500, 6000, 10000};
const std::vector<int> STEPS_30{30,  60,   90,   100,  125,  180,  250,  350,  500,
                                725, 1000, 1500, 2000, 3000, 4000, 6000, 10000};
const std::vector<int> STEPS_50{50, 75, 100, 120, 150, 215, 300, 425, 600, 1000, 1250, 1750, 2500, 3500, 6000, 10000};
const std::vector<int> STEPS_60{60, 90, 100, 125, 180, 250, 350, 500, 725, 1000, 1500, 2000, 3000, 4000, 6000, 10000};
} // namespace

TEST(ViscaShutter, StepsFollowTheFrameRate)
{
    EXPECT_EQ(steps(HDMI_FPS_E_FPS60), STEPS_60);
    EXPECT_EQ(steps(HDMI_FPS_E_FPS59P94), STEPS_60);
    EXPECT_EQ(steps(HDMI_FPS_E_FPS50), STEPS_50);
    EXPECT_EQ(steps(HDMI_FPS_E_FPS30), STEPS_30);
    EXPECT_EQ(steps(HDMI_FPS_E_FPS29P97), STEPS_30);
    EXPECT_EQ(steps(HDMI_FPS_E_FPS25), STEPS_25);
    EXPECT_EQ(steps(HDMI_FPS_E_FPS24), STEPS_24);
    EXPECT_EQ(steps(HDMI_FPS_E_FPS23P98), STEPS_24);
    EXPECT_EQ(steps(NO_FPS), STEPS_60);
    EXPECT_EQ(steps(static_cast<HDMI_FPS_E>(-1)), STEPS_60);
}

TEST(ViscaShutter, UpAndDownWrapAndFindTheirWayBackFromOutside)
{
    struct tagSTEP_S {
        HDMI_FPS_E enFps;
        SHUTTER_TIME_E enFrom, enUp, enDown;
    };
    for (const auto &[enFps, enFrom, enUp, enDown] : {
             tagSTEP_S{HDMI_FPS_E_FPS60, SHUTTER_TIME_90, SHUTTER_TIME_100, SHUTTER_TIME_60},
             tagSTEP_S{HDMI_FPS_E_FPS60, SHUTTER_TIME_10000, SHUTTER_TIME_60, SHUTTER_TIME_6000},
             tagSTEP_S{HDMI_FPS_E_FPS60, SHUTTER_TIME_60, SHUTTER_TIME_90, SHUTTER_TIME_10000},
             tagSTEP_S{HDMI_FPS_E_FPS60, SHUTTER_TIME_50, SHUTTER_TIME_60, SHUTTER_TIME_10000}, // not in the list
             tagSTEP_S{HDMI_FPS_E_FPS25, SHUTTER_TIME_215, SHUTTER_TIME_425, SHUTTER_TIME_150},
             tagSTEP_S{HDMI_FPS_E_FPS25, SHUTTER_TIME_300, SHUTTER_TIME_25, SHUTTER_TIME_10000}, // not in the list
             tagSTEP_S{HDMI_FPS_E_FPS50, SHUTTER_TIME_215, SHUTTER_TIME_300, SHUTTER_TIME_150},
             tagSTEP_S{HDMI_FPS_E_FPS24, SHUTTER_TIME_10000, SHUTTER_TIME_24, SHUTTER_TIME_6000},
             tagSTEP_S{HDMI_FPS_E_FPS30, SHUTTER_TIME_30, SHUTTER_TIME_60, SHUTTER_TIME_10000},
         }) {
        EXPECT_EQ(getNextShutterTime(enFps, enFrom), enUp) << enFps << " " << enFrom;
        EXPECT_EQ(getPreviousShutterTime(enFps, enFrom), enDown) << enFps << " " << enFrom;
    }
}

TEST(ViscaShutter, PositionsToSpeeds)
{
    struct tagPOSITION_S {
        HDMI_FPS_E enFps;
        BU_U8 u8Position;
        SHUTTER_TIME_E enShutter;
    };
    for (const auto &[enFps, u8Position, enShutter] : {
             tagPOSITION_S{HDMI_FPS_E_FPS60, 5, SHUTTER_TIME_BUTT},
             tagPOSITION_S{HDMI_FPS_E_FPS60, 6, SHUTTER_TIME_60},
             tagPOSITION_S{HDMI_FPS_E_FPS59P94, 7, SHUTTER_TIME_90},
             tagPOSITION_S{HDMI_FPS_E_FPS59P94, 21, SHUTTER_TIME_10000},
             tagPOSITION_S{HDMI_FPS_E_FPS59P94, 22, SHUTTER_TIME_BUTT},
             tagPOSITION_S{HDMI_FPS_E_FPS50, 5, SHUTTER_TIME_BUTT},
             tagPOSITION_S{HDMI_FPS_E_FPS50, 6, SHUTTER_TIME_50},
             tagPOSITION_S{HDMI_FPS_E_FPS50, 21, SHUTTER_TIME_10000},
             tagPOSITION_S{HDMI_FPS_E_FPS30, 4, SHUTTER_TIME_BUTT},
             tagPOSITION_S{HDMI_FPS_E_FPS30, 5, SHUTTER_TIME_30},
             tagPOSITION_S{HDMI_FPS_E_FPS29P97, 6, SHUTTER_TIME_60},
             tagPOSITION_S{HDMI_FPS_E_FPS29P97, 21, SHUTTER_TIME_10000},
             tagPOSITION_S{HDMI_FPS_E_FPS25, 5, SHUTTER_TIME_25},
             tagPOSITION_S{HDMI_FPS_E_FPS25, 12, SHUTTER_TIME_300}, // though it is no step of this rate
             tagPOSITION_S{HDMI_FPS_E_FPS25, 21, SHUTTER_TIME_10000},
             tagPOSITION_S{HDMI_FPS_E_FPS25, 22, SHUTTER_TIME_BUTT},
             tagPOSITION_S{HDMI_FPS_E_FPS24, 5, SHUTTER_TIME_24},
             tagPOSITION_S{HDMI_FPS_E_FPS23P98, 7, SHUTTER_TIME_96},
             tagPOSITION_S{HDMI_FPS_E_FPS23P98, 255, SHUTTER_TIME_BUTT},
             tagPOSITION_S{HDMI_FPS_E_FPS24, 0, SHUTTER_TIME_BUTT},
             tagPOSITION_S{NO_FPS, 6, SHUTTER_TIME_BUTT},
             tagPOSITION_S{NO_FPS, 21, SHUTTER_TIME_BUTT},
         })
        EXPECT_EQ(convertViscaValueToShutterTime(enFps, u8Position), enShutter) << enFps << " " << int(u8Position);
}

TEST(ViscaShutter, SpeedsToPositions)
{
    struct tagPOSITION_S {
        HDMI_FPS_E enFps;
        SHUTTER_TIME_E enShutter;
        BU_S32 s32Position;
    };
    for (const auto &[enFps, enShutter, s32Position] : {
             tagPOSITION_S{HDMI_FPS_E_FPS60, SHUTTER_TIME_30, 5},
             tagPOSITION_S{HDMI_FPS_E_FPS60, SHUTTER_TIME_60, 6},
             tagPOSITION_S{HDMI_FPS_E_FPS60, SHUTTER_TIME_50, 6}, // no position of its own
             tagPOSITION_S{HDMI_FPS_E_FPS30, SHUTTER_TIME_24, 6},
             tagPOSITION_S{HDMI_FPS_E_FPS29P97, SHUTTER_TIME_90, 7},
             tagPOSITION_S{HDMI_FPS_E_FPS59P94, SHUTTER_TIME_10000, 21},
             tagPOSITION_S{HDMI_FPS_E_FPS50, SHUTTER_TIME_25, 5},
             tagPOSITION_S{HDMI_FPS_E_FPS50, SHUTTER_TIME_50, 6},
             tagPOSITION_S{HDMI_FPS_E_FPS25, SHUTTER_TIME_300, 12},
             tagPOSITION_S{HDMI_FPS_E_FPS25, SHUTTER_TIME_60, 6},
             tagPOSITION_S{HDMI_FPS_E_FPS24, SHUTTER_TIME_24, 5},
             tagPOSITION_S{HDMI_FPS_E_FPS24, SHUTTER_TIME_48, 6},
             tagPOSITION_S{HDMI_FPS_E_FPS23P98, SHUTTER_TIME_60, 5},
             tagPOSITION_S{HDMI_FPS_E_FPS23P98, SHUTTER_TIME_10000, 21},
             tagPOSITION_S{NO_FPS, SHUTTER_TIME_60, 5},
             tagPOSITION_S{NO_FPS, SHUTTER_TIME_30, 5},
             tagPOSITION_S{NO_FPS, SHUTTER_TIME_90, 6},
             tagPOSITION_S{NO_FPS, SHUTTER_TIME_10000, 20},
             tagPOSITION_S{HDMI_FPS_E_FPS60, SHUTTER_TIME_BUTT, 6},
         })
        EXPECT_EQ(convertShutterTimeToViscaValue(enFps, enShutter), s32Position) << enFps << " " << enShutter;
}

// What a controller sets by position it must read back.
TEST(ViscaShutter, EveryPositionThatCanBeSetIsReadBack)
{
    for (int iFps = 0; iFps < HDMI_FPS_E_BUTT; ++iFps)
        for (int iPosition = 0; iPosition < 256; ++iPosition) {
            const auto enFps = static_cast<HDMI_FPS_E>(iFps);
            const auto enShutter = convertViscaValueToShutterTime(enFps, static_cast<BU_U8>(iPosition));
            if (enShutter == SHUTTER_TIME_BUTT) continue;
            EXPECT_EQ(convertShutterTimeToViscaValue(enFps, enShutter), iPosition) << iFps;
        }
}
