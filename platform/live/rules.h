/// The rules of whole live-media records. Each answers with what is wrong, or nothing.
#pragma once

#include "fields.h"

namespace live_media_store
{
Fault faultOfSession(const CFG_LM_RTSP_S &stCfg);
Fault faultOfServer(const CFG_LM_RTSP_GENERAL_S &stCfg);
Fault faultOfSrt(const CFG_LM_SRT_S &stCfg);
} // namespace live_media_store
