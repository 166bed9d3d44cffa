/// Base of the tests of the VISCA module: the service's handlers above the platform, without the protocol library's
/// receivers. What would be sent is read from the journal.
#pragma once

#include "board/profile.h"
#include "camera/motion.h"
#include "camera/settingEvent.h"
#include "support/platformTest.h"
#include "visca/visca.h"

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include <atomic>
extern std::atomic<BU_S32> gs_s32PresetFlag;
typedef tagVISCA_CTRL_INFO_S INFO;

class ViscaTest : public PlatformTest
{
protected:
    ViscaTest()
    {
        setenv("CAMERA_TRACE", "1", 1); // traces are part of what is tested
        BSP_PROFILE_Load("TKV-MX");
        CFG_SETTING_Reload();
        BSP_PTProcInit(0, nullptr);
        ZF_API_StartService();
        journal::effects();
        journal::inject("VISCA_CtrlMsgReturn", 0, 1000000);
    }

    /// Dispatches a message that arrived with the fields of stInfo.
    static BU_S32 dispatch(tagVISCA_CMD_INQ_TYPE_E enType, INFO &stInfo)
    {
        stInfo.stMsgPri.enMsgType = enType;
        return viscaCtrlHandlerCallFunc(enType, &stInfo);
    }

    /// The payload of an answer in hexadecimal, "0A 0B", without its terminator.
    static std::string payload(tagVISCA_CMD_INQ_TYPE_E enType, INFO &stInfo)
    {
        constexpr BU_U32 HEAD = 2;
        tagVISCA_MSG_REQ_S stReq{};
        EXPECT_EQ(viscaCompleteHandlerCallFunc(&stInfo, &stReq, enType, HEAD), 0);
        if (stReq.u32CmdLen <= HEAD || stReq.u32CmdLen > sizeof(stReq.acCmd)) return "bad length";
        if (stReq.acCmd[stReq.u32CmdLen - 1] != 0xFF) return "no terminator";
        std::string strHex;
        char acByte[4];
        for (BU_U32 i = HEAD; i + 1 < stReq.u32CmdLen; ++i) {
            std::snprintf(acByte, sizeof(acByte), " %02X", stReq.acCmd[i]);
            strHex += acByte;
        }
        return strHex.empty() ? "" : strHex.substr(1);
    }

    /// Dispatches an inquiry and gives its payload, or "refused" or "silent" as the controller would see it.
    static std::string answer(tagVISCA_CMD_INQ_TYPE_E enType, INFO &stInfo)
    {
        const BU_S32 s32Ret = dispatch(enType, stInfo);
        return s32Ret == 0 ? payload(enType, stInfo) : s32Ret == -1 ? "refused" : "silent";
    }
    static std::string answer(tagVISCA_CMD_INQ_TYPE_E enType)
    {
        INFO stInfo{};
        return answer(enType, stInfo);
    }
};

/// Flags of the setters: not stored, told to listeners.
constexpr BU_BOOL RAM = BU_FALSE, NOW = BU_TRUE;

/// Settings of the camera, an inquiry, and the payload worked out by hand.
struct tagINQUIRY_CASE_S {
    tagVISCA_CMD_INQ_TYPE_E enType;
    std::vector<std::pair<std::string, BU_S32>> settings; ///< by their keys; "!key" is stored as well
    const char *pcPayload;
    std::function<void(INFO &)> fill{}; ///< of the record
};

class ViscaInquiry : public ViscaTest
{
protected:
    static void check(const std::vector<tagINQUIRY_CASE_S> &listCases)
    {
        for (const auto &[enType, settings, pcPayload, fill] : listCases) {
            std::string strCase = "type " + std::to_string(enType);
            INFO stInfo{};
            for (const auto &[strKey, s32Value] : settings) {
                const bool bStored = strKey[0] == '!';
                EXPECT_EQ(CFG_SETTING_Set(strKey.c_str() + bStored, 0, s32Value, bStored, NOW), 0) << strKey;
                strCase += ", " + strKey + ' ' + std::to_string(s32Value);
            }
            if (fill) fill(stInfo);
            EXPECT_EQ(answer(enType, stInfo), pcPayload) << strCase;
        }
    }
};
