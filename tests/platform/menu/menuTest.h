/// The menu with a service that applies values to their settings and notes what it is asked for.
#pragma once

#include "camera/menuLibrary.h"
#include "camera/settingEvent.h"
#include "support/place.h"
#include "support/platformTest.h"

#include <atomic>
#include <fstream>
#include <mutex>
#include <sstream>

inline std::mutex g_confirmedLock;              // guards the text
inline auto &g_strConfirmed = *new std::string; // the menu's thread lives to the end of the process
/// What was confirmed since the last call, in order: "Brightness=8 Flip=On Restart".
inline std::string confirmed()
{
    const std::lock_guard guard(g_confirmedLock);
    return std::exchange(g_strConfirmed, {});
}
inline std::atomic<bool> g_bAccept = true; ///< the service applies what it is given

namespace menu_test
{
inline BU_S32 setParam(ITEM_NODE_S *pst)
{
    const bool bInt = pst->enValType == VALUE_TYPE_E_INT32, bOption = pst->enValType == VALUE_TYPE_E_OPT_TXT;
    // of the lists used here the index of an option is its value
    const BU_S32 s32Value = bInt ? pst->unVal.stIntVal.s32ValSaveCur : pst->unVal.stTxtVal.s32ValSaveCur;
    std::string strConfirmed = pst->acItemIndex;
    if (bInt) strConfirmed += "=" + std::to_string(s32Value);
    if (bOption) strConfirmed += std::string("=") + pst->unVal.stTxtVal.acValIndex[s32Value];
    if (pst->enValType == VALUE_TYPE_E_EDIT_TXT) strConfirmed += std::string("=") + pst->unVal.stEditableVal.acCurVal;
    {
        const std::lock_guard guard(g_confirmedLock);
        g_strConfirmed += (g_strConfirmed.empty() ? "" : " ") + strConfirmed;
    }
    if (g_bAccept && (bInt || bOption)) CFG_SETTING_Set(pst->acItemIndex, 0, s32Value, BU_TRUE, BU_TRUE);
    return 0;
}

inline const BU_CHAR *dataZone(const BU_CHAR *pcZone)
{
    return std::string(pcZone) == "NETWORK" ? "NetCard0" : "Image0";
}

inline std::string shippedDescription()
{
    std::ifstream file(place::source("platform/menu/menu.json"));
    return (std::stringstream() << file.rdbuf()).str();
}
} // namespace menu_test

struct MenuTest : PlatformTest {
    MenuTest() { confirmed(), g_bAccept = true; }
};
