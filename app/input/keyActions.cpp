// What several remotes do on a press.
#include "keyActions.h"

#include "camera/menu.h"
#include "camera/preset.h"
#include "camera/tracking.h"

#include <array>

namespace
{
constexpr std::array PRESET_NAMES{"Preset0", "Preset1", "Preset2", "Preset3", "Preset4",
                                  "Preset5", "Preset6", "Preset7", "Preset8", "Preset9"};
} // namespace

namespace input
{
bool isMenuOpen() { return CMD_MENU_GetMenuStatus() == 1; }

bool isTracking()
{
    BU_BOOL bEnable = BU_FALSE;
    ALG_API_GetEnable(&bEnable, BU_FALSE);
    return bEnable == BU_TRUE;
}

void goHome() { PRESET_API_GotoHome(PT_CTRL_E_FROM_REMOTE, nullptr); }

void focusAuto() { AF_API_SetFocusAuto(0, BU_TRUE, BU_TRUE, BU_TRUE); }

void toggleTracking() { ALG_API_SetEnable(!isTracking(), BU_TRUE, BU_TRUE); }

void trackFullBody()
{
    TRACK_MODE_E enMode = TRACK_MODE_E_EVERYWHERE_TRACKING;
    ALG_API_GetTrackMode(&enMode, BU_FALSE);
    if (enMode == TRACK_MODE_E_EVERYWHERE_TRACKING || enMode == TRACK_MODE_E_ZONE_TRACKING)
        ALG_API_SetBodySize(TRACK_BODY_SIZE_E_FULL, BU_TRUE, BU_TRUE);
}

void trackHalfBody() { ALG_API_SetBodySize(TRACK_BODY_SIZE_E_HALF, BU_TRUE, BU_TRUE); }

void trackCloseUp() { ALG_API_SetBodySize(TRACK_BODY_SIZE_E_CLOSE_UP, BU_TRUE, BU_TRUE); }

void recall(BU_S32 s32Preset) { PRESET_API_GotoById(s32Preset, PT_CTRL_E_FROM_REMOTE, nullptr); }

void startCommand(PRESET_POINT_KEY_TYPE_E enCommand)
{
    constexpr std::array KEYS{KEY_TYPE_E_CALL, KEY_TYPE_E_SET, KEY_TYPE_E_DELETE};
    KEY_PRESET_POINT_HANDLE_S *pstPoint = BR_GetKeyPresetPointsData();
    pstPoint->s32Value = 0;
    pstPoint->enKeyType = enCommand;
    startEntryTimer(KEYS[enCommand]);
}

const BU_CHAR *presetName(BU_S32 s32Digit) { return PRESET_NAMES.at(static_cast<std::size_t>(s32Digit)); }
} // namespace input
