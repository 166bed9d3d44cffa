// Inquiries of the system, the network and the video output.
#include "viscaTest.h"

#include "board/device.h"
#include "board/lamp.h"
#include "camera/menu.h"
#include "camera/network.h"
#include "camera/systemService.h"
#include "media/audio.h"

#include <array>

TEST_F(ViscaInquiry, System)
{
    const auto ir = [](BU_S32 s32) {
        return [=](INFO &st) { st.stIrCtrl.enIrType = static_cast<VISCA_CTRL_IR_E>(s32); };
    };
    const auto delivered = [](INFO &st) { st.stTKVtTally.enledmode = VISCA_MSG_TKV_NDI_TALLY_PREVIEW; };
    const auto volume = [](INFO &) {
        AI_ATTR_S stAttr{};
        AUDIO_AI_GetAttr(AUDIO_AI_GetFirstEnabledId(), &stAttr);
        stAttr.s32Volume = 0x4D;
        AUDIO_AI_SetAttr(AUDIO_AI_GetFirstEnabledId(), &stAttr, RAM);
    };
    // clang-format off
    check({
        {VISCA_INQ_E_POWER,          {}, "02", [](INFO &st) { st.enPowerCtrl = VISCA_MSG_E_POWER_OFF; }},
        {VISCA_INQ_E_IR_RECV,        {{"IrSwitch", 1}},    "02"},
        {VISCA_INQ_E_IR_RECV,        {{"IrSwitch", 0}},    "03"},
        {VISCA_INQ_E_IR_INFO,        {{"IrSwitch", 0}, {"IrAddr", 4}}, "03", ir(VISCA_MSG_E_IR_MODE)},
        {VISCA_INQ_E_IR_INFO,        {},                   "04", ir(VISCA_MSG_E_IR_ADDR)},
        {VISCA_INQ_E_IR_INFO,        {},                   "refused", ir(2)},
        {VISCA_INQ_E_MENU,           {}, "02", [](INFO &) { CMD_MENU_OnlyOpenMenu(); }},
        {VISCA_INQ_E_MENU,           {}, "03", [](INFO &) { CMD_MENU_OnlyCloseMenu(); }},
        {VISCA_INQ_E_TALLY_MODE,     {{"!TallyMode", LED_TALLY_MODE_E_CLOSE}},            "0A"}, // the stored one is asked for
        {VISCA_INQ_E_TALLY_MODE,     {{"!TallyMode", LED_TALLY_MODE_E_COLOR_W}},          "0B"},
        {VISCA_INQ_E_TALLY_MODE,     {{"!TallyMode", LED_TALLY_MODE_E_COLOR_CUSTOM}},     "0C"},
        {VISCA_INQ_E_TALLY_MODE,     {{"!TallyMode", LED_TALLY_MODE_E_COLOR_RGB_CIRCLE}}, "0D"},
        {VISCA_INQ_E_TALLY_MODE,     {{"!TallyMode", LED_TALLY_MODE_E_COLOR_R}}, "02", delivered}, // red has no number
        {VISCA_INQ_E_NDI_TALLY_MODE, {{"TallyOnBoard", 1}}, "02"},
        {VISCA_INQ_E_NDI_TALLY_MODE, {{"TallyOnBoard", 0}}, "03"},
        {VISCA_INQ_E_CUSTOM_TALLY,   {{"TallyCustomColor", 0x12ABEF}}, "01 02 0A 0B 0E 0F"},
        {VISCA_INQ_E_TKV_AUDIO,      {{"AudioMute", 1}},   "03"},
        {VISCA_INQ_E_TKV_AUDIO,      {{"AudioMute", 0}},   "02"},
        {VISCA_INQ_E_AUDIO_VOLUME,   {},                   "04 0D", volume},
    });
    // clang-format on

    INFO stInfo{};
    VISCA_API_SetAddr(6, BU_TRUE);
    EXPECT_EQ(answer(VISCA_INQ_E_GET_ADDRESS, stInfo), "");
    EXPECT_EQ(stInfo.u8Address, 6);
    VISCA_API_SetAddr(1, BU_TRUE);

    FIRMWARE_INFO_V2_S stFw{};
    BSP_VER_GetProductVersion(&stFw);
    const BU_U32 u32Version = (stFw.au8CamVersion[0] << 12) + (stFw.au8CamVersion[1] % 16 << 8) + stFw.au8CamVersion[2];
    char acPayload[32];
    std::snprintf(acPayload, sizeof(acPayload), "02 01 06 07 %02X %02X 02", u32Version >> 8 & 0xFF, u32Version & 0xFF);
    EXPECT_EQ(answer(VISCA_INQ_E_VERSION), acPayload);
}

TEST_F(ViscaInquiry, Network)
{
    NET_API_SetIpMode("NetCard0", IP_MODE_E_STATIC);
    NET_API_SetIpAddr("NetCard0", "192.168.1.10");
    NET_API_SetNetMask("NetCard0", "255.255.255.0");
    NET_API_SetGateWay("NetCard0", "192.168.1.254");
    const auto ip = [](BU_S32 s32Type) {
        return [=](INFO &st) { st.stIpCtrl.enIpType = static_cast<VISCA_CTRL_IP_E>(s32Type); };
    };
    check({
        {VISCA_INQ_E_IP, {}, "0C 00 0A 08 00 01 00 0A", ip(VISCA_MSG_E_IP_ADDRESS)},
        {VISCA_INQ_E_IP, {}, "0F 0F 0F 0F 0F 0F 00 00", ip(VISCA_MSG_E_IP_MASK)},
        {VISCA_INQ_E_IP, {}, "0C 00 0A 08 00 01 0F 0E", ip(VISCA_MSG_E_IP_GATEWAY)},
        {VISCA_INQ_E_IP, {}, "refused", ip(VISCA_MSG_E_IP_APPLYA)},
        {VISCA_INQ_E_IP, {}, "refused", ip(0)},
        {VISCA_INQ_E_IP_DHCP_MODE, {}, "03"},
        {VISCA_INQ_E_IP_DHCP_MODE, {}, "02", [](INFO &) { NET_API_SetIpMode("NetCard0", IP_MODE_E_DHCP); }},
    });

    NET_API_SetIpMode("NetCard0", IP_MODE_E_STATIC);
    INFO stInfo{};
    ASSERT_EQ(dispatch(VISCA_INQ_E_IP_INFO_ASCLL, stInfo), 0);
    tagVISCA_MSG_REQ_S stReq{};
    viscaCompleteHandlerCallFunc(&stInfo, &stReq, VISCA_INQ_E_IP_INFO_ASCLL, 2);
    EXPECT_EQ(std::string(reinterpret_cast<char *>(stReq.acCmd) + 2, stReq.u32CmdLen - 2),
              "192.168.1.10:255.255.255.0:192.168.1.254\xFF");

    // The bytes of the answer so far are traced with its head.
    stInfo.stIpCtrl.u32IpVal = 0xC0A8010A;
    stReq.acCmd[0] = 0x90;
    stReq.acCmd[1] = 0x50;
    testing::internal::CaptureStdout();
    viscaCompleteHandlerCallFunc(&stInfo, &stReq, VISCA_INQ_E_IP, 2);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "90,50,c,0,a,8,0,1,0,a,\n");
}

TEST_F(ViscaInquiry, VideoFormat)
{
    // Rates of each format: the code of the inquiry ("": refused) and the one in the block answer.
    struct {
        HDMI_FORMAT_E enFormat;
        std::vector<std::array<const char *, 2>> codes; // in the order of HDMI_FPS_E
    } const rows[] = {
        // clang-format off
        {HDMI_FORMAT_E_4K,    {{"06", "38"}, {"", "37"},   {"0E", "36"}, {"07", "35"}, {"", "34"},   {"0F", "33"}, {"", "38"}}},
        {HDMI_FORMAT_E_1080P, {{"00", "08"}, {"10", "07"}, {"08", "06"}, {"01", "05"}, {"11", "04"}, {"09", "03"}, {"", "38"}, {"", "38"}}},
        {HDMI_FORMAT_E_1080I, {{"02", "15"}, {"10", "14"}, {"08", "13"}, {},           {},           {"0A", "38"}}},
        {HDMI_FORMAT_E_720P,  {{"03", "28"}, {"12", "38"}, {"0B", "26"}, {"04", "38"}, {"", "38"},   {"0C", "38"}}},
        // clang-format on
    };
    for (const auto &row : rows)
        for (std::size_t fps = 0; fps < row.codes.size(); ++fps) {
            const auto [pcCode, pcBlockCode] = row.codes[fps];
            if (!pcCode) continue;
            CFG_SETTING_Set("Format", 0, row.enFormat, RAM, NOW);
            CFG_SETTING_Set("Fps", 0, static_cast<BU_S32>(fps), RAM, NOW);
            EXPECT_EQ(answer(VISCA_INQ_E_VIDEO_RESOLUTION), *pcCode ? pcCode : "refused") << row.enFormat << ' ' << fps;
            EXPECT_EQ(answer(VISCA_INQ_E_TKV_BLOCK_DATA).substr(85 * 3, 2), pcBlockCode) << row.enFormat << ' ' << fps;
        }
    journal::inject("MPP_GetVoutCfg", -3);
    EXPECT_EQ(answer(VISCA_INQ_E_VIDEO_RESOLUTION), "silent");
}
