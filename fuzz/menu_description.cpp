// Any text as the description of the menu: it is refused with a line that it has, or the menu it describes can be
// walked to its end, whatever keys are pressed and whether or not values are accepted.
#include "navigator.h"
#include "store/store.h"
#include "util/file.h"
#include "util/json.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <unistd.h>

namespace
{
std::optional<menu::Description> read(std::string_view text)
{
    try {
        return menu::readDescription(text);
    } catch (const util::JsonFault &fault) {
        if (fault.s32Line < 1 || fault.s32Line > 1 + std::ranges::count(text, '\n')) std::abort();
    }
    return std::nullopt;
}

BU_U32 g_u32Confirmed = 0;
BU_S32 setParam(ITEM_NODE_S *pstItem)
{
    if (pstItem->enValType == VALUE_TYPE_E_OPT_TXT) {
        const TXT_VALUE_S &st = pstItem->unVal.stTxtVal;
        if (st.s32ValSaveCur < 0 || st.s32ValSaveCur >= st.s32ValCnt || st.s32ValCnt > MENU_OPTION_MAX) std::abort();
    }
    return ++g_u32Confirmed % 3 == 0 ? -1 : 0;
}

/// Presses keys at random until the menu closes; every page shows something consistent.
void walk(const menu::Description &description, bool bAdvanced)
{
    using menu::Key;
    const menu::Service service{setParam, [](const BU_CHAR *) { return "Image0"; }, nullptr, nullptr};
    menu::Navigator navigator(description, service, true, [](const std::string &) { return true; });
    navigator.open(bAdvanced);
    std::uint32_t u32Random = 1;
    for (int i = 0; i < 60; ++i) {
        const menu::View view = navigator.view(8);
        if (view.listRows.size() > 9 || view.s32First < 0 || view.s32First > view.s32Total) std::abort();
        u32Random = u32Random * 1664525 + 1013904223;
        if (!navigator.press(static_cast<Key>((u32Random >> 16) % 9))) navigator.open(bAdvanced);
    }
}
} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    char acFolder[] = "/tmp/camera-fuzz-XXXXXX";
    UTIL_ROOT_Set(mkdtemp(acFolder));
    CFG_STORE_Open(nullptr);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *pu8Data, size_t size)
{
    const auto description = read({reinterpret_cast<const char *>(pu8Data), size});
    if (!description) return 0;
    for (const bool bAdvanced : {false, true}) walk(*description, bAdvanced);
    return 0;
}
