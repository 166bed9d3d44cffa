/// Doubles of the libraries that the live-media manager drives: each writes its call into the journal and keeps what a
/// peer would see. And a camera above them, whose settings go to the real store.
#pragma once

#include "board/profile.h"
#include "live_media/liveMedia.h"
#include "media/stream.h"
#include "record.h"
#include "support/platformTest.h"

#include <map>
#include <set>

using Texts = std::vector<std::pair<std::string, std::string>>;
using Served = std::map<std::string, std::string>;

struct Libraries {
    std::set<BU_S32> caches = {1, 2, 3, 4, 6};                  ///< stream caches that exist
    std::map<BU_S32, std::function<BU_S32()>> metadataHandlers; ///< by cache
    Served served;                                              ///< RTSP: session, its streams ("video:1 audio:6")
    std::function<void()> fnOnRtspStart;                        ///< runs inside RTSP_ServiceStart
    BU_S32 s32PreviewInit = 0, s32PreviewRunning = 0;
};
/// Fresh for every test.
Libraries &libraries();
void forgetLibraries();

class LiveMedia : public PlatformTest
{
protected:
    LiveMedia()
    {
        forgetLibraries();
        BSP_PROFILE_Load("TKV-MX");
        *APP_LM_GetHandler() = {};
    }
    ~LiveMedia() override
    {
        libraries().fnOnRtspStart = nullptr;
        APP_LM_RTSP_RemoveExtraAuth(APP_LM_RTSP_EXTRA_AUTH_FROM_E_ONVIF);
        APP_LM_RTSP_RestartIfNeed();
        APP_LM_DeinitBusiness();
        BSP_PROFILE_Load("TKV-MX");
    }
    /// Starts with these settings stored, keys below "LiveMedia/", beside what a fresh camera has.
    static void start(Texts listStored = {})
    {
        for (auto &[strKey, strValue] : listStored) strKey = "LiveMedia/" + strKey;
        CFG_STORE_SetTexts(listStored);
        APP_LM_InitFromBusiness();
        journal::effects();
    }
    /// Starts with RTSP on for these channels only.
    static void startRtspOn(const std::set<BU_S32> &channels, Texts listStored = {})
    {
        for (BU_S32 i = 1; i <= 4; ++i)
            listStored.emplace_back(std::to_string(i) + "/rtsp/Enable", channels.contains(i) ? "1" : "0");
        start(listStored);
    }
    static CFG_LM_RTSP_S rtspOf(CFG_LM_CHN_E enChn)
    {
        CFG_LM_RTSP_S stCfg;
        APP_LM_RTSP_GetChnCfg(enChn, &stCfg);
        return stCfg;
    }
};
constexpr auto CLOSEUP = CFG_LM_CHN_E_CLOSEUP_MAIN, PANORAMA = CFG_LM_CHN_E_PANORAMA_MAIN;
