// Recall, store and delete presets by number: what each number key does, by the command that waits and the timer.
#include "numberKeys.h"

#include "camera/menu.h"
#include "camera/preset.h"
#include "keyActions.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

namespace
{
using namespace input;

constexpr BU_S32 NINE_DIGITS = 100'000'000; // a number from here on takes no further digit

KEY_TYPE_E keyOf(BU_S32 s32Digit)
{
    return s32Digit == 0 ? KEY_TYPE_E_NUM0 : static_cast<KEY_TYPE_E>(KEY_TYPE_E_NUM1 + s32Digit - 1);
}

PRESET_POINT_KEY_TYPE_E pending() { return BR_GetKeyPresetPointsData()->enKeyType; }
void endCommand() { BR_GetKeyPresetPointsData()->enKeyType = PRESET_POINT_TYPE_E_BUTT; }

void startHold(BU_S32 s32Digit) { startEntryTimer(keyOf(s32Digit)); }

void recallShort(BU_S32 s32Digit)
{
    stopEntryTimer();
    recall(s32Digit);
}

void storeHeld(BU_S32 s32Digit) { PRESET_API_SetCur(s32Digit, presetName(s32Digit)); }

void awaitRelease(BU_S32)
{
    stopEntryTimer();
    SR_BR_GetTimerData()->stParam.bTimerRunning = BU_FALSE;
}

void cancelCommand(BU_S32 s32Digit)
{
    endCommand();
    startEntryTimer(keyOf(s32Digit));
}

void takeDigit(BU_S32 s32Digit)
{
    std::atomic<BU_S32> &s32Value = BR_GetKeyPresetPointsData()->s32Value;
    if (s32Value < NINE_DIGITS) s32Value = s32Value * 10 + s32Digit;
    startEntryTimer(keyOf(s32Digit));
}

/// What a number key does, by the command that waits, the event and the entry timer.
struct NumberRow {
    bool bPending, bPress;
    std::optional<bool> bTimerRuns; ///< none: either
    void (*pfnAct)(BU_S32);
};
constexpr NumberRow NUMBER_ROWS[] = {
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
void pressNumber(BU_S32 s32Digit, KEY_EVENT_E enEvent)
{
    const bool bPress = isPress(enEvent), bIgnored = OSD_MENU_GetMenuStatus() == 1;
    const Started enBefore =
        std::exchange(startedBy(FAMILY_BR, keyOf(s32Digit)), bPress && !bIgnored ? Started::HOLD : Started::NOTHING);
    if (bIgnored || (!bPress && enBefore != Started::HOLD)) return;

    const bool bPending = pending() != PRESET_POINT_TYPE_E_BUTT, bTimerRuns = isEntryTimerRunning();
    const auto row = std::ranges::find_if(NUMBER_ROWS, [=](const NumberRow &stRow) {
        return stRow.bPending == bPending && stRow.bPress == bPress &&
               stRow.bTimerRuns.value_or(bTimerRuns) == bTimerRuns;
    });
    row->pfnAct(s32Digit);
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
