/// The profile as its readers see it.
#pragma once

#include "board/device.h"
#include "camera/serial.h"
#include "config/feature.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace board
{
struct SerialNode {
    UART_INSTANCE_TYPE enPort;
    std::string strDevice; ///< in the device root
};

/// A board profile, read and checked.
struct Profile {
    std::string strModel, strDeviceName, strSerialNumber, strSoftware;
    BSP_MAC_ADDR_S stMac{};
    FIRMWARE_INFO_V2_S stFirmware{};
    tagHW_ABILITY_S stAbility{};
    tagCFG_FEATURE_LIST_S stFeatures{}; ///< bDataInited: the profile is valid
    std::vector<SerialNode> serial;
    std::vector<std::string> gpioLines;                     ///< a line's number is its place
    std::map<std::string, std::string, std::less<>> values; ///< every number, flag (0, 1) and text by its path
};

/// Reads a profile's text. @return nothing, with the faulty key and the reason, when it is not a valid profile
std::unique_ptr<Profile> readProfile(const std::string &strText, std::string &strReason);

/// The profile in use, loaded at the first call; an empty one when it could not be loaded. Never null.
std::shared_ptr<const Profile> currentProfile();
} // namespace board
