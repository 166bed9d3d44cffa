/// Handlers of the panels of the web page: pan/tilt, lens, image and colour matrix, and the virtual remote.
///
/// A handler gets the request and a response whose fields are all zero. What a camera call returns is not looked at,
/// but where the response has a place for it. Thread: those of the web calls, several at once.
#pragma once

#include "base/types.h"

struct tag_WEB_RPC_PANEL_REQ_PAYLOAD_S;
struct tag_WEB_RPC_PANEL_RES_PAYLOAD_S;
struct tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S;

/// Pan/tilt items: speeds, power-up position, mount, digital zoom; moves, presets and the zoom drive.
void webRpcGetPtHandler(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S *req, tag_WEB_RPC_PANEL_RES_PAYLOAD_S *res);
void webRpcSetPtHandler(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S *req, tag_WEB_RPC_PANEL_RES_PAYLOAD_S *res);

/// Lens items: focus settings, the focus drive.
void webRpcGetAfHandler(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S *req, tag_WEB_RPC_PANEL_RES_PAYLOAD_S *res);
void webRpcSetAfHandler(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S *req, tag_WEB_RPC_PANEL_RES_PAYLOAD_S *res);

/// Image items of a pipe. A get also says whether the present exposure and white-balance modes let the item be
/// operated; a set says which other items are to be read again.
void webRpcGetIspHandler(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S *req, tag_WEB_RPC_PANEL_RES_PAYLOAD_S *res);
void webRpcSetIspHandler(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S *req, tag_WEB_RPC_PANEL_RES_PAYLOAD_S *res);

/// Hue and saturation of the six colours of a pipe. A get answers all of them; a set takes all, or the one that its
/// type names (1 red ... 6 magenta; any other type is refused with bOk 0).
void webRpcGetColorMatrixHue(tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S *req,
                             tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S *res);
void webRpcSetColorMatrixHue(tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S *req,
                             tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S *res);
void webRpcGetColorMatrixSaturation(tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S *req,
                                    tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S *res);
void webRpcSetColorMatrixSaturation(tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S *req,
                                    tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S *res);

/// The virtual remote writes key events into the input device of a remote, so that a key of the page goes the way of a
/// key of the hand. Its devices are opened once, when the service starts; one that is not there then refuses every key
/// until the next start. @return 0
BU_S32 WEB_CMD_VirInit();
BU_S32 WEB_CMD_VirDestroy();
/// Sends key s32Value0 (a key code of the remote) of device s32Id with value s32Value1: 1 pressed, 2 still held, 0
/// released. Never waits: a key that the device cannot take is lost. @return 0
BU_S32 WEB_CMD_VirEmit(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S *req, tag_WEB_RPC_PANEL_RES_PAYLOAD_S *res);
/// Opens the input device of that name, to read and write. @return its descriptor, or -1: none, or one of the devices
/// that come before it cannot be opened
BU_S32 bspOpenInputDeivceByName(const BU_CHAR *pcName);
