/// A camera whose live media has just started, above doubles of the streaming libraries; settings go to the real store.
#pragma once

#include "doubles.h"
#include "live_media/liveMedia.h"
#include "live_media/liveMediaRecord.h"
#include "support/platformTest.h"

using Served = std::map<std::string, std::string>;

class LiveMediaTest : public PlatformTest
{
protected:
    LiveMediaTest()
    {
        forgetLibraries();
        *APP_LM_GetHandler() = {};
    }
    ~LiveMediaTest() override
    {
        libraries().fnOnRtspStart = nullptr;
        APP_LM_RTSP_RemoveExtraAuth(APP_LM_RTSP_EXTRA_AUTH_FROM_E_ONVIF);
        APP_LM_RTSP_RestartIfNeed();
        APP_LM_DeinitBusiness();
    }

    /// Starts with these settings stored, beside what a fresh camera has.
    void start(const std::vector<std::pair<std::string, std::string>> &listStored = {})
    {
        CFG_STORE_SetTexts(listStored);
        APP_LM_InitFromBusiness();
        journal::effects();
    }
    /// Starts with RTSP on for these channels only.
    void startRtspOn(const std::set<BU_S32> &channels)
    {
        std::vector<std::pair<std::string, std::string>> listStored;
        for (BU_S32 i = 1; i <= 4; ++i)
            listStored.emplace_back("LiveMedia/" + std::to_string(i) + "/rtsp/Enable",
                                    channels.contains(i) ? "1" : "0");
        start(listStored);
    }
    static CFG_LM_RTSP_S rtspOf(CFG_LM_CHN_E enChn)
    {
        CFG_LM_RTSP_S stCfg;
        APP_LM_RTSP_GetChnCfg(enChn, &stCfg);
        return stCfg;
    }
};
