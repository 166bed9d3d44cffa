// The factory restore over all libraries: what each bit takes back, and that what runs follows.
#include "../settings/settingsTest.h"
#include "camera/image.h"
#include "camera/preset.h"
#include "camera/restore.h"
#include "camera/tracking.h"
#include "camera/webPort.h"
#include "config/liveMedia.h"
#include "live/pipelineLive.h"
#include "media/encoder.h"
#include "protocol/freed.h"
#include "protocol/visca.h"

namespace
{
// clang-format off
/// A key of each section with a value that is not the factory's, by the bit that takes it back.
const std::pair<BU_S32, std::vector<std::pair<std::string, std::string>>> ROWS[] = {
    {SYSTEM_RESTORE_E_IMAGE, {{"Image0/Contrast", "9"}, {"Image1/Contrast", "9"}, {"Exposure0/Gain", "3"}, {"WhiteBalance0/RGain", "9"}}},
    {SYSTEM_RESTORE_E_PTZ, {{"Lens0/ZoomSpd", "3"}, {"PanTilt0/PanSpeed", "9"}}},
    {SYSTEM_RESTORE_E_TRACK, {{"Track/TrackSpeed", "3"}, {"Track/Correction", "1 2"}}},
    {SYSTEM_RESTORE_E_SYSTEM, {{"System/Prompt", "0"}, {"Video/ScreenSaver", "1"}, {"Audio/AudioVolume", "9"}, {"Lamp/TallyMode", "2"}}},
    {SYSTEM_RESTORE_E_CONTROL, {{"Control/IrAddr", "3"}, {"Visca/Address", "3"}, {"ViscaNet/PortNum", "2000"}, {"ViscaOverIp/PortNum", "2001"}, {"Freed/CammeraId", "7"}}},
    {SYSTEM_RESTORE_E_MEDIA, {{"LiveMedia/1/rtsp/SessionName", "x"}, {"LiveMedia/general/rtsp/Port", "555"}, {"PipelineLive/Ndi/0/GroupName", "x"},
                              {"PipelineLive/Rtsp/Sessions", "1\ta\tb\n"}, {"Venc/1/Width", "320"}}},
    {SYSTEM_RESTORE_E_NETWORK, {{"Network/NetCard0/IpAddr", "10.0.0.9"}, {"Network/HostName", "x"}, {"Http/Port", "81"}}},
    {SYSTEM_RESTORE_E_PRESET, {{"ImagePreset5/Name", "x"}}}, {0, {{"Nobodys/Key", "x"}}},
};
/// What is asked for, and the bits that it stands for; -1: none, it is refused.
struct Request {
    BU_S32 s32Bitmap, s32Bits;
};
constexpr Request REQUESTS[] = {{0, 63}, {-1, 255}, {1, 1}, {2, 2}, {4, 4}, {8, 8}, {16, 16}, {32, 32}, {64, 64}, {128, 128},
                                {255, 255}, {18, 18}, {256, -1}, {-2, -1}};
// clang-format on

BU_S32 defaultOf(const BU_CHAR *pcKey)
{
    BU_S32 s32Default = INT32_MIN;
    ISP_AF_GetDefVal(pcKey, &s32Default);
    return s32Default;
}

struct FactoryRestore : PlatformTest, testing::WithParamInterface<Request> {
};
TEST_P(FactoryRestore, TakesBackWhatTheBitsSayAndNothingElse)
{
    const auto [s32Bitmap, s32Bits] = GetParam();
    MPP_GetVencSource(0), IMAGE_PRESET_API_DeleteById(0); // whoever keeps something is there
    for (const auto &[s32Bit, listKeys] : ROWS) ASSERT_EQ(CFG_STORE_SetTexts(listKeys), 0);
    CFG_STORE_SetPreset({});
    CFG_SETTING_Reload();
    const BU_S32 s32Id = CFG_SETTING_Listen([](const CFG_SETTING_EVENT_S &st) {
        EXPECT_EQ(running(st.pcKey, st.s32Pipe), defaultOf(st.pcKey))
            << st.pcKey; // who hears of it finds the new value
    });
    EXPECT_EQ(SYSTEM_API_FactoryRestoreConfiguration(s32Bitmap), s32Bits < 0 ? -1 : 0);
    UTIL_THREAD_WaitAsync();
    CFG_SETTING_Unlisten(s32Id);
    for (const auto &[s32Bit, listKeys] : ROWS)
        for (const auto &[strKey, strValue] : listKeys) {
            const bool bBack = s32Bits > 0 && (s32Bit & s32Bits || s32Bitmap == -1);
            std::string strNow = "-";
            CFG_STORE_GetText(strKey.c_str(), &strNow);
            EXPECT_EQ(strNow, bBack ? "-" : strValue) << strKey;
            const std::string strName = strKey.substr(strKey.rfind('/') + 1);
            if (defaultOf(strName.c_str()) == INT32_MIN) continue; // no setting
            for (const BU_BOOL bReread : {BU_FALSE, BU_TRUE})
                EXPECT_EQ(settingOf(strName.c_str(), strKey.find("1/") != strKey.npos, bReread),
                          bBack ? defaultOf(strName.c_str()) : std::stoi(strValue))
                    << strKey << bReread;
        }
    EXPECT_EQ(CFG_STORE_ListPresets().empty(), s32Bits > 0 && s32Bits & SYSTEM_RESTORE_E_PRESET);
}
INSTANTIATE_TEST_SUITE_P(Bits, FactoryRestore, testing::ValuesIn(REQUESTS));

using Restore = PlatformTest;

TEST_F(Restore, WhatRunsFollows)
{
    tagCFG_VISCA_NET_S stNet{1, 2, 2000, 0, {}}, stOverIp{1, 2, 2001, 0, {}};
    CFG_NDI_SESSION_S stNdi;
    MPP_NDI_GetInstance(0, stNdi);
    stNdi.sGroupName = "hall";
    EXPECT_EQ(VISCA_NET_UpdateConfig(&stNet) + VISCA_OverIp_UpdateConfig(&stOverIp) + VISCA_API_SetAddr(3, BU_FALSE) +
                  SetCammeraId(7, BU_FALSE) + MPP_NDI_UpdateInstance(stNdi, BU_FALSE) +
                  MPP_RTSP_AddOrUpdateMediaSubsession("a", "video", 1) + CFG_STORE_SetInt("Http/Port", 81),
              0);
    const auto after = [&](BU_S32 s32Bits) {
        BU_U8 u8Address = 0;
        BU_S32 s32Http = 0;
        EXPECT_EQ(SYSTEM_API_FactoryRestoreConfiguration(s32Bits), 0);
        UTIL_THREAD_WaitAsync();
        VISCA_NET_GetCurConfig(&stNet), VISCA_OverIp_GetCurConfig(&stOverIp), VISCA_API_GetAddr(&u8Address, BU_FALSE);
        MPP_NDI_GetInstance(0, stNdi), CFG_SYSTEM_GetHttpPort(&s32Http, nullptr);
        return std::tuple(stNet.PortNum, stOverIp.PortNum, +u8Address, *GetCammeraIdGst(), stNdi.sGroupName, s32Http,
                          MPP_RTSP_ListMediaSession().size());
    };
    EXPECT_EQ(after(SYSTEM_RESTORE_E_IMAGE), std::tuple(2000, 2001, 3, 7, "hall", 81, 1u));
    EXPECT_EQ(after(SYSTEM_RESTORE_E_ALL), std::tuple(1259, 52381, 1, 0, "", 80, 0u));
}
} // namespace
