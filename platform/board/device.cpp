/// What the board says of itself.
#include "board/device.h"

#include "board/profileData.h"
#include "camera/clock.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/platform.h"

#include <algorithm>
#include <cstdio>
#include <mutex>
#include <string_view>

namespace
{
/// Writes a text of the profile to a caller's buffer. -1 without a profile.
BU_S32 give(BU_CHAR *pcOut, std::size_t size, std::string board::Profile::*pstrText)
{
    const auto profile = board::currentProfile();
    if (!pcOut || !profile->stFeatures.bDataInited) return -1;
    std::snprintf(pcOut, size, "%s", (*profile.*pstrText).c_str());
    return 0;
}

template <class Record> BU_S32 give(Record *pstOut, Record board::Profile::*pstRecord)
{
    const auto profile = board::currentProfile();
    if (!pstOut || !profile->stFeatures.bDataInited) return -1;
    *pstOut = *profile.*pstRecord;
    return 0;
}
} // namespace

BU_S32 BSP_HW_ABI_GetHwAbility(tagHW_ABILITY_S *pstAbility)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (pstAbility) *pstAbility = {};
    return give(pstAbility, &board::Profile::stAbility);
}

BU_S32 BSP_SetSystemSocketBufLimit(BU_S32 s32Receive, BU_S32 s32Send)
{
    if (const auto injected = journal::call(__func__, s32Receive, s32Send)) return *injected;
    LOG_DEBUG("socket buffers %d and %d bytes: left to the system", s32Receive, s32Send);
    return 0;
}

BU_S32 BSP_LENS_LoadDriver()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return 0;
}

BU_S32 BSP_DEVATTR_GetDeviceModelInner(BU_CHAR *pcModel)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return give(pcModel, 32, &board::Profile::strModel);
}

BU_S32 BSP_DEVATTR_GetDeviceModel(BU_CHAR *pcModel)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return give(pcModel, 32, &board::Profile::strModel);
}

BU_S32 BSP_DEVATTR_GetDeviceName(BU_CHAR *pcName)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return give(pcName, 128, &board::Profile::strDeviceName);
}

BU_S32 BSP_DEVATTR_GetSn(BU_CHAR *pcSn)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return give(pcSn, 64, &board::Profile::strSerialNumber);
}

BU_S32 BSP_DEVATTR_GetDeviceMacAddr(BSP_MAC_ADDR_S *pstMac)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return give(pstMac, &board::Profile::stMac);
}

BU_S32 BSP_GetIpAddress(const BU_CHAR *pcIntf, BU_CHAR *pcText)
{
    if (const auto injected = journal::ask(__func__, pcIntf)) return *injected;
    if (!pcText || (pcIntf && std::string_view(pcIntf) != "eth0")) return -1;
    std::snprintf(pcText, 32, "%s", PLATFORM_BindAddress().c_str());
    return 0;
}

BU_S32 BSP_GetMacAddress(const BU_CHAR *pcIntf, BU_CHAR *pcText)
{
    if (const auto injected = journal::ask(__func__, pcIntf)) return *injected;
    const std::string_view intf = pcIntf ? pcIntf : "eth0";
    BSP_MAC_ADDR_S stMac;
    if (!pcText || (intf != "eth0" && intf != "eth1") || give(&stMac, &board::Profile::stMac) != 0) return -1;
    const auto &au8Mac = intf == "eth0" ? stMac.acEth0MacAddr : stMac.acEth1MacAddr;
    if (std::ranges::all_of(au8Mac, [](BU_U8 u8) { return u8 == 0; })) return -1;
    std::snprintf(pcText, 32, "%02x:%02x:%02x:%02x:%02x:%02x", au8Mac[0], au8Mac[1], au8Mac[2], au8Mac[3], au8Mac[4],
                  au8Mac[5]);
    return 0;
}

BU_S32 BSP_AddOnIpv4AddrChangeCallback(const BU_CHAR *pcIntf, void (*pfnCb)(const char *, const char *, void *), void *)
{
    if (const auto injected = journal::call(__func__, pcIntf)) return *injected;
    return pfnCb ? 0 : -1;
}

BU_S32 BSP_VER_GetProductVersion(FIRMWARE_INFO_V2_S *pstInfo)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return give(pstInfo, &board::Profile::stFirmware);
}

BU_S32 BSP_VER_GetSoftwareVersion(void *, BU_CHAR *pcText)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return give(pcText, 32, &board::Profile::strSoftware);
}

BU_S32 NTPD_LoadConfig()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return 0;
}

BU_S32 NTPD_StartSchedularTask()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    LOG_INFO("time synchronisation: left to the system's clock");
    return 0;
}
