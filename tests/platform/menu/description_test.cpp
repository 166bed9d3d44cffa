// Faulty descriptions, each refused with the line at fault.
#include "description.h"
#include "menuTest.h"
#include "support/quoted.h"
#include "util/json.h"

#include <algorithm>
#include <cmath>

using namespace std::string_literals;
using testing::HasSubstr;

namespace
{
// Line 1 opens, the words are lines 2 to 6, the pages begin in line 7.
const std::string DESCRIPTION = R"({"timeoutSeconds": 60, "words": {
"Switch": {"table": "SWITCH", "labels": {
    "Off": "Off",
    "On": "On"}},
"Mode": {"values": {"A": 0, "B": 1}, "labels": {"A": "a", "B": "b"}}},

"pages": [
{"name": "Main", "label": "Menu", "items": [
    {"page": "Image", "label": "Image"},
    {"option": "Flip", "label": "Flip", "words": "Switch"},
    {"action": "Restart", "label": "Restart", "confirm": "Restart?"}]},
{"name": "Image", "label": "Image", "items": [
    {"int": "Brightness", "label": "Brightness", "zone": "IMAGE", "max": 10},
    {"option": "IpMode", "label": "Mode", "words": "Mode", "zone": "NETWORK"},
    {"int": "ViscaAddr", "label": "Address", "min": 1, "max": 7, "when": {"IpMode": ["B"]}},
    {"info": "SerialNumber", "label": "Serial"}]}
]})";

using MenuDescription = MenuTest;

TEST_F(MenuDescription, FaultsAreToldWithTheirLine)
{
    const std::string strLong(32, 'x');
    // clang-format off
    const struct { std::string strBefore, strAfter; int s32Line; std::string strReason; } rows[] = { // ' for "
        {"60, ", "60 ", 1, "syntax error"}, {"\n]}", "\n]", 17, "syntax error"}, {"\n]}", "\n]}}", 17, "syntax error"},
        {"60,", "0,", 1, "timeoutSeconds: must be a whole number from 1 to 3600"}, {"60,", "60.5,", 1, "whole number"},
        {"60,", "99999999999,", 1, "whole number"}, {"60,", "null,", 1, "whole number"},
        {"'pages'", "'page'", 7, "has no meaning here"}, {"'SWITCH'", "'SWITCHES'", 2, "no vocabulary table"},
        {" 'On': 'On'", " 'on': 'On'", 4, "does not hold the word 'on'"}, {"'B': 1}", "'C': 1}", 5, "B: is missing"},
        {"'A': 'a'", "'A': ['a']", 5, "English and Chinese"},
        {"{'page': 'Image',", "{'page': 'Images',", 9, "no page 'Images'"},
        {"{'page': 'Image',", "{'page': 'Main',", 8, "cannot be opened"},
        {"{'page': 'Image', 'label': 'Image'},", "", 12, "no item opens this page"},
        {"{'option': 'Flip'", "{'option': 'Flop'", 10, "'Flop' is no setting"},
        {"'words': 'Switch'}", "'words': 'Swich'}", 10, "no list of words"},
        {"'words': 'Switch'}", "'setting': 'Nr9d', 'words': 'Switch'}", 10, "'Nr9d' is no setting"},
        {"'words': 'Switch'}", "'words': 'Switch', 'int': 'Gain'}", 10, "of one kind"},
        {"'words': 'Switch'}", "'words': 'Switch', 'unit': 3}", 10, "must be a text"},
        {"'words': 'Switch'}", "'words': 'Switch', 'manual': 1}", 10, "true or false"},
        {"'words': 'Switch'}", "'words': 'Switch', 'words': 'Switch'}", 10, "pages/0/items/1/words: is there twice"},
        {"'Restart?'", "'" + strLong + "'", 11, "1 to 31 bytes"}, {"'Restart?'", "''", 11, "1 to 31 bytes"},
        {"{'action': 'Restart'", "{'do': 'Restart'", 11, "'do' has no meaning here"},
        {"'name': 'Image'", "'name': 'Main'", 12, "there twice"}, {"'max': 10", "'min': -1", 13, "-1...14 goes beyond"},
        {"'int': 'Brightness'", "'int': 'Brightnes'", 13, "'Brightnes' is no setting"},
        {"'max': 10", "'max': 15", 13, "0...15 goes beyond that of the setting, 0...14"},
        {"'max': 10", "'max': 0", 13, "0...0 is empty"}, {"'max': 10", "'step': 15", 13, "no such step"},
        {"'max': 10", "'step': 0", 13, "no such step"}, {"'IMAGE'", "'PICTURE'", 13, "no such data zone"},
        {"'Mode', 'zone'", "'Mode', 'setting': 'Fps', 'zones'", 14, "has no meaning here"},
        {"'max': 7, ", "", 15, "needs min and max"}, {"'max': 7, ", "'max': 7, 'unit': 5\n,", 15, "must be a text"},
        {"'max': 7, ", "'max': 7, 'unit': '9 letters', ", 15, "1 to 8 bytes"},
        {"'when': {'IpMode'", "'when': {'ipMode'", 15, "no option item"},
        {"['B']", "['C']", 15, "does not know the word 'C'"},
        {"'SerialNumber'", "'Weather'", 16, "nothing tells 'Weather'"},
        {"'Serial'", "'Serial', 'icon': 1", 16, "'icon' has no meaning here"},
    };
    // clang-format on
    EXPECT_EQ(menu::readDescription(DESCRIPTION).listPages.size(), 2U);
    for (const auto &row : rows) {
        std::string strFaulty = DESCRIPTION;
        const auto at = strFaulty.find(quoted(row.strBefore));
        ASSERT_NE(at, std::string::npos) << row.strBefore;
        strFaulty.replace(at, row.strBefore.size(), quoted(row.strAfter));
        try {
            ADD_FAILURE() << menu::readDescription(strFaulty).listPages.size() << " pages taken: " << row.strAfter;
        } catch (const util::JsonFault &fault) {
            EXPECT_THAT(fault.what(), HasSubstr(quoted(row.strReason))) << row.strAfter;
            EXPECT_EQ(fault.s32Line, row.s32Line) << row.strAfter << ": " << fault.what();
        }
    }
}

TEST_F(MenuDescription, TextOfAnyKindIsRefusedWithoutHarm)
{
    const std::string strShipped = menu_test::shippedDescription();
    for (const std::string &strText : {""s, "\xff\xfe"s, "[]"s, "{}"s, std::string(100000, '['), "{\"words\":{}}"s})
        EXPECT_THROW(menu::readDescription(strText), util::JsonFault) << strText.substr(0, 20);
    for (std::size_t size = 0; size < strShipped.rfind('}'); size += 97)
        EXPECT_THROW(menu::readDescription(std::string_view(strShipped).substr(0, size)), util::JsonFault) << size;
}

TEST_F(MenuDescription, AFaultyOneKeepsTheMenuFromStarting)
{
    const OSD_MENU_CFG_S stCfg{{0, 0, 0.2F, 0.3F}, OSD_FORMAT_E_ARGB4444, BU_TRUE, BU_FALSE};
    const auto start = [](const OSD_MENU_CFG_S *pst) {
        return OSD_MENU_InitSdkRes(pst, menu_test::setParam, menu_test::dataZone, nullptr);
    };
    std::filesystem::create_directories(root() + "/app/menu");
    std::ofstream(root() + "/app/menu/menu.json") << DESCRIPTION;
    EXPECT_EQ(start(&stCfg), 0);
    std::ofstream(root() + "/app/menu/menu.json") << DESCRIPTION.substr(1);
    EXPECT_EQ(start(&stCfg), -1);
    std::filesystem::remove(root() + "/app/menu/menu.json");
    EXPECT_EQ(start(&stCfg), 0) << "the program's own";
    EXPECT_EQ(start(nullptr), -1);
    EXPECT_EQ(OSD_MENU_InitSdkRes(&stCfg, nullptr, menu_test::dataZone, nullptr), -1);
    for (const OSD_MENU_RECT_S &stRect :
         {OSD_MENU_RECT_S{0, 0, 0, 0.3F}, {-0.1F, 0, 0.2F, 0.3F}, {0.9F, 0, 0.2F, 0.3F}, {0, 0, 0.2F, NAN}}) {
        OSD_MENU_CFG_S stOutside = stCfg;
        stOutside.stRect = stRect;
        EXPECT_EQ(start(&stOutside), -1);
    }
}
} // namespace
