/// Tests of the command handlers: a record goes in; a result and the calls on the camera's services come out.
#pragma once

#include "visca/viscaHandlers.h"
#include "viscaTest.h"

#include <functional>
#include <string>
#include <type_traits>
#include <vector>

typedef INFO Info;
typedef std::vector<std::string> Effects;
constexpr BU_S32 REFUSED = -1;

typedef BU_S32 (*PFN_HANDLER)(Info *);

/// What a handler is given and what it makes of it.
struct tagCOMMAND_CASE_S {
    std::function<void(Info &)> fill; ///< of the record
    Effects effects;                  ///< what the camera is asked to do, in order
    BU_S32 s32Result = 0;
    std::function<void()> setUp = [] {}; ///< of the camera, before
};
typedef std::vector<tagCOMMAND_CASE_S> Cases;

/// A number for a field of whatever type.
struct tagNUMBER_S {
    BU_S32 s32;
    template <class T> operator T() const { return static_cast<T>(s32); }
};
/// Fills a member of the record: a number, or the fields of a group in their order.
template <auto Member, class... Values> std::function<void(Info &)> with(Values... values)
{
    return [=](Info &st) {
        typedef std::remove_reference_t<decltype(st.*Member)> Type;
        if constexpr (std::is_aggregate_v<Type>)
            st.*Member = Type{tagNUMBER_S{static_cast<BU_S32>(values)}...};
        else
            st.*Member = static_cast<Type>((values, ...));
    };
}

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

    /// @param strFailing  a service that fails with FAILURE when it is asked
    static BU_S32 run(PFN_HANDLER pfnHandle, const tagCOMMAND_CASE_S &stCase, const std::string &strFailing = "")
    {
        Info stInfo{};
        stCase.fill(stInfo);
        stCase.setUp();
        journal::effects();
        if (!strFailing.empty()) journal::inject(strFailing.c_str(), FAILURE);
        return pfnHandle(&stInfo);
    }

    /// Every case as it stands, and again with a failing service behind it: the first one, whose failure changes
    /// nothing.
    static void check(PFN_HANDLER pfnHandle, const Cases &listCases) { checkAll(pfnHandle, listCases, 0, ""); }
    /// The same, but the failure is passed through. @param strService  the one that fails; empty: the first
    static void passes(PFN_HANDLER pfnHandle, const Cases &listCases, const std::string &strService = "")
    {
        checkAll(pfnHandle, listCases, FAILURE, strService);
    }

    static std::string traceOf(PFN_HANDLER pfnHandle, const tagCOMMAND_CASE_S &stCase)
    {
        testing::internal::CaptureStdout();
        run(pfnHandle, stCase);
        return testing::internal::GetCapturedStdout();
    }

private:
    static constexpr BU_S32 FAILURE = -5;

    static void checkAll(PFN_HANDLER pfnHandle, const Cases &listCases, BU_S32 s32Failed, const std::string &strService)
    {
        for (const auto &stCase : listCases) {
            SCOPED_TRACE("case " + std::to_string(&stCase - listCases.data()));
            EXPECT_EQ(run(pfnHandle, stCase), stCase.s32Result);
            EXPECT_EQ(journal::effects(), stCase.effects);
            if (stCase.s32Result < 0 || stCase.effects.empty()) continue;
            const std::string &strFirst = stCase.effects[0];
            EXPECT_EQ(run(pfnHandle, stCase, strService.empty() ? strFirst.substr(0, strFirst.find('(')) : strService),
                      s32Failed)
                << "with a failing service";
            journal::effects();
        }
    }
};
