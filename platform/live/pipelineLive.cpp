// The outputs that the pipeline would run by itself: this platform has none beside the service's own.
#include "live/pipelineLive.h"

#include "util/journal.h"
#include "util/log.h"

BU_S32 MPP_LM_LoadAllLiveMediaService()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    LOG_WARN("platform mode: the pipeline of this platform has no outputs of its own, nothing is streamed\n");
    return 0;
}

BU_S32 MPP_LM_StopAllLiveMediaService()
{
    if (const auto injected = journal::call(__func__)) return *injected;
    LOG_INFO("platform mode: nothing runs that could be stopped\n");
    return 0;
}
