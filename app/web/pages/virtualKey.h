/// The virtual remote writes key events into the input device of a remote, so that a key of the page goes the way of a
/// key of the hand.
#pragma once

#include "web/panelPayload.h"

/// Its devices are opened once, when the service starts; one that is not there then refuses every key until the next
/// start. @return 0
BU_S32 WEB_CMD_VirInit();
BU_S32 WEB_CMD_VirDestroy();
/// Sends key s32Value0 (a key code of the remote) of device s32Id with value s32Value1: 1 pressed, 2 still held, 0
/// released. Never waits: a key that the device cannot take is lost. @return 0
BU_S32 WEB_CMD_VirEmit(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S *req, tag_WEB_RPC_PANEL_RES_PAYLOAD_S *res);
/// Opens the input device of that name, to read and write. @return its descriptor, or -1: none, or one of the devices
/// that come before it cannot be opened
BU_S32 bspOpenInputDeivceByName(const BU_CHAR *pcName);
