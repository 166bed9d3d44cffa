/// The browser preview: one WebSocket service that sends channels of encoded packets. Thread: any.
#pragma once

#include "base/types.h"

/// @return 1 = running, 0
BU_S32 WEBSOCKET_isServiceRunning();

/// @return 1 from the first WEBSOCKET_InitService on, also after a stop; 0 before
BU_S32 WEBSOCKET_HasInitd();

/// Prepares the service. Again: nothing happens; registered channels stay. @return 0 or -1
BU_S32 WEBSOCKET_InitService();

/// Names a channel, the path a viewer asks for. Allowed before WEBSOCKET_InitService.
/// @param s32Id      a stream cache (2 close-up sub, 4 panorama sub), or 5: packets of WEBSOCKET_SendRecodPlayPack
/// @param pcChannel  "ch1", "ch2", "ch5"; registering a name again replaces its id
/// @return 0, or -1: null or empty name
BU_S32 WEBSOCKET_RegisterChannelMap(BU_S32 s32Id, const BU_CHAR *pcChannel);

/// @param s32Port  the PC platform adds its port offset. @return 0, also when running already; -1: the port is taken
BU_S32 WEBSOCKET_StartService(BU_S32 s32Port);

/// Disconnects the viewers and closes the port. @return 0, also when not running
BU_S32 WEBSOCKET_StopService();

/// Sends one packet of a recording that is played back to the channel's viewers; copied, never waits for a viewer.
/// @return 0, also without viewers; -1: unknown channel or null data
BU_S32 WEBSOCKET_SendRecodPlayPack(const BU_CHAR *pcChannel, const BU_U8 *pu8Data, BU_U32 u32Size);
