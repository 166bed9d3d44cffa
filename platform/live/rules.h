/// The rules of whole live-media records. Each answers with what is wrong, or nothing.
#pragma once

#include "config/liveMedia.h"
#include "store/record.h"

namespace live
{
using store::Fault;

Fault faultOfSession(const CFG_LM_RTSP_S &stCfg);
Fault faultOfServer(const CFG_LM_RTSP_GENERAL_S &stCfg);
Fault faultOfSrt(const CFG_LM_SRT_S &stCfg);
} // namespace live
