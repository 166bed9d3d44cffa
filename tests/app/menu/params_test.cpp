// Every key of the menu, once through the dispatch table, with the calls it makes.
#include "camera/image.h"
#include "menu/menu.h"
#include "modules.h"
#include "param.h"
#include "store/store.h"
#include "support/platformTest.h"

#include <algorithm>
#include <regex>
#include <set>

namespace
{
template <std::size_t N> void put(BU_CHAR (&acTo)[N], const std::string &strFrom)
{
    acTo[strFrom.copy(acTo, N - 1)] = 0;
}

/// "Gain=12" a number, "Hue=3 IMAGE" one of a zone, "WdrSwi:On" an option, "Dns1@10.0.0.2" a text, "Restart" no value.
ITEM_NODE_S item(const std::string &strItem)
{
    ITEM_NODE_S st{};
    const std::size_t at = std::min(strItem.find_first_of("=:@"), strItem.size());
    const std::string strValue = strItem.substr(std::min(at + 1, strItem.size()));
    put(st.acItemIndex, strItem.substr(0, at));
    st.enValType = VALUE_TYPE_E_NONE;
    if (strItem[at] == '=') {
        st.enValType = VALUE_TYPE_E_INT32;
        st.unVal.stIntVal.s32ValTmpCur = 1 + (st.unVal.stIntVal.s32ValSaveCur = std::stoi(strValue)); // not confirmed
        put(st.acDataZone, strValue.substr(std::min(strValue.find(' '), strValue.size() - 1) + 1));
    } else if (strItem[at] == ':') { // the third of four, the first one is being looked at
        st.enValType = VALUE_TYPE_E_OPT_TXT;
        TXT_VALUE_S &stText = st.unVal.stTxtVal = {};
        stText.s32ValCnt = 4, stText.s32ValSaveCur = 2;
        put(stText.acValIndex[2], strValue);
        put(stText.acValShow[2], "label");
    } else if (strItem[at] == '@') {
        st.enValType = VALUE_TYPE_E_EDIT_TXT;
        st.unVal.stEditableVal = {};
        put(st.unVal.stEditableVal.acCurVal, strValue);
    }
    return st;
}

struct MenuParams : PlatformTest {
    MenuParams() { journal::inject("UTIL_CMD_RunSafe", 0, 1000); } // no restart
    ~MenuParams() override { select("CloseUp", "CloseUp", "CloseUp"); }

    static void select(const BU_CHAR *pcImage, const BU_CHAR *pcExposure, const BU_CHAR *pcBalance)
    {
        ISP_API_SetCurDevImage(pcImage), ISP_API_SetCurDevExposure(pcExposure), ISP_API_SetCurDevWB(pcBalance);
        journal::effects();
    }
    static std::string effects()
    {
        std::string strAll;
        for (const std::string &str : journal::effects()) strAll += (strAll.empty() ? "" : " ") + str;
        return strAll;
    }
    static std::string effectsOf(ITEM_NODE_S st, BU_S32 s32Ret = 0)
    {
        EXPECT_EQ(OSD_MENU_SetParam(&st), s32Ret) << st.acItemIndex;
        return effects();
    }
    static std::string effectsOf(const std::string &strItem) { return effectsOf(item(strItem)); }
};

/// $I $E $W $D: id of picture, exposure, white balance, device; $S: stored as asked; "E.Gain(12)" is
/// "ISP_API_SetGain($E, 12, $S, 1)".
// clang-format off
const struct { const char *pcItem; std::string strEffects; } CASES[] = {
    {"Sharpness=5", "I.Sharpness(5)"}, {"Brightness=6", "I.Brightness(6)"}, {"Contrast=8", "I.Contrast(8)"}, {"Gamma=2", "I.Gamma(2)"},
    {"Nr2d=3", "I.2DNR(3)"}, {"Nr3d=4", "I.3DNR(4)"}, {"WdrSwi:On", "I.DrcSwi(1)"}, {"WdrMode=1", "I.DrcMode(1)"},
    {"ImageStyle:Bright", "ISP_API_SetIspBinUsage($I, 6, 1, 1)"}, {"Hue=3", "W.Hue(3)"}, {"MonoChrome:On", "I.MonoChromeSwi(1)"},
    {"Saturation=9 IMAGE", "I.Saturation(9)"}, {"Saturation=9 EXPOSURE", ""}, {"Saturation=9 WBLANCE", "W.Saturation(9)"},
    {"AntiFlicker:Off", "E.AntiFlicker(2)"}, {"Gain=12", "E.Gain(12)"}, {"BacklightCompensation:On", "E.BackLight(1)"},
    {"ExposureCompLevel=-3", "E.ExpCompLevel(-3)"}, {"ExposureCompensation:On", "E.ExpCompSwi(1)"}, {"GainLimit=3", "E.GainLimit(3)"},
    {"RGain=101", "W.RGain(101)"}, {"IrisLevel:IlF8", "E.IrisLevel(4)"}, {"ExposureBrightness=20", "E.ExpBrightness(20)"},
    {"ExposureMode:ManualMode", "E.AeMode(4)"}, {"AEMeterMode:TOP", "E.AeMeterMode(2)"}, {"GGain=102", "W.GGain(102)"},
    {"ViewFollowExposure:On", "E.ExposureFullViewFollow(1)"}, {"ND-Filter:Flt25", "ISP_API_SetNDFilter(0, 1, $S, 1)"},
    {"AutoIris:Off", "ISP_API_SetAutoIrisSwi(0, 0, $S, 1)"}, {"ShutterMode:Flex", "E.ShutterMode(0)"}, {"StaticMode:OutDoor", "W.StaticMode(2)"},
    {"BGain=103", "W.BGain(103)"}, {"RStrength=104", "W.RStrength(104)"}, {"BStrength=105", "W.BStrength(105)"},
    {"GStrength=106", "W.GStrength(106)"}, {"OnePush:On", "W.OnePushAwb(1)"}, {"ColorTemp=3200", "W.StWbMode(3200)"},
    {"WbSensitivity:High", "W.AwbSensitivity(2)"}, {"WbMode:OnePushWb", "W.WbMode(5)"}, {"ViewFollowWB:On", "W.WhiteBalanceFullViewFollow(1)"},
    {"DZoom:On", "PTZ_API_SetDZoomMode(0, 1, $S, 1)"}, {"DZoomTime:X4", "PTZ_API_SetMaxDZoomTime(0, 4, $S, 1)"},
    {"PtzTrigAf:Off", "AF_API_SetPtzTrigAf(0, 0, $S, 1)"}, {"ZoomSpd=3", "PTZ_API_SetZoomSpd($D, 3, $S, 1)"},
    {"FocusModel:FocusTOF", "AF_API_SetFocusModel($D, 2, $S, 1)"}, {"FaceAF:On", "AF_API_SetFaceAF($D, 1, $S, 1)"},
    {"FocusArea:Down", "AF_API_SetFocusArea($D, 3, $S, 1)"}, {"FocusDistance:V5", "AF_API_SetFocusRange(0, 4, $S, 1)"},
    {"DistortionCorre:On", "AF_API_SetDistortionCorrection(1, $S, 1)"}, {"Mirror:On", "SYS_API_SetMirror(1, $S, 0)"},
    {"LensCorrection", "AF_API_TriggerCurveCorrection()"}, {"PanSpeed=7", "PT_API_SetPanSpeed($D, 7, $S, 1)"},
    {"PowerUpPtzPos:Preset3", "PT_API_SetPowerUpPtzPos(0, 3, $S, 1)"}, {"Flip:On", "SYS_API_SetFlip(1, $S, 0)"},
    {"TileSpeed=8", "PT_API_SetTileSpeed($D, 8, $S, 1)"}, {"PresetSpeed=9", "PRESET_API_SetPresetSpeed($D, 9, $S, 1)"},
    {"SpeedMatch:Off", "PT_API_SetPtSpeedMatch($D, 0, $S, 1)"}, {"MountMode:Ceiling", "SYS_API_SetMountMode(0, $S, 0)"},
    {"SpeedAccuracy:Acc10", "PT_API_SetSpeedAccuracy($D, 10, $S)"}, {"Prompt:Off", "SYS_API_SetPrompt(0, $S, 1)"},
    {"ImageFreeze:On", "SYS_API_SetImageFreeze(1, $S, 1)"}, {"SensorCrop:On", "SYS_API_SetSensorCrop(1, $S, 1)"},
    {"Language:Chinese", "SYSTEM_API_SetLanguage('Chinese', $S) OSD_MENU_RefreshCurrentPage()"}, {"ModeSwitch", ""},
    {"DevUSB:Host", "USB_API_SetMode(0, 1)"}, {"VideoFormat:720P50", "SYSTEM_API_SetVideoFormat('720P50', $S)"},
    {"Format:Format-4K", "SYSTEM_API_SetHdmiFormat('Format-4K', 1)"}, {"TrackEnabled:On", "ALG_API_SetEnable(1, 1, 1)"},
    {"AudioInput:LineIn", "SYS_API_SetAudioinput(0, 1, 1)"}, {"AudioInput:MicIn", "SYS_API_SetAudioinput(1, 1, 1)"},
    {"AudioInput:MicIn48V", "SYS_API_SetAudioinput(1, 1, 1) SYS_API_SetAudioinput(2, 1, 1)"}, {"TallyDev:On", ""},
    {"TrackMode:StageTracking", "ALG_API_SetTrackMode(1, 1, 1)"}, {"Restart", "UTIL_CMD_RunSafe('reboot')"},
    {"TrackStrategy:Monocular", "ALG_API_SetTrackStrategy(1, 1, 1)"}, {"Escape", "CMD_MENU_HandleMenuBtn()"},
    {"BinocularStrategy:ZoneTracking", "ALG_API_SetTrackStrategyBinocular(2, 1, 1)"},
    {"MonocularStrategy:AutoFraming", "ALG_API_SetTrackStrategyMonocular(3, 1, 1)"}, {"FactoryRestore", "SYSTEM_API_FactoryRestoreConfiguration(0)"},
    {"Back", "CMD_MENU_HandleMenuBtn()"},
    {"RS232ProtocolType:PelcoD", "SERIAL_API_SetProtocolType(0, 'PelcoD', $S) FREED_UpdateSerialActivePushMsg()"},
    {"RS422ProtocolType:Freed", "SERIAL_API_SetProtocolType(1, 'Freed', $S) FREED_UpdateSerialActivePushMsg()"},
    {"RS232Baudrate:N38400", "SERIAL_API_SetBaudrate(0, 'N38400', $S)"}, {"IrAddr=3", "IR_API_SetAddr(3, $S, 0)"},
    {"RS422Baudrate:N2400", "SERIAL_API_SetBaudrate(1, 'N2400', $S)"}, {"ViscaAddr=5", "VISCA_API_SetAddr(5, $S)"},
    {"COM-Mode:RS422", "UART_Change_SerialRs422or232(1) FREED_UpdateSerialActivePushMsg()"},
    {"COM-Mode:RS232 and more", "UART_Change_SerialRs422or232(0) FREED_UpdateSerialActivePushMsg()"},
    {"COM-Mode:RS485", "FREED_UpdateSerialActivePushMsg()"}, {"FreedCammeraId=8", "SetCammeraId(8, 1)"},
    {"IrAddrCtrl:DIPSwitch", "IR_API_SetAddrCtrl('DIPSwitch', $S)"}, {"Dns2@", "NET_API_SetDns2('NetCard0', '')"},
    {"PelcoPAddr=6", "SERIAL_API_SetProtocolPelcoAddr(6, 0, $S)"}, {"ShutterSpeed:Ss100", "E.Shutter(9)"},
    {"PelcoDAddr=7", "SERIAL_API_SetProtocolPelcoAddr(7, 1, $S)"}, {"ShutterSpeedFps24:Ss100", "E.Shutter(9)"},
    {"IpMode:StaticIp", "NET_API_SetIpMode('NetCard0', 1)"}, {"IpMode:Static", "NET_API_SetIpMode('NetCard0', 0)"},
    {"IpAddr@10.0.0.9", "NET_API_SetIpAddr('NetCard0', '10.0.0.9')"}, {"ShutterSpeedFps25:Ss100", "E.Shutter(9)"},
    {"NetMask@255.0.0.0", "NET_API_SetNetMask('NetCard0', '255.0.0.0')"}, {"ShutterSpeedFps30:Ss100", "E.Shutter(9)"},
    {"GateWay@10.0.0.1", "NET_API_SetGateWay('NetCard0', '10.0.0.1')"}, {"ShutterSpeedFps50:Ss100", "E.Shutter(9)"},
    {"DnsMode:ManualMode", "NET_API_SetDnsMode('NetCard0', 1)"}, {"ShutterSpeedFps60:Ss100", "E.Shutter(9)"},
    {"DnsMode:manual", "NET_API_SetDnsMode('NetCard0', 0)"}, {"ShutterValueFps24=777", "E.ShutterValue(777)"},
    {"Dns1@10.0.0.2", "NET_API_SetDns1('NetCard0', '10.0.0.2')"}, {"ShutterValueFps25=777", "E.ShutterValue(777)"},
    {"ShutterValueFps30=777", "E.ShutterValue(777)"}, {"ShutterValueFps50=777", "E.ShutterValue(777)"},
    {"ShutterValueFps60=777", "E.ShutterValue(777)"}, {"FPS4K:Fps59p94", "SYSTEM_API_SetHdmiFps('Fps59p94', 1)"},
    {"FPS1080P:Fps59p94", "SYSTEM_API_SetHdmiFps('Fps59p94', 1)"}, {"FPS1080I:Fps59p94", "SYSTEM_API_SetHdmiFps('Fps59p94', 1)"},
    {"FPS720P:Fps59p94", "SYSTEM_API_SetHdmiFps('Fps59p94', 1)"},
};
// clang-format on

/// Calls of a case with these ids.
std::string expanded(std::string str, char cImage, char cExposure, char cBalance, char cSave)
{
    std::ranges::replace(str, '\'', '"');
    str = std::regex_replace(str, std::regex(R"(\b([IEW])\.(\w+)\((.*)\))"), "ISP_API_Set$2($$$1, $3, $$S, 1)");
    for (const auto &[cName, cValue] :
         {std::pair{'I', cImage}, {'E', cExposure}, {'W', cBalance}, {'D', '7'}, {'S', cSave}})
        for (std::size_t at; (at = str.find({'$', cName})) != str.npos;) str.replace(at, 2, 1, cValue);
    return str;
}

/// Two selections of lenses tell the ids apart, two ways to call what is stored in any case.
TEST_F(MenuParams, EachKeyMakesItsCalls)
{
    journal::inject("ISP_API_GetCurDevId", 7, 1000);
    std::set<std::string> keys{"LensImage", "LensWB", "LensExposure", "Ndi"}; // below
    for (const auto &[pcItem, strEffects] : CASES) {
        ITEM_NODE_S st = item(pcItem);
        keys.insert(st.acItemIndex);
        select("Panorama", "Panorama", "CloseUp");
        EXPECT_EQ(effectsOf(pcItem), expanded(strEffects, '1', '1', '0', '1'));
        select("Panorama", "CloseUp", "Panorama");
        const auto table = menu::paramTable();
        const auto row = std::ranges::find(table, st.acItemIndex, [](const auto &r) { return std::string(r.acParam); });
        ASSERT_NE(row, table.end()) << pcItem;
        EXPECT_EQ(row->pFunc(&st, BU_FALSE), 0);
        EXPECT_EQ(effects(), expanded(strEffects, '1', '0', '1', '0'));
    }
    for (const MENU_PARAM_MAP_S &st : menu::paramTable()) EXPECT_TRUE(keys.contains(st.acParam)) << st.acParam;
}

TEST_F(MenuParams, LensesChangeTheDataZones)
{
    const auto sections = [] {
        std::string strAll;
        for (const char *pcZone : {"IMAGE", "EXPOSURE", "WBLANCE", "NETWORK"})
            strAll += OSD_MENU_DataZoneGetSection(pcZone) + std::string(" ");
        return strAll;
    };
    select("Panorama", "CloseUp", "CloseUp");
    EXPECT_EQ(sections(), "Image1 Exposure0 WhiteBalance0 NetCard0 ");
    const std::string strRefresh = " OSD_MENU_RefreshCurrentPage()";
    EXPECT_EQ(effectsOf("LensExposure:Panorama"), "ISP_API_SetCurDevExposure(\"Panorama\")" + strRefresh);
    EXPECT_EQ(effectsOf("LensImage:CloseUp"), "ISP_API_SetCurDevImage(\"CloseUp\")" + strRefresh);
    EXPECT_EQ(effectsOf("LensWB:nowhere"), "ISP_API_SetCurDevWB(\"nowhere\")" + strRefresh);
    EXPECT_EQ(sections(), "Image0 Exposure1 WhiteBalance0 NetCard0 ");
    for (const char *pcZone : {"image", "LENS", ""}) EXPECT_EQ(OSD_MENU_DataZoneGetSection(pcZone), nullptr) << pcZone;
}

TEST_F(MenuParams, UnknownKeysAreRefusedInSilence)
{
    ITEM_NODE_S stUnterminated = item("=1");
    std::ranges::fill(stUnterminated.acItemIndex, 'x');
    testing::internal::CaptureStdout();
    for (const char *pcItem : {"=1", "brightness=1", "Brightnes=1", "Brightness =1"})
        EXPECT_EQ(effectsOf(item(pcItem), -1), "") << pcItem;
    EXPECT_EQ(effectsOf(stUnterminated, -1), "");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

/// What the services refuse does not concern the menu library: it reads values again.
TEST_F(MenuParams, RefusedValuesChangeNothing)
{
    ITEM_NODE_S stBeyond = item("IrisLevel:IlF8");
    for (const BU_S32 s32Index : {-1, 3, MENU_OPTION_MAX, INT32_MAX}) {
        stBeyond.unVal.stTxtVal.s32ValSaveCur = s32Index;
        effectsOf(stBeyond);
    }
    effectsOf("Gain=28");
    BU_S32 s32Iris = 0, s32Gain = -1;
    ISP_API_GetIrisLevel(0, &s32Iris), ISP_API_GetGain(0, &s32Gain);
    EXPECT_EQ(std::pair(s32Iris, s32Gain), std::pair(12, 0));
}

TEST_F(MenuParams, NdiKeepsItsRecordOrStartsFromItsDefaults)
{
    const auto calls = [](const std::string &strOn, const std::string &strCaches) {
        return "MPP_NDI_UpdateInstance({" + strOn +
               ", \"\", \"\", \"\", 1, 0, \"239.255.0.0\", \"255.255.0.0\", 1, 0, \"\", " + strCaches +
               "}, 1) CFG_COM_SetTxtParams(\"Ndi\", \"" + (strOn == "1" ? "On" : "Off") + "\", 1)";
    };
    EXPECT_EQ(effectsOf("Ndi:On"), calls("1", "1, 2, 6"));
    EXPECT_EQ(effectsOf("Ndi:Off"), calls("0", "1, 2, 6"));
    journal::inject("MPP_NDI_GetInstance", -1);
    journal::inject("MPP_NDI_UpdateInstance", -1); // nobody looks at it
    EXPECT_EQ(effectsOf("Ndi:On"), calls("1", "-1, -1, -1"));
}

TEST_F(MenuParams, TheKeyAndItsValueAreTraced)
{
    testing::internal::CaptureStdout();
    for (const char *pcItem : {"Gain=3", "WdrSwi:On", "Dns1@10.0.0.2", "ModeSwitch"}) effectsOf(pcItem);
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              "now while running Gain \nmenu Gain: 3\nnow while running WdrSwi \nmenu WdrSwi: On\n"
              "now while running Dns1 \nmenu Dns1: 10.0.0.2\nnow while running ModeSwitch \n");
}
} // namespace

BU_S32 FREED_UpdateSerialActivePushMsg()
{
    journal::call(__func__);
    return 0;
}
