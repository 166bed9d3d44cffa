// The tracking areas and the correction between panorama and head, stored as lines of numbers.
#include "camera/tracking.h"

#include "settings/settings.h"
#include "store/store.h"
#include "util/journal.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <mutex>
#include <sstream>

namespace
{
constexpr BU_S32 TYPES = TRACK_AREA_E_BLACKBOARD + 1;
typedef std::array<tagTRACK_AREA_S, TRACK_AREA_MAX> Areas;

struct Correction {
    BU_S32 s32Pan = 0, s32Tilt = 0;
};

/// What an action of a correction under way changes.
struct Step {
    tagTRACK_POS_CORRECT_ACTION_E enAction;
    BU_S32 s32Pan, s32Tilt;
    bool bEnds;
};
constexpr Step STEPS[] = {
    {TRACK_POS_CORRECT_ACTION_E_CANCEL, 0, 0, true}, {TRACK_POS_CORRECT_ACTION_E_SAVE, 0, 0, true},
    {TRACK_POS_CORRECT_ACTION_E_UP, 0, 1, false},    {TRACK_POS_CORRECT_ACTION_E_DOWN, 0, -1, false},
    {TRACK_POS_CORRECT_ACTION_E_LEFT, -1, 0, false}, {TRACK_POS_CORRECT_ACTION_E_RIGHT, 1, 0, false},
    {TRACK_POS_CORRECT_ACTION_E_STOP, 0, 0, false},
};

struct State {
    std::mutex lock;          // guards all members
    BU_U32 u32Generation = 0; // of the store that the members were read from
    std::array<Areas, TYPES> areas{};
    Correction stSaved, stWorking;
    bool bCorrecting = false;
};
State g_stState;

std::string areaKey(BU_S32 s32Type) { return "Track/Area" + std::to_string(s32Type); }
constexpr const BU_CHAR *CORRECTION_KEY = "Track/Correction";

std::string textOf(const Areas &astAreas)
{
    std::ostringstream out;
    for (const tagTRACK_AREA_S &st : astAreas)
        out << st.bEnable << ' ' << st.x << ' ' << st.y << ' ' << st.w << ' ' << st.h << ' ' << st.s32PresetId << ' '
            << st.workMode << '\n';
    return out.str();
}

Areas areasOf(const std::string &strText)
{
    Areas astAreas{};
    std::istringstream in(strText);
    for (tagTRACK_AREA_S &st : astAreas)
        if (!(in >> st.bEnable >> st.x >> st.y >> st.w >> st.h >> st.s32PresetId >> st.workMode)) return {};
    return astAreas;
}

/// The state, read again after the settings were restored or the store was opened anew. The lock is held.
State &state()
{
    const BU_U32 u32Generation = settings::generation();
    if (g_stState.u32Generation == u32Generation) return g_stState;
    g_stState.u32Generation = u32Generation;
    for (BU_S32 i = 0; i < TYPES; ++i) {
        std::string strText;
        CFG_STORE_GetText(areaKey(i).c_str(), &strText);
        g_stState.areas[static_cast<std::size_t>(i)] = areasOf(strText);
    }
    std::string strText;
    CFG_STORE_GetText(CORRECTION_KEY, &strText);
    g_stState.stSaved = {};
    std::istringstream(strText) >> g_stState.stSaved.s32Pan >> g_stState.stSaved.s32Tilt;
    g_stState.bCorrecting = false;
    return g_stState;
}

BU_S32 storeCorrection(Correction stCorrection)
{
    const std::string strText = std::to_string(stCorrection.s32Pan) + ' ' + std::to_string(stCorrection.s32Tilt);
    return CFG_STORE_SetText(CORRECTION_KEY, strText.c_str());
}

bool isType(BU_S32 s32Type) { return s32Type >= 0 && s32Type < TYPES; }
} // namespace

BU_S32 TRACK_GetAreaList(tagTRACK_AREA_E enType, tagTRACK_AREA_S *pstList, BU_S32 *ps32Count)
{
    if (const auto injected = journal::ask(__func__, enType)) return *injected;
    if (!isType(enType) || !pstList || !ps32Count) return -1;
    const std::lock_guard guard(g_stState.lock);
    const Areas &astAreas = state().areas[static_cast<std::size_t>(enType)];
    std::ranges::copy(astAreas, pstList);
    const auto last = std::find_if(astAreas.rbegin(), astAreas.rend(), [](const auto &st) { return st.bEnable != 0; });
    *ps32Count = static_cast<BU_S32>(astAreas.rend() - last);
    return 0;
}

BU_S32 TRACK_SetAreaList(tagTRACK_AREA_E enType, const tagTRACK_AREA_S *pstList, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, enType, pstList != nullptr, bSaveCfg)) return *injected;
    if (!isType(enType) || !pstList) return -1;
    Areas astAreas{};
    std::copy_n(pstList, astAreas.size(), astAreas.begin());
    {
        const std::lock_guard guard(g_stState.lock);
        state().areas[static_cast<std::size_t>(enType)] = astAreas;
    }
    return bSaveCfg ? CFG_STORE_SetText(areaKey(enType).c_str(), textOf(astAreas).c_str()) : 0;
}

BU_S32 TRACK_DoPosCorrection(BU_S32 s32Action)
{
    if (const auto injected = journal::call(__func__, s32Action)) return *injected;
    Correction stSave;
    {
        const std::lock_guard guard(g_stState.lock);
        State &stState = state();
        if (s32Action == TRACK_POS_CORRECT_ACTION_E_START) {
            stState.stWorking = stState.stSaved;
            stState.bCorrecting = true;
            return 0;
        }
        const auto *pst = std::ranges::find(STEPS, s32Action, &Step::enAction);
        if (!stState.bCorrecting || pst == std::end(STEPS)) return -1;
        stState.stWorking.s32Pan += pst->s32Pan;
        stState.stWorking.s32Tilt += pst->s32Tilt;
        if (s32Action == TRACK_POS_CORRECT_ACTION_E_SAVE) stSave = stState.stSaved = stState.stWorking;
        if (pst->bEnds) stState.bCorrecting = false;
    }
    return s32Action == TRACK_POS_CORRECT_ACTION_E_SAVE ? storeCorrection(stSave) : 0;
}

BU_S32 TRACK_SetLastPosCorrectionPos(BU_S32 s32Pan, BU_S32 s32Tilt)
{
    if (const auto injected = journal::call(__func__, s32Pan, s32Tilt)) return *injected;
    {
        const std::lock_guard guard(g_stState.lock);
        state().stSaved = {s32Pan, s32Tilt};
    }
    return storeCorrection({s32Pan, s32Tilt});
}
