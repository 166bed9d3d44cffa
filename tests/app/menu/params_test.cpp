// Every key of the menu, once through the dispatch table, with the calls it makes.
#include "board/profile.h"
#include "camera/image.h"
#include "config/store.h"
#include "menu/menu.h"
#include "menu/menuParam.h"
#include "support/platformTest.h"

#include <algorithm>
#include <set>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
typedef std::vector<std::string> Effects;

template <std::size_t N> void put(BU_CHAR (&acTo)[N], const std::string &strFrom)
{
    acTo[strFrom.copy(acTo, N - 1)] = 0;
}

ITEM_NODE_S item(const std::string &strKey, const std::string &strZone = "")
{
    ITEM_NODE_S st{};
    put(st.acItemIndex, strKey);
    put(st.acDataZone, strZone);
    return st;
}
ITEM_NODE_S number(const std::string &strKey, BU_S32 s32Value, const std::string &strZone = "")
{
    ITEM_NODE_S st = item(strKey, strZone);
    st.enValType = VALUE_TYPE_E_INT32;
    st.unVal.stIntVal.s32ValTmpCur = s32Value + 1; // not confirmed
    st.unVal.stIntVal.s32ValSaveCur = s32Value;
    return st;
}
/// The option stands third of four, the first one is being looked at.
ITEM_NODE_S option(const std::string &strKey, const std::string &strWord)
{
    ITEM_NODE_S st = item(strKey);
    st.enValType = VALUE_TYPE_E_OPT_TXT;
    TXT_VALUE_S &stText = st.unVal.stTxtVal = {};
    stText.s32ValCnt = 4;
    stText.s32ValSaveCur = 2;
    put(stText.acValIndex[2], strWord);
    put(stText.acValShow[2], "label");
    return st;
}
ITEM_NODE_S text(const std::string &strKey, const std::string &strText)
{
    ITEM_NODE_S st = item(strKey);
    st.enValType = VALUE_TYPE_E_EDIT_TXT;
    st.unVal.stEditableVal = {};
    put(st.unVal.stEditableVal.acCurVal, strText);
    return st;
}

/// The panorama is selected for picture (1), exposure and white balance stay with close-up (0), so that a wrong id
/// shows.
class MenuParams : public PlatformTest
{
protected:
    MenuParams()
    {
        BSP_PROFILE_Load("TKV-MX");
        ISP_API_SetCurDevImage("Panorama");
        journal::effects();
    }
    ~MenuParams() override
    {
        for (const auto pfnSelect : {ISP_API_SetCurDevImage, ISP_API_SetCurDevWB, ISP_API_SetCurDevExposure})
            pfnSelect("CloseUp");
    }

    static Effects effectsOf(ITEM_NODE_S stItem)
    {
        EXPECT_EQ(OSD_MENU_SetParam(&stItem), 0) << stItem.acItemIndex;
        return journal::effects();
    }
};

struct tagPARAM_CASE_S {
    ITEM_NODE_S stItem;
    Effects effects;
};

std::vector<tagPARAM_CASE_S> pictureCases()
{
    std::vector<tagPARAM_CASE_S> list = {
        {number("Sharpness", 5), {"ISP_API_SetSharpness(1, 5, 1, 1)"}},
        {number("Brightness", 6), {"ISP_API_SetBrightness(1, 6, 1, 1)"}},
        {number("Contrast", 8), {"ISP_API_SetContrast(1, 8, 1, 1)"}},
        {number("Gamma", 2), {"ISP_API_SetGamma(1, 2, 1, 1)"}},
        {number("Nr2d", 3), {"ISP_API_Set2DNR(1, 3, 1, 1)"}},
        {number("Nr3d", 4), {"ISP_API_Set3DNR(1, 4, 1, 1)"}},
        {option("WdrSwi", "On"), {"ISP_API_SetDrcSwi(1, 1, 1, 1)"}},
        {number("WdrMode", 1), {"ISP_API_SetDrcMode(1, 1, 1, 1)"}},
        {option("ImageStyle", "Bright"), {"ISP_API_SetIspBinUsage(1, 6, 1, 1)"}},
        {option("MonoChrome", "On"), {"ISP_API_SetMonoChromeSwi(1, 1, 1, 1)"}},
        {number("Saturation", 9, "IMAGE"), {"ISP_API_SetSaturation(1, 9, 1, 1)"}},
        {number("Saturation", 9, "WBLANCE"), {"ISP_API_SetSaturation(0, 9, 1, 1)"}},
        {number("Saturation", 9, "EXPOSURE"), {}},
        {option("AntiFlicker", "Off"), {"ISP_API_SetAntiFlicker(0, 2, 1, 1)"}},
        {option("BacklightCompensation", "On"), {"ISP_API_SetBackLight(0, 1, 1, 1)"}},
        {number("ExposureCompLevel", -3), {"ISP_API_SetExpCompLevel(0, -3, 1, 1)"}},
        {option("ExposureCompensation", "On"), {"ISP_API_SetExpCompSwi(0, 1, 1, 1)"}},
        {number("Gain", 12), {"ISP_API_SetGain(0, 12, 1, 1)"}},
        {number("GainLimit", 3), {"ISP_API_SetGainLimit(0, 3, 1, 1)"}},
        {option("IrisLevel", "IlF8"), {"ISP_API_SetIrisLevel(0, 4, 1, 1)"}},
        {number("ExposureBrightness", 20), {"ISP_API_SetExpBrightness(0, 20, 1, 1)"}},
        {option("ExposureMode", "ManualMode"), {"ISP_API_SetAeMode(0, 4, 1, 1)"}},
        {option("AEMeterMode", "TOP"), {"ISP_API_SetAeMeterMode(0, 2, 1, 1)"}},
        {option("ViewFollowExposure", "On"), {"ISP_API_SetExposureFullViewFollow(0, 1, 1, 1)"}},
        {option("ND-Filter", "Flt25"), {"ISP_API_SetNDFilter(0, 1, 1, 1)"}},
        {option("AutoIris", "Off"), {"ISP_API_SetAutoIrisSwi(0, 0, 1, 1)"}},
        {option("ShutterMode", "Flex"), {"ISP_API_SetShutterMode(0, 0, 1, 1)"}},
        {option("StaticMode", "OutDoor"), {"ISP_API_SetStaticMode(0, 2, 1, 1)"}},
        {number("Hue", 3), {"ISP_API_SetHue(0, 3, 1, 1)"}},
        {number("RGain", 101), {"ISP_API_SetRGain(0, 101, 1, 1)"}},
        {number("GGain", 102), {"ISP_API_SetGGain(0, 102, 1, 1)"}},
        {number("BGain", 103), {"ISP_API_SetBGain(0, 103, 1, 1)"}},
        {number("RStrength", 104), {"ISP_API_SetRStrength(0, 104, 1, 1)"}},
        {number("BStrength", 105), {"ISP_API_SetBStrength(0, 105, 1, 1)"}},
        {number("GStrength", 106), {"ISP_API_SetGStrength(0, 106, 1, 1)"}},
        {number("ColorTemp", 3200), {"ISP_API_SetStWbMode(0, 3200, 1, 1)"}},
        {option("WbSensitivity", "High"), {"ISP_API_SetAwbSensitivity(0, 2, 1, 1)"}},
        {option("OnePush", "On"), {"ISP_API_SetOnePushAwb(0, 1, 1, 1)"}},
        {option("WbMode", "OnePushWb"), {"ISP_API_SetWbMode(0, 5, 1, 1)"}},
        {option("ViewFollowWB", "On"), {"ISP_API_SetWhiteBalanceFullViewFollow(0, 1, 1, 1)"}},
    };
    for (const char *pcRate : {"", "Fps24", "Fps25", "Fps30", "Fps50", "Fps60"})
        list.push_back({option(std::string("ShutterSpeed") + pcRate, "Ss100"), {"ISP_API_SetShutter(0, 9, 1, 1)"}});
    for (const char *pcRate : {"Fps24", "Fps25", "Fps30", "Fps50", "Fps60"})
        list.push_back({number(std::string("ShutterValue") + pcRate, 777), {"ISP_API_SetShutterValue(0, 777, 1, 1)"}});
    const std::string strRefresh = "OSD_MENU_RefreshCurrentPage()"; // last: they change what the others are about
    list.push_back({option("LensImage", "CloseUp"), {"ISP_API_SetCurDevImage(\"CloseUp\")", strRefresh}});
    list.push_back({option("LensWB", "Panorama"), {"ISP_API_SetCurDevWB(\"Panorama\")", strRefresh}});
    list.push_back({option("LensExposure", "Panorama"), {"ISP_API_SetCurDevExposure(\"Panorama\")", strRefresh}});
    return list;
}

std::vector<tagPARAM_CASE_S> cameraCases()
{
    std::vector<tagPARAM_CASE_S> list = {
        {option("DZoom", "On"), {"PTZ_API_SetDZoomMode(0, 1, 1, 1)"}},
        {option("DZoomTime", "X4"), {"PTZ_API_SetMaxDZoomTime(0, 4, 1, 1)"}},
        {option("PtzTrigAf", "Off"), {"AF_API_SetPtzTrigAf(0, 0, 1, 1)"}},
        {number("ZoomSpd", 3), {"PTZ_API_SetZoomSpd(0, 3, 1, 1)"}},
        {option("FocusModel", "FocusTOF"), {"AF_API_SetFocusModel(0, 2, 1, 1)"}},
        {option("FaceAF", "On"), {"AF_API_SetFaceAF(0, 1, 1, 1)"}},
        {option("FocusArea", "Down"), {"AF_API_SetFocusArea(0, 3, 1, 1)"}},
        {option("FocusDistance", "V5"), {"AF_API_SetFocusRange(0, 4, 1, 1)"}},
        {option("DistortionCorre", "On"), {"AF_API_SetDistortionCorrection(1, 1, 1)"}},
        {item("LensCorrection"), {"AF_API_TriggerCurveCorrection()"}},
        {option("PowerUpPtzPos", "Preset3"), {"PT_API_SetPowerUpPtzPos(0, 3, 1, 1)"}},
        {number("PanSpeed", 7), {"PT_API_SetPanSpeed(0, 7, 1, 1)"}},
        {number("TileSpeed", 8), {"PT_API_SetTileSpeed(0, 8, 1, 1)"}},
        {number("PresetSpeed", 9), {"PRESET_API_SetPresetSpeed(0, 9, 1, 1)"}},
        {option("SpeedMatch", "Off"), {"PT_API_SetPtSpeedMatch(0, 0, 1, 1)"}},
        {option("SpeedAccuracy", "Acc10"), {"PT_API_SetSpeedAccuracy(0, 10, 1)"}},
        {option("Mirror", "On"), {"SYS_API_SetMirror(1, 1, 0)"}},
        {option("Flip", "On"), {"SYS_API_SetFlip(1, 1, 0)"}},
        {option("MountMode", "Ceiling"), {"SYS_API_SetMountMode(0, 1, 0)"}},
        {option("Prompt", "Off"), {"SYS_API_SetPrompt(0, 1, 1)"}},
        {option("ImageFreeze", "On"), {"SYS_API_SetImageFreeze(1, 1, 1)"}},
        {option("SensorCrop", "On"), {"SYS_API_SetSensorCrop(1, 1, 1)"}},
        {option("Language", "Chinese"), {"SYSTEM_API_SetLanguage(\"Chinese\", 1)", "OSD_MENU_RefreshCurrentPage()"}},
        {option("DevUSB", "Host"), {"USB_API_SetMode(0, 1)"}},
        {option("VideoFormat", "720P50"), {"SYSTEM_API_SetVideoFormat(\"720P50\", 1)"}},
        {option("Format", "Format-4K"), {"SYSTEM_API_SetHdmiFormat(\"Format-4K\", 1)"}},
        {option("AudioInput", "LineIn"), {"SYS_API_SetAudioinput(0, 1, 1)"}},
        {option("AudioInput", "MicIn"), {"SYS_API_SetAudioinput(1, 1, 1)"}},
        {option("AudioInput", "MicIn48V"), {"SYS_API_SetAudioinput(1, 1, 1)", "SYS_API_SetAudioinput(2, 1, 1)"}},
        {option("TrackEnabled", "On"), {"ALG_API_SetEnable(1, 1, 1)"}},
        {option("TrackMode", "StageTracking"), {"ALG_API_SetTrackMode(1, 1, 1)"}},
        {option("TrackStrategy", "Monocular"), {"ALG_API_SetTrackStrategy(1, 1, 1)"}},
        {option("BinocularStrategy", "ZoneTracking"), {"ALG_API_SetTrackStrategyBinocular(2, 1, 1)"}},
        {option("MonocularStrategy", "AutoFraming"), {"ALG_API_SetTrackStrategyMonocular(3, 1, 1)"}},
        {item("FactoryRestore"), {"SYSTEM_API_FactoryRestoreConfiguration(0)"}},
        {item("Restart"), {"UTIL_CMD_RunSafe(\"reboot\")"}},
        {item("Escape"), {"CMD_MENU_HandleMenuBtn()"}},
        {item("Back"), {"CMD_MENU_HandleMenuBtn()"}},
        {item("ModeSwitch"), {}},
        {option("TallyDev", "On"), {}},
    };
    for (const char *pcFormat : {"FPS4K", "FPS1080P", "FPS1080I", "FPS720P"})
        list.push_back({option(pcFormat, "Fps59p94"), {"SYSTEM_API_SetHdmiFps(\"Fps59p94\", 1)"}});
    return list;
}

/// The end of NDI's record: what the menu does not touch.
const std::string NDI_REST = ", \"\", \"\", \"\", 1, 0, \"239.255.0.0\", \"255.255.0.0\", 1, 0, \"\", 1, 2, 6}";

std::vector<tagPARAM_CASE_S> controlCases()
{
    return {
        {option("RS232ProtocolType", "PelcoD"), {"SERIAL_API_SetProtocolType(0, \"PelcoD\", 1)"}},
        {option("RS422ProtocolType", "Freed"), {"SERIAL_API_SetProtocolType(1, \"Freed\", 1)"}},
        {option("RS232Baudrate", "N38400"), {"SERIAL_API_SetBaudrate(0, \"N38400\", 1)"}},
        {option("RS422Baudrate", "N2400"), {"SERIAL_API_SetBaudrate(1, \"N2400\", 1)"}},
        {option("COM-Mode", "RS422"), {"UART_Change_SerialRs422or232(1)"}},
        {option("COM-Mode", "RS232 and more"), {"UART_Change_SerialRs422or232(0)"}},
        {option("COM-Mode", "RS485"), {}},
        {number("IrAddr", 3), {"IR_API_SetAddr(3, 1, 0)"}},
        {option("IrAddrCtrl", "DIPSwitch"), {"IR_API_SetAddrCtrl(\"DIPSwitch\", 1)"}},
        {number("ViscaAddr", 5), {"VISCA_API_SetAddr(5, 1)"}},
        {number("PelcoPAddr", 6), {"SERIAL_API_SetProtocolPelcoAddr(6, 0, 1)"}},
        {number("PelcoDAddr", 7), {"SERIAL_API_SetProtocolPelcoAddr(7, 1, 1)"}},
        {number("FreedCammeraId", 8), {"SetCammeraId(8, 1)"}},
        {option("IpMode", "StaticIp"), {"NET_API_SetIpMode(\"NetCard0\", 1)"}},
        {option("IpMode", "Static"), {"NET_API_SetIpMode(\"NetCard0\", 0)"}},
        {text("IpAddr", "10.0.0.9"), {"NET_API_SetIpAddr(\"NetCard0\", \"10.0.0.9\")"}},
        {text("NetMask", "255.0.0.0"), {"NET_API_SetNetMask(\"NetCard0\", \"255.0.0.0\")"}},
        {text("GateWay", "10.0.0.1"), {"NET_API_SetGateWay(\"NetCard0\", \"10.0.0.1\")"}},
        {option("DnsMode", "ManualMode"), {"NET_API_SetDnsMode(\"NetCard0\", 1)"}},
        {option("DnsMode", "manual"), {"NET_API_SetDnsMode(\"NetCard0\", 0)"}},
        {text("Dns1", "10.0.0.2"), {"NET_API_SetDns1(\"NetCard0\", \"10.0.0.2\")"}},
        {text("Dns2", ""), {"NET_API_SetDns2(\"NetCard0\", \"\")"}},
        {option("Ndi", "On"),
         {"MPP_NDI_UpdateInstance({1" + NDI_REST + ", 1)", "CFG_COM_SetTxtParams(\"Ndi\", \"On\", 1)"}},
        {option("Ndi", "Off"),
         {"MPP_NDI_UpdateInstance({0" + NDI_REST + ", 1)", "CFG_COM_SetTxtParams(\"Ndi\", \"Off\", 1)"}},
    };
}

TEST_F(MenuParams, EachKeyMakesItsCalls)
{
    journal::inject("UTIL_CMD_RunSafe", 0); // no restart
    std::set<std::string> keys;
    for (const auto &cases : {pictureCases(), cameraCases(), controlCases()})
        for (const auto &[stItem, effects] : cases) {
            keys.insert(stItem.acItemIndex);
            EXPECT_EQ(effectsOf(stItem), effects) << stItem.acItemIndex;
        }
    for (const MENU_PARAM_MAP_S &st : menu::paramTable()) EXPECT_TRUE(keys.contains(st.acParam)) << st.acParam;
    EXPECT_EQ(keys.size(), menu::paramTable().size());
}

TEST_F(MenuParams, LensesChangeTheDataZones)
{
    const auto sections = [] {
        std::vector<std::string> list;
        for (const char *pcZone : {"IMAGE", "EXPOSURE", "WBLANCE", "NETWORK"})
            list.emplace_back(OSD_MENU_DataZoneGetSection(pcZone));
        return list;
    };
    EXPECT_THAT(sections(), ElementsAre("Image1", "Exposure0", "WhiteBalance0", "NetCard0"));
    effectsOf(option("LensExposure", "Panorama"));
    effectsOf(option("LensImage", "CloseUp"));
    effectsOf(option("LensWB", "nowhere"));
    EXPECT_THAT(sections(), ElementsAre("Image0", "Exposure1", "WhiteBalance0", "NetCard0"));
    EXPECT_THAT(effectsOf(number("Gain", 4)), ElementsAre("ISP_API_SetGain(1, 4, 1, 1)"));
    for (const char *pcZone : {"image", "LENS", ""}) EXPECT_EQ(OSD_MENU_DataZoneGetSection(pcZone), nullptr) << pcZone;
}

TEST_F(MenuParams, UnknownKeysAreRefusedInSilence)
{
    for (const char *pcKey : {"", "brightness", "Brightnes", "Brightness ", "0123456789012345678901234567890"}) {
        ITEM_NODE_S st = number(pcKey, 1);
        testing::internal::CaptureStdout();
        EXPECT_EQ(OSD_MENU_SetParam(&st), -1) << pcKey;
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "") << pcKey;
    }
    ITEM_NODE_S stUnterminated = number("", 1);
    std::fill(std::begin(stUnterminated.acItemIndex), std::end(stUnterminated.acItemIndex), 'x');
    EXPECT_EQ(OSD_MENU_SetParam(&stUnterminated), -1);
    EXPECT_THAT(journal::effects(), IsEmpty());
}

/// What the services refuse does not concern the menu library: it reads values again.
TEST_F(MenuParams, RefusedValuesChangeNothing)
{
    ITEM_NODE_S stBeyond = option("IrisLevel", "IlF8");
    for (const BU_S32 s32Index : {-1, 3, MENU_OPTION_MAX, INT32_MAX}) {
        stBeyond.unVal.stTxtVal.s32ValSaveCur = s32Index;
        EXPECT_EQ(OSD_MENU_SetParam(&stBeyond), 0) << s32Index;
    }
    ITEM_NODE_S stGain = number("Gain", 28);
    EXPECT_EQ(OSD_MENU_SetParam(&stGain), 0);
    BU_S32 s32Iris = 0, s32Gain = -1;
    ISP_API_GetIrisLevel(0, &s32Iris);
    ISP_API_GetGain(0, &s32Gain);
    EXPECT_EQ(s32Iris, 12);
    EXPECT_EQ(s32Gain, 0);
}

TEST_F(MenuParams, NdiStartsFromItsDefaultsWhereThereIsNoRecord)
{
    journal::inject("MPP_NDI_GetInstance", -1);
    journal::inject("MPP_NDI_UpdateInstance", -1); // nobody looks at it
    EXPECT_THAT(
        effectsOf(option("Ndi", "On")),
        ElementsAre("MPP_NDI_UpdateInstance({1, \"\", \"\", \"\", 1, 0, \"239.255.0.0\", \"255.255.0.0\", 1, 0, "
                    "\"\", -1, -1, -1}, 1)",
                    "CFG_COM_SetTxtParams(\"Ndi\", \"On\", 1)"));
}

TEST_F(MenuParams, TheKeyIsTraced)
{
    ITEM_NODE_S st = number("Gain", 3);
    testing::internal::CaptureStdout();
    OSD_MENU_SetParam(&st);
    EXPECT_THAT(testing::internal::GetCapturedStdout(), testing::StartsWith("now while running Gain \n"));
}
} // namespace
