// Inquiries that cannot be answered, or only in part.
#include "viscaTest.h"

#include "camera/motion.h"
#include "camera/system.h"

using testing::IsEmpty;

namespace
{
/// An inquiry whose service does not answer, and what a message that carried 2s in all its fields is told then.
struct tagUNREAD_CASE_S {
    tagVISCA_CMD_INQ_TYPE_E enType;
    const char *pcGetter, *pcPayload;
};
} // namespace

TEST_F(ViscaInquiry, AServiceThatDoesNotAnswerLeavesTheDeliveredValue)
{
    for (const auto &[enType, pcGetter, pcPayload] : {
             tagUNREAD_CASE_S{VISCA_INQ_E_ZOOM_POS, "PTZ_API_GetZoomPos", "00 00 00 02"},
             tagUNREAD_CASE_S{VISCA_INQ_E_RGAIN, "ISP_API_GetRGain", "00 00 00 02"},
             tagUNREAD_CASE_S{VISCA_INQ_E_SHUTTER_POS, "ISP_API_GetShutter", "00 00 00 02"},
             tagUNREAD_CASE_S{VISCA_INQ_E_EXP_COMP_POS, "ISP_API_GetExpCompLevel", "00 00 00 02"},
             tagUNREAD_CASE_S{VISCA_INQ_E_BACKLIGHT_MODE, "ISP_API_GetBackLight", "02"},
             tagUNREAD_CASE_S{VISCA_INQ_E_TKV_AUDIO, "SYS_API_GetAudioMute", "02"},
             tagUNREAD_CASE_S{VISCA_INQ_E_TKV_PT_SPEED, "PT_API_GetPanSpeed", "00 02 00 05"},
             tagUNREAD_CASE_S{VISCA_INQ_E_TKV_PT_SPEED_ACCUARCY, "PT_API_GetSpeedAccuracy", "02"},
             tagUNREAD_CASE_S{VISCA_INQ_E_VIDEO_PARAMETER, "ISP_API_GetContrast", "00 02"},
             // Switches that count as on until they are read.
             tagUNREAD_CASE_S{VISCA_INQ_E_IR_RECV, "IR_API_GetSwitch", "02"},
             tagUNREAD_CASE_S{VISCA_INQ_E_YM_AUTO_TRACKING_STATUS, "ALG_API_GetEnable", "02"},
             // A mode that is not known cannot be told.
             tagUNREAD_CASE_S{VISCA_INQ_E_WB_MODE, "ISP_API_GetWbMode", "refused"},
             tagUNREAD_CASE_S{VISCA_INQ_E_AE_MODE, "ISP_API_GetAeMode", "refused"},
             tagUNREAD_CASE_S{VISCA_INQ_E_IP_DHCP_MODE, "NET_API_GetAllParamCur", "refused"},
             tagUNREAD_CASE_S{VISCA_INQ_E_IP_INFO_ASCLL, "NET_API_GetAllParamCur", "refused"},
             tagUNREAD_CASE_S{VISCA_INQ_E_GET_ADDRESS, "VISCA_API_GetAddr", "refused"},
         }) {
        INFO stInfo{};
        stInfo.stZoomCtrl.u16ZoomPos = 2;
        stInfo.stRGainCtrl.u8RGainDirect = stInfo.stShutterCtrl.u8ShutterDirect = 2;
        stInfo.stExpCompCtrl.u8ExpCompDirect = 2;
        stInfo.enBalklightCtrl = VISCA_MSG_E_BACKLIGHT_ON;
        stInfo.enAudioMuteCtrl = VISCA_MSG_E_AUDIO_MUTE_OFF;
        stInfo.stPTSpeedCtrl.u32PTSpeedParam = 2 << 16 | 2;
        stInfo.stVideoParamCtrl = {VISCA_MSG_E_DIRECT_CONTRAST, 2};
        PT_API_SetTileSpeed(0, 5, RAM, NOW);
        SYS_API_SetAudioMute(1, RAM, NOW);
        journal::inject(pcGetter, -7);
        EXPECT_EQ(answer(enType, stInfo), pcPayload) << pcGetter;
    }
}

TEST_F(ViscaInquiry, ResultsOfSomeServicesArePassedThrough)
{
    INFO stInfo{};
    stInfo.stMemoryCtrl.enMemoryType = VISCA_MSG_E_MEMORY_SPEED;
    stInfo.stExtraIspCtrl.enExtraIspType = VISCA_MSG_E_EXP_ND_FILTER;
    const std::pair<tagVISCA_CMD_INQ_TYPE_E, const char *> CASES[] = {
        {VISCA_INQ_E_TALLY_MODE, "LED_API_GetTallyMode"},  {VISCA_INQ_E_CUSTOM_TALLY, "LED_API_GetTallyCustomColor"},
        {VISCA_INQ_E_IR_INFO, "IR_API_GetSwitch"},         {VISCA_INQ_E_MEMORY_STATUE, "PRESET_API_GetPresetSpeed"},
        {VISCA_INQ_E_EXTRA_STATUE, "ISP_API_GetNDFilter"},
    };
    for (const auto &[enType, pcGetter] : CASES) {
        journal::inject(pcGetter, -7);
        EXPECT_EQ(dispatch(enType, stInfo), -7) << pcGetter;
        EXPECT_THAT(journal::effects(), IsEmpty()) << pcGetter;
    }
}

TEST_F(ViscaInquiry, UnknownSubtypesAreRefusedAndNamed)
{
    const auto trace = [](tagVISCA_CMD_INQ_TYPE_E enType, INFO stInfo) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(answer(enType, stInfo), "refused");
        const std::string strTrace = testing::internal::GetCapturedStdout();
        return strTrace.substr(strTrace.find(']') + 1);
    };
    INFO stInfo{};
    stInfo.stMemoryCtrl.enMemoryType = VISCA_MSG_E_MEMORY_SET;
    stInfo.stAwbGainCtrl.enAwbGainType = static_cast<VISCA_CTRL_AWB_GAIN_E>(3);
    stInfo.stVideoParamCtrl.enVideoParamType = VISCA_MSG_E_DIRECT_EXP_METER;
    stInfo.stIpCtrl.enIpType = VISCA_MSG_E_IP_DHCP_ON;
    EXPECT_EQ(trace(VISCA_INQ_E_MEMORY_STATUE, stInfo), " unknow type 1\n");
    EXPECT_EQ(trace(VISCA_INQ_E_AWB_GAIN, stInfo), " unknow Type 3\n");
    EXPECT_EQ(trace(VISCA_INQ_E_VIDEO_PARAMETER, stInfo), " unknow Type 13\n");
    EXPECT_EQ(trace(VISCA_INQ_E_IP, stInfo), " unknow Type 2\n");
}
