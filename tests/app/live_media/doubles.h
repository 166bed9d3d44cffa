/// Doubles of what the live-media manager drives: each writes its call into the journal and keeps what a peer would
/// see.
#pragma once

#include "media/stream.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

struct tagLIBRARIES_S {
    std::string strModel = "TKV-MX";

    std::set<BU_S32> caches = {1, 2, 3, 4, 6};                  ///< stream caches that exist
    std::map<BU_S32, std::function<BU_S32()>> metadataHandlers; ///< by cache

    std::map<std::string, std::string> served; ///< what RTSP clients reach: session, its streams ("video:1 audio:6")
    std::function<void()> fnOnRtspStart;       ///< runs inside RTSP_ServiceStart

    BU_S32 s32PreviewInit = 0, s32PreviewRunning = 0;
};
/// Fresh for every test.
tagLIBRARIES_S &libraries();
void forgetLibraries();
