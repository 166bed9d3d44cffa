// The browser preview: which pictures it offers, and when its service runs.
#include "live/websocket.h"
#include "live_media/liveMedia.h"

namespace
{
constexpr BU_S32 PREVIEW_PORT = 12345;
constexpr BU_S32 CLOSEUP_SUB = 2, PANORAMA_SUB = 4; // stream caches
} // namespace

BU_S32 APP_LM_WS_Init()
{
    if (WEBSOCKET_isServiceRunning() == 1) return 0;
    if (WEBSOCKET_HasInitd() == 0) {
        WEBSOCKET_InitService();
        WEBSOCKET_RegisterChannelMap(CLOSEUP_SUB, "ch1");
        WEBSOCKET_RegisterChannelMap(PANORAMA_SUB, "ch2");
    }
    return WEBSOCKET_StartService(PREVIEW_PORT);
}

BU_S32 APP_LM_WS_DeInit() { return WEBSOCKET_isServiceRunning() == 1 ? WEBSOCKET_StopService() : 0; }
