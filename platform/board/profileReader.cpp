// The JSON form of a board profile. Every key that the camera needs is checked here, so that a mistake in a profile is
// told with its place instead of showing up as a missing module.
#include "board/profileData.h"
#include "util/json.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <span>

namespace
{
using util::Json;

template <class Record> struct FlagRow {
    const BU_CHAR *pcWord;
    BU_BOOL Record::*pbFlag;
};
using Control = CFG_FEATURE_CONTROL_S;
using Display = CFG_FEATURE_DISPLAY_S;
using General = CFG_FEATURE_GENERAL_S;
constexpr FlagRow<Control> CONTROL[] = {
    {"viscaEthernet", &Control::bViscaEtherSupport},
    {"onvif", &Control::bOnvifSupport},
    {"webUi", &Control::bWebUiSupport},
    {"osdMenu", &Control::bOsdMenuSupport},
    {"freeD", &Control::bFreeDSupport},
    {"ai", &Control::bAiSupport},
    {"dvip", &Control::bDvipSupport},
};
constexpr FlagRow<Display> DISPLAY[] = {
    {"eink", &Display::bEinkSupport}, {"oled", &Display::bOledSupport}, {"led", &Display::bLedSupport}};
constexpr FlagRow<General> GENERAL[] = {
    {"ethernet", &General::bEthernet}, {"panTilt", &General::bPt},      {"autoFocus", &General::bAf},
    {"ntp", &General::bNtp},           {"resetKey", &General::bRstKey}, {"infrared", &General::bIr},
    {"audio", &General::bAudio},
};

struct AvRow {
    const BU_CHAR *pcWord;
    tagCFG_FEATURE_AV_INTF_S CFG_FEATURE_AV_S::*pstIntf;
};
using Av = CFG_FEATURE_AV_S;
constexpr AvRow AV[] = {
    {"hdmi", &Av::stHdmi}, {"hdBaseT", &Av::stHdBaseT}, {"sdi", &Av::stSdi},
    {"usb", &Av::stUsb},   {"ndi", &Av::stNdi},         {"rtsp", &Av::stRtsp},
    {"rtmp", &Av::stRtmp}, {"srt", &Av::stSrt},         {"dante", &Av::stDante},
};

struct CountRow {
    const BU_CHAR *pcWord;
    HW_CAPS_COUNT_S tagHW_ABILITY_S::*pstCaps;
};
using Ability = tagHW_ABILITY_S;
constexpr CountRow COUNTS[] = {
    {"chips", &Ability::stChipData},    {"net", &Ability::stNet},     {"usb", &Ability::stUsb},
    {"sdCard", &Ability::stSdcard},     {"hdmi", &Ability::stHdmi},   {"sdi", &Ability::stSdi},
    {"fullNdi", &Ability::stFullNdi},   {"eink", &Ability::stEink},   {"uart", &Ability::stUart},
    {"resetKey", &Ability::stResetKey}, {"infrared", &Ability::stIr}, {"audio", &Ability::stAudio},
};

template <class Value> struct WordRow {
    const BU_CHAR *pcWord;
    Value value;
};
constexpr WordRow<DEVICE_SELFCHECK_E> SELF_CHECKS[] = {
    {"none", DEVICE_SELFCHECK_E_NONE}, {"pass", DEVICE_SELFCHECK_E_PASS}, {"fail", DEVICE_SELFCHECK_E_FAIL}};
constexpr WordRow<CFG_FEATURE_DATA_DIR_E> DIRECTIONS[] = {
    {"in", CFG_FEATURE_DATA_DIR_E_IN}, {"out", CFG_FEATURE_DATA_DIR_E_OUT}, {"inOut", CFG_FEATURE_DATA_DIR_E_INOUT}};
constexpr WordRow<UART_INSTANCE_TYPE> PORTS[] = {{"RS232", UART_INSTANCE_TYPE_RS232},
                                                 {"RS422", UART_INSTANCE_TYPE_RS422}};

constexpr const BU_CHAR *NO_KEY = "is no known key";

/// The row of a word. @param strRefusal  what is wrong with one that the rows do not hold
template <class Row, std::size_t N>
const Row &rowOf(const Json &json, const std::string &strWord, const Row (&rows)[N], const std::string &strRefusal)
{
    const auto row = std::ranges::find_if(rows, [&](const Row &stRow) { return strWord == stRow.pcWord; });
    if (row == std::end(rows)) json.refuse(strRefusal);
    return *row;
}
template <class Row, std::size_t N> const Row &word(const Json &json, const Row (&rows)[N])
{
    const std::string &strWord = json.text(64);
    return rowOf(json, strWord, rows, "does not know the word \"" + strWord + "\"");
}

/// Calls fn with the number of an item and the item. @return how many there are, at most `most`
template <class F> BU_S32 eachItem(const Json &json, std::size_t most, F fn)
{
    std::size_t i = 0;
    for (const Json &item : json.items(most)) fn(i++, item);
    return static_cast<BU_S32>(i);
}

template <class Record, std::size_t N>
void readFlags(const Json &json, const FlagRow<Record> (&rows)[N], Record &stRecord)
{
    for (const Json &item : json.items(N)) stRecord.*word(item, rows).pbFlag = BU_TRUE;
}

void readAv(const Json &node, CFG_FEATURE_AV_S &stAv)
{
    for (const auto &[strKey, member] : node.members()) {
        auto &stIntf = stAv.*rowOf(member, strKey, AV, NO_KEY).pstIntf;
        stIntf.s32NodeCnt = eachItem(member, std::size(stIntf.astPub), [&](std::size_t i, const Json &item) {
            stIntf.astPub[i] = {BU_TRUE, item["video"].flag(), item["audio"].flag(),
                                word(item["direction"], DIRECTIONS).value};
        });
        stIntf.bSupport = stIntf.s32NodeCnt > 0;
    }
}

void readSerial(const Json &node, board::Profile &stProfile)
{
    auto &stSerial = stProfile.stFeatures.stGeneral.stSerial;
    stSerial.bDaisyChain = node["daisyChain"].flag();
    stSerial.s32NodeCnt = eachItem(node["nodes"], std::size(stSerial.astNode), [&](std::size_t i, const Json &item) {
        auto &stNode = stSerial.astNode[i];
        const std::string strDevice = item["device"].text(sizeof(stNode.acDeviceName) - 1);
        stNode.bSupport = BU_TRUE;
        std::snprintf(stNode.acDeviceName, sizeof(stNode.acDeviceName), "%s", strDevice.c_str());
        stProfile.serial.push_back({word(item["port"], PORTS).value, strDevice});
    });
    stSerial.bSupport = stSerial.s32NodeCnt > 0;
}

void readFeatures(const Json &node, board::Profile &stProfile)
{
    auto &stFeatures = stProfile.stFeatures;
    readFlags(node["control"], CONTROL, stFeatures.stControl);
    readAv(node["av"], stFeatures.stAv);
    readFlags(node["display"], DISPLAY, stFeatures.stDisplay);
    readFlags(node["general"], GENERAL, stFeatures.stGeneral);
    readSerial(node["serial"], stProfile);
    stFeatures.bDataInited = BU_TRUE;
}

void readAbility(const Json &node, tagHW_ABILITY_S &stAbility)
{
    for (const auto &[strKey, member] : node["interfaces"].members()) {
        auto &stCaps = stAbility.*rowOf(member, strKey, COUNTS, NO_KEY).pstCaps;
        stCaps.s32DevCnt = member.number(0, 16);
        stCaps.bSupport = stCaps.s32DevCnt > 0;
    }
    auto &stLens = stAbility.stLens;
    const auto check = [](const Json &item, const BU_CHAR *pcKey) { return word(item[pcKey], SELF_CHECKS).value; };
    stLens.s32DevCnt = eachItem(node["lenses"], std::size(stLens.astDevPri), [&](std::size_t i, const Json &item) {
        stLens.astDevPri[i] = {item["type"].number(0, 16), item["zoom"].flag(), item["focus"].flag(),
                               item["pan"].flag(),         item["tilt"].flag(), item["position"].number(0, 16)};
        stLens.astSnsDevPub[i].enChipChain = check(item, "sensorCheck");
        stLens.astZfDevPub[i].enChipChain = check(item, "zoomFocusCheck");
        stLens.astPtDevPub[i].enChipChain = check(item, "panTiltCheck");
    });
    stLens.bSupport = stLens.s32DevCnt > 0;
    stAbility.enDataVaild = HW_ABI_DATA_E_INTERFACE_CHAIN_READY;
}

/// "a.b.c" or "a.b.c.d", each number a byte; the fourth is 0 when it is left out.
void readBytes(const Json &node, BU_U8 (&au8Bytes)[4])
{
    const std::string &strText = node.text(15);
    unsigned au32[4] = {};
    int s32Used[4] = {};
    const int s32Numbers = std::sscanf(strText.c_str(), "%3u%n.%3u%n.%3u%n.%3u%n", &au32[0], &s32Used[0], &au32[1],
                                       &s32Used[1], &au32[2], &s32Used[2], &au32[3], &s32Used[3]);
    const bool bWhole = s32Numbers >= 3 && s32Used[s32Numbers - 1] == static_cast<int>(strText.size());
    if (!bWhole || std::ranges::any_of(au32, [](unsigned u32) { return u32 > UINT8_MAX; }))
        node.refuse("must be three or four numbers from 0 to 255 with dots between them");
    std::ranges::copy(au32, au8Bytes);
}

void readMac(const Json &node, BU_U8 (&au8Mac)[6])
{
    const std::string &strText = node.text(17);
    unsigned au32[6];
    int s32Used = 0;
    if (std::sscanf(strText.c_str(), "%2x:%2x:%2x:%2x:%2x:%2x%n", &au32[0], &au32[1], &au32[2], &au32[3], &au32[4],
                    &au32[5], &s32Used) != 6 ||
        s32Used != 17)
        node.refuse("must be six bytes as 00:11:22:33:44:55");
    std::ranges::copy(au32, au8Mac);
}

void readIdentity(const Json &node, board::Profile &stProfile)
{
    stProfile.strModel = node["model"].text(31);
    stProfile.strDeviceName = node["deviceName"].text(127);
    stProfile.strSerialNumber = node["serialNumber"].text(63);
    BU_U8(*apau8Mac[])[6] = {&stProfile.stMac.acEth0MacAddr, &stProfile.stMac.acEth1MacAddr};
    if (eachItem(node["macAddresses"], 2, [&](std::size_t i, const Json &item) { readMac(item, *apau8Mac[i]); }) == 0)
        node["macAddresses"].refuse("must have one or two items");
    const Json &versions = node["versions"];
    auto &stFirmware = stProfile.stFirmware;
    readBytes(versions["camera"], stFirmware.au8CamVersion);
    readBytes(versions["date"], stFirmware.au8CamDate);
    const std::string strProduct = versions["product"].text(sizeof(stFirmware.au8ProductVer) - 1);
    std::ranges::copy(strProduct, stFirmware.au8ProductVer);
    stProfile.strSoftware = versions["software"].text(31);
}

/// The numbers that the motion and lens models read by path.
void checkRanges(const Json &node)
{
    node["lens"]["opticalZoom"].number(1, 100);
    node["panTilt"]["panMinDegrees"].number(-180, 0);
    node["panTilt"]["panMaxDegrees"].number(0, 180);
    node["panTilt"]["tiltMinDegrees"].number(-180, 0);
    node["panTilt"]["tiltMaxDegrees"].number(0, 180);
}

void collectValues(const Json &json, board::Profile &stProfile)
{
    if (json.is(Json::Kind::OBJECT))
        for (const auto &[strKey, value] : json.members()) collectValues(value, stProfile);
    else if (json.is(Json::Kind::LIST))
        for (const Json &item : json.items()) collectValues(item, stProfile);
    else
        stProfile.values[json.path()] = json.written();
}
} // namespace

std::unique_ptr<board::Profile> board::readProfile(const std::string &strText, std::string &strReason)
{
    try {
        const Json root = Json::parse(strText);
        auto profile = std::make_unique<board::Profile>();
        readIdentity(root, *profile);
        readAbility(root["ability"], profile->stAbility);
        readFeatures(root["features"], *profile);
        for (const Json &item : root["gpioLines"].items(16)) {
            profile->gpioLines.push_back(item.text(63));
            if (profile->gpioLines.back().find('/') != std::string::npos) item.refuse("must not contain '/'");
        }
        checkRanges(root);
        collectValues(root, *profile);
        return profile;
    } catch (const util::JsonFault &fault) {
        strReason = "line " + std::to_string(fault.s32Line) + ": " + fault.what();
    }
    return nullptr;
}
