#include "describe.h"
#include "eventApi.h"
#include "logicTest.h"
#include "support/place.h"
#include "web/events.h"

#include <map>
#include <set>

namespace
{
using namespace web_server;
using namespace testing;

class RoutesTest : public LogicTest
{
protected:
    /// A request that the route's table row makes sense of.
    Request fitting(const Route &stRoute, const std::string &strToken) const
    {
        std::string strPath = stRoute.pcPath;
        // clang-format off
        for (const auto &[pcPattern, pcName] :
             {std::pair{"/api/*", "WEB_RPC_EVENT_GROUP_E_GET_PT"}, {"/presets/*", "1.jpg"}, {"/preview/*", "ch2"},
              {"/*", "js/app.js"}, {"/users/*", "nobody"}})
            // clang-format on
            if (strPath == pcPattern) strPath.replace(strPath.size() - 1, 1, pcName);
        Request stRequest = request(stRoute.pcMethod, strPath, strToken, stRoute.bodyMax > 0 ? "{}" : "");
        stRequest.bUpgrade = stRoute.bUpgrade;
        return stRequest;
    }
    WebLogic logic = (haveUsers(), WebLogic("studio.example", "camera", ""));
};

TEST_F(RoutesTest, NeedTheirRole)
{
    for (const Route &stRoute : routes())
        for (const auto &[enRole, strToken] : tokens) {
            SCOPED_TRACE(std::string(stRoute.pcMethod) + " " + stRoute.pcPath + " as " + nameOf(enRole));
            const Request stRequest = fitting(stRoute, strToken);
            const auto stRefusal = logic.admit(stRequest).stRefusal;
            const BU_U32 u32Wanted = enRole >= stRoute.enRole ? 0 : enRole == Role::ANYONE ? 401 : 403;
            EXPECT_EQ(stRefusal ? stRefusal->u32Status : 0, u32Wanted) << "before a body is read";
            Outcome stOutcome = logic.handle(stRequest);
            const auto *pstReply = std::get_if<Reply>(&stOutcome);
            const BU_U32 u32Status = pstReply ? pstReply->u32Status : 0;
            EXPECT_EQ(u32Status == 401 || u32Status == 403 ? u32Status : 0, u32Wanted);
        }
    std::string strOpen; // to everybody
    for (const Route &stRoute : routes())
        if (stRoute.enRole == Role::ANYONE) strOpen += std::string(stRoute.pcMethod) + stRoute.pcPath + " ";
    EXPECT_EQ(strOpen, "GET/session POST/setup POST/session GET/* ");
}

TEST_F(RoutesTest, WhatIsNotListedIsDenied)
{
    // clang-format off
    constexpr std::tuple<const char *, const char *, BU_U32, const char *> ROWS[] = {
        {"PUT", "/session", 405, "GET, POST, DELETE"}, {"OPTIONS", "/session", 405, "GET, POST, DELETE"},
        {"GET", "/api/WEB_RPC_EVENT_GROUP_E_GET_PT", 405, "POST"}, {"HEAD", "/api/x", 405, "POST"},
        {"get", "/settings", 405, "GET"}, {"GET", "/setup", 405, "POST"}, {"POST", "/", 405, "GET"},
        {"POST", "/presets/1.jpg", 405, "GET"}, {"POST", "/index.html", 404, ""}, {"TRACE", "/nothing", 404, ""},
        {"POST", "/api/", 404, ""}, {"POST", "/api/WEB_RPC_EVENT_GROUP_E_GET_PT/x", 404, ""}, {"POST", "/api", 404, ""},
        {"DELETE", "/users/", 404, ""}, {"GET", "/session/", 404, ""}, {"POST", "//session", 404, ""},
        {"POST", "/API/WEB_RPC_EVENT_GROUP_E_GET_PT", 404, ""}, {"POST", "*", 404, ""},
        {"GET", "http://evil.example/", 404, ""}, {"GET", "/js/../users.json", 404, ""},
        {"GET", "/%2e%2e/users.json", 404, ""},
        // Pictures are numbered files.
        {"GET", "/presets/.jpg", 404, ""}, {"GET", "/presets/1", 404, ""}, {"GET", "/presets/1.png", 404, ""},
        {"GET", "/presets/01.jpg", 404, ""}, {"GET", "/presets/-1.jpg", 404, ""}, {"GET", "/presets/1000.jpg", 404, ""},
        {"GET", "/presets/+1.jpg", 404, ""}, {"GET", "/presets/1%00.jpg", 404, ""}, {"GET", "/presets/..jpg", 404, ""},
        {"GET", "/presets/..%2fusers.json.jpg", 404, ""}, {"GET", "/presets/1.jpg.jpg", 404, ""},
        {"GET", "/presets/1 .jpg", 404, ""},
    };
    // clang-format on
    for (const auto &[pcMethod, pcPath, u32Status, pcAllow] : ROWS) {
        const Reply stReply = reply(logic.handle(request(pcMethod, pcPath, token(Role::ADMIN))));
        EXPECT_EQ(stReply.u32Status, u32Status) << pcMethod << " " << pcPath;
        EXPECT_EQ(header(stReply, "Allow"), pcAllow) << pcMethod << " " << pcPath;
        EXPECT_THAT(stReply.strBody, StartsWith("{\"error\":\"")) << pcPath;
    }
    const Outcome stOutcome = logic.handle(request("GET", "/presets/255.jpg", token(Role::VIEWER)));
    const File &stFile = std::get<File>(stOutcome);
    EXPECT_EQ(std::pair(stFile.bPage, stFile.strPath), std::pair(false, std::string("/var/web/presets/255.jpg")));
}

TEST_F(RoutesTest, EventsNeedTheirRole)
{
    // clang-format off
    // Networks, names, restarts, what is gone for good; gets that answer with stream keys.
    const std::set<BU_S32> ADMIN{7, 10, 55, 61, 71, 74, 89, 95, 99, 113}, OPERATOR{15, 17, 102};
    const std::map<BU_S32, BU_U32> PATIENT{{12, 20'000}, {71, 120'000}, {75, 10'000}, {89, 20'000},
                                           {95, 60'000}, {99, 60'000}, {103, 20'000}, {105, 20'000}};
    // clang-format on
    for (const WEB_EVENT_S &stEvent : WEB_EVENTS) {
        const std::string strName = stEvent.pcName;
        const bool bGet = strName.find("_GET_") != strName.npos;
        const bool bViewer = bGet && !OPERATOR.contains(stEvent.enEvent);
        const Role enNeeded = ADMIN.contains(stEvent.enEvent) ? Role::ADMIN : bViewer ? Role::VIEWER : Role::OPERATOR;
        // The focus drive; pan and tilt, the zoom drive.
        EXPECT_EQ(stEvent.u64Movements, stEvent.enEvent == 4 ? 0x40 : stEvent.enEvent == 6 ? 0xA00 : 0);
        for (const auto &[enRole, strToken] : tokens) {
            const Outcome stOutcome = logic.handle(request("POST", "/api/" + strName, strToken, "{}"));
            const auto *pstCall = std::get_if<EventCall>(&stOutcome);
            ASSERT_EQ(pstCall != nullptr, enRole >= enNeeded) << strName << " as " << nameOf(enRole);
            if (!pstCall) continue;
            EXPECT_EQ(pstCall->enEvent, stEvent.enEvent);
            const auto it = PATIENT.find(stEvent.enEvent);
            EXPECT_EQ(pstCall->u32TimeoutMs, it != PATIENT.end() ? it->second : bGet ? 3000 : 10'000) << strName;
        }
    }
    for (const char *pcName : {"WEB_RPC_EVENT_GROUP_E_RESTART_VIDEO", "toString"}) // a number without a handler; none
        EXPECT_EQ(status(logic.handle(request("POST", std::string("/api/") + pcName, token(Role::ADMIN), "{}"))), 404U);
    const auto ask = [&](const char *pcBody, Role enRole) {
        return status(logic.handle(request("POST", "/api/WEB_RPC_EVENT_GROUP_E_GET_ISP", token(enRole), pcBody)));
    };
    EXPECT_EQ(ask(R"({"s32EventType":31})", Role::VIEWER), 403U) << "it measures";
    EXPECT_EQ(ask(R"({"s32EventType":31})", Role::OPERATOR), 0U);
    for (const char *pcBody : {R"({"s32EventType":30})", R"({"s32EventType":95})", R"({"s32EventType":-1})"})
        EXPECT_EQ(ask(pcBody, Role::VIEWER), 0U) << pcBody;
}

TEST_F(RoutesTest, TheRulesComeBeforeEverything)
{
    const std::string &strAdmin = token(Role::ADMIN);
    const Request stGood = request("POST", "/centre", strAdmin, R"({"x":0.5,"y":0.25})");
    ASSERT_TRUE(std::holds_alternative<Question>(logic.handle(stGood)));
    // clang-format off
    const std::tuple<const char *, std::function<void(Request &)>, BU_U32> ROWS[] = { // status 0: good as well
        {"no host", [](Request &r) { r.strHost.reset(); }, 400},
        {"a name that was bound to this address", [](Request &r) { r.strHost = r.strOrigin = "evil.example"; }, 421},
        {"a name of this camera", [](Request &r) { r.strHost = "studio.example", r.strOrigin.reset(); }, 0},
        {"another page", [](Request &r) { r.strOrigin = "http://evil.example"; }, 403},
        {"a page without origin", [](Request &r) { r.strOrigin = "null"; }, 403},
        {"another program of this machine", [](Request &r) { r.strOrigin = "http://127.0.0.1:3000"; }, 403},
        {"the page of HTTP on HTTPS", [](Request &r) { r.bTls = true; }, 403},
        {"no browser", [](Request &r) { r.strOrigin.reset(); }, 0},
        {"another site without origin", [](Request &r) { r.strOrigin.reset(), r.strFetchSite = "cross-site"; }, 403},
        {"a form", [](Request &r) { r.strContentType = "application/x-www-form-urlencoded"; }, 415},
        {"a simple request", [](Request &r) { r.strContentType = "text/plain"; }, 415},
        {"no content type", [](Request &r) { r.strContentType.reset(); }, 415},
        {"a huge body", [](Request &r) { r.u64BodyBytes = 1ULL << 40; }, 413},
        {"a huge body not announced", [](Request &r) { r.u64BodyBytes.reset(), r.strBody.resize(5000, ' '); }, 413},
        {"an empty body", [](Request &r) { r.u64BodyBytes.reset(), r.strBody.clear(); }, 400},
        {"half a body", [](Request &r) { r.strBody = R"({"x":0.5})"; }, 400},
        {"outside the picture", [](Request &r) { r.strBody = R"({"x":0.5,"y":1.01})"; }, 400},
        {"an upgrade", [](Request &r) { r.bUpgrade = true; }, 400},
        {"no cookie", [](Request &r) { r.strCookie.reset(); }, 401},
        {"a forged cookie", [](Request &r) { r.strCookie = "camera_session=" + makeToken(); }, 401},
        {"another cookie", [](Request &r) { r.strCookie = "camera_session=" + makeToken() + "; " + *r.strCookie; }, 0},
        {"the digest as a cookie", [&](Request &r) { r.strCookie = "camera_session=" + digest(strAdmin); }, 401},
        {"garbage as a cookie", [](Request &r) { r.strCookie = std::string("\xFF;;=\0", 5); }, 401},
        {"an old session", [](Request &r) { r.s64Unix += Sessions::IDLE_S + 1; }, 401},
    };
    // clang-format on
    for (const auto &[pcWhat, fnChange, u32Status] : ROWS) {
        Request stRequest = stGood;
        fnChange(stRequest);
        EXPECT_EQ(status(logic.handle(stRequest)), u32Status) << pcWhat;
    }
}

TEST_F(RoutesTest, HeadersDecideBeforeABodyIsRead)
{
    Request stRequest = request("POST", "/api/WEB_RPC_EVENT_GROUP_E_GET_PT", token(Role::VIEWER));
    stRequest.strContentType = "application/json";
    stRequest.bChunked = true;
    const Admission stAdmission = logic.admit(stRequest);
    EXPECT_FALSE(stAdmission.stRefusal);
    EXPECT_THAT(stAdmission.bodyMax, AllOf(Ge(8U << 10), Le(64U << 10)));
    stRequest.u64BodyBytes = stAdmission.bodyMax + 1;
    EXPECT_EQ(logic.admit(stRequest).stRefusal.value().u32Status, 413U);
    stRequest = request("GET", "/settings", token(Role::VIEWER));
    stRequest.bChunked = true;
    EXPECT_EQ(logic.admit(stRequest).stRefusal.value().u32Status, 413U);
}

TEST_F(RoutesTest, WebSocketsOpenFromTheOwnPageAlone)
{
    Request stRequest = request("GET", "/preview/ch1", token(Role::VIEWER));
    EXPECT_EQ(status(logic.handle(stRequest)), 426U);
    stRequest.bUpgrade = true;
    const std::string strSession = std::get<PreviewProxy>(logic.handle(stRequest)).strSession;
    EXPECT_TRUE(logic.isOpen(strSession, s64Now));
    EXPECT_EQ(status(logic.handle(request("DELETE", "/session", token(Role::VIEWER)))), 200U);
    EXPECT_FALSE(logic.isOpen(strSession, s64Now));

    stRequest.strCookie = "camera_session=" + token(Role::OPERATOR);
    for (const char *pcPath : {"/preview/ch3", "/preview/ch1x", "/preview/..", "/preview/CH1", "/preview/ch1"}) {
        EXPECT_EQ(status(logic.handle(stRequest)), stRequest.strPath == "/preview/ch1" ? 0U : 404U)
            << stRequest.strPath;
        stRequest.strPath = pcPath;
    }
    stRequest.strOrigin = "http://evil.example";
    EXPECT_EQ(status(logic.handle(stRequest)), 403U);
}

TEST_F(RoutesTest, AnEventTravelsAsItsImage)
{
    const auto call = [&](const char *pcEvent, const char *pcBody) {
        return logic.handle(request("POST", std::string("/api/") + pcEvent, token(Role::ADMIN), pcBody));
    };
    Outcome stOutcome =
        call("WEB_RPC_EVENT_GROUP_E_SET_ISP", R"({"s32EventType":5,"s32Id":1,"s32Value0":-2,"s32Value3":258})");
    const auto &stCall = std::get<EventCall>(stOutcome);
    EXPECT_EQ(stCall.strImage,
              std::string("\0\0\0\0\0\0\0\0\5\0\0\0\1\0\0\0\xFE\xFF\xFF\xFF\0\0\0\0\0\0\0\0\2\1\0\0", 32));
    const std::string strAnswer("\xAA\xAA\xAA\xAA\xAA\xAA\xAA\xAA\1\0\0\0\0\0\0\0\x9C\xFF\xFF\xFF\xAA\xAA\xAA\xAA"
                                "\0\0\0\0\0\0\0\x80",
                                32);
    const char *pcJson =
        R"({"bEnabled":true,"bVisible":false,"s32Value":-100,"s32SideEffectBitmap":9223372036854775808})";
    const std::tuple<WEB_CLIENT_RESULT_E, std::string, BU_U32, const char *, const char *> ROWS[] = {
        {WEB_CLIENT_RESULT_E_OK, strAnswer, 200, "", pcJson},
        {WEB_CLIENT_RESULT_E_OK, "short", 502, "", "{"},
        {WEB_CLIENT_RESULT_E_GONE, "", 503, "", "{"},
        {WEB_CLIENT_RESULT_E_TIMEOUT, "", 504, "", "{"},
        {WEB_CLIENT_RESULT_E_UNKNOWN, "", 404, "", "{"},
        {WEB_CLIENT_RESULT_E_BUSY, "", 503, "1", "{"},
        {WEB_CLIENT_RESULT_E_REFUSED, "too dark", 400, "", R"({"error":"too dark"})"},
    };
    for (const auto &[enResult, strText, u32Status, pcRetryAfter, pcBody] : ROWS) {
        const Reply stReply = stCall.fnFinish(enResult, strText);
        EXPECT_EQ(std::pair(stReply.u32Status, header(stReply, "Retry-After")),
                  std::pair(u32Status, std::string(pcRetryAfter)));
        EXPECT_THAT(stReply.strBody, StartsWith(pcBody));
    }

    // A payload whose image is packed, with addresses as 4 bytes.
    stOutcome = call("WEB_RPC_EVENT_GROUP_E_SET_ETH_CFG", R"({"bDhcp":true,"ipaddr":"192.0.2.7","interface":"eth0"})");
    EXPECT_EQ(std::get<EventCall>(stOutcome).strImage.substr(0, 9), std::string("\2\0\0\0\0\xC0\0\2\7", 9));
    EXPECT_EQ(status(call("WEB_RPC_EVENT_GROUP_E_GET_PT", R"({"bEnabled":true})")), 400U);
}

TEST(EventApi, EveryAnswerCanBeAskedForAgain)
{
    for (const WEB_EVENT_S &stEvent : WEB_EVENTS) {
        std::string strImage, strAgain;
        ASSERT_EQ(readRequest(stEvent, "{}", strImage), "") << stEvent.pcName;
        const std::unique_ptr<WEB_RPC_PAYLOAD_S> pstResponse(stEvent.stResponse.fnCreate());
        for (const char c : {'\0', '\1'}) {
            const std::string strJson = writeResponse(stEvent, strImage, std::string(pstResponse->getSize(), c));
            ASSERT_THAT(strJson, StartsWith("{")) << stEvent.pcName;
            if (std::string_view(stEvent.stRequest.pcName) != stEvent.stResponse.pcName || c != 0) continue;
            EXPECT_EQ(readRequest(stEvent, strJson, strAgain), "") << strJson;
        }
        EXPECT_EQ(writeResponse(stEvent, strImage, std::string(pstResponse->getSize() + 1, '\0')), "");
    }
}

TEST(EventApi, AnAnswerHoldsTheMemberThatWasAskedFor)
{
    const auto answerOf = [](BU_U32 u32Event, const char *pcRequest, char cType) {
        std::string strRequest, strImage(findWebEvent(u32Event)->stResponse.pstRecord->u32Image, '\0');
        strImage[0] = cType;
        EXPECT_EQ(readRequest(*findWebEvent(u32Event), pcRequest, strRequest), "");
        return writeResponse(*findWebEvent(u32Event), strRequest, strImage);
    };
    EXPECT_THAT(answerOf(19, R"({"eControlType":7})", 0),
                HasSubstr(R"("eControlType":7,"data":{"stPelcoPD":{"PelcoP_addr":0,"PelcoD_addr":0}})"));
    EXPECT_THAT(answerOf(15, R"({"eMediaType":1})", 2), HasSubstr(R"("eMediaType":2,)")); // what the camera says holds
}

TEST(Documentation, IsTheOneOfTheTables)
{
    std::stringstream text;
    text << std::ifstream(place::source("docs/web-api.md")).rdbuf();
    EXPECT_TRUE(text.str() == describeApi()) << "run scripts/web-api";
}
} // namespace
