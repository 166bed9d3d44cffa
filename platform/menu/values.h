/// Where the menu's values come from: the settings rows by their keys, and for the rest a reader each.
#pragma once

#include "description.h"

#include <variant>

namespace menu
{
/// The service's part of the menu.
struct Service {
    PFN_OSD_MENU_SET_PARAM pfnSetParam = nullptr;
    PFN_OSD_MENU_DATA_ZONE pfnDataZone = nullptr;
    PFN_OSD_MENU_GET_INFO pfnGetInfo = nullptr;
    void *pvUser = nullptr;

    std::string ask(OSD_MENU_GET_EVENT_E enEvent) const; ///< empty: no answer
    std::string section(const std::string &strZone) const;
};

/// A number, or the word or text itself.
typedef std::variant<BU_S32, std::string> Value;

/// Whether something other than a settings row tells the value of that key.
bool hasReader(const std::string &strKey);
/// Whether an info item can tell that.
bool hasInfo(const std::string &strKey);

/// The value of an INT, OPTION or TEXT item now. @return none: it cannot be read
std::optional<Value> currentValue(const Item &item, const Service &service);
/// What an info item tells now; empty: nothing is known.
std::string infoText(const std::string &strKey, const Service &service);

/// The option of a value; -1: none has it.
BU_S32 optionOf(const Item &item, const Value &value);
/// The pipeline or device that an item's zone stands for now.
BU_S32 pipeOf(const Item &item, const Service &service);
} // namespace menu
