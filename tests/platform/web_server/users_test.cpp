#include "sessions.h"
#include "users/devices.h"
#include "users/password.h"
#include "users/throttle.h"
#include "users/users.h"
#include "webRoot.h"

#include <csignal>
#include <sys/resource.h>

namespace
{
using namespace web_server;
using namespace testing;
using namespace std::string_literals;

using UsersTest = WebRootTest;
using SessionsTest = WebRootTest;

TEST(Password, HashFitsItsPasswordAloneAndNobodyElses)
{
    const std::string strHash = hashPassword("correct horse");
    EXPECT_THAT(strHash, StartsWith("$argon2id$v=19$m=65536,t=2,p=1$"));
    EXPECT_TRUE(isPassword("correct horse", strHash));
    EXPECT_FALSE(isPassword("correct horsf", strHash));
    for (const char *pcNone : {"", "correct horse"}) EXPECT_FALSE(isPassword("correct horse", pcNone));
    const std::string strToken = makeToken();
    EXPECT_TRUE(isToken(strToken) && strToken != makeToken() && digest(strToken) != strToken);
    for (const char *pcBad : {"a", "", "=", "\xFF"}) // too long, too short, another alphabet
        EXPECT_FALSE(isToken(strToken.substr(*pcBad != 'a') + pcBad)) << pcBad;
}

TEST(Password, RulesOfPasswordsAndNames)
{
    for (const char *pcGood : {"12345678", "öäüßöäüß"}) EXPECT_EQ(passwordFault(pcGood, "admin"), "");
    for (const std::string &strBad :
         {"1234567"s, "öäüß"s, std::string(257, 'a'), "1234567\n"s, "operator1"s, std::string(8, '\xFF')})
        EXPECT_NE(passwordFault(strBad, "operator1"), "") << strBad;
    for (const char *pcName : {"a", "admin", "Ann.B-c_9", "0"}) EXPECT_TRUE(isUserName(pcName)) << pcName;
    for (const std::string &strName :
         {""s, std::string(33, 'a'), ".a"s, "-a"s, "a b"s, "a/b"s, "\xC3\xBC"s, "a\0b"s, "a\nb"s})
        EXPECT_FALSE(isUserName(strName)) << strName;
}

TEST_F(UsersTest, AreStoredForTheCameraAlone)
{
    {
        Users users;
        EXPECT_TRUE(users.isEmpty());
        EXPECT_EQ(users.makeFirst("ann", "$hash1"), Change::DONE);
        EXPECT_EQ(users.makeFirst("eve", "$hash2"), Change::NOT_FIRST);
        EXPECT_EQ(users.put("bob", "$hash3", Role::OPERATOR), Change::DONE);
        EXPECT_EQ(users.put("bob", "", Role::VIEWER), Change::DONE);
    }
    EXPECT_EQ(std::filesystem::status(UTIL_ROOT_Path(USERS_FILE)).permissions(), std::filesystem::perms(0600));
    Users users;
    EXPECT_FALSE(users.isEmpty());
    for (const auto &[pcName, enRole, pcHash] :
         {std::tuple("ann", Role::ADMIN, "$hash1"), {"bob", Role::VIEWER, "$hash3"}, {"eve", Role::ANYONE, ""}})
        EXPECT_EQ(std::pair(users.role(pcName), users.hash(pcName)), std::pair(enRole, std::string(pcHash)));
}

TEST_F(UsersTest, RefuseWhatWouldLockEverybodyOut)
{
    Users users;
    EXPECT_EQ(users.put("bob", "$hash", Role::VIEWER), Change::LAST_ADMIN); // nobody is there yet
    ASSERT_EQ(users.makeFirst("ann", "$hash"), Change::DONE);
    for (const auto &[pcName, enChange] : {std::pair("ann", Change::LAST_ADMIN), {"bob", Change::NO_USER}})
        EXPECT_EQ(users.remove(pcName), enChange);
    EXPECT_EQ(users.setPassword("bob", "$hash"), Change::NO_USER);
    // clang-format off
    for (const auto &[pcName, pcHash, enRole, enChange] : {
             std::tuple("ann", "", Role::OPERATOR, Change::LAST_ADMIN), {"bob", "", Role::VIEWER, Change::INCOMPLETE},
             {"bob", "$hash", Role::ANYONE, Change::INCOMPLETE}, {"bob", "$hash", Role::ADMIN, Change::DONE}})
        // clang-format on
        EXPECT_EQ(users.put(pcName, pcHash, enRole), enChange);
    EXPECT_EQ(users.remove("ann"), Change::DONE);
    for (int n = 0; n < 32; ++n)
        EXPECT_EQ(users.put("u" + std::to_string(n), "$hash", Role::VIEWER), n < 31 ? Change::DONE : Change::TOO_MANY);
}

TEST_F(UsersTest, ADamagedFileLetsNobodyInAndStaysAsItIs)
{
    const std::string strUser = R"({"name":"ann","role":"admin","hash":"$h"})", strList = R"({"version":1,"users":[)";
    // clang-format off
    for (const std::string &strText : {
             ""s, strList + strUser, R"({"version":2,"users":[)" + strUser + "]}", strList + "]}",
             strList + strUser + "," + strUser + "]}", strList + R"({"name":"ann","role":"king","hash":"$h"}]})",
             strList + R"({"name":"a b","role":"admin","hash":"$h"}]})", strList + R"("ann"]})",
             strList + R"({"name":"ann","role":"admin","hash":""}]})",
             strList + R"({"name":"ann","role":"admin"}]})"}) {
        // clang-format on
        write(USERS_FILE, strText);
        Users users;
        EXPECT_TRUE(users.isDamaged()) << strText;
        EXPECT_FALSE(users.isEmpty()); // so nobody can become the first
        EXPECT_EQ(users.hash("ann"), "");
        EXPECT_EQ(users.makeFirst("eve", "$hash"), Change::FAILED);
        EXPECT_EQ(users.put("eve", "$hash", Role::ADMIN), Change::FAILED);
        EXPECT_EQ(read(USERS_FILE), strText);
    }
}

TEST_F(UsersTest, WhatIsNotStoredHasNotHappened)
{
    Users users;
    std::filesystem::create_directories(UTIL_ROOT_Path("/var/web/users.json/in-the-way"));
    EXPECT_EQ(users.makeFirst("ann", "$hash"), Change::FAILED);
    EXPECT_TRUE(users.isEmpty());
}

TEST_F(SessionsTest, EndByIdlenessAgeAndTheirUser)
{
    constexpr BU_S64 START = 1'000'000, HOUR = 3600;
    Sessions sessions(START);
    const std::string strIdle = digest(sessions.open("ann", START)), strBusy = digest(sessions.open("ann", START)),
                      strBob = digest(sessions.open("bob", START));
    EXPECT_EQ(sessions.use(strBob, START + 12 * HOUR), "bob");
    for (BU_S64 hours = 12; hours <= 7 * 24; hours += 12)
        EXPECT_EQ(sessions.use(strBusy, START + hours * HOUR), "ann") << hours;
    for (const auto &[strKey, s64At] : {std::pair(strIdle, 12 * HOUR + 1), {strIdle, 0}, {strBusy, 7 * 24 * HOUR + 1}})
        EXPECT_FALSE(sessions.use(strKey, START + s64At)) << s64At; // and it does not come back
    EXPECT_EQ(sessions.use(strBob, START - HOUR), "bob");           // the clock was set back

    EXPECT_FALSE(sessions.use(strBob, START + 7 * 24 * HOUR - HOUR + 1)) << "its age counts from then on";

    const std::string strNew = digest(sessions.open("ann", START)), strOther = digest(sessions.open("bob", START));
    sessions.endUser("ann", strNew);
    EXPECT_TRUE(sessions.use(strNew, START));
    sessions.end(strNew);
    EXPECT_FALSE(sessions.use(strNew, START));
    EXPECT_TRUE(sessions.use(strOther, START));
}

TEST_F(SessionsTest, AUserHasSoManyAndTheOneUsedLeastGoes)
{
    Sessions sessions(0);
    const std::string strBob = digest(sessions.open("bob", 0)), strFirst = digest(sessions.open("ann", 1)),
                      strSecond = digest(sessions.open("ann", 2));
    sessions.use(strFirst, 3);
    for (std::size_t n = 2; n < Sessions::PER_USER_MAX; ++n) sessions.open("ann", 10);
    EXPECT_TRUE(sessions.use(strFirst, 11));
    sessions.open("ann", 12);
    for (const auto &[strKey, bOpen] : {std::pair(strSecond, false), {strFirst, true}, {strBob, true}})
        EXPECT_EQ(sessions.use(strKey, 12).has_value(), bOpen);
}

TEST_F(SessionsTest, OutliveTheProcessWithoutTheirTokens)
{
    std::string strToken, strEnded;
    {
        Sessions sessions(100);
        strToken = sessions.open("ann", 100);
        strEnded = sessions.open("ann", 100);
        sessions.end(digest(strEnded));
    }
    EXPECT_THAT(read(SESSIONS_FILE), Not(HasSubstr(strToken)));
    {
        Sessions sessions(100 + 3 * 24 * 3600); // the camera was off
        EXPECT_EQ(sessions.use(digest(strToken), 100 + 3 * 24 * 3600), "ann");
        EXPECT_FALSE(sessions.use(digest(strEnded), 100));
    }
    EXPECT_FALSE(Sessions(100 + 8 * 24 * 3600).use(digest(strToken), 100));
    for (const char *pcDamaged :
         {"", "{", "[1]", "{\"a\":1}", R"([{"key":"k","user":"u"}])", R"([{"key":1,"user":2,"opened":3}])"}) {
        write(SESSIONS_FILE, pcDamaged);
        Sessions fresh(100);
        EXPECT_FALSE(fresh.use("k", 100)) << pcDamaged;
        EXPECT_TRUE(fresh.use(digest(fresh.open("ann", 100)), 100));
    }
}

TEST_F(SessionsTest, WhoLoggedOutStaysOutThoughThatCannotBeStored)
{
    rlimit stBefore{};
    getrlimit(RLIMIT_FSIZE, &stBefore);
    Sessions sessions(100);
    const std::string strKey = digest(sessions.open("ann", 100));
    sessions.open("bob", 100);
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit stNothing{8, stBefore.rlim_max};
    setrlimit(RLIMIT_FSIZE, &stNothing);
    sessions.end(strKey);
    setrlimit(RLIMIT_FSIZE, &stBefore);
    EXPECT_FALSE(Sessions(100).use(strKey, 100));
}

TEST(Throttle, AttemptsGetSlowerByUserAndByAddress)
{
    Throttle throttle;
    for (int n = 0; n < 4; ++n) EXPECT_EQ(throttle.begin("192.0.2.1", "ann", 1000), 0);
    // clang-format off
    for (const auto &[pcRemote, pcUser, s64At, s64Wait] : {
             std::tuple("192.0.2.1", "ann", 1000, 1000), {"192.0.2.1", "ann", 1999, 1}, // waiting does not prolong it
             {"192.0.2.1", "bob", 1999, 1}, {"192.0.2.2", "bob", 1500, 0}, // the same address, another one
             {"192.0.2.2", "ann", 1500, 0}, {"192.0.2.2", "ann", 1500, 0}, {"192.0.2.2", "ann", 1500, 1000}, // the user
             {"192.0.2.1", "ann", 2500, 0}, {"192.0.2.1", "ann", 2500, 2000}})
        // clang-format on
        EXPECT_EQ(throttle.begin(pcRemote, pcUser, s64At), s64Wait) << pcRemote << pcUser << s64At;

    BU_S64 s64Now = 2500, s64Attempts = 0;
    for (BU_S64 s64Wait = 0; s64Now < 24 * 3'600'000; s64Now += s64Wait, ++s64Attempts)
        s64Wait = std::max<BU_S64>(throttle.begin("192.0.2.1", "ann", s64Now), 1);
    EXPECT_LT(s64Attempts, 1000); // in a day
    throttle.begin("192.0.2.9", "ann", s64Now);
    EXPECT_LE(throttle.begin("192.0.2.9", "ann", s64Now), 60'000);
    EXPECT_EQ(throttle.begin("192.0.2.1", "ann", s64Now + 3'700'000), 0);
}

TEST(Throttle, SuccessForgivesAndStrangersDoNotMakeItForget)
{
    Throttle throttle;
    for (int n = 0; n < 4; ++n) throttle.begin("192.0.2.1", "ann", 1000);
    throttle.succeeded("192.0.2.1", "ann");
    EXPECT_EQ(throttle.begin("192.0.2.1", "ann", 1000), 0);

    for (int n = 0; n < 4; ++n) throttle.begin("192.0.2.7", "cid", 1000);
    for (int n = 0; n < 10'000; ++n)
        throttle.begin("10.0." + std::to_string(n / 250) + "." + std::to_string(n % 250), "u" + std::to_string(n),
                       1000);
    EXPECT_GT(throttle.begin("192.0.2.7", "bob", 1000), 0);
    for (int n = 0; n < 2; ++n) throttle.begin("192.0.2.8", "cid", 1000);
    EXPECT_GT(throttle.begin("192.0.2.8", "cid", 1000), 0);
    EXPECT_EQ(throttle.begin("192.0.2.7", "cid", 400'000), 0);
    throttle.succeeded("192.0.2.7", "own account");
    EXPECT_GT(throttle.begin("192.0.2.7", "cid", 400'000, "device"), 0)
        << "it forgives the address, not the guessing at others";
}

TEST(Throttle, ManyAddressesDoNotLockTheOwnerOut)
{
    const auto stranger = [](int n) { return "10.0." + std::to_string(n / 200) + "." + std::to_string(n % 200); };
    Throttle throttle;
    for (BU_S64 s64Now = 1000; s64Now < 7'200'000; s64Now += 1000)
        throttle.begin(stranger(static_cast<int>(s64Now / 1000 % 200)), "ann", s64Now);
    EXPECT_EQ(throttle.begin("192.0.2.1", "ann", 7'200'000), 0) << "a browser that was never here";
    for (int n = 200; n < 600; ++n) throttle.begin(stranger(n), "ann", 7'200'000);
    EXPECT_GT(throttle.begin("192.0.2.2", "ann", 7'200'000), 0) << "new addresses are not for ever free";
    for (int n = 0; n < 4; ++n) EXPECT_EQ(throttle.begin("192.0.2." + std::to_string(3 + n), "ann", 7'200'000, "d"), 0);
    EXPECT_GT(throttle.begin("192.0.2.8", "ann", 7'200'000, "d"), 0) << "a stolen cookie does not guess for ever";
    EXPECT_EQ(throttle.begin("192.0.2.8", "ann", 7'200'000, "another"), 0);
}

TEST_F(UsersTest, ADeviceIsKnownToItsUserAlone)
{
    const std::string strSigned = Devices().issue("ann");
    EXPECT_EQ(std::filesystem::status(UTIL_ROOT_Path(Devices::KEY_FILE)).permissions(), std::filesystem::perms(0600));
    const Devices again;
    EXPECT_EQ(again.nameOf(strSigned, "ann"), strSigned.substr(0, 43));
    EXPECT_EQ(again.nameOf(strSigned, "bob"), "");
    for (const std::string &strForged : {strSigned.substr(0, 43), strSigned.substr(0, 86), strSigned + "A",
                                         strSigned.substr(0, 44) + makeToken(), makeToken() + strSigned.substr(43)})
        EXPECT_EQ(again.nameOf(strForged, "ann"), "") << strForged;
    write(Devices::KEY_FILE, "");
    EXPECT_EQ(Devices().nameOf(strSigned, "ann"), "") << "another key";
}

TEST(Throttle, AHostIsItsNetwork)
{
    // clang-format off
    for (const auto &[pcOne, pcOther, bSame] : {
             std::tuple("2001:db8::1", "2001:db8::ffff:1:2:3", true), {"2001:db8::1", "2001:db8:0:1::1", false},
             {"::ffff:192.0.2.1", "192.0.2.1", true}, {"fe80::1%eth0", "fe80::2", true},
             {"192.0.2.1", "192.0.2.2", false}})
        // clang-format on
        EXPECT_EQ(networkOf(pcOne) == networkOf(pcOther), bSame) << pcOne;
}
} // namespace
