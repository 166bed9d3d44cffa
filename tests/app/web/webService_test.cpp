// Start and stop of the web service: what is registered, in which order, and what nobody handles.
#include "pages/panel.h"
#include "web/web.h"
#include "webTest.h"
#include "web_client/client.h"

#include <set>

using testing::HasSubstr;

namespace
{
class WebService : public WebTest
{
protected:
    ~WebService() override { BSP_StopHttpService(); }
};

TEST_F(WebService, RegistersThePagesThatAreBuiltThenListensThenSetsThePorts)
{
    Effects expected;
    std::set<BU_S32> registered;
    for (const BU_S32 s32Event : {1, 2, 38, 39, 40, 41, 3, 4, 5, 6, 23}) {
        registered.insert(s32Event);
        for (const BU_CHAR *pc : {"MainHandler", "ReqPayloadCreator", "ResPayloadCreator"})
            expected.push_back(std::string("WEB_RPC_Register") + pc + "(" + std::to_string(s32Event) + ")");
    }
    for (const BU_CHAR *pc : {"settings", "presets", "position", "centre", "menu"})
        expected.push_back(std::string("WEB_RPC_RegisterQuestion(\"") + pc + "\")");
    expected.insert(expected.end(), {"WEB_RPC_InitForAppMain()", "SYSTEM_API_SetHttpPort(80, 443)"});
    journal::inject("WEB_RPC_InitForAppMain", -1); // nobody looks at it
    const std::string strPrinted = printed([] { EXPECT_EQ(BSP_StartHttpService(), 0); });
    for (const char *pc : {"DeviceModel=TKV-MX\n", "[Info][AppService:Web] Rpc listener init ok."})
        EXPECT_THAT(strPrinted, HasSubstr(pc));
    EXPECT_EQ(journal::effects(), expected);
    for (const WEB_EVENT_S &st : WEB_EVENTS) {
        EXPECT_EQ(registered.contains(st.enEvent), WEB_PAGES[st.enPage].bServed)
            << st.pcName << ": what is served and what is registered differ";
        EXPECT_EQ(web_rpc::callEvent(static_cast<BU_U32>(st.enEvent), "no image").s32Result,
                  registered.contains(st.enEvent) ? WEB_CLIENT_RESULT_E_REFUSED : WEB_CLIENT_RESULT_E_UNKNOWN);
    }
    EXPECT_EQ(BSP_StopHttpService(), 0);
    EXPECT_EQ(journal::effects(), (Effects{"SYSTEM_API_StopHttpDaemon()", "WEB_RPC_UnInitForAppMain(0)"}));
}

TEST_F(WebService, APanelMayHaveABitmapOfItsOwn)
{
    constexpr auto NOTHING = [](BU_S32, const Request &, Response &) {};
    for (const auto &[u64Row, u64Expected] : {std::pair{0U, 512U}, {6U, 6U}}) {
        Response res;
        res.s32SideEffectBitmap = 512; // said by the page
        const web::Item stItem{1, nullptr, NOTHING, u64Row};
        web::answerSet(&stItem, 0, {}, res);
        EXPECT_EQ(res.s32SideEffectBitmap, u64Expected);
    }
}

TEST_F(WebService, AMissingPayloadEndsAHandler)
{
    int payload = 0;
    EXPECT_EQ(printed([&] { EXPECT_EQ(_WEB_CMD_ParamCheckReturn(&payload, &payload), 0); }), "");
    for (int *pst : {&payload, static_cast<int *>(nullptr)}) {
        const std::string str =
            printed([&] { EXPECT_EQ(_WEB_CMD_ParamCheckReturn(pst, pst ? nullptr : &payload), 1); });
        EXPECT_THAT(str, HasSubstr("_WEB_CMD_ParamCheckReturn, "));
        EXPECT_NE(str.find("param is error, p1:"), str.rfind("param is error, p1:")) << "printed, and logged";
    }
}
} // namespace
