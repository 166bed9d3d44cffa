// Plays keys of a remote into the service and shows what the service did.
#pragma once

#include "camera/menu.h"
#include "camera/tracking.h"
#include "input/keyState.h"
#include "support/platformTest.h"

#include <linux/input.h>
#include <map>
#include <sstream>

typedef std::vector<std::string> Effects;
typedef void (*Remote)(const input_event *);

inline constexpr Remote SMALL = SR_COMMON_InputEventCb, BIG = BR_COMMON_InputEventCb, TRACKING = YM_COMMON_InputEventCb,
                        FRONT = KEYPAD_COMMON_InputEventCb;

/// The codes printed in the remotes' manual.
inline const std::map<std::string, int> CODES{
    {"power", 16}, {"menu", 30},   {"zoom-", 28}, {"zoom+", 29},   {"up", 32},        {"down", 33},   {"left", 34},
    {"right", 35}, {"home", 15},   {"near", 23},  {"far", 24},     {"auto", 20},      {"manual", 21}, {"adjust", 22},
    {"iris+", 25}, {"iris-", 26},  {"iris0", 27}, {"back", 31},    {"entry", 36},     {"osd", 37},    {"call", 38},
    {"set", 39},   {"delete", 40}, {"clear", 41}, {"confirm", 42}, {"f1", 11},        {"f2", 12},     {"f3", 13},
    {"f4", 14},    {"0", 1},       {"1", 2},      {"2", 3},        {"3", 4},          {"4", 5},       {"5", 6},
    {"6", 7},      {"7", 8},       {"8", 9},      {"9", 10},       {"backlight", 19}, {"id1", 102},   {"id2", 103},
    {"id3", 104},  {"id4", 105},   {"long1", 89}, {"long2", 90},   {"long3", 91},     {"reset", 249},
};

class InputTest : public PlatformTest
{
protected:
    InputTest()
    {
        SR_BR_InitKeyTimer();
        KEYPAD_InitKeyTimer();
        // What a call leads to inside the platform is not the keys' business.
        for (const char *pcLeaf :
             {"CMD_PT_HandeUpBtn", "CMD_PT_HandeDownBtn", "CMD_PT_HandeLeftBtn", "CMD_PT_HandeRightBtn",
              "CMD_PT_StopMove", "PRESET_API_GotoById", "PRESET_API_GotoHome", "PRESET_API_SetCur",
              "PRESET_API_DeleteById", "SYSTEM_API_SleepAppService", "SYSTEM_API_FactoryRestoreConfiguration",
              "UTIL_CMD_RunSafe", "NET_API_SetIpAddr", "AF_API_TriggerAutoFocus"})
            journal::inject(pcLeaf, 0, 1'000'000);
        CMD_MENU_OnlyCloseMenu();
        journal::effects();
    }

    static void send(Remote remote, int s32Type, int s32Code, int s32Value)
    {
        input_event stEvent{};
        stEvent.type = static_cast<BU_U16>(s32Type);
        stEvent.code = static_cast<BU_U16>(s32Code);
        stEvent.value = s32Value;
        remote(&stEvent);
    }

    /// Plays "key": a tap, "+key": a press, "-key": a release, "*key": a repeat, "~ms": that much time,
    /// "[open]" "[close]": the menu, "[track]" "[untrack]". Gives what the keys did, in order.
    Effects play(Remote remote, const std::string &strSteps)
    {
        Effects all;
        const auto collect = [&all] {
            for (auto &strEffect : journal::effects()) all.push_back(std::move(strEffect));
        };
        std::istringstream steps(strSteps);
        for (std::string step; steps >> step; collect()) {
            const std::string strName = step.substr(1);
            if (step[0] == '[')
                setUp(step);
            else if (step[0] == '~')
                clock().advance(std::stoi(strName));
            else if (step[0] == '+' || step[0] == '-' || step[0] == '*')
                send(remote, EV_KEY, CODES.at(strName), step[0] == '+' ? 1 : step[0] == '-' ? 0 : 2);
            else
                for (const int s32Value : {1, 0}) send(remote, EV_KEY, CODES.at(step), s32Value);
        }
        return all;
    }

private:
    static void setUp(const std::string &strStep)
    {
        if (strStep == "[open]") CMD_MENU_OnlyOpenMenu();
        if (strStep == "[close]") CMD_MENU_OnlyCloseMenu();
        if (strStep == "[track]") ALG_API_SetEnable(BU_TRUE, BU_FALSE, BU_FALSE);
        if (strStep == "[untrack]") ALG_API_SetEnable(BU_FALSE, BU_FALSE, BU_FALSE);
        journal::effects();
    }
};

/// One line of a table: keys of a remote and what they are to do.
struct tagPLAY_CASE_S {
    Remote remote;
    const char *pcSteps;
    Effects effects;
};
