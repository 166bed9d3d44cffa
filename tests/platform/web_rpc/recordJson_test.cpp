// Records as JSON.
#include "web_client/recordJson.h"

#include <gmock/gmock.h>

#include <cmath>

namespace
{
struct Point {
    BU_S32 x, y;
};
struct Screen {
    BU_U32 u32Width;
    BU_CHAR acText[8];
};
union Part {
    Point stPoint;
    Screen stScreen;
    BU_U8 u8Raw;
};
/// A record with everything that a list can name.
struct All {
    BU_S32 s32;
    BU_U32 u32;
    BU_U64 u64;
    BU_S64 s64;
    BU_U16 u16;
    BU_S8 s8;
    bool bSmall;
    BU_BOOL bLarge;
    float fReal;
    BU_CHAR acName[8];
    BU_S32 as32[3];
    Point astPoint[2];
    BU_S32 enPart;
    Part data;
};
} // namespace

WEB_FIELDS(Point, WEB_FIELD(x, 0), WEB_FIELD(y, 4));
WEB_FIELDS(Screen, WEB_FIELD(u32Width, 0), WEB_FIELD(acText, 4));
WEB_MEMBERS(Part, enPart, WEB_MEMBER(1, stPoint), WEB_MEMBER(2, stScreen), WEB_MEMBER(-3, u8Raw));
WEB_FIELDS(All, WEB_FIELD(s32, 0), WEB_FIELD(u32, 0), WEB_FIELD(u64, 0), WEB_FIELD(s64, 0), WEB_FIELD(u16, 0),
           WEB_FIELD(s8, 0), WEB_FIELD(bSmall, 0), WEB_SWITCH(bLarge, 0), WEB_FIELD(fReal, 0), WEB_FIELD(acName, 0),
           WEB_FIELD(as32, 0), WEB_FIELD(astPoint, 0), WEB_FIELD(enPart, 0), WEB_FIELD(data, 0));

namespace
{
using namespace web_client;
using namespace std::string_literals;
using testing::HasSubstr;

std::string readAll(std::string_view json, All &stAll)
{
    stAll = {};
    return readRecord(web_layout::RECORD<All>, json, reinterpret_cast<BU_CHAR *>(&stAll));
}

std::string writeAll(const All &stAll)
{
    return writeRecord(web_layout::RECORD<All>, reinterpret_cast<const BU_CHAR *>(&stAll));
}

TEST(Json, WritesWhatItReads)
{
    const std::string strJson =
        R"({"s32":-2147483648,"u32":4294967295,"u64":18446744073709551615,"s64":-9223372036854775808,"u16":65535,)"
        R"("s8":-128,"bSmall":true,"bLarge":true,"fReal":0.1,"acName":"Käm \"","as32":[1,-2,3],)"
        R"("astPoint":[{"x":1,"y":2},{"x":3,"y":4}],"enPart":2,"data":{"stScreen":{"u32Width":7,"acText":"a"}}})";
    All stAll;
    ASSERT_EQ(readAll(strJson, stAll), "");
    EXPECT_EQ(std::tuple(stAll.u64, stAll.fReal, stAll.acName, stAll.astPoint[1].y, stAll.data.stScreen.acText),
              std::tuple(UINT64_MAX, 0.1F, "Käm \""s, 4, "a"s));
    EXPECT_EQ(writeAll(stAll), strJson);
}

// clang-format off
TEST(Json, TakesWhatMeansTheSame)
{
    constexpr std::pair<const char *, const char *> ROWS[] = { // a part of the answer
        {"{}", R"({"s32":0,"u32":0,)"},
        {" {\n\"s32\" : 1e3 } ", R"("s32":1000)"},
        {R"({"u64":5.0})", R"("u64":5,)"}, {R"({"fReal":3})", R"("fReal":3.0)"},
        {R"({"bSmall":1,"bLarge":0})", R"("bSmall":true,"bLarge":false)"},
        {R"({"as32":[5]})", R"("as32":[5,0,0])"}, {R"({"as32":[]})", R"("as32":[0,0,0])"},
        {R"({"astPoint":[{},{"y":9}]})", R"("astPoint":[{"x":0,"y":0},{"x":0,"y":9}])"},
        {R"({"data":{"stPoint":{"x":5}},"enPart":1})", R"("enPart":1,"data":{"stPoint":{"x":5,"y":0}})"}, // any order
        {R"({"data":{"u8Raw":255},"enPart":-3})", R"("data":{"u8Raw":255})"},
        {R"({"data":{},"enPart":1})", R"("data":{"stPoint":{"x":0,"y":0}})"},
        {R"({"enPart":99})", R"("enPart":99,"data":{}})"},
        {R"({"acName":"1234567"})", R"("acName":"1234567")"}, {R"({"acName":"\u00fc"})", R"("acName":"ü")"},
    };
    for (const auto &[pcJson, pcPart] : ROWS) {
        All stAll;
        EXPECT_EQ(readAll(pcJson, stAll), "") << pcJson;
        EXPECT_THAT(writeAll(stAll), HasSubstr(pcPart)) << pcJson;
    }
}

TEST(Json, SaysWhatIsWrong)
{
    const std::pair<const char *, std::vector<std::string>> ROWS[] = {
        {"this is no JSON",
         {"", "{", "{} {}", R"({"s32":1,})", R"({"s32":NaN})", R"({"s32":1e999})", R"({"s32":01})",
          R"({"acName":"\ud800"})", "{\"acName\":\"\xFF\"}", "{\"acName\":\"\xC0\xAF\"}"}}, // a '/' in disguise
        {"must be an object", {"[]", "null", "7"}},
        {"nested too deeply", {R"({"data":)" + std::string(100'000, '[')}},
        {"s32 is there twice", {R"({"s32":1,"s32":1})"}}, {"other is no field", {R"({"other":1})"}},
        {"astPoint/0/x is there twice", {R"({"astPoint":[{"x":1,"x":1}]})"}},
        {"astPoint/0/z is no field", {R"({"astPoint":[{"z":1}]})"}},
        {"qqq... is no field", {R"({")" + std::string(5000, 'q') + R"(":1})"}},
        {"s32 must be a whole number, -2147483648 to 2147483647",
         {R"({"s32":"1"})", R"({"s32":null})", R"({"s32":true})", R"({"s32":1.5})", R"({"s32":2147483648})",
          R"({"s32":-2147483649})"}},
        {"u32 must be a whole number, 0 to 4294967295", {R"({"u32":-1})", R"({"u32":4294967296})"}},
        {"u64 must", {R"({"u64":-1})", R"({"u64":18446744073709551616})"}}, // parsed as a floating point number
        {"s64 must", {R"({"s64":9223372036854775808})"}}, {"u16 must", {R"({"u16":65536})"}},
        {"s8 must be a whole number, -128 to 127", {R"({"s8":128})"}},
        {"bSmall must be true or false", {R"({"bSmall":2})"}},
        {"bLarge must", {R"({"bLarge":"true"})", R"({"bLarge":1.0})"}},
        {"fReal must be a number", {R"({"fReal":1e39})", R"({"fReal":"1"})"}},
        {"acName must not be longer than 7 bytes", {R"({"acName":"12345678"})", R"({"acName":"1234üü"})"}}, // bytes
        {"acName must not contain NUL", {R"({"acName":"a\u0000"})"}}, {"acName must be a text", {R"({"acName":5})"}},
        {"as32 must be an array of at most 3", {R"({"as32":[1,2,3,4]})"}},
        {"as32 must be an array", {R"({"as32":1})"}}, {"as32/1 must be a whole number", {R"({"as32":[1,"2"]})"}},
        {"astPoint must be an array", {R"({"astPoint":{}})"}}, {"data must be an object", {R"({"data":1})"}},
        {"astPoint/0 must be an object", {R"({"astPoint":[1]})"}},
        {"data/stPoint cannot be held while enPart is 0", {R"({"data":{"stPoint":{}}})"}},
        {"data/stScreen cannot be held while enPart is 1", {R"({"enPart":1,"data":{"stScreen":{}}})"}},
        {"data must be an object with one member", {R"({"enPart":1,"data":{"stPoint":{},"stScreen":{}}})"}},
        {"acText must not be longer", {R"({"enPart":2,"data":{"stScreen":{"acText":"123456789"}}})"}},
    };
    for (const auto &[pcWhy, texts] : ROWS)
        for (const std::string &strJson : texts) {
            All stAll;
            const std::string strFault = readAll(strJson, stAll);
            EXPECT_THAT(strFault, HasSubstr(pcWhy)) << strJson.substr(0, 80);
            EXPECT_LT(strFault.size(), 200U);
        }
}
// clang-format on

TEST(Json, AnswersWithWhateverARecordHolds)
{
    All stAll{};
    std::memset(&stAll, 0xFF, sizeof stAll); // no terminator, no UTF-8, a REAL that is no number, a switch of -1
    stAll.bSmall = true;
    stAll.enPart = -3;
    const std::string strJson = writeAll(stAll);
    for (const char *pc :
         {R"("fReal":null)", "\"acName\":\"\xEF\xBF\xBD", R"("bLarge":true)", R"("data":{"u8Raw":255})"})
        EXPECT_THAT(strJson, HasSubstr(pc));
    EXPECT_EQ(quoted("a\"\x01\xFF"), "\"a\\\"\\u0001\xEF\xBF\xBD\"");
}
} // namespace
