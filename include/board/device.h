/// The board: ability, device attributes, versions. Everything comes from the board profile.
///
/// Unless told otherwise: @return 0, or -1: no profile, or a null pointer; the output is then untouched. Thread: any.
#pragma once

#include "base/types.h"
#include "board/ability.h"

struct FIRMWARE_INFO_V2_S {
    BU_U8 au8CamVersion[4]; ///< major, minor, patch, build
    BU_U8 au8CamDate[4];    ///< year since 2000, month, day, 0
    BU_U8 au8ProductVer[32];
};
typedef FIRMWARE_INFO_V2_S tagFIRMWARE_INFO_V2_S;
typedef FIRMWARE_INFO_V2_S FIRMWARE_INFO_S;

struct BSP_MAC_ADDR_S {
    BU_U8 acEth0MacAddr[6], acEth1MacAddr[6]; ///< all zero: no such port
};

/// The board's ability record; a zero one on failure.
BU_S32 BSP_HW_ABI_GetHwAbility(tagHW_ABILITY_S *pstAbility);

/// System limits of the socket buffers, in bytes. The PC keeps its own: logged only. @return 0
BU_S32 BSP_SetSystemSocketBufLimit(BU_S32 s32Receive, BU_S32 s32Send);

/// Loads the lens driver. The PC has none to load. @return 0
BU_S32 BSP_LENS_LoadDriver();

/// The model's name, e.g. "TKV-MX". @param pcModel  32 bytes
BU_S32 BSP_DEVATTR_GetDeviceModelInner(BU_CHAR *pcModel);
/// The model's name as it is shown to users; the same on this platform. @param pcModel  32 bytes
BU_S32 BSP_DEVATTR_GetDeviceModel(BU_CHAR *pcModel);
/// @param pcName  128 bytes
BU_S32 BSP_DEVATTR_GetDeviceName(BU_CHAR *pcName);
/// The serial number. @param pcSn  64 bytes
BU_S32 BSP_DEVATTR_GetSn(BU_CHAR *pcSn);
BU_S32 BSP_DEVATTR_GetDeviceMacAddr(BSP_MAC_ADDR_S *pstMac);

/// The current IPv4 address of an interface ("eth0"; null: the main one): the address that the camera listens on.
/// @param pcText  32 bytes
BU_S32 BSP_GetIpAddress(const BU_CHAR *pcIntf, BU_CHAR *pcText);
/// The hardware address "00:11:22:33:44:55" of "eth0" or "eth1". @param pcText  32 bytes
BU_S32 BSP_GetMacAddress(const BU_CHAR *pcIntf, BU_CHAR *pcText);

/// Registers a callback (interface, new address, context) for changes of an IPv4 address; several are called in order,
/// on the notifier's own thread. The address of this platform is fixed at the start and never changes.
/// @param pcIntf  null: all interfaces
/// @return 0, or -1 on a null callback
BU_S32 BSP_AddOnIpv4AddrChangeCallback(const BU_CHAR *pcIntf, void (*pfnCb)(const char *, const char *, void *),
                                       void *pvContext);

BU_S32 BSP_VER_GetProductVersion(FIRMWARE_INFO_V2_S *pstInfo);
/// @param pvArg   not used, null
/// @param pcText  32 bytes
BU_S32 BSP_VER_GetSoftwareVersion(void *pvArg, BU_CHAR *pcText);
