/// The direction keys: the menu, the tracking target, or the head.
#pragma once

#include "camera/menu.h"
#include "camera/tracking.h"
#include "keyState.h"

namespace input
{
struct Direction {
    KEY_TYPE_E enKey;
    BU_S32 (*pfnMove)(BU_S32);                  ///< moves the head
    BU_S32 (*pfnMenu)();                        ///< in the menu
    BU_S32 (*pfnTarget)() = nullptr;            ///< while tracking; null: moves the head then too
    BU_S32 (*pfnStepTimerCb)(void *) = nullptr; ///< every 500 ms while held in the menu; null: no repeat
};
inline constexpr Direction UP{KEY_TYPE_E_UP, CMD_PT_HandeUpBtn, CMD_MENU_HandeUpBtn};
inline constexpr Direction DOWN{KEY_TYPE_E_DOWN, CMD_PT_HandeDownBtn, CMD_MENU_HandeDownBtn};
inline constexpr Direction LEFT{KEY_TYPE_E_LEFT, CMD_PT_HandeLeftBtn, CMD_MENU_HandeLeftBtn, ALG_API_LockLastTarget};
inline constexpr Direction RIGHT{KEY_TYPE_E_RIGHT, CMD_PT_HandeRightBtn, CMD_MENU_HandeRightBtn,
                                 ALG_API_LockNextTarget};

void pressDirection(const Direction &stDirection, Family enFamily, KEY_EVENT_E enEvent);

/// In an open menu a menu key, while tracking another target, else a move of the head.
template <const Direction &WAY, Family FAMILY> BU_S32 direction(KEY_EVENT_E enEvent)
{
    pressDirection(WAY, FAMILY, enEvent);
    return 0;
}

/// Always a move of the head.
template <const Direction &WAY> BU_S32 headMove(KEY_EVENT_E enEvent)
{
    if (enEvent == KEY_EVENT_E_DOWN)
        WAY.pfnMove(0);
    else
        CMD_PT_StopMove();
    return 0;
}
} // namespace input
