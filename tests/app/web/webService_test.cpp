// Start and stop of the web service: what is registered, in which order, with which payloads.
#include "placeholder.h"
#include "service.h"
#include "support/platformTest.h"
#include "web/events.h"
#include "web/web.h"
#include "webServiceDoubles.h"

#include <memory>

using testing::HasSubstr;
using testing::Not;

namespace
{
typedef std::unique_ptr<WEB_RPC_PAYLOAD_S> Payload;

class WebService : public PlatformTest
{
protected:
    WebService() { registrations().clear(); }
    /// What a function prints, on both outputs.
    template <class F> static std::string printed(F &&function)
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
        function();
        return testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr();
    }
};

TEST_F(WebService, RegistersEveryEventThenListensThenSetsThePorts)
{
    constexpr BU_S32 EVENTS[] = {1,  2,  38, 39, 40,  41, 3,  4,  5,  6,   7,   9,   10,  34,  35,  44,  45,  60,  61,
                                 54, 55, 23, 19, 20,  21, 22, 26, 27, 24,  25,  111, 42,  43,  11,  12,  13,  14,  36,
                                 37, 15, 16, 17, 18,  46, 47, 66, 67, 72,  73,  75,  74,  68,  69,  70,  71,  88,  89,
                                 90, 91, 92, 93, 106, 94, 95, 98, 99, 112, 113, 100, 101, 102, 103, 104, 105, 114, 115};
    std::vector<std::string> expected;
    for (const BU_S32 s32Event : EVENTS)
        for (const BU_CHAR *pc : {"MainHandler", "ReqPayloadCreator", "ResPayloadCreator"})
            expected.push_back(std::string("WEB_RPC_Register") + pc + "(" + std::to_string(s32Event) + ")");
    expected.insert(expected.end(), {"WEB_RPC_InitForAppMain()", "SYSTEM_API_SetHttpPort(80, 443)"});
    journal::inject("WEB_RPC_InitForAppMain", -1); // nobody looks at it
    EXPECT_THAT(
        printed([] { EXPECT_EQ(BSP_StartHttpService(), 0); }),
        testing::AllOf(HasSubstr("DeviceModel=TKV-MX\n"), HasSubstr("[Info][AppService:Web] Rpc listener init ok.")));
    EXPECT_EQ(journal::effects(), expected);

    EXPECT_EQ(BSP_StopHttpService(), 0);
    EXPECT_EQ(journal::effects(),
              (std::vector<std::string>{"SYSTEM_API_StopHttpDaemon()", "WEB_RPC_UnInitForAppMain(0)"}));
}

/// Bytes of the request and of the response: where they differ, exchanged ones would show.
TEST_F(WebService, RegistersTheFactoriesOfRequestAndResponse)
{
    BSP_StartHttpService();
    struct {
        BU_S32 s32Event;
        BU_U32 u32Request, u32Response;
    } constexpr ROWS[] = {{9, 32, 41},   {10, 41, 32},  {11, 32, 56},  {12, 56, 32},
                          {15, 16, 876}, {16, 876, 16}, {17, 16, 876}, {19, 16, 60}};
    for (const auto &st : ROWS) {
        const auto &stEvent = registrations().at(st.s32Event);
        EXPECT_EQ(Payload(stEvent.pfnRequest())->getSize(), st.u32Request) << st.s32Event;
        EXPECT_EQ(Payload(stEvent.pfnResponse())->getSize(), st.u32Response) << st.s32Event;
    }
}

TEST_F(WebService, SendsKeysOfTheVirtualRemoteAndIgnoresOtherActions)
{
    BSP_StartHttpService();
    const auto &stEvent = registrations().at(WEB_RPC_EVENT_GROUP_E_BUSINESS);
    for (const BU_S32 s32Type : {0, 1, 2, -1}) {
        const Payload req(stEvent.pfnRequest()), res(stEvent.pfnResponse());
        static_cast<tag_WEB_RPC_PANEL_REQ_PAYLOAD_S &>(*req).s32EventType = s32Type;
        const std::string strPrinted = printed([&] { stEvent.pfnHandler(req.get(), res.get()); });
        EXPECT_THAT(strPrinted, HasSubstr("-- Business Get " + std::to_string(s32Type) + "\n"));
        EXPECT_EQ(strPrinted.find("Get virtual ir message") != std::string::npos, s32Type == 1); // no device here
        std::string image(32, '\0');
        res->dumpBytes(image.data(), 32);
        EXPECT_EQ(image, std::string(32, '\0'));
    }
}

TEST_F(WebService, APageThatIsNotBuiltSaysSoAndAnswersZero)
{
    void (*const pfnHandler)(tag_WEB_RPC_NTP_PAYLOAD_S *, tag_WEB_RPC_NTP_PAYLOAD_S *) = WEB_PLACEHOLDER_HANDLER_S{};
    tag_WEB_RPC_NTP_PAYLOAD_S req, res;
    req.enable = BU_TRUE;
    EXPECT_THAT(printed([&] { pfnHandler(&req, &res); }), HasSubstr("not part of this build"));
    std::string image(160, '\0');
    res.dumpBytes(image.data(), 160);
    EXPECT_EQ(image, std::string(160, '\0'));
}

TEST_F(WebService, AMissingPayloadEndsAHandler)
{
    int payload = 0;
    const struct {
        const void *pvRequest, *pvResponse;
        BU_BOOL bReturn;
    } rows[] = {{&payload, &payload, BU_FALSE}, {nullptr, &payload, BU_TRUE}, {&payload, nullptr, BU_TRUE}};
    for (const auto &st : rows) {
        const std::string strPrinted =
            printed([&] { EXPECT_EQ(_WEB_CMD_ParamCheckReturn(st.pvRequest, st.pvResponse), st.bReturn); });
        const auto first = strPrinted.find("param is error, p1:");
        EXPECT_EQ(first != std::string::npos, st.bReturn);
        EXPECT_EQ(strPrinted.find("_WEB_CMD_ParamCheckReturn, ", first) != std::string::npos,
                  st.bReturn); // and the log
    }
}
} // namespace
