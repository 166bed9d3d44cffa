/// Base of the tests of the VISCA module. Every message goes through the dispatcher to the virtual camera; what would
/// be sent is read from the journal. Cases are rows, with the settings before and the calls after as text.
#pragma once

#include "board/profile.h"
#include "camera/motion.h"
#include "camera/settingEvent.h"
#include "support/hex.h"
#include "support/platformTest.h"
#include "visca/visca.h"

#include <functional>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

typedef tagVISCA_CTRL_INFO_S Info;
typedef tagVISCA_CMD_INQ_TYPE_E Type;
typedef std::vector<BU_S32> Numbers;

/// A number for a field of whatever type.
struct Number {
    BU_S32 s32;
    template <class T> operator T() const { return static_cast<T>(s32); }
};
/// Numbers for the fields of a record, in their order; the rest is 0.
template <class T, std::size_t... I> T recordOf(const Numbers &numbers, std::index_sequence<I...>)
{
    if constexpr (requires { T{Number{static_cast<BU_S32>(I)}...}; })
        return T{Number{I < numbers.size() ? numbers[I] : 0}...};
    else
        return recordOf<T>(numbers, std::make_index_sequence<sizeof...(I) - 1>());
}
/// Fills a member of the control record: a group of fields, or one number.
template <auto... Path> void put(Info &st, const Numbers &numbers)
{
    auto &target = (st.*....*Path);
    typedef std::remove_reference_t<decltype(target)> Target;
    if constexpr (std::is_aggregate_v<Target>)
        target = recordOf<Target>(numbers, std::make_index_sequence<8>());
    else if (!numbers.empty())
        target = static_cast<Target>(numbers[0]);
}
inline void nothing(Info &, const Numbers &) {}

/// A message, and where its numbers stand in the record.
struct Message {
    Type enType;
    void (*fill)(Info &, const Numbers &) = nothing;
    bool bSwallows = false;          ///< a failure of the camera's service is answered as done
    const char *pcFailing = nullptr; ///< the service whose failure counts; the first one asked
};

/// @param settings  before: "Gain 26, !Mirror 1" by their keys, "!": stored as well, "@function result": injected
inline void prepare(const std::string &strSettings)
{
    std::istringstream list(strSettings);
    for (std::string strOne; std::getline(list >> std::ws, strOne, ',');) {
        if (strOne.empty()) continue;
        const auto space = strOne.find(' '), start = strOne.find_first_not_of("!@");
        const BU_S32 s32Value = std::stoi(strOne.substr(space), nullptr, 0);
        const std::string strKey = strOne.substr(start, space - start);
        if (strOne[0] == '@')
            journal::inject(strKey.c_str(), s32Value);
        else
            EXPECT_EQ(CFG_SETTING_Set(strKey.c_str(), 0, s32Value, strOne[0] == '!', BU_TRUE), 0) << strOne;
    }
}

class ViscaTest : public PlatformTest
{
protected:
    ViscaTest()
    {
        setenv("CAMERA_TRACE", "1", 1); // traces are part of what is tested
        BSP_PROFILE_Load("TKV-MX");
        CFG_SETTING_Reload();
        BSP_PTProcInit(0, nullptr);
        ZF_API_StartService();
        UTIL_CMD_SetRebootHandler([] {});
        journal::effects();
        journal::inject("VISCA_CtrlMsgReturn", 0, 1000000);
    }
    ~ViscaTest() override { UTIL_CMD_SetRebootHandler(nullptr); }

    static BU_S32 dispatch(const Message &message, const Numbers &numbers, const std::string &strSettings = "",
                           Info *pstInfo = nullptr)
    {
        Info stOwn{}, &stInfo = pstInfo ? *pstInfo : stOwn;
        message.fill(stInfo, numbers);
        stInfo.stMsgPri.enMsgType = message.enType;
        prepare(strSettings);
        journal::effects();
        return viscaCtrlHandlerCallFunc(message.enType, &stInfo);
    }
    /// What was done and answered since, each with "; " behind.
    static std::string effects()
    {
        std::string strAll;
        for (const std::string &strOne : journal::effects()) strAll += strOne + "; ";
        return strAll;
    }
    static std::string answered(Type enType, bool bOk = true)
    {
        return "VISCA_CtrlMsgReturn(" + std::to_string(enType) + (bOk ? ", 1); " : ", 0); ");
    }
    static std::string traceOf(const std::function<void()> &fnRun)
    {
        testing::internal::CaptureStdout();
        fnRun();
        return testing::internal::GetCapturedStdout();
    }

    /// The payload of an answer in hexadecimal, "0A 0B", without its terminator.
    static std::string payload(Type enType, Info &stInfo)
    {
        constexpr BU_U32 HEAD = 2;
        tagVISCA_MSG_REQ_S stReq{};
        EXPECT_EQ(viscaCompleteHandlerCallFunc(&stInfo, &stReq, enType, HEAD), 0);
        if (stReq.u32CmdLen <= HEAD || stReq.u32CmdLen > sizeof(stReq.acCmd)) return "bad length";
        if (stReq.acCmd[stReq.u32CmdLen - 1] != 0xFF) return "no terminator";
        return hex(std::span(stReq.acCmd).subspan(HEAD, stReq.u32CmdLen - 1 - HEAD));
    }
    /// Dispatches an inquiry and gives its payload, or "refused" or "silent" as the controller would see it.
    static std::string answer(const Message &message, const Numbers &numbers = {}, const std::string &strSettings = "",
                              Info stInfo = {})
    {
        const BU_S32 s32Ret = dispatch(message, numbers, strSettings, &stInfo);
        return s32Ret == 0 ? payload(message.enType, stInfo) : s32Ret == -1 ? "refused" : "silent";
    }
};
