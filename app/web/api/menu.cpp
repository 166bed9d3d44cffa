// Keys of the on-screen menu.
#include "camera/menu.h"

#include "api.h"

#include <algorithm>
#include <iterator>

namespace
{
struct Key {
    BU_CHAR key[8];
};
struct State {
    BU_BOOL open, taken; ///< the menu is open; it took the key
};
} // namespace

WEB_FIELDS(Key, WEB_FIELD(key, 0));
WEB_FIELDS(State, WEB_SWITCH(open, 0), WEB_SWITCH(taken, 0));

namespace
{
constexpr struct {
    std::string_view key;
    BU_S32 (*pfnPress)();
} KEYS[] = {{"up", CMD_MENU_HandeUpBtn},       {"down", CMD_MENU_HandeDownBtn},  {"left", CMD_MENU_HandeLeftBtn},
            {"right", CMD_MENU_HandeRightBtn}, {"enter", CMD_MENU_HandeHomeBtn}, {"back", CMD_MENU_OnlyReturnMenu},
            {"menu", CMD_MENU_HandleMenuBtn}};

/// Without a key tells only whether the menu is open. All keys but "menu" are for an open menu: a closed one does not
/// take them.
const BU_CHAR *press(const Key &stKey, State &stState)
{
    const std::string_view key = stKey.key;
    const auto *row = std::ranges::find(KEYS, key, [](const auto &stRow) { return stRow.key; });
    if (!key.empty() && row == std::end(KEYS)) return "the menu has no such key";
    stState.taken = row != std::end(KEYS) && row->pfnPress() == 0;
    stState.open = CMD_MENU_GetMenuStatus() != 0;
    return nullptr;
}
} // namespace

const web::Subject web::MENU{[] { registerQuestion<Key, State, press>("menu"); }};
