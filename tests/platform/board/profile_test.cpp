/// Board profiles: what they describe, and what is told of a faulty one; GPIO lines.
#include "board/device.h"
#include "board/gpio.h"
#include "board/profile.h"
#include "board/profileData.h"
#include "camera/network.h"
#include "config/config.h"
#include "support/place.h"
#include "support/platformTest.h"
#include "support/quoted.h"

#include <cstring>
#include <fstream>
#include <iterator>
#include <set>

using namespace std::string_literals;
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;

namespace
{
const std::string PROFILES = place::source("platform/board/profiles/");

std::string textOf(const std::string &strFile)
{
    std::ifstream stFile(strFile);
    return {std::istreambuf_iterator(stFile), {}};
}

struct ProfileTest : PlatformTest {
    ~ProfileTest() override { BSP_PROFILE_Load("TKV-MX"); }

    /// Loads a text as a profile and gives the log of it.
    std::string loadText(const std::string &strText)
    {
        std::ofstream(root() + "/board.json") << strText;
        testing::internal::CaptureStderr();
        const BU_S32 s32Ret = BSP_PROFILE_Load((root() + "/board.json").c_str());
        const std::string strLog = testing::internal::GetCapturedStderr();
        EXPECT_EQ(s32Ret, strLog.empty() ? 0 : -1) << strLog;
        return strLog;
    }
};

TEST_F(ProfileTest, EachDescribesACameraThatCanBeDriven)
{
    for (const std::string strProfile : {"TKV-MX", "QLS-500", "minimal"}) {
        SCOPED_TRACE(strProfile);
        ASSERT_EQ(BSP_PROFILE_Load(strProfile.c_str()), 0);
        BU_CHAR acModel[32], acHost[64];
        tagCFG_FEATURE_LIST_S stFeatures;
        tagHW_ABILITY_S stAbility;
        BSP_MAC_ADDR_S stMac;
        ASSERT_EQ(BSP_DEVATTR_GetDeviceModelInner(acModel), 0);
        EXPECT_EQ(acModel, strProfile);
        ASSERT_EQ(CFG_FEATURE_GetConfiguration(&stFeatures), 0);
        ASSERT_EQ(BSP_HW_ABI_GetHwAbility(&stAbility), 0);
        const auto &stGeneral = stFeatures.stGeneral;
        EXPECT_TRUE(stGeneral.bEthernet && stGeneral.bPt && stGeneral.stSerial.bSupport);
        std::set<std::string> devices;
        for (BU_S32 i = 0; i < stGeneral.stSerial.s32NodeCnt; i++)
            devices.insert(stGeneral.stSerial.astNode[i].acDeviceName);
        EXPECT_EQ(devices.size(), static_cast<std::size_t>(stGeneral.stSerial.s32NodeCnt));
        EXPECT_EQ(stAbility.enDataVaild, HW_ABI_DATA_E_INTERFACE_CHAIN_READY);
        ASSERT_GE(stAbility.stLens.s32DevCnt, 1);
        EXPECT_TRUE(stAbility.stLens.bSupport);
        EXPECT_EQ(stAbility.stLens.astZfDevPub[0].enChipChain, DEVICE_SELFCHECK_E_PASS);
        ASSERT_EQ(BSP_DEVATTR_GetDeviceMacAddr(&stMac), 0);
        EXPECT_EQ(stMac.acEth0MacAddr[0] & 3, 2) << "locally administered, no group address";
        ASSERT_EQ(CFG_NETWORK_GetHostname(acHost, sizeof(acHost)), 0);
        EXPECT_EQ(CFG_NETWORK_SetHostname(acHost), 0) << "the profile's name is a valid one";
    }
}

// clang-format off
constexpr const BU_CHAR *FAULTS[][3] = { // a piece of it (' for "), what stands there instead, what must be told
    {"'deviceName':", "'deviceName'", "line 3"}, {"'serialNumber'", "'serialNo'", "serialNumber: is missing"},
    {"'opticalZoom': 20", "'opticalZoom': '20'", "lens/opticalZoom: must be a whole number"},
    {"'opticalZoom': 20", "'opticalZoom': 20.5", "lens/opticalZoom: must be a whole number"},
    {"'opticalZoom': 20", "'opticalZoom': 99999999999", "from 1 to 100"},
    {"'TKV-MX'", "'A model name of 32 characters ...'", "model: must have 1 to 31 bytes"},
    {"'TKV-MX'", "''", "model: must have"},
    {"'osdMenu'", "'osdmenu'", "features/control/3: does not know the word 'osdmenu'"},
    {"'hdBaseT'", "'hdbaset'", "features/av/hdbaset: is no known key"},
    {"'zoom': true", "'zoom': 1", "ability/lenses/0/zoom: must be true or false"},
    {"'lens': {'opticalZoom': 20}", "'lens': [20]", "lens: must be an object"},
    {"'display': ['oled', 'led']", "'display': 'oled'", "features/display: must be a list"},
    {"'gpioLines': [", "'gpioLines': [1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,", "more than 16"},
    {"IR-DIP-SWITCH0", "../../x", "gpioLines/0: must not contain"}, {"'1.4.2.12'", "'1.4'", "versions/camera: must be"},
    {"'1.4.2.12'", "'1.4.2.12b'", "versions/camera: must be"}, {"'1.4.2.12'", "'1.256.2'", "versions/camera: must be"},
    {"02:1a:4d:24:06:01", "02:1a:4d:24:06:1", "macAddresses/0: must be"},
    {"'zoomFocusCheck': 'pass'", "'zoomFocusCheck': 'ok'", "zoomFocusCheck: does not know"},
    {"/dev/ttyS_RS422", "/dev/a_device_name_beyond_its_field", "nodes/1/device: must have 1 to 31"},
};
// clang-format on

TEST_F(ProfileTest, AFaultyOneIsRefusedWithPlaceAndReason)
{
    const std::string strGood = textOf(std::string(PROFILES) + "TKV-MX.json");
    ASSERT_EQ(loadText(strGood), "");
    for (const auto &row : FAULTS) {
        const std::string strOld = quoted(row[0]), strNew = quoted(row[1]);
        const std::size_t place = strGood.find(strOld);
        ASSERT_NE(place, std::string::npos) << strOld;
        EXPECT_THAT(loadText(std::string(strGood).replace(place, strOld.size(), strNew)),
                    AllOf(HasSubstr(root() + "/board.json"), HasSubstr(quoted(row[2]))));
    }
}

template <class Record, class Member> struct Word {
    const BU_CHAR *pcWord;
    Member Record::*pMember;
};
// clang-format off
using C = CFG_FEATURE_CONTROL_S;
using D = CFG_FEATURE_DISPLAY_S;
using G = CFG_FEATURE_GENERAL_S;
using A = CFG_FEATURE_AV_S;
using H = tagHW_ABILITY_S;
constexpr Word<C, BU_BOOL> CONTROL[] = {
    {"viscaEthernet", &C::bViscaEtherSupport}, {"onvif", &C::bOnvifSupport}, {"webUi", &C::bWebUiSupport},
    {"ai", &C::bAiSupport}, {"osdMenu", &C::bOsdMenuSupport}, {"freeD", &C::bFreeDSupport}, {"dvip", &C::bDvipSupport}};
constexpr Word<D, BU_BOOL> DISPLAY[] = {
    {"eink", &D::bEinkSupport}, {"oled", &D::bOledSupport}, {"led", &D::bLedSupport}};
constexpr Word<G, BU_BOOL> GENERAL[] = {
    {"ethernet", &G::bEthernet}, {"panTilt", &G::bPt}, {"autoFocus", &G::bAf}, {"ntp", &G::bNtp},
    {"resetKey", &G::bRstKey}, {"infrared", &G::bIr}, {"audio", &G::bAudio}};
constexpr Word<A, tagCFG_FEATURE_AV_INTF_S> AV[] = {
    {"hdmi", &A::stHdmi}, {"hdBaseT", &A::stHdBaseT}, {"sdi", &A::stSdi}, {"usb", &A::stUsb}, {"ndi", &A::stNdi},
    {"rtsp", &A::stRtsp}, {"rtmp", &A::stRtmp}, {"srt", &A::stSrt}, {"dante", &A::stDante}};
constexpr Word<H, HW_CAPS_COUNT_S> COUNTS[] = {
    {"chips", &H::stChipData}, {"net", &H::stNet}, {"usb", &H::stUsb}, {"sdCard", &H::stSdcard}, {"hdmi", &H::stHdmi},
    {"sdi", &H::stSdi}, {"fullNdi", &H::stFullNdi}, {"eink", &H::stEink}, {"uart", &H::stUart},
    {"resetKey", &H::stResetKey}, {"infrared", &H::stIr}, {"audio", &H::stAudio}};
// clang-format on

/// A profile with one word of a list: its own field is set, and no other.
TEST_F(ProfileTest, EachWordIsTheFieldOfItsName)
{
    const std::string strGood = textOf(std::string(PROFILES) + "TKV-MX.json");
    tagCFG_FEATURE_LIST_S stFeatures;
    tagHW_ABILITY_S stAbility;
    const auto check = [&](const auto &words, const BU_CHAR *pcList, const BU_CHAR *pcNext, std::string strBefore,
                           std::string strAfter, const auto &stRecord, auto isSet) {
        for (const auto &[pcWord, pMember] : words) {
            std::string strText = strGood;
            const std::size_t from = strText.find(pcList), to = strText.find(pcNext, from);
            strText.replace(from, to - from, pcList + strBefore + '"' + pcWord + '"' + strAfter + ", ");
            ASSERT_EQ(loadText(strText), "") << pcWord;
            CFG_FEATURE_GetConfiguration(&stFeatures);
            BSP_HW_ABI_GetHwAbility(&stAbility);
            for (const auto &[pcOther, pOther] : words)
                EXPECT_EQ(isSet(stRecord.*pOther), pcOther == pcWord) << pcWord << ": " << pcOther;
        }
    };
    const auto isOn = [](BU_BOOL b) { return b != BU_FALSE; };
    check(CONTROL, "\"control\": ", "\"av\"", "[", "]", stFeatures.stControl, isOn);
    check(DISPLAY, "\"display\": ", "\"general\"", "[", "]", stFeatures.stDisplay, isOn);
    check(GENERAL, "\"general\": ", "\"serial\"", "[", "]", stFeatures.stGeneral, isOn);
    check(AV, "\"av\": ", "\"display\"", "{", ": [{\"direction\": \"in\", \"video\": true, \"audio\": false}]}",
          stFeatures.stAv, [](const auto &st) {
              return st.bSupport && st.s32NodeCnt == 1 && st.astPub[0].enDataDir == CFG_FEATURE_DATA_DIR_E_IN;
          });
    check(COUNTS, "\"interfaces\": ", "\"lenses\"", "{", ": 3}", stAbility,
          [](const auto &st) { return st.bSupport && st.s32DevCnt == 3; });
    const std::size_t from = strGood.find("\"lenses\": [") + 11;
    ASSERT_EQ(loadText(strGood.substr(0, from) + strGood.substr(strGood.find(']', from))), "");
    BSP_HW_ABI_GetHwAbility(&stAbility);
    EXPECT_FALSE(stAbility.stLens.bSupport) << "no lens";
}

TEST_F(ProfileTest, WithoutOneEverythingIsRefused)
{
    ASSERT_EQ(BSP_PROFILE_Load("no such model"), -1);
    tagCFG_FEATURE_LIST_S stFeatures;
    BU_CHAR acText[128];
    FIRMWARE_INFO_V2_S stVersion;
    BSP_MAC_ADDR_S stMac;
    EXPECT_THAT((std::vector{CFG_FEATURE_GetConfiguration(&stFeatures), BSP_DEVATTR_GetDeviceModel(acText),
                             BSP_DEVATTR_GetSn(acText), BSP_DEVATTR_GetDeviceMacAddr(&stMac),
                             BSP_VER_GetProductVersion(&stVersion), BSP_GetMacAddress("eth0", acText)}),
                testing::Each(-1));
    tagHW_ABILITY_S stAbility;
    std::memset(&stAbility, 0x55, sizeof(stAbility));
    EXPECT_EQ(BSP_HW_ABI_GetHwAbility(&stAbility), -1);
    const tagHW_ABILITY_S stZero{};
    EXPECT_EQ(std::memcmp(&stAbility, &stZero, sizeof(stZero)), 0) << "a valid, empty record";
    EXPECT_EQ(BSP_PROFILE_GetInt("lens/opticalZoom", 7), 7);
}

TEST_F(ProfileTest, ValuesAreReadByPathAndAnOwnCopyInTheDeviceRootComesFirst)
{
    ASSERT_EQ(BSP_PROFILE_Load("TKV-MX"), 0);
    EXPECT_THAT((std::vector{BSP_PROFILE_GetInt("panTilt/panMinDegrees", 1), BSP_PROFILE_GetInt("model", 1),
                             BSP_PROFILE_GetInt("ability/lenses/0/zoom", 0), BSP_PROFILE_GetInt("panTilt", 1)}),
                ElementsAre(-170, 1, 1, 1));
    EXPECT_EQ(BSP_PROFILE_GetText("versions/product", "none"), "MX_1.4.2");
    std::string strText = textOf(PROFILES + "minimal.json");
    strText.replace(strText.find("MIN24060001"), 11, "OWN");
    std::filesystem::create_directories(root() + "/app/profiles");
    std::ofstream(root() + "/app/profiles/minimal.json") << strText;
    ASSERT_EQ(BSP_PROFILE_Load("minimal"), 0);
    EXPECT_EQ(BSP_PROFILE_GetText("serialNumber", ""), "OWN");
}

TEST_F(ProfileTest, IdentityReachesItsRecords)
{
    ASSERT_EQ(BSP_PROFILE_Load("TKV-MX"), 0);
    FIRMWARE_INFO_V2_S stVersion;
    ASSERT_EQ(BSP_VER_GetProductVersion(&stVersion), 0);
    EXPECT_THAT(stVersion.au8CamVersion, ElementsAre(1, 4, 2, 12));
    EXPECT_THAT(stVersion.au8CamDate, ElementsAre(24, 6, 18, 0));
    BU_CHAR acText[32];
    ASSERT_EQ(BSP_GetMacAddress("eth1", acText), 0);
    EXPECT_STREQ(acText, "02:1a:4d:24:06:02");
    EXPECT_EQ(board::currentProfile()->serial.at(0).enPort, UART_INSTANCE_TYPE_RS232);
    EXPECT_EQ(board::currentProfile()->serial.at(1).enPort, UART_INSTANCE_TYPE_RS422);
    ASSERT_EQ(BSP_PROFILE_Load("minimal"), 0);
    EXPECT_EQ(BSP_GetMacAddress("eth1", acText), -1) << "no second port";
    EXPECT_EQ(BSP_GetIpAddress("wlan0", acText), -1);
    ASSERT_EQ(BSP_GetIpAddress(nullptr, acText), 0);
    EXPECT_STREQ(acText, "127.0.0.1");
}

TEST_F(ProfileTest, GpioLinesAreFilesThatATesterSwitches)
{
    ASSERT_EQ(BSP_PROFILE_Load("TKV-MX"), 0);
    const auto number = [](const BU_CHAR *pcName) {
        BSP_GPIO_GETIDX stLine{};
        std::strncpy(stLine.acModuleName, pcName, sizeof(stLine.acModuleName));
        return BSP_GetGpioNum(&stLine);
    };
    const BU_S32 s32Line = number("IR-DIP-SWITCH1");
    ASSERT_GE(s32Line, 0);
    for (const auto &strNone : {"IR-DIP-SWITCH"s, std::string(70, 'x')})
        EXPECT_LT(number(strNone.c_str()), 0); // no end
    for (const BU_S32 s32None : {99, -1}) EXPECT_LT(BSP_RequestGpioMode(s32None), 0);
    EXPECT_EQ(BSP_GetGpioNum(nullptr), -1);
    EXPECT_EQ(BSP_GetGpioValue(s32Line), 0) << "not in use yet";
    ASSERT_EQ(BSP_RequestGpioMode(s32Line), 0);
    std::ofstream(root() + "/sys/gpio/IR-DIP-SWITCH1/value") << "1\n";
    EXPECT_EQ(BSP_RequestGpioMode(s32Line), 0) << "keeps the level";
    EXPECT_EQ(BSP_GetGpioValue(s32Line), 1);
    EXPECT_EQ(BSP_GetGpioValue(number("IR-DIP-SWITCH0")), 0);
}
} // namespace
