// The menu's state: closed, open, or open with the advanced pages.
#include "camera/menu.h"

#include "camera/system.h"
#include "util/journal.h"
#include "util/log.h"

#include <atomic>

namespace
{
enum class Menu { CLOSED, OPEN, ADVANCED };
std::atomic<Menu> g_enMenu{Menu::CLOSED};

bool isOpen() { return g_enMenu != Menu::CLOSED; }

/// A key that only an open menu takes.
BU_S32 pressInMenu(const BU_CHAR *pcFunction)
{
    if (const auto injected = journal::call(pcFunction)) return *injected;
    return isOpen() ? 0 : -1;
}

/// A key that opens the menu when it is closed and leaves it otherwise.
BU_S32 toggle(const BU_CHAR *pcFunction, Menu enWhenOpen)
{
    if (const auto injected = journal::call(pcFunction)) return *injected;
    Menu enClosed = Menu::CLOSED;
    if (!g_enMenu.compare_exchange_strong(enClosed, enWhenOpen)) g_enMenu = Menu::CLOSED;
    return 0;
}

/// A page back. The first page, from which the menu closes, is the only one that keys can reach here.
BU_S32 goBack(const BU_CHAR *pcFunction)
{
    if (const auto injected = journal::call(pcFunction)) return *injected;
    return g_enMenu.exchange(Menu::CLOSED) == Menu::CLOSED ? -1 : 0;
}

BU_S32 prompt(const std::string &strText)
{
    BU_S32 s32On = BU_FALSE;
    SYS_API_GetPrompt(&s32On);
    if (!s32On) return -1;
    LOG_INFO("prompt: %s\n", strText.c_str());
    return 0;
}
} // namespace

BU_S32 CMD_MENU_GetMenuStatus() { return isOpen(); }
BU_S32 OSD_MENU_GetMenuStatus() { return isOpen(); }

BU_S32 CMD_MENU_HandleMenuBtn() { return toggle(__func__, Menu::OPEN); }
BU_S32 CMD_MENU_HandleAdvancedMenuBtn() { return toggle(__func__, Menu::ADVANCED); }

BU_S32 CMD_MENU_OnlyOpenMenu()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    Menu enClosed = Menu::CLOSED;
    g_enMenu.compare_exchange_strong(enClosed, Menu::OPEN);
    return 0;
}

BU_S32 CMD_MENU_OnlyCloseMenu()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    g_enMenu = Menu::CLOSED;
    return 0;
}

BU_S32 CMD_MENU_OnlyReturnMenu() { return goBack(__func__); }
BU_S32 OSD_MENU_ReturnMenu() { return goBack(__func__); }

BU_S32 CMD_MENU_HandeHomeBtn() { return pressInMenu(__func__); }
BU_S32 CMD_MENU_HandeUpBtn() { return pressInMenu(__func__); }
BU_S32 CMD_MENU_HandeDownBtn() { return pressInMenu(__func__); }
BU_S32 CMD_MENU_HandeLeftBtn() { return pressInMenu(__func__); }
BU_S32 CMD_MENU_HandeRightBtn() { return pressInMenu(__func__); }
BU_S32 CMD_MENU_HandeUpLeftBtn() { return pressInMenu(__func__); }
BU_S32 CMD_MENU_HandeUpRightBtn() { return pressInMenu(__func__); }
BU_S32 CMD_MENU_HandeDownLeftBtn() { return pressInMenu(__func__); }
BU_S32 CMD_MENU_HandeDownRightBtn() { return pressInMenu(__func__); }
BU_S32 CMD_MENU_HandeLeftUpdateParam() { return pressInMenu(__func__); }
BU_S32 CMD_MENU_HandeRightUpdateParam() { return pressInMenu(__func__); }
BU_S32 CMD_MENU_HandeSetParam() { return pressInMenu(__func__); }

BU_S32 OSD_MENU_InitOpensourceRes()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return 0;
}

BU_S32 OSD_Menu_HasSubPage()
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    return 0;
}

BU_S32 PROMPT_API_ShowIpaddr(const BU_CHAR *pcIp)
{
    if (const auto injected = journal::call(__func__, pcIp)) return *injected;
    return pcIp ? prompt(pcIp) : -1;
}

BU_S32 PROMPT_API_ShowHdmiInfo()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    return prompt("HDMI");
}
