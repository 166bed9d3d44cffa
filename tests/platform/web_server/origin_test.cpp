#include "origin.h"

#include <gmock/gmock.h>

namespace
{
using namespace web;
using testing::ElementsAre;

TEST(ContentType, IsJsonInUtf8)
{
    for (const char *pcType : {"application/json", "Application/JSON; charset=UTF-8",
                               "application/json;charset=\"utf-8\"", "application/json; profile=x"})
        EXPECT_TRUE(isJsonType(pcType)) << pcType;
    for (const char *pcType : {"", "text/plain", "application/x-www-form-urlencoded", "application/jsonx",
                               "text/plain; application/json", "application/json; charset=utf-16"})
        EXPECT_FALSE(isJsonType(pcType)) << pcType;
}

TEST(Cookies, SurviveGarbageAndForgery)
{
    EXPECT_THAT(cookies("a=1; s=one; sx=2; xs=3;s = two", "s"), ElementsAre("one", "two"));
    EXPECT_THAT(cookies("s=1;s=2;s=3;s=4;s=5", "s").size(), 4U);
    EXPECT_THAT(cookies(";;=;s;=s; =s=1;s=", "s"), ElementsAre(""));
    EXPECT_THAT(cookies("s=a=b", "s"), ElementsAre("a=b"));
    EXPECT_TRUE(cookies("", "s").empty());
    EXPECT_TRUE(cookies(std::string(100000, ';') + "\xFF\x01", "s").empty());
}

TEST(PagePath, StaysInsideTheFolder)
{
    EXPECT_EQ(pagePath("/"), "index.html");
    EXPECT_EQ(pagePath("/js/pan-tilt_2.mjs"), "js/pan-tilt_2.mjs");
    for (const char *pcPath :
         {"", "app.js", "//etc/passwd", "/../users.json", "/js/../../x", "/js/..", "/.git/config", "/js/.hidden",
          "/js/", "/js//x", "/%2e%2e/x", "/..%2fx", "/a\\..\\x", "/a b", "/a\nb", "/a?b", "/~root", "/\xC3\xBC"})
        EXPECT_FALSE(pagePath(pcPath)) << pcPath;
    EXPECT_FALSE(pagePath("/" + std::string(300, 'a')));
    EXPECT_FALSE(pagePath(std::string("/a\0b", 4)));
}
} // namespace
