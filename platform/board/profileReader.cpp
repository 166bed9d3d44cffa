// The JSON form of a board profile. Every key that the camera needs is checked here, so that a mistake in a profile is
// told with its place instead of showing up as a missing module.
#include "profileData.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <nlohmann/json.hpp>
#include <span>

namespace
{
using Json = nlohmann::ordered_json;

struct tagFAULT_S {
    std::string strPath, strReason;
};

/// A value of the profile that knows its path.
class Node
{
public:
    Node(const Json &json, std::string strPath) : m_json(json), m_strPath(std::move(strPath)) {}

    [[noreturn]] void refuse(const std::string &strReason) const { throw tagFAULT_S{m_strPath, strReason}; }
    const std::string &path() const { return m_strPath; }

    Node operator[](const BU_CHAR *pcKey) const
    {
        if (!m_json.is_object()) refuse("must be an object");
        const auto item = m_json.find(pcKey);
        if (item == m_json.end()) Node(m_json, pathOf(pcKey)).refuse("is missing");
        return {*item, pathOf(pcKey)};
    }
    template <class F> void eachMember(F fn) const
    {
        if (!m_json.is_object()) refuse("must be an object");
        for (const auto &[strKey, value] : m_json.items()) fn(strKey, Node(value, pathOf(strKey)));
    }
    /// @return the number of items
    template <class F> BU_S32 eachItem(std::size_t most, F fn) const
    {
        if (!m_json.is_array()) refuse("must be a list");
        if (m_json.size() > most) refuse("has more than " + std::to_string(most) + " items");
        for (std::size_t i = 0; i < m_json.size(); i++) fn(i, Node(m_json[i], pathOf(std::to_string(i))));
        return static_cast<BU_S32>(m_json.size());
    }
    BU_S32 number(BU_S32 s32Min, BU_S32 s32Max) const
    {
        if (m_json.is_number_integer())
            if (const auto value = m_json.get<BU_S64>(); value >= s32Min && value <= s32Max)
                return static_cast<BU_S32>(value);
        refuse("must be a whole number from " + std::to_string(s32Min) + " to " + std::to_string(s32Max));
    }
    BU_BOOL flag() const
    {
        if (!m_json.is_boolean()) refuse("must be true or false");
        return m_json.get<bool>() ? BU_TRUE : BU_FALSE;
    }
    std::string text(std::size_t longest) const
    {
        if (!m_json.is_string()) refuse("must be a text");
        auto strText = m_json.get<std::string>();
        if (strText.empty() || strText.size() > longest)
            refuse("must have 1 to " + std::to_string(longest) + " characters");
        return strText;
    }
    /// One of the words that a table knows.
    template <class Row> const Row &word(std::span<const Row> rows) const
    {
        const std::string strWord = text(64);
        const auto row = std::ranges::find_if(rows, [&](const Row &stRow) { return strWord == stRow.pcWord; });
        if (row == rows.end()) refuse("does not know the word \"" + strWord + "\"");
        return *row;
    }

private:
    std::string pathOf(const std::string &strKey) const
    {
        return m_strPath.empty() ? strKey : m_strPath + "/" + strKey;
    }

    const Json &m_json;
    std::string m_strPath;
};

template <class Record> struct tagFLAG_ROW_S {
    const BU_CHAR *pcWord;
    BU_BOOL Record::*pbFlag;
};
using Control = CFG_FEATURE_CONTROL_S;
using Display = CFG_FEATURE_DISPLAY_S;
using General = CFG_FEATURE_GENERAL_S;
constexpr tagFLAG_ROW_S<Control> g_astControl[] = {
    {"viscaEthernet", &Control::bViscaEtherSupport},
    {"onvif", &Control::bOnvifSupport},
    {"webUi", &Control::bWebUiSupport},
    {"osdMenu", &Control::bOsdMenuSupport},
    {"freeD", &Control::bFreeDSupport},
    {"ai", &Control::bAiSupport},
    {"dvip", &Control::bDvipSupport},
};
constexpr tagFLAG_ROW_S<Display> g_astDisplay[] = {
    {"eink", &Display::bEinkSupport}, {"oled", &Display::bOledSupport}, {"led", &Display::bLedSupport}};
constexpr tagFLAG_ROW_S<General> g_astGeneral[] = {
    {"ethernet", &General::bEthernet}, {"panTilt", &General::bPt},      {"autoFocus", &General::bAf},
    {"ntp", &General::bNtp},           {"resetKey", &General::bRstKey}, {"infrared", &General::bIr},
    {"audio", &General::bAudio},
};

struct tagAV_ROW_S {
    const BU_CHAR *pcWord;
    tagCFG_FEATURE_AV_INTF_S CFG_FEATURE_AV_S::*pstIntf;
};
using Av = CFG_FEATURE_AV_S;
constexpr tagAV_ROW_S g_astAv[] = {
    {"hdmi", &Av::stHdmi}, {"hdBaseT", &Av::stHdBaseT}, {"sdi", &Av::stSdi},
    {"usb", &Av::stUsb},   {"ndi", &Av::stNdi},         {"rtsp", &Av::stRtsp},
    {"rtmp", &Av::stRtmp}, {"srt", &Av::stSrt},         {"dante", &Av::stDante},
};

struct tagCOUNT_ROW_S {
    const BU_CHAR *pcWord;
    HW_CAPS_COUNT_S tagHW_ABILITY_S::*pstCaps;
};
using Ability = tagHW_ABILITY_S;
constexpr tagCOUNT_ROW_S g_astCounts[] = {
    {"chips", &Ability::stChipData},    {"net", &Ability::stNet},     {"usb", &Ability::stUsb},
    {"sdCard", &Ability::stSdcard},     {"hdmi", &Ability::stHdmi},   {"sdi", &Ability::stSdi},
    {"fullNdi", &Ability::stFullNdi},   {"eink", &Ability::stEink},   {"uart", &Ability::stUart},
    {"resetKey", &Ability::stResetKey}, {"infrared", &Ability::stIr}, {"audio", &Ability::stAudio},
};

template <class Value> struct tagWORD_ROW_S {
    const BU_CHAR *pcWord;
    Value value;
};
constexpr tagWORD_ROW_S<DEVICE_SELFCHECK_E> g_astSelfCheck[] = {
    {"none", DEVICE_SELFCHECK_E_NONE}, {"pass", DEVICE_SELFCHECK_E_PASS}, {"fail", DEVICE_SELFCHECK_E_FAIL}};
constexpr tagWORD_ROW_S<CFG_FEATURE_DATA_DIR_E> g_astDirection[] = {
    {"in", CFG_FEATURE_DATA_DIR_E_IN}, {"out", CFG_FEATURE_DATA_DIR_E_OUT}, {"inOut", CFG_FEATURE_DATA_DIR_E_INOUT}};
constexpr tagWORD_ROW_S<UART_INSTANCE_TYPE> g_astPort[] = {{"RS232", UART_INSTANCE_TYPE_RS232},
                                                           {"RS422", UART_INSTANCE_TYPE_RS422}};

template <class Row, std::size_t N> std::span<const Row> spanOf(const Row (&rows)[N]) { return rows; }

template <class Record, std::size_t N>
void readFlags(const Node &node, const tagFLAG_ROW_S<Record> (&rows)[N], Record &stRecord)
{
    node.eachItem(N, [&](std::size_t, const Node &item) { stRecord.*item.word(spanOf(rows)).pbFlag = BU_TRUE; });
}

/// The row of an object's member.
template <class Row, std::size_t N> const Row &rowOf(const Node &node, const std::string &strKey, const Row (&rows)[N])
{
    const auto row = std::ranges::find_if(rows, [&](const Row &stRow) { return strKey == stRow.pcWord; });
    if (row == std::end(rows)) node.refuse("is no known key");
    return *row;
}

void readAv(const Node &node, CFG_FEATURE_AV_S &stAv)
{
    node.eachMember([&](const std::string &strKey, const Node &member) {
        auto &stIntf = stAv.*rowOf(member, strKey, g_astAv).pstIntf;
        stIntf.s32NodeCnt = member.eachItem(std::size(stIntf.astPub), [&](std::size_t i, const Node &item) {
            stIntf.astPub[i] = {BU_TRUE, item["video"].flag(), item["audio"].flag(),
                                item["direction"].word(spanOf(g_astDirection)).value};
        });
        stIntf.bSupport = stIntf.s32NodeCnt > 0;
    });
}

void readSerial(const Node &node, tagPROFILE_S &stProfile)
{
    auto &stSerial = stProfile.stFeatures.stGeneral.stSerial;
    stSerial.bDaisyChain = node["daisyChain"].flag();
    stSerial.s32NodeCnt = node["nodes"].eachItem(std::size(stSerial.astNode), [&](std::size_t i, const Node &item) {
        auto &stNode = stSerial.astNode[i];
        const std::string strDevice = item["device"].text(sizeof(stNode.acDeviceName) - 1);
        stNode.bSupport = BU_TRUE;
        std::snprintf(stNode.acDeviceName, sizeof(stNode.acDeviceName), "%s", strDevice.c_str());
        stProfile.serial.push_back({item["port"].word(spanOf(g_astPort)).value, strDevice});
    });
    stSerial.bSupport = stSerial.s32NodeCnt > 0;
}

void readFeatures(const Node &node, tagPROFILE_S &stProfile)
{
    auto &stFeatures = stProfile.stFeatures;
    readFlags(node["control"], g_astControl, stFeatures.stControl);
    readAv(node["av"], stFeatures.stAv);
    readFlags(node["display"], g_astDisplay, stFeatures.stDisplay);
    readFlags(node["general"], g_astGeneral, stFeatures.stGeneral);
    readSerial(node["serial"], stProfile);
    stFeatures.bDataInited = BU_TRUE;
}

void readAbility(const Node &node, tagHW_ABILITY_S &stAbility)
{
    node["interfaces"].eachMember([&](const std::string &strKey, const Node &member) {
        auto &stCaps = stAbility.*rowOf(member, strKey, g_astCounts).pstCaps;
        stCaps.s32DevCnt = member.number(0, 16);
        stCaps.bSupport = stCaps.s32DevCnt > 0;
    });
    auto &stLens = stAbility.stLens;
    const auto check = [](const Node &item, const BU_CHAR *pcKey) {
        return item[pcKey].word(spanOf(g_astSelfCheck)).value;
    };
    stLens.s32DevCnt = node["lenses"].eachItem(std::size(stLens.astDevPri), [&](std::size_t i, const Node &item) {
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
void readBytes(const Node &node, BU_U8 (&au8Bytes)[4])
{
    const std::string strText = node.text(15);
    unsigned au32[4] = {};
    int s32Used[4] = {};
    const int s32Numbers = std::sscanf(strText.c_str(), "%3u%n.%3u%n.%3u%n.%3u%n", &au32[0], &s32Used[0], &au32[1],
                                       &s32Used[1], &au32[2], &s32Used[2], &au32[3], &s32Used[3]);
    const bool bWhole = s32Numbers >= 3 && s32Used[s32Numbers - 1] == static_cast<int>(strText.size());
    if (!bWhole || std::ranges::any_of(au32, [](unsigned u32) { return u32 > UINT8_MAX; }))
        node.refuse("must be three or four numbers from 0 to 255 with dots between them");
    std::ranges::copy(au32, au8Bytes);
}

void readMac(const Node &node, BU_U8 (&au8Mac)[6])
{
    const std::string strText = node.text(17);
    unsigned au32[6];
    int s32Used = 0;
    if (std::sscanf(strText.c_str(), "%2x:%2x:%2x:%2x:%2x:%2x%n", &au32[0], &au32[1], &au32[2], &au32[3], &au32[4],
                    &au32[5], &s32Used) != 6 ||
        s32Used != 17)
        node.refuse("must be six bytes as 00:11:22:33:44:55");
    std::ranges::copy(au32, au8Mac);
}

void readIdentity(const Node &node, tagPROFILE_S &stProfile)
{
    stProfile.strModel = node["model"].text(31);
    stProfile.strDeviceName = node["deviceName"].text(127);
    stProfile.strSerialNumber = node["serialNumber"].text(63);
    BU_U8(*apau8Mac[])[6] = {&stProfile.stMac.acEth0MacAddr, &stProfile.stMac.acEth1MacAddr};
    if (node["macAddresses"].eachItem(2, [&](std::size_t i, const Node &item) { readMac(item, *apau8Mac[i]); }) == 0)
        node["macAddresses"].refuse("must have one or two items");
    const Node versions = node["versions"];
    auto &stFirmware = stProfile.stFirmware;
    readBytes(versions["camera"], stFirmware.au8CamVersion);
    readBytes(versions["date"], stFirmware.au8CamDate);
    const std::string strProduct = versions["product"].text(sizeof(stFirmware.au8ProductVer) - 1);
    std::ranges::copy(strProduct, stFirmware.au8ProductVer);
    stProfile.strSoftware = versions["software"].text(31);
}

/// The numbers that the motion and lens models read by path.
void checkRanges(const Node &node)
{
    node["lens"]["opticalZoom"].number(1, 100);
    node["panTilt"]["panMinDegrees"].number(-180, 0);
    node["panTilt"]["panMaxDegrees"].number(0, 180);
    node["panTilt"]["tiltMinDegrees"].number(-180, 0);
    node["panTilt"]["tiltMaxDegrees"].number(0, 180);
}

void collectValues(const Json &json, const std::string &strPath, tagPROFILE_S &stProfile)
{
    if (json.is_structured()) {
        for (const auto &[strKey, value] : json.items())
            collectValues(value, strPath.empty() ? strKey : std::string(strPath).append("/").append(strKey), stProfile);
    } else if (json.is_string())
        stProfile.values[strPath] = json.get<std::string>();
    else if (json.is_boolean())
        stProfile.values[strPath] = json.get<bool>() ? "1" : "0";
    else
        stProfile.values[strPath] = json.dump();
}
} // namespace

std::unique_ptr<tagPROFILE_S> readProfile(const std::string &strText, std::string &strReason)
{
    try {
        const Json json = Json::parse(strText);
        auto profile = std::make_unique<tagPROFILE_S>();
        const Node root(json, "");
        readIdentity(root, *profile);
        readAbility(root["ability"], profile->stAbility);
        readFeatures(root["features"], *profile);
        root["gpioLines"].eachItem(16, [&](std::size_t, const Node &item) {
            profile->gpioLines.push_back(item.text(63));
            if (profile->gpioLines.back().find('/') != std::string::npos) item.refuse("must not contain '/'");
        });
        checkRanges(root);
        collectValues(json, "", *profile);
        return profile;
    } catch (const tagFAULT_S &stFault) {
        strReason = "\"" + stFault.strPath + "\" " + stFault.strReason;
    } catch (const std::exception &error) {
        strReason = error.what();
    }
    return nullptr;
}
