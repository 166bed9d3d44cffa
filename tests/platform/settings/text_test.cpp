#include "config/config.h"
#include "support/platformTest.h"

#include <cstring>

namespace
{
class SettingText : public PlatformTest
{
};

TEST_F(SettingText, WordsNumbersAndFreeTextsGoBothWays)
{
    struct {
        const char *pcKey, *pcDefault, *pcValue, *pcRefused;
    } const rows[] = {
        {"Format", "Format-1080P", "Format-720P", "Format-8K"},
        {"Mirror", "Off", "On", "on"},
        {"AntiFlicker", "Hz50", "Off", "Hz70"},    // "Off" is 2 here, not 0
        {"ColorTemp", "5600", "2800", "2799"},     // a number, with its range
        {"Contrast", "7", "14", "14x"},            //
        {"Ndi", "Off", "On", nullptr},             // free texts take anything
        {"DeviceName", nullptr, "Hall 2", nullptr} //
    };
    for (const auto &row : rows) {
        CFG_VALUE_TXT_S stValue{};
        ASSERT_EQ(CFG_COM_GetTxtParams(row.pcKey, &stValue), 0) << row.pcKey;
        if (row.pcDefault) {
            EXPECT_STREQ(stValue.acDef, row.pcDefault);
            EXPECT_STREQ(stValue.acCur, row.pcDefault);
        }
        EXPECT_EQ(CFG_COM_SetTxtParams(row.pcKey, row.pcValue, BU_TRUE), 0) << row.pcKey;
        if (row.pcRefused) {
            EXPECT_EQ(CFG_COM_SetTxtParams(row.pcKey, row.pcRefused, BU_TRUE), -1) << row.pcKey;
        }
        ASSERT_EQ(CFG_COM_GetTxtParams(row.pcKey, &stValue), 0);
        EXPECT_STREQ(stValue.acCur, row.pcValue);
    }
}

TEST_F(SettingText, TheSectionNamesThePipeline)
{
    char acText[64];
    EXPECT_EQ(CFG_COM_SetTxtParam("Image1", "Contrast", "3", BU_TRUE), 0);
    ASSERT_EQ(CFG_COM_GetTxtParam("Image1", "Contrast", acText), 0);
    EXPECT_STREQ(acText, "3");
    ASSERT_EQ(CFG_COM_GetTxtParam("Image0", "Contrast", acText), 0);
    EXPECT_STREQ(acText, "7");
    EXPECT_EQ(CFG_COM_GetTxtParam("Lens0", "Contrast", acText), -1);
    EXPECT_EQ(CFG_COM_SetTxtParam("System", "NoSuchKey", "1", BU_TRUE), -1);
    EXPECT_EQ(CFG_COM_SetTxtParam("System", "DeviceName", std::string(64, 'x').c_str(), BU_TRUE), -1);
}
} // namespace
