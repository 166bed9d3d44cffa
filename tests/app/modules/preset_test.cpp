#include "preset/preset.h"

#include "board/profile.h"
#include "camera/preset.h"
#include "support/platformTest.h"

#include <string>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace
{
class SpecialPresets : public PlatformTest
{
protected:
    /// Registers the presets of a model and gives their numbers in order.
    static std::vector<int> registered(const char *pcModel)
    {
        BSP_PROFILE_Load(pcModel);
        journal::effects();
        PRESET_RegisterSpecialPreset();
        std::vector<int> listIds;
        for (const auto &strEffect : journal::effects()) {
            int iId = 0;
            if (std::sscanf(strEffect.c_str(), "PRESET_API_RegisterIdInterrupt(%d,", &iId) == 1) listIds.push_back(iId);
        }
        return listIds;
    }

    /// What recalling a number does, beside the recall itself.
    std::vector<std::string> recall(BU_S32 s32Id)
    {
        journal::effects();
        PRESET_API_GotoById(s32Id, PT_CTRL_E_FROM_OTHER, nullptr);
        clock().advance(1);
        UTIL_THREAD_WaitAsync();
        auto listEffects = journal::effects();
        std::erase_if(listEffects, [](const std::string &str) { return str.starts_with("PRESET_API_GotoById("); });
        return listEffects;
    }
};
} // namespace

TEST_F(SpecialPresets, TheModelDecidesWhichNumbersAreSpecial)
{
    EXPECT_THAT(registered("TKV-MX"), ElementsAre(80, 81, 95, 99, 301, 302, 303, 304, 305, 310, 401, 402, 202));
    EXPECT_THAT(registered("QLS-500"), ElementsAre(80, 81, 95, 99, 301, 302, 303, 304, 305, 310, 401, 402, 201, 202));
}

TEST_F(SpecialPresets, ARecallRunsItsFunction)
{
    UTIL_CMD_SetRebootHandler([] {});
    journal::inject("SYSTEM_API_FactoryRestoreConfiguration", 0);
    registered("QLS-500");
    // clang-format off
    const std::pair<int, const char *> FUNCTIONS[] = {
        {80, "ALG_API_SetEnable(1, 1, 1)"}, {81, "ALG_API_SetEnable(0, 1, 1)"}, {95, "CMD_MENU_HandleMenuBtn()"}, {99, "UTIL_CMD_RunSafe(\"reboot\")"},
        {310, "SYSTEM_API_FactoryRestoreConfiguration(0)"}, {401, "NET_API_SetIpMode(\"NetCard0\", 0)"}, {402, "NET_API_SetIpMode(\"NetCard0\", 1)"},
        {201, "CMD_MENU_HandleAdvancedMenuBtn()"}, {202, "CMD_MENU_HandleAdvancedMenuBtn()"}};
    // clang-format on
    for (const auto &[iId, pcFunction] : FUNCTIONS) EXPECT_THAT(recall(iId), Contains(pcFunction)) << iId;
    EXPECT_THAT(recall(310), Not(Contains(testing::StartsWith("UTIL_CMD_RunSafe")))) << "without a restart";
    for (const int iFormat : {301, 302, 303, 304, 305}) EXPECT_THAT(recall(iFormat), IsEmpty()) << iFormat;
    UTIL_CMD_SetRebootHandler(nullptr);
}
