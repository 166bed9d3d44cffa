/// Tests of the command handlers: a record goes in; a result and the calls on the camera's services come out.
#pragma once

#include "visca/viscaHandlers.h"
#include "viscaTest.h"

#include <functional>
#include <string>
#include <vector>

typedef INFO Info;
typedef std::vector<std::string> Effects;
constexpr BU_S32 REFUSED = -1;

struct tagCOMMAND_CASE_S {
    const char *pcName;
    BU_S32 (*pfnHandle)(Info *);
    std::function<void(Info &)> fill;
    Effects effects;                       ///< what the camera is asked to do, in order
    BU_S32 s32Result = 0;                  ///< of the handler
    const char *pcPassedThrough = nullptr; ///< the service whose failure the handler passes through; null: none
    std::function<void()> setUp = [] {};
};

/// A request to the lens as the journal writes it. @param pcPrivate  "&" with data, "NULL" without
inline std::string lensMotion(const ZF_MOTION_CTRL_S &stMotion, const char *pcPrivate)
{
    return "BSP_ZFCtrlMotion(1, " + journal::argument(&stMotion) + ", " + pcPrivate + ")";
}

class CommandTest : public ViscaTest
{
protected:
    CommandTest()
    {
        UTIL_CMD_SetRebootHandler([] {});
    }
    ~CommandTest() override { UTIL_CMD_SetRebootHandler(nullptr); }

    /// @param pcFailing  a service that fails with FAILURE when it is asked
    static BU_S32 run(const tagCOMMAND_CASE_S &stCase, const char *pcFailing = nullptr)
    {
        Info stInfo{};
        stCase.fill(stInfo);
        stCase.setUp();
        journal::effects();
        if (pcFailing) journal::inject(pcFailing, FAILURE);
        return stCase.pfnHandle(&stInfo);
    }

    /// Every row as it stands, and again with a failing service behind it.
    static void check(const std::vector<tagCOMMAND_CASE_S> &listCases)
    {
        for (const auto &stCase : listCases) {
            SCOPED_TRACE(stCase.pcName);
            EXPECT_EQ(run(stCase), stCase.s32Result);
            EXPECT_EQ(journal::effects(), stCase.effects);
            if (stCase.s32Result < 0 || stCase.effects.empty()) continue;

            const std::string strFirst = stCase.effects[0].substr(0, stCase.effects[0].find('('));
            const char *pcFailing = stCase.pcPassedThrough ? stCase.pcPassedThrough : strFirst.c_str();
            EXPECT_EQ(run(stCase, pcFailing), stCase.pcPassedThrough ? FAILURE : 0) << "with a failing service";
            journal::effects();
        }
    }

    static std::string traceOf(const tagCOMMAND_CASE_S &stCase)
    {
        testing::internal::CaptureStdout();
        run(stCase);
        return testing::internal::GetCapturedStdout();
    }

private:
    static constexpr BU_S32 FAILURE = -5;
};
