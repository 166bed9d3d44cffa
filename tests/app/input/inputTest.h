// Plays keys of a remote into the service and shows what the service did.
#pragma once

#include "camera/menu.h"
#include "camera/tracking.h"
#include "keyState.h"
#include "support/place.h"
#include "support/platformTest.h"

#include <cstdio>
#include <cstring>
#include <linux/input.h>
#include <map>
#include <regex>
#include <sstream>

typedef void (*Remote)(const input_event *);

inline constexpr Remote SMALL = SR_COMMON_InputEventCb, BIG = BR_COMMON_InputEventCb, TRACKING = YM_COMMON_InputEventCb,
                        FRONT = KEYPAD_COMMON_InputEventCb;

typedef std::map<std::string, int> Codes;
/// The keys of the families ("small:") and their codes, as scripts/remote sends them.
inline const std::map<std::string, Codes> &families()
{
    static const auto all = [] {
        std::map<std::string, Codes> families;
        std::string strFamily;
        FILE *pstScript = popen((place::source("scripts/remote") + " --list").c_str(), "r");
        for (char acWord[64]; std::fscanf(pstScript, "%63s", acWord) == 1;)
            if (char *pcCode = std::strchr(acWord, '='))
                families[strFamily][{acWord, pcCode}] = std::atoi(pcCode + 1);
            else
                strFamily = acWord;
        pclose(pstScript);
        return families;
    }();
    return all;
}
inline int codeOf(const std::string &strKey)
{
    for (const auto &[strFamily, codes] : families())
        if (codes.contains(strKey)) return codes.at(strKey);
    throw std::out_of_range(strKey);
}

struct InputTest : PlatformTest {
    InputTest()
    {
        // What a call leads to inside the platform is not the keys' business.
        for (const char *pcLeaf :
             {"CMD_PT_HandeUpBtn", "CMD_PT_HandeDownBtn", "CMD_PT_HandeLeftBtn", "CMD_PT_HandeRightBtn",
              "CMD_PT_StopMove", "PRESET_API_GotoById", "PRESET_API_GotoHome", "PRESET_API_SetCur",
              "PRESET_API_DeleteById", "SYSTEM_API_SleepAppService", "SYSTEM_API_FactoryRestoreConfiguration",
              "UTIL_CMD_RunSafe", "NET_API_SetIpAddr", "AF_API_TriggerAutoFocus"})
            journal::inject(pcLeaf, 0, 1'000'000);
        reset();
    }

    /// A camera just started: settings, timers and pressed keys.
    static void reset()
    {
        CFG_STORE_Open(nullptr);
        CFG_SETTING_Reload();
        SR_BR_InitKeyTimer();
        KEYPAD_InitKeyTimer();
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

    /// Plays "key": a tap, "+key": a press, "-key": a release, "*key": a repeat, "~ms": that much time, "[open]"
    /// "[close]": the menu, "[track]" "[untrack]", "[Key=value]": a setting, "[!Function]": it fails. Gives in short
    /// what the keys did.
    std::string play(Remote remote, const std::string &strSteps)
    {
        std::string strAll;
        std::istringstream steps(strSteps);
        for (std::string step; steps >> step;) {
            const std::string strName = step.substr(1);
            if (step[0] == '[')
                setUp(step.substr(1, step.size() - 2));
            else if (step[0] == '~')
                clock().advance(std::stoi(strName));
            else if (const auto event = std::string("-+*").find(step[0]); event != std::string::npos)
                send(remote, EV_KEY, codeOf(strName), static_cast<int>(event));
            else
                for (const int s32Value : {1, 0}) send(remote, EV_KEY, codeOf(step), s32Value);
            for (const auto &strEffect : journal::effects()) strAll += (strAll.empty() ? "" : " ") + inShort(strEffect);
        }
        return std::regex_replace(strAll, std::regex(R"(SetFocusAuto\(0, 0, 1, 1\) SetFocusAct)"), "Focus");
    }

    /// Each case, steps and effects, with a camera just started.
    void expect(Remote remote, const std::vector<std::pair<const char *, const char *>> &cases)
    {
        for (const auto &[pcSteps, pcEffects] : cases) {
            reset();
            EXPECT_EQ(play(remote, pcSteps), pcEffects) << pcSteps;
        }
    }

private:
    static void setUp(const std::string &strStep)
    {
        const auto equals = strStep.find('=');
        if (strStep == "open") CMD_MENU_OnlyOpenMenu();
        if (strStep == "close") CMD_MENU_OnlyCloseMenu();
        if (strStep.ends_with("track")) ALG_API_SetEnable(strStep == "track", BU_FALSE, BU_FALSE);
        if (strStep[0] == '!') journal::inject(strStep.substr(1).c_str(), -1, 10);
        if (equals != strStep.npos)
            CFG_SETTING_Set(strStep.substr(0, equals).c_str(), 0, std::stoi(strStep.substr(equals + 1)), 0, 0);
        journal::effects();
    }
    /// "ISP_API_SetGain(0, 1, 1)" is "SetGain(0, 1, 1)", "CMD_MENU_HandeUpBtn()" is "MENU_Up"; "Focus(0, 3, 5)" is
    /// "SetFocusAuto(0, 0, 1, 1) SetFocusAct(0, 3, 5)".
    static std::string inShort(std::string str)
    {
        std::ranges::replace(str, '"', '\'');
        return std::regex_replace(str, std::regex(R"(^.*_API_|CMD_|Hande|Btn|\(\)|, NULL)"), "");
    }
};
