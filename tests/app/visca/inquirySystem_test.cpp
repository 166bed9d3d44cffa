// Inquiries of the system, the network and the video output.
#include "viscaTest.h"

#include "board/device.h"
#include "board/lamp.h"
#include "camera/menu.h"
#include "camera/network.h"
#include "camera/serial.h"
#include "camera/system.h"
#include "camera/systemService.h"
#include "media/audio.h"

namespace
{
void output(const char *pcFormat, const char *pcFps) { SYSTEM_API_SetHdmiCfg(pcFormat, pcFps, HDMI_CS_E_YUV422, RAM); }
} // namespace

TEST_F(ViscaInquiry, System)
{
    const auto ir = [](VISCA_CTRL_IR_E enType) {
        return [=](INFO &st) {
            IR_API_SetSwitch("Off", RAM);
            IR_API_SetAddr(4, RAM, IRADDR_SWITCH_E_SOFT);
            st.stIrCtrl.enIrType = enType;
        };
    };
    // The stored tally mode is asked for.
    const auto tally = [](BU_S32 s32Mode) {
        return [=](INFO &) { LED_API_SetTallyMode("TallyLed", s32Mode, BU_TRUE, 0); };
    };
    check({
        {"power", VISCA_INQ_E_POWER, [](INFO &st) { st.enPowerCtrl = VISCA_MSG_E_POWER_OFF; }, "02"},
        {"infrared on", VISCA_INQ_E_IR_RECV, [](INFO &) { IR_API_SetSwitch("On", RAM); }, "02"},
        {"infrared off", VISCA_INQ_E_IR_RECV, [](INFO &) { IR_API_SetSwitch("Off", RAM); }, "03"},
        {"infrared mode", VISCA_INQ_E_IR_INFO, ir(VISCA_MSG_E_IR_MODE), "03"},
        {"infrared address", VISCA_INQ_E_IR_INFO, ir(VISCA_MSG_E_IR_ADDR), "04"},
        {"infrared something", VISCA_INQ_E_IR_INFO, ir(static_cast<VISCA_CTRL_IR_E>(2)), "refused"},
        {"menu", VISCA_INQ_E_MENU, [](INFO &) { CMD_MENU_OnlyOpenMenu(); }, "02"},
        {"no menu", VISCA_INQ_E_MENU, [](INFO &) { CMD_MENU_OnlyCloseMenu(); }, "03"},
        {"tally off", VISCA_INQ_E_TALLY_MODE, tally(LED_TALLY_MODE_E_CLOSE), "0A"},
        {"tally white", VISCA_INQ_E_TALLY_MODE, tally(LED_TALLY_MODE_E_COLOR_W), "0B"},
        {"tally custom", VISCA_INQ_E_TALLY_MODE, tally(LED_TALLY_MODE_E_COLOR_CUSTOM), "0C"},
        {"tally colours", VISCA_INQ_E_TALLY_MODE, tally(LED_TALLY_MODE_E_COLOR_RGB_CIRCLE), "0D"},
        {"tally red has no number", VISCA_INQ_E_TALLY_MODE,
         [](INFO &st) {
             LED_API_SetTallyMode("TallyLed", LED_TALLY_MODE_E_COLOR_R, BU_TRUE, 0);
             st.stTKVtTally.enledmode = VISCA_MSG_TKV_NDI_TALLY_PREVIEW;
         },
         "02"},
        {"tally on board", VISCA_INQ_E_NDI_TALLY_MODE, [](INFO &) { LED_API_SetTallyOnBoard("TallyLed", 1, RAM, 0); },
         "02"},
        {"no tally on board", VISCA_INQ_E_NDI_TALLY_MODE,
         [](INFO &) { LED_API_SetTallyOnBoard("TallyLed", 0, RAM, 0); }, "03"},
        {"tally colour", VISCA_INQ_E_CUSTOM_TALLY,
         [](INFO &) { LED_API_SetTallyCustomColor("TallyLed", 0x12ABEF, RAM, 0); }, "01 02 0A 0B 0E 0F"},
        {"muted", VISCA_INQ_E_TKV_AUDIO, [](INFO &) { SYS_API_SetAudioMute(1, RAM, NOW); }, "03"},
        {"not muted", VISCA_INQ_E_TKV_AUDIO, [](INFO &) { SYS_API_SetAudioMute(0, RAM, NOW); }, "02"},
        {"volume", VISCA_INQ_E_AUDIO_VOLUME,
         [](INFO &) {
             AI_ATTR_S stAttr{};
             AUDIO_AI_GetAttr(AUDIO_AI_GetFirstEnabledId(), &stAttr);
             stAttr.s32Volume = 0x4D;
             AUDIO_AI_SetAttr(AUDIO_AI_GetFirstEnabledId(), &stAttr, RAM);
         },
         "04 0D"},
    });

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
        {"address", VISCA_INQ_E_IP, ip(VISCA_MSG_E_IP_ADDRESS), "0C 00 0A 08 00 01 00 0A"},
        {"mask", VISCA_INQ_E_IP, ip(VISCA_MSG_E_IP_MASK), "0F 0F 0F 0F 0F 0F 00 00"},
        {"gateway", VISCA_INQ_E_IP, ip(VISCA_MSG_E_IP_GATEWAY), "0C 00 0A 08 00 01 0F 0E"},
        {"apply", VISCA_INQ_E_IP, ip(VISCA_MSG_E_IP_APPLYA), "refused"},
        {"nothing", VISCA_INQ_E_IP, ip(0), "refused"},
        {"static", VISCA_INQ_E_IP_DHCP_MODE, ip(0), "03"},
        {"dynamic", VISCA_INQ_E_IP_DHCP_MODE, [](INFO &) { NET_API_SetIpMode("NetCard0", IP_MODE_E_DHCP); }, "02"},
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
    struct tagFORMAT_S {
        const char *pcFormat, *pcFps, *pcPayload, *pcBlockCode;
    };
    // The code of the inquiry and the one in the block answer.
    for (const auto &[pcFormat, pcFps, pcPayload, pcBlockCode] : {
             tagFORMAT_S{"Format-4K", "Fps60", "06", "38"},
             tagFORMAT_S{"Format-4K", "Fps59p94", "refused", "37"},
             tagFORMAT_S{"Format-4K", "Fps50", "0E", "36"},
             tagFORMAT_S{"Format-4K", "Fps30", "07", "35"},
             tagFORMAT_S{"Format-4K", "Fps29p97", "refused", "34"},
             tagFORMAT_S{"Format-4K", "Fps25", "0F", "33"},
             tagFORMAT_S{"Format-4K", "Fps24", "refused", "38"},
             tagFORMAT_S{"Format-1080P", "Fps60", "00", "08"},
             tagFORMAT_S{"Format-1080P", "Fps59p94", "10", "07"},
             tagFORMAT_S{"Format-1080P", "Fps50", "08", "06"},
             tagFORMAT_S{"Format-1080P", "Fps30", "01", "05"},
             tagFORMAT_S{"Format-1080P", "Fps29p97", "11", "04"},
             tagFORMAT_S{"Format-1080P", "Fps25", "09", "03"},
             tagFORMAT_S{"Format-1080P", "Fps24", "refused", "38"},
             tagFORMAT_S{"Format-1080P", "Fps23p98", "refused", "38"},
             tagFORMAT_S{"Format-1080I", "Fps60", "02", "15"},
             tagFORMAT_S{"Format-1080I", "Fps59p94", "10", "14"},
             tagFORMAT_S{"Format-1080I", "Fps50", "08", "13"},
             tagFORMAT_S{"Format-1080I", "Fps25", "0A", "38"},
             tagFORMAT_S{"Format-720P", "Fps60", "03", "28"},
             tagFORMAT_S{"Format-720P", "Fps59p94", "12", "38"},
             tagFORMAT_S{"Format-720P", "Fps50", "0B", "26"},
             tagFORMAT_S{"Format-720P", "Fps30", "04", "38"},
             tagFORMAT_S{"Format-720P", "Fps29p97", "refused", "38"},
             tagFORMAT_S{"Format-720P", "Fps25", "0C", "38"},
         }) {
        output(pcFormat, pcFps);
        EXPECT_EQ(answer(VISCA_INQ_E_VIDEO_RESOLUTION), pcPayload) << pcFormat << " " << pcFps;
        EXPECT_EQ(answer(VISCA_INQ_E_TKV_BLOCK_DATA).substr(85 * 3, 2), pcBlockCode) << pcFormat << " " << pcFps;
    }
    journal::inject("MPP_GetVoutCfg", -3);
    EXPECT_EQ(answer(VISCA_INQ_E_VIDEO_RESOLUTION), "silent");
}
