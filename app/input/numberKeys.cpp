#include "input/numberKeys.h"

#include "camera/menu.h"
#include "camera/preset.h"
#include "input/keyActions.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace
{
using namespace input;

constexpr BU_S32 NINE_DIGITS = 100'000'000; // a number from here on takes no further digit

struct tagNUMBER_S {
    BU_S32 s32Digit;
    KEY_TYPE_E enKey;
};

PRESET_POINT_KEY_TYPE_E pending() { return BR_GetKeyPresetPointsData()->enKeyType; }
void endCommand() { BR_GetKeyPresetPointsData()->enKeyType = PRESET_POINT_TYPE_E_BUTT; }

void startHold(const tagNUMBER_S &stNumber) { startEntryTimer(stNumber.enKey); }

void recallShort(const tagNUMBER_S &stNumber)
{
    stopEntryTimer();
    recall(stNumber.s32Digit);
}

void storeHeld(const tagNUMBER_S &stNumber) { PRESET_API_SetCur(stNumber.s32Digit, presetName(stNumber.s32Digit)); }

void awaitRelease(const tagNUMBER_S &)
{
    stopEntryTimer();
    SR_BR_GetTimerData()->stParam.bTimerRunning = BU_FALSE;
}

void cancelCommand(const tagNUMBER_S &stNumber)
{
    endCommand();
    startEntryTimer(stNumber.enKey);
}

void takeDigit(const tagNUMBER_S &stNumber)
{
    std::atomic<BU_S32> &s32Value = BR_GetKeyPresetPointsData()->s32Value;
    if (s32Value < NINE_DIGITS) s32Value = s32Value * 10 + stNumber.s32Digit;
    startEntryTimer(stNumber.enKey);
}

/// What a number key does, by the command that waits, the event and the entry timer.
struct tagNUMBER_ROW_S {
    bool bPending, bPress;
    std::optional<bool> bTimerRuns; ///< none: either
    void (*pfnAct)(const tagNUMBER_S &);
};
constexpr tagNUMBER_ROW_S NUMBER_ROWS[] = {
    // clang-format off
    {false, true,  std::nullopt, startHold},
    {false, false, true,         recallShort},
    {false, false, false,        storeHeld},
    {true,  true,  true,         awaitRelease},
    {true,  true,  false,        cancelCommand},
    {true,  false, false,        takeDigit},
    {true,  false, true,         recallShort},
    // clang-format on
};
} // namespace

namespace input
{
void pressNumber(BU_S32 s32Digit, KEY_TYPE_E enKey, KEY_EVENT_E enEvent)
{
    const bool bPress = isPress(enEvent), bIgnored = OSD_MENU_GetMenuStatus() == 1;
    const Started enBefore =
        std::exchange(startedBy(FAMILY_E_BR, enKey), bPress && !bIgnored ? Started::HOLD : Started::NOTHING);
    if (bIgnored || (!bPress && enBefore != Started::HOLD)) return;

    const bool bPending = pending() != PRESET_POINT_TYPE_E_BUTT, bTimerRuns = isEntryTimerRunning();
    const auto row = std::ranges::find_if(NUMBER_ROWS, [=](const tagNUMBER_ROW_S &stRow) {
        return stRow.bPending == bPending && stRow.bPress == bPress &&
               stRow.bTimerRuns.value_or(bTimerRuns) == bTimerRuns;
    });
    row->pfnAct({s32Digit, enKey});
}

void confirmNumber()
{
    if (pending() == PRESET_POINT_TYPE_E_BUTT || !isEntryTimerRunning()) return;
    const BU_S32 s32Preset = BR_GetKeyPresetPointsData()->s32Value;
    if (pending() == PRESET_POINT_TYPE_E_CALL)
        recall(s32Preset);
    else if (pending() == PRESET_POINT_TYPE_E_CLEAR)
        PRESET_API_DeleteById(s32Preset);
    else
        PRESET_API_SetCur(s32Preset, nullptr);
    endCommand();
}
} // namespace input
