// Where each value and information of the menu is read.
#include "values.h"

#include "board/device.h"
#include "camera/image.h"
#include "camera/network.h"
#include "camera/settingEvent.h"
#include "live/ndi.h"
#include "live/pipelineLive.h"
#include "protocol/freed.h"
#include "protocol/visca.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace menu
{
namespace
{
typedef std::optional<Value> Read;

NETWORK_CFG_S network(const Service &service)
{
    NETWORK_CFG_S stCfg{};
    NET_API_GetAllParamCur(service.section("NETWORK").c_str(), &stCfg);
    return stCfg;
}
template <std::size_t N> std::string textOf(const BU_CHAR (&acText)[N]) { return {acText, strnlen(acText, N)}; }

Read viscaAddress(const Service &)
{
    BU_U8 u8Address = 0;
    return VISCA_API_GetAddr(&u8Address, BU_FALSE) == 0 ? Read(BU_S32{u8Address}) : std::nullopt;
}
Read ndiSwitch(const Service &)
{
    CFG_NDI_SESSION_S stCfg;
    return MPP_NDI_GetInstance(0, stCfg) == 0 ? Read(stCfg.bEnabled) : std::nullopt;
}

struct Reader {
    std::string_view strKey;
    Read (*pfnRead)(const Service &);
};
constexpr Reader READERS[] = {
    {"ViscaAddr", viscaAddress},
    {"FreedCammeraId", [](const Service &) { return Read(*GetCammeraIdGst()); }},
    {"LensImage", [](const Service &) { return Read(ISP_API_GetCurDevImageId()); }},
    {"LensExposure", [](const Service &) { return Read(ISP_API_GetCurDevExposureId()); }},
    {"LensWB", [](const Service &) { return Read(ISP_API_GetCurDevWhiteBalanceId()); }},
    {"VideoFormat", [](const Service &st) { return Read(st.ask(OSD_MENU_GET_DEV_E_VIDEO_INFO)); }},
    {"Ndi", ndiSwitch},
    {"IpMode", [](const Service &st) { return Read(BU_S32{network(st).enIpMode}); }},
    {"IpAddr", [](const Service &st) { return Read(textOf(network(st).stIpInfo.acIpAddr)); }},
    {"NetMask", [](const Service &st) { return Read(textOf(network(st).stIpInfo.acNetMask)); }},
    {"GateWay", [](const Service &st) { return Read(textOf(network(st).stIpInfo.acGateWay)); }},
    {"DnsMode", [](const Service &st) { return Read(BU_S32{network(st).enDnsMode}); }},
    {"Dns1", [](const Service &st) { return Read(textOf(network(st).stDnsInfo.acDns[0])); }},
    {"Dns2", [](const Service &st) { return Read(textOf(network(st).stDnsInfo.acDns[1])); }},
};

template <BU_S32 (*Get)(BU_CHAR *), std::size_t Size> std::string boardText(const Service &)
{
    BU_CHAR acText[Size]{};
    Get(acText);
    return textOf(acText);
}
template <BU_S32 (*Get)(const BU_CHAR *, BU_CHAR *)> std::string portText(const Service &)
{
    BU_CHAR acText[32]{};
    Get("eth0", acText);
    return textOf(acText);
}
template <OSD_MENU_GET_EVENT_E Event> std::string asked(const Service &service) { return service.ask(Event); }

std::string ndiVersion(const Service &)
{
    BU_CHAR acText[64]{};
    ndi_api::NDI_GetNDIVersion(acText, sizeof(acText));
    return textOf(acText);
}

struct Info {
    std::string_view strKey;
    std::string (*pfnText)(const Service &);
};
constexpr Info INFOS[] = {
    {"DeviceName", boardText<BSP_DEVATTR_GetDeviceName, 128>},
    {"DeviceModel", boardText<BSP_DEVATTR_GetDeviceModel, 32>},
    {"SerialNumber", boardText<BSP_DEVATTR_GetSn, 64>},
    {"MacAddress", portText<BSP_GetMacAddress>},
    {"CurrentIp", portText<BSP_GetIpAddress>},
    {"VideoFormat", asked<OSD_MENU_GET_DEV_E_VIDEO_INFO>},
    {"FirmwareVersion", asked<OSD_MENU_GET_FW_E_VERSION_INFO>},
    {"IspVersion", asked<OSD_MENU_GET_ISP_E_VERSION_INFO>},
    {"FocusVersion", asked<OSD_MENU_GET_AF_E_VERSION_INFO>},
    {"TrackingVersion", asked<OSD_MENU_GET_AI_E_VERSION_INFO>},
    {"NdiVersion", ndiVersion},
};

/// Row or reader of a key; null: none.
template <class Table> auto find(const Table &table, std::string_view key) -> decltype(std::begin(table))
{
    const auto *pst = std::ranges::find(table, key, [](const auto &st) { return st.strKey; });
    return pst == std::end(table) ? nullptr : pst;
}
} // namespace

std::string Service::ask(OSD_MENU_GET_EVENT_E enEvent) const
{
    OSD_MENU_CONTROL_PARAM_S stParam{};
    if (pfnGetInfo) pfnGetInfo(pvUser, enEvent, &stParam);
    return textOf(stParam.acVersion);
}

std::string Service::section(const std::string &strZone) const
{
    const BU_CHAR *pcSection = pfnDataZone ? pfnDataZone(strZone.c_str()) : nullptr;
    return pcSection ? pcSection : "";
}

bool hasReader(const std::string &strKey) { return find(READERS, strKey) != nullptr; }
bool hasInfo(const std::string &strKey) { return find(INFOS, strKey) != nullptr; }

BU_S32 pipeOf(const Item &item, const Service &service)
{
    if (item.strZone.empty()) return 0;
    // The sections of the pipelines are numbered: "Image0", "Image1".
    const std::string strSection = service.section(item.strZone);
    return strSection.ends_with('1') ? 1 : 0;
}

std::optional<Value> currentValue(const Item &item, const Service &service)
{
    if (const auto *pstReader = find(READERS, item.strKey); pstReader && item.strSetting.empty())
        return pstReader->pfnRead(service);
    BU_S32 s32Value = 0;
    if (CFG_SETTING_Get(item.strSetting.c_str(), pipeOf(item, service), &s32Value, item.bNextStart) != 0)
        return std::nullopt;
    return s32Value;
}

std::string infoText(const std::string &strKey, const Service &service)
{
    const auto *pstInfo = find(INFOS, strKey);
    return pstInfo ? pstInfo->pfnText(service) : "";
}

BU_S32 optionOf(const Item &item, const Value &value)
{
    const auto is = [&](const Option &option) {
        const auto *pstrWord = std::get_if<std::string>(&value);
        return pstrWord ? option.strWord == *pstrWord : option.s32Value == std::get<BU_S32>(value);
    };
    const auto option = std::ranges::find_if(item.listOptions, is);
    return option == item.listOptions.end() ? -1 : static_cast<BU_S32>(option - item.listOptions.begin());
}
} // namespace menu
