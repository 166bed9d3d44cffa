#include "logicTest.h"
#include "util/program.h"
#include "util/thread.h"

#include <atomic>

namespace
{
using namespace web_server;
using namespace testing;

class UsersApiTest : public LogicTest
{
protected:
    static std::string account(const std::string &strUser, const std::string &strPassword)
    {
        return R"({"user":")" + strUser + R"(","password":")" + strPassword + "\"}";
    }
    /// The token of a reply that logs in.
    static std::string given(const Reply &stReply)
    {
        const std::string strCookie = header(stReply, "Set-Cookie");
        EXPECT_THAT(strCookie, StartsWith("camera_session="));
        return strCookie.substr(15, strCookie.find(';') - 15);
    }
    BU_U32 logIn(WebLogic &logic, const std::string &strUser, const std::string &strPassword, BU_S64 s64NowMs = 0)
    {
        Request stRequest = request("POST", "/session", {}, account(strUser, strPassword));
        stRequest.s64NowMs = s64NowMs;
        m_stLast = reply(logic.handle(stRequest));
        return m_stLast.u32Status;
    }

    Reply m_stLast;
};

TEST_F(UsersApiTest, TheFirstUserSetsTheCameraUpOnce)
{
    WebLogic logic("", "camera", "");
    logic.setCamera(true);
    EXPECT_EQ(reply(logic.handle(request("GET", "/session"))).strBody,
              R"({"setup":true,"user":null,"role":null,"camera":true,"version":null})");
    EXPECT_EQ(logIn(logic, "ann", "12345678"), 409U);
    EXPECT_EQ(status(logic.handle(request("POST", "/setup", {}, account("ann", "short")))), 400U);
    EXPECT_EQ(status(logic.handle(request("POST", "/setup", {}, account("a b", "12345678")))), 400U);

    const Outcome stRival = logic.handle(request("POST", "/setup", {}, account("eve", "12345678"))); // at the same time
    const Reply stReply = reply(logic.handle(request("POST", "/setup", {}, account("ann", "12345678"))));
    EXPECT_EQ(std::pair(stReply.u32Status, status(stRival)), std::pair(200U, 409U));
    EXPECT_THAT(header(stReply, "Set-Cookie"), EndsWith("; Path=/; HttpOnly; SameSite=Strict"));
    EXPECT_EQ(reply(logic.handle(request("GET", "/session", given(stReply)))).strBody,
              R"({"setup":false,"user":"ann","role":"admin","camera":true,"version":")" + std::string(util::version()) +
                  "\"}");
    EXPECT_EQ(status(logic.handle(request("POST", "/setup", {}, account("eve", "12345678")))), 409U);
}

TEST_F(UsersApiTest, LoginWantsTheRightPasswordAndGetsSlower)
{
    WebLogic logic("", "camera", "12345678");
    EXPECT_EQ(logIn(logic, "admin", "12345678"), 200U);
    for (const char *pcUser : {"admin", "nobody", "a b"}) {
        EXPECT_EQ(logIn(logic, pcUser, "87654321"), 401U) << pcUser;
        EXPECT_EQ(m_stLast.strBody, R"({"error":"the user or the password is not right"})"); // tells nothing
        EXPECT_EQ(header(m_stLast, "Set-Cookie"), "");
    }
    EXPECT_EQ(logIn(logic, "nobody", "87654321"), 401U);
    EXPECT_EQ(logIn(logic, "admin", "12345678"), 429U); // this address must wait, whatever it knows
    EXPECT_EQ(header(m_stLast, "Retry-After"), "1");
    EXPECT_EQ(logIn(logic, "admin", "12345678", 1000), 200U);

    Request stTls = request("POST", "/session", {}, account("admin", "12345678"));
    stTls.bTls = true;
    stTls.strOrigin = "https://127.0.0.1:8080";
    const std::string strCookie = header(reply(logic.handle(stTls)), "Set-Cookie");
    EXPECT_THAT(strCookie, AllOf(StartsWith("__Host-camera_session="), HasSubstr("; Path=/;"), EndsWith("; Secure")));
    Request stUsers = request("GET", "/users");
    stUsers.bTls = true;
    stUsers.strCookie = "camera_session=" + makeToken() + "; " + strCookie.substr(0, strCookie.find(';'));
    EXPECT_EQ(status(logic.handle(stUsers)), 200U);
    stUsers.bTls = false;
    EXPECT_EQ(status(logic.handle(stUsers)), 401U);
    stUsers.bTls = true;
    const std::string strPlain = "camera_session=" + given(m_stLast);
    stUsers.strCookie = strPlain;
    EXPECT_EQ(status(logic.handle(stUsers)), 200U) << "who logged in by HTTP";
    stUsers.strCookie = strPlain + "; " + strCookie.substr(0, strCookie.find(';'));
    Request stLogOut = stUsers;
    stLogOut.strMethod = "DELETE";
    stLogOut.strPath = "/session";
    stLogOut.strOrigin = stTls.strOrigin;
    EXPECT_EQ(status(logic.handle(stLogOut)), 200U);
    EXPECT_EQ(status(logic.handle(stUsers)), 401U) << "one of the two sessions went on";
}

TEST_F(UsersApiTest, ABrowserThatWasHereBeforeDoesNotWaitForStrangers)
{
    WebLogic logic("", "camera", "12345678");
    ASSERT_EQ(logIn(logic, "admin", "12345678"), 200U);
    std::string strDevice;
    for (const auto &[strName, strValue] : m_stLast.headers)
        if (strValue.starts_with("camera_device=")) strDevice = strValue;
    EXPECT_THAT(strDevice, HasSubstr("; Path=/; HttpOnly; SameSite=Strict; Max-Age="));
    const auto tryFrom = [&](const std::string &strRemote, const std::string &strCookie) {
        Request stRequest = request("POST", "/session", {}, account("admin", "12345678"));
        stRequest.strRemote = strRemote;
        stRequest.strCookie = strCookie;
        const Outcome stOutcome = logic.handle(stRequest);
        return std::holds_alternative<Work>(stOutcome); // the password is looked at
    };
    for (int n = 0; n < 8; ++n) tryFrom("127.0.0." + std::to_string(2 + n % 2), "");
    tryFrom("127.0.0.9", "");
    EXPECT_FALSE(tryFrom("127.0.0.9", "")) << "the user's wait";
    EXPECT_TRUE(tryFrom("127.0.0.9", strDevice.substr(0, strDevice.find(';'))));
}

TEST_F(UsersApiTest, AChangedPasswordEndsTheOtherSessions)
{
    WebLogic logic("", "camera", "12345678");
    ASSERT_EQ(logIn(logic, "admin", "12345678"), 200U);
    const std::string strHere = given(m_stLast);
    ASSERT_EQ(logIn(logic, "admin", "12345678"), 200U);
    const std::string strThere = given(m_stLast);
    const auto change = [&](const char *pcOld, const char *pcNew) {
        return status(logic.handle(request("POST", "/password", strHere,
                                           std::string(R"({"old":")") + pcOld + R"(","new":")" + pcNew + "\"}")));
    };
    EXPECT_EQ(change("wrong", "abcdefgh"), 403U);
    EXPECT_EQ(change("12345678", "abc"), 400U);
    EXPECT_EQ(status(logic.handle(request("GET", "/settings", strThere))), 0U);
    EXPECT_EQ(change("12345678", "abcdefgh"), 200U);
    EXPECT_EQ(status(logic.handle(request("GET", "/settings", strHere))), 0U);
    EXPECT_EQ(status(logic.handle(request("GET", "/settings", strThere))), 401U);
    EXPECT_EQ(logIn(logic, "admin", "12345678"), 401U);
    EXPECT_EQ(logIn(logic, "admin", "abcdefgh"), 200U);
}

TEST_F(UsersApiTest, AdminsManageUsers)
{
    haveUsers();
    WebLogic logic("", "camera", "ignored, there are users");
    const std::string &strAdmin = token(Role::ADMIN), &strViewer = token(Role::VIEWER);
    const auto ask = [&](const char *pcMethod, const char *pcPath, const std::string &strToken,
                         const char *pcBody = "") {
        return status(logic.handle(request(pcMethod, pcPath, strToken, pcBody)));
    };
    const auto put = [&](const char *pcBody) { return ask("POST", "/users", strAdmin, pcBody); };
    // clang-format off
    for (const auto &[pcBody, u32Status] : {
             std::pair(R"({"user":"bob","password":"12345678","role":"viewer"})", 200U),
             {R"({"user":"eve","password":"12345678","role":"king"})", 400U},
             {R"({"user":"eve","role":"viewer"})", 400U},
             {R"({"user":"../eve","password":"12345678","role":"viewer"})", 400U},
             {R"({"user":"eve","password":"12345678"})", 400U}, {R"({"user":"admin","role":"viewer"})", 409U}})
        // clang-format on
        EXPECT_EQ(put(pcBody), u32Status) << pcBody;
    EXPECT_EQ(reply(logic.handle(request("GET", "/users", strAdmin))).strBody,
              R"([{"user":"admin","role":"admin"},{"user":"viewer","role":"viewer"},)"
              R"({"user":"operator","role":"operator"},{"user":"bob","role":"viewer"}])");
    EXPECT_EQ(logIn(logic, "bob", "12345678"), 200U);
    const std::string strBob = given(m_stLast);

    EXPECT_EQ(put(R"({"user":"viewer","role":"operator"})"), 200U); // takes effect at once, for who is logged in too
    EXPECT_EQ(ask("POST", "/centre", strViewer, R"({"x":0,"y":0})"), 0U);
    EXPECT_EQ(put(R"({"user":"viewer","password":"another password"})"), 200U);
    EXPECT_EQ(ask("GET", "/settings", strViewer), 401U);
    for (const auto &[pcUser, u32Status] :
         {std::pair("/users/bob", 200U), {"/users/bob", 404U}, {"/users/admin", 409U}})
        EXPECT_EQ(ask("DELETE", pcUser, strAdmin), u32Status);
    EXPECT_EQ(ask("GET", "/settings", strBob), 401U);
}

TEST_F(UsersApiTest, WorkRunsWhileRequestsAreJudged)
{
    haveUsers();
    WebLogic logic("", "camera", "");
    std::vector<Work> works;
    for (int n = 0; n < 40; ++n) { // without passwords, which take long
        const std::string strUser = "u" + std::to_string(n % 4);
        for (const Request &stRequest :
             {request("POST", "/users", token(Role::ADMIN), R"({"user":"viewer","role":"viewer"})"),
              request("DELETE", "/users/" + strUser, token(Role::ADMIN)),
              request("DELETE", "/session", token(Role::VIEWER))})
            if (Outcome stOutcome = logic.handle(stRequest); std::holds_alternative<Work>(stOutcome))
                works.push_back(std::get<Work>(std::move(stOutcome)));
    }
    std::atomic<bool> bEnded = false;
    const util::Thread worker("web-worker", [&](std::stop_token) {
        for (const Work &stWork : works) stWork.fnRun();
        bEnded = true;
    });
    while (!bEnded) {
        logic.setCamera(true);
        EXPECT_EQ(status(logic.handle(request("GET", "/users", token(Role::ADMIN)))), 200U);
        logic.handle(request("GET", "/settings", token(Role::VIEWER)));
    }
    EXPECT_EQ(status(logic.handle(request("GET", "/settings", token(Role::VIEWER)))), 401U);
}

TEST_F(UsersApiTest, ADamagedListLetsNobodyIn)
{
    haveUsers();
    write(USERS_FILE, "{");
    WebLogic logic("", "camera", "12345678");
    EXPECT_EQ(logIn(logic, "admin", "12345678"), 503U);
    EXPECT_THAT(m_stLast.strBody, HasSubstr("damaged"));
    EXPECT_EQ(status(logic.handle(request("POST", "/setup", {}, account("eve", "12345678")))), 503U);
    EXPECT_EQ(status(logic.handle(request("GET", "/users", token(Role::ADMIN)))), 401U);
    EXPECT_EQ(read(USERS_FILE), "{");
    std::filesystem::remove(UTIL_ROOT_Path(USERS_FILE)); // as one does who has forgotten the password
    WebLogic fresh("", "camera", "");
    for (const BU_U32 u32Status : {200U, 409U}) { // the old session is worth nothing before and after
        EXPECT_EQ(status(fresh.handle(request("GET", "/users", token(Role::ADMIN)))), 401U);
        EXPECT_EQ(status(fresh.handle(request("POST", "/setup", {}, account("admin", "12345678")))), u32Status);
    }
}
} // namespace
