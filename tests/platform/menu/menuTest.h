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

/// "Brightness=8", "Flip=On", "Restart" ...: what was confirmed, in order. Noted on the menu's thread.
class Confirmed
{
public:
    void note(const std::string &strConfirmed)
    {
        const std::lock_guard guard(m_lock);
        m_strText += (m_strText.empty() ? "" : " ") + strConfirmed;
    }
    void clear()
    {
        const std::lock_guard guard(m_lock);
        m_strText.clear();
    }
    std::string text() const
    {
        const std::lock_guard guard(m_lock);
        return m_strText;
    }

private:
    mutable std::mutex m_lock; // guards the text
    std::string m_strText;
};
inline Confirmed &confirmed()
{
    static auto *pst = new Confirmed; // the menu's thread lives to the end of the process
    return *pst;
}
inline std::atomic<bool> g_bAccept = true; ///< the service applies what it is given

namespace menu_test
{
inline BU_S32 setParam(ITEM_NODE_S *pst)
{
    const TXT_VALUE_S &stText = pst->unVal.stTxtVal;
    std::string strConfirmed = pst->acItemIndex;
    BU_S32 s32Value = INT32_MIN;
    if (pst->enValType == VALUE_TYPE_E_INT32)
        strConfirmed += "=" + std::to_string(s32Value = pst->unVal.stIntVal.s32ValSaveCur);
    if (pst->enValType == VALUE_TYPE_E_OPT_TXT) {
        strConfirmed += std::string("=") + stText.acValIndex[stText.s32ValSaveCur];
        s32Value = stText.s32ValSaveCur; // of the lists used here the index is the value
    }
    if (pst->enValType == VALUE_TYPE_E_EDIT_TXT) strConfirmed += std::string("=") + pst->unVal.stEditableVal.acCurVal;
    confirmed().note(strConfirmed);
    if (g_bAccept && s32Value != INT32_MIN) CFG_SETTING_Set(pst->acItemIndex, 0, s32Value, BU_TRUE, BU_TRUE);
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

class MenuTest : public PlatformTest
{
protected:
    MenuTest()
    {
        confirmed().clear();
        g_bAccept = true;
    }
};
