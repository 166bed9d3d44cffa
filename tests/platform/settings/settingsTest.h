/// What settings hold: the running value, and the stored one.
#pragma once

#include "camera/settingEvent.h"
#include "config/config.h"
#include "support/platformTest.h"

inline BU_S32 settingOf(const BU_CHAR *pcKey, BU_S32 s32Pipe, BU_BOOL bReread)
{
    BU_S32 s32Value = INT32_MIN;
    CFG_SETTING_Get(pcKey, s32Pipe, &s32Value, bReread);
    return s32Value;
}
inline CFG_VALUE_INT_S rangeOf(const BU_CHAR *pcKey)
{
    CFG_VALUE_INT_S st{};
    EXPECT_EQ(CFG_COM_GetIntParams(pcKey, &st), 0) << pcKey;
    return st;
}
inline BU_S32 running(const BU_CHAR *pcKey, BU_S32 s32Pipe = 0) { return settingOf(pcKey, s32Pipe, BU_FALSE); }
inline BU_S32 stored(const BU_CHAR *pcKey, BU_S32 s32Pipe = 0) { return settingOf(pcKey, s32Pipe, BU_TRUE); }

/// What the listeners hear, as "key/pipe=value".
struct Heard {
    ~Heard() { CFG_SETTING_Unlisten(s32Id); }
    std::vector<std::string> texts;
    const BU_S32 s32Id = CFG_SETTING_Listen([this](const CFG_SETTING_EVENT_S &st) {
        texts.push_back(st.pcKey + ("/" + std::to_string(st.s32Pipe) + '=' + std::to_string(st.s32Value)));
    });
};
