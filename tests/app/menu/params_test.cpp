// Every key of the menu, once through the dispatch table, with the calls it makes.
#include "camera/image.h"
#include "menu/menu.h"
#include "modules.h"
#include "param.h"
#include "store/store.h"
#include "support/platformTest.h"

#include <algorithm>
#include <set>

using testing::ElementsAre;

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
        st.unVal.stIntVal.s32ValSaveCur = std::stoi(strValue);
        st.unVal.stIntVal.s32ValTmpCur = st.unVal.stIntVal.s32ValSaveCur + 1; // not confirmed
        put(st.acDataZone, strValue.substr(std::min(strValue.find(' '), strValue.size() - 1) + 1));
    } else if (strItem[at] == ':') { // the third of four, the first one is being looked at
        st.enValType = VALUE_TYPE_E_OPT_TXT;
        TXT_VALUE_S &stText = st.unVal.stTxtVal = {};
        stText.s32ValCnt = 4;
        stText.s32ValSaveCur = 2;
        put(stText.acValIndex[2], strValue);
        put(stText.acValShow[2], "label");
    } else if (strItem[at] == '@') {
        st.enValType = VALUE_TYPE_E_EDIT_TXT;
        st.unVal.stEditableVal = {};
        put(st.unVal.stEditableVal.acCurVal, strValue);
    }
    return st;
}

class MenuParams : public PlatformTest
{
protected:
    MenuParams() { journal::inject("UTIL_CMD_RunSafe", 0, 1000); } // no restart
    ~MenuParams() override { select("CloseUp", "CloseUp", "CloseUp"); }

    static void select(const BU_CHAR *pcImage, const BU_CHAR *pcExposure, const BU_CHAR *pcBalance)
    {
        ISP_API_SetCurDevImage(pcImage);
        ISP_API_SetCurDevExposure(pcExposure);
        ISP_API_SetCurDevWB(pcBalance);
        journal::effects();
    }
    static std::string effects()
    {
        std::string strAll;
        for (const std::string &str : journal::effects()) strAll += (strAll.empty() ? "" : " ") + str;
        return strAll;
    }
    static std::string effectsOf(const std::string &strItem)
    {
        ITEM_NODE_S st = item(strItem);
        EXPECT_EQ(OSD_MENU_SetParam(&st), 0) << strItem;
        return effects();
    }
};

struct Case {
    const char *pcItem;
    std::string strEffects; ///< $I $E $W $D: id of picture, exposure, white balance, device; $S: stored as asked
};
// clang-format off
const Case CASES[] = {
    {"Sharpness=5", "ISP_API_SetSharpness($I, 5, $S, 1)"}, {"Brightness=6", "ISP_API_SetBrightness($I, 6, $S, 1)"},
    {"Contrast=8", "ISP_API_SetContrast($I, 8, $S, 1)"}, {"Gamma=2", "ISP_API_SetGamma($I, 2, $S, 1)"},
    {"Nr2d=3", "ISP_API_Set2DNR($I, 3, $S, 1)"}, {"Nr3d=4", "ISP_API_Set3DNR($I, 4, $S, 1)"},
    {"WdrSwi:On", "ISP_API_SetDrcSwi($I, 1, $S, 1)"}, {"WdrMode=1", "ISP_API_SetDrcMode($I, 1, $S, 1)"},
    {"ImageStyle:Bright", "ISP_API_SetIspBinUsage($I, 6, 1, 1)"},
    {"MonoChrome:On", "ISP_API_SetMonoChromeSwi($I, 1, $S, 1)"},
    {"Saturation=9 IMAGE", "ISP_API_SetSaturation($I, 9, $S, 1)"},
    {"Saturation=9 WBLANCE", "ISP_API_SetSaturation($W, 9, $S, 1)"}, {"Saturation=9 EXPOSURE", ""},
    {"AntiFlicker:Off", "ISP_API_SetAntiFlicker($E, 2, $S, 1)"},
    {"BacklightCompensation:On", "ISP_API_SetBackLight($E, 1, $S, 1)"},
    {"ExposureCompLevel=-3", "ISP_API_SetExpCompLevel($E, -3, $S, 1)"},
    {"ExposureCompensation:On", "ISP_API_SetExpCompSwi($E, 1, $S, 1)"}, {"Gain=12", "ISP_API_SetGain($E, 12, $S, 1)"},
    {"GainLimit=3", "ISP_API_SetGainLimit($E, 3, $S, 1)"}, {"IrisLevel:IlF8", "ISP_API_SetIrisLevel($E, 4, $S, 1)"},
    {"ExposureBrightness=20", "ISP_API_SetExpBrightness($E, 20, $S, 1)"},
    {"ExposureMode:ManualMode", "ISP_API_SetAeMode($E, 4, $S, 1)"},
    {"AEMeterMode:TOP", "ISP_API_SetAeMeterMode($E, 2, $S, 1)"},
    {"ViewFollowExposure:On", "ISP_API_SetExposureFullViewFollow($E, 1, $S, 1)"},
    {"ND-Filter:Flt25", "ISP_API_SetNDFilter(0, 1, $S, 1)"}, {"AutoIris:Off", "ISP_API_SetAutoIrisSwi(0, 0, $S, 1)"},
    {"ShutterMode:Flex", "ISP_API_SetShutterMode($E, 0, $S, 1)"},
    {"StaticMode:OutDoor", "ISP_API_SetStaticMode($W, 2, $S, 1)"}, {"Hue=3", "ISP_API_SetHue($W, 3, $S, 1)"},
    {"RGain=101", "ISP_API_SetRGain($W, 101, $S, 1)"}, {"GGain=102", "ISP_API_SetGGain($W, 102, $S, 1)"},
    {"BGain=103", "ISP_API_SetBGain($W, 103, $S, 1)"}, {"RStrength=104", "ISP_API_SetRStrength($W, 104, $S, 1)"},
    {"BStrength=105", "ISP_API_SetBStrength($W, 105, $S, 1)"},
    {"GStrength=106", "ISP_API_SetGStrength($W, 106, $S, 1)"},
    {"ColorTemp=3200", "ISP_API_SetStWbMode($W, 3200, $S, 1)"},
    {"WbSensitivity:High", "ISP_API_SetAwbSensitivity($W, 2, $S, 1)"},
    {"OnePush:On", "ISP_API_SetOnePushAwb($W, 1, $S, 1)"}, {"WbMode:OnePushWb", "ISP_API_SetWbMode($W, 5, $S, 1)"},
    {"ViewFollowWB:On", "ISP_API_SetWhiteBalanceFullViewFollow($W, 1, $S, 1)"},
    {"DZoom:On", "PTZ_API_SetDZoomMode(0, 1, $S, 1)"}, {"DZoomTime:X4", "PTZ_API_SetMaxDZoomTime(0, 4, $S, 1)"},
    {"PtzTrigAf:Off", "AF_API_SetPtzTrigAf(0, 0, $S, 1)"}, {"ZoomSpd=3", "PTZ_API_SetZoomSpd($D, 3, $S, 1)"},
    {"FocusModel:FocusTOF", "AF_API_SetFocusModel($D, 2, $S, 1)"}, {"FaceAF:On", "AF_API_SetFaceAF($D, 1, $S, 1)"},
    {"FocusArea:Down", "AF_API_SetFocusArea($D, 3, $S, 1)"}, {"FocusDistance:V5", "AF_API_SetFocusRange(0, 4, $S, 1)"},
    {"DistortionCorre:On", "AF_API_SetDistortionCorrection(1, $S, 1)"},
    {"LensCorrection", "AF_API_TriggerCurveCorrection()"},
    {"PowerUpPtzPos:Preset3", "PT_API_SetPowerUpPtzPos(0, 3, $S, 1)"},
    {"PanSpeed=7", "PT_API_SetPanSpeed($D, 7, $S, 1)"}, {"TileSpeed=8", "PT_API_SetTileSpeed($D, 8, $S, 1)"},
    {"PresetSpeed=9", "PRESET_API_SetPresetSpeed($D, 9, $S, 1)"},
    {"SpeedMatch:Off", "PT_API_SetPtSpeedMatch($D, 0, $S, 1)"},
    {"SpeedAccuracy:Acc10", "PT_API_SetSpeedAccuracy($D, 10, $S)"}, {"Mirror:On", "SYS_API_SetMirror(1, $S, 0)"},
    {"Flip:On", "SYS_API_SetFlip(1, $S, 0)"}, {"MountMode:Ceiling", "SYS_API_SetMountMode(0, $S, 0)"},
    {"Prompt:Off", "SYS_API_SetPrompt(0, $S, 1)"}, {"ImageFreeze:On", "SYS_API_SetImageFreeze(1, $S, 1)"},
    {"SensorCrop:On", "SYS_API_SetSensorCrop(1, $S, 1)"},
    {"Language:Chinese", "SYSTEM_API_SetLanguage('Chinese', $S) OSD_MENU_RefreshCurrentPage()"},
    {"DevUSB:Host", "USB_API_SetMode(0, 1)"}, {"VideoFormat:720P50", "SYSTEM_API_SetVideoFormat('720P50', $S)"},
    {"Format:Format-4K", "SYSTEM_API_SetHdmiFormat('Format-4K', 1)"},
    {"AudioInput:LineIn", "SYS_API_SetAudioinput(0, 1, 1)"}, {"AudioInput:MicIn", "SYS_API_SetAudioinput(1, 1, 1)"},
    {"AudioInput:MicIn48V", "SYS_API_SetAudioinput(1, 1, 1) SYS_API_SetAudioinput(2, 1, 1)"},
    {"TrackEnabled:On", "ALG_API_SetEnable(1, 1, 1)"}, {"TrackMode:StageTracking", "ALG_API_SetTrackMode(1, 1, 1)"},
    {"TrackStrategy:Monocular", "ALG_API_SetTrackStrategy(1, 1, 1)"},
    {"BinocularStrategy:ZoneTracking", "ALG_API_SetTrackStrategyBinocular(2, 1, 1)"},
    {"MonocularStrategy:AutoFraming", "ALG_API_SetTrackStrategyMonocular(3, 1, 1)"},
    {"FactoryRestore", "SYSTEM_API_FactoryRestoreConfiguration(0)"}, {"Restart", "UTIL_CMD_RunSafe('reboot')"},
    {"Escape", "CMD_MENU_HandleMenuBtn()"}, {"Back", "CMD_MENU_HandleMenuBtn()"},
    {"ModeSwitch", ""}, {"TallyDev:On", ""},
    {"RS232ProtocolType:PelcoD", "SERIAL_API_SetProtocolType(0, 'PelcoD', $S) FREED_UpdateSerialActivePushMsg()"},
    {"RS422ProtocolType:Freed", "SERIAL_API_SetProtocolType(1, 'Freed', $S) FREED_UpdateSerialActivePushMsg()"},
    {"RS232Baudrate:N38400", "SERIAL_API_SetBaudrate(0, 'N38400', $S)"},
    {"RS422Baudrate:N2400", "SERIAL_API_SetBaudrate(1, 'N2400', $S)"},
    {"COM-Mode:RS422", "UART_Change_SerialRs422or232(1) FREED_UpdateSerialActivePushMsg()"},
    {"COM-Mode:RS232 and more", "UART_Change_SerialRs422or232(0) FREED_UpdateSerialActivePushMsg()"},
    {"COM-Mode:RS485", "FREED_UpdateSerialActivePushMsg()"}, {"IrAddr=3", "IR_API_SetAddr(3, $S, 0)"},
    {"IrAddrCtrl:DIPSwitch", "IR_API_SetAddrCtrl('DIPSwitch', $S)"}, {"ViscaAddr=5", "VISCA_API_SetAddr(5, $S)"},
    {"PelcoPAddr=6", "SERIAL_API_SetProtocolPelcoAddr(6, 0, $S)"},
    {"PelcoDAddr=7", "SERIAL_API_SetProtocolPelcoAddr(7, 1, $S)"}, {"FreedCammeraId=8", "SetCammeraId(8, 1)"},
    {"IpMode:StaticIp", "NET_API_SetIpMode('NetCard0', 1)"}, {"IpMode:Static", "NET_API_SetIpMode('NetCard0', 0)"},
    {"IpAddr@10.0.0.9", "NET_API_SetIpAddr('NetCard0', '10.0.0.9')"},
    {"NetMask@255.0.0.0", "NET_API_SetNetMask('NetCard0', '255.0.0.0')"},
    {"GateWay@10.0.0.1", "NET_API_SetGateWay('NetCard0', '10.0.0.1')"},
    {"DnsMode:ManualMode", "NET_API_SetDnsMode('NetCard0', 1)"},
    {"DnsMode:manual", "NET_API_SetDnsMode('NetCard0', 0)"},
    {"Dns1@10.0.0.2", "NET_API_SetDns1('NetCard0', '10.0.0.2')"}, {"Dns2@", "NET_API_SetDns2('NetCard0', '')"},
    {"ShutterSpeed:Ss100", "ISP_API_SetShutter($E, 9, $S, 1)"},
    {"ShutterSpeedFps24:Ss100", "ISP_API_SetShutter($E, 9, $S, 1)"},
    {"ShutterSpeedFps25:Ss100", "ISP_API_SetShutter($E, 9, $S, 1)"},
    {"ShutterSpeedFps30:Ss100", "ISP_API_SetShutter($E, 9, $S, 1)"},
    {"ShutterSpeedFps50:Ss100", "ISP_API_SetShutter($E, 9, $S, 1)"},
    {"ShutterSpeedFps60:Ss100", "ISP_API_SetShutter($E, 9, $S, 1)"},
    {"ShutterValueFps24=777", "ISP_API_SetShutterValue($E, 777, $S, 1)"},
    {"ShutterValueFps25=777", "ISP_API_SetShutterValue($E, 777, $S, 1)"},
    {"ShutterValueFps30=777", "ISP_API_SetShutterValue($E, 777, $S, 1)"},
    {"ShutterValueFps50=777", "ISP_API_SetShutterValue($E, 777, $S, 1)"},
    {"ShutterValueFps60=777", "ISP_API_SetShutterValue($E, 777, $S, 1)"},
    {"FPS4K:Fps59p94", "SYSTEM_API_SetHdmiFps('Fps59p94', 1)"},
    {"FPS1080P:Fps59p94", "SYSTEM_API_SetHdmiFps('Fps59p94', 1)"},
    {"FPS1080I:Fps59p94", "SYSTEM_API_SetHdmiFps('Fps59p94', 1)"},
    {"FPS720P:Fps59p94", "SYSTEM_API_SetHdmiFps('Fps59p94', 1)"},
};
// clang-format on

/// Calls of a case with these ids.
std::string expanded(std::string str, char cImage, char cExposure, char cBalance, char cSave)
{
    std::ranges::replace(str, '\'', '"');
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
        std::vector<std::string> list;
        for (const char *pcZone : {"IMAGE", "EXPOSURE", "WBLANCE", "NETWORK"})
            list.emplace_back(OSD_MENU_DataZoneGetSection(pcZone));
        return list;
    };
    select("Panorama", "CloseUp", "CloseUp");
    EXPECT_THAT(sections(), ElementsAre("Image1", "Exposure0", "WhiteBalance0", "NetCard0"));
    const std::string strRefresh = " OSD_MENU_RefreshCurrentPage()";
    EXPECT_EQ(effectsOf("LensExposure:Panorama"), "ISP_API_SetCurDevExposure(\"Panorama\")" + strRefresh);
    EXPECT_EQ(effectsOf("LensImage:CloseUp"), "ISP_API_SetCurDevImage(\"CloseUp\")" + strRefresh);
    EXPECT_EQ(effectsOf("LensWB:nowhere"), "ISP_API_SetCurDevWB(\"nowhere\")" + strRefresh);
    EXPECT_THAT(sections(), ElementsAre("Image0", "Exposure1", "WhiteBalance0", "NetCard0"));
    for (const char *pcZone : {"image", "LENS", ""}) EXPECT_EQ(OSD_MENU_DataZoneGetSection(pcZone), nullptr) << pcZone;
}

TEST_F(MenuParams, UnknownKeysAreRefusedInSilence)
{
    ITEM_NODE_S stUnterminated = item("=1");
    std::fill(std::begin(stUnterminated.acItemIndex), std::end(stUnterminated.acItemIndex), 'x');
    for (ITEM_NODE_S st :
         {item("=1"), item("brightness=1"), item("Brightnes=1"), item("Brightness =1"), stUnterminated}) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(OSD_MENU_SetParam(&st), -1) << st.acItemName;
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << st.acItemName;
    }
    EXPECT_EQ(effects(), "");
}

/// What the services refuse does not concern the menu library: it reads values again.
TEST_F(MenuParams, RefusedValuesChangeNothing)
{
    ITEM_NODE_S stBeyond = item("IrisLevel:IlF8");
    for (const BU_S32 s32Index : {-1, 3, MENU_OPTION_MAX, INT32_MAX}) {
        stBeyond.unVal.stTxtVal.s32ValSaveCur = s32Index;
        EXPECT_EQ(OSD_MENU_SetParam(&stBeyond), 0) << s32Index;
    }
    effectsOf("Gain=28");
    BU_S32 s32Iris = 0, s32Gain = -1;
    ISP_API_GetIrisLevel(0, &s32Iris);
    ISP_API_GetGain(0, &s32Gain);
    EXPECT_EQ(s32Iris, 12);
    EXPECT_EQ(s32Gain, 0);
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
    const struct {
        const char *pcItem, *pcSaid;
    } rows[] = {{"Gain=3", "now while running Gain \nmenu Gain: 3\n"},
                {"WdrSwi:On", "now while running WdrSwi \nmenu WdrSwi: On\n"},
                {"Dns1@10.0.0.2", "now while running Dns1 \nmenu Dns1: 10.0.0.2\n"},
                {"ModeSwitch", "now while running ModeSwitch \n"}};
    for (const auto &row : rows) {
        testing::internal::CaptureStdout();
        effectsOf(row.pcItem);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.pcSaid);
    }
}
} // namespace

BU_S32 FREED_UpdateSerialActivePushMsg()
{
    journal::call(__func__);
    return 0;
}
