/// VISCA: runs the messages that the protocol library decodes and answers them.
///
/// A command or inquiry is answered at once when its handler has finished (0 done, -1 refused). A handler that started
/// a motion with a target returns the motion service's positive result; the answer follows from the motion's end. A
/// power-off is answered after the next start.
#pragma once

#include "protocol/visca.h"

/// Registers the motion ends and starts the protocol library's receivers. Called once, when the serial ports are up.
/// @return 0
BU_S32 VISCA_InitProcess();

/// Stops the receivers. @return 0
BU_S32 VISCA_ExitProcess();

/// Answers, 5 s from now and on a thread of its own, the power-off command that put the camera to sleep. @return 0
BU_S32 viscaCtrlPowerReturnMsg();

/// A motion started by VISCA has ended.
/// @param priv    copy of the message's record; null: nothing to answer
/// @param result  BU_FALSE: answered with an error
/// @return the library's result; 0 while a preset recall still waits for its other end
/// Thread: the motion services' threads, also both at once.
BU_S32 VISCA_PTCtrlRet(void *priv, BU_BOOL result);

/// Runs a message and answers it unless its motion goes on. @return the handler's result, -1 for an unknown type
/// Thread: the receivers' threads.
BU_S32 viscaCtrlHandlerCallFunc(tagVISCA_CMD_INQ_TYPE_E type, tagVISCA_CTRL_INFO_S *info);

/// Writes the payload of an answer from req->acCmd[offset] on, then 0xFF, and sets req->u32CmdLen. Nothing is written
/// beyond acCmd: a payload that does not fit is cut. @return 0
BU_S32 viscaCompleteHandlerCallFunc(tagVISCA_CTRL_INFO_S *info, tagVISCA_MSG_REQ_S *req, tagVISCA_CMD_INQ_TYPE_E type,
                                    BU_U32 offset);

// Shutter speeds. The speeds on offer depend on the output frame rate; a rate that is none of the enumeration counts as
// 60 frames per second.

/// The steps of a frame rate, slowest first. The list is static and read only.
void getAvailableShutterValuesByFps(HDMI_FPS_E fps, SHUTTER_TIME_E **list, int *count);

/// The neighbour in that list; at its end, or for a speed that is not in it, the list's other end.
SHUTTER_TIME_E getNextShutterTime(HDMI_FPS_E fps, SHUTTER_TIME_E cur);
SHUTTER_TIME_E getPreviousShutterTime(HDMI_FPS_E fps, SHUTTER_TIME_E cur);

/// The speed at a VISCA shutter position, 5 or 6 (slowest) to 21. @return SHUTTER_TIME_BUTT for any other position
SHUTTER_TIME_E convertViscaValueToShutterTime(HDMI_FPS_E fps, BU_U8 value);

/// The VISCA shutter position of a speed; 5 or 6 for a speed that has none.
BU_S32 convertShutterTimeToViscaValue(HDMI_FPS_E fps, SHUTTER_TIME_E shutter);
