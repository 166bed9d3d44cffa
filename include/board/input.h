/// Input devices: remote receivers and keys, each watched by a thread of its own.
///
/// On the PC a device is a pseudo-terminal, /dev/input/<name> of the device root, that takes the kernel's event records
/// as they are; where the machine has an input device of that name (in CAMERA_INPUT, default /dev/input), its events
/// come as well. Either may go and come back.
///
/// In stand-by a press of POWER on a remote named "NecBr" or "NecYm" with the camera's address ends it, and no callback
/// gets that press.
///
/// A move never outlives a lost release: a direction, zoom or focus key of a remote counts as released 15 s after its
/// device was last heard with it, and every key at once when its device goes.
#pragma once

#include "base/types.h"

struct input_event; // the kernel's record, of <linux/input.h>

/// Gets one event, as the device gave it. Thread: the monitor of the device.
typedef void (*BSP_INPUT_EventCallBack)(const input_event *pstEvent);

/// A device to watch. Stays where it is while the monitor runs.
struct BSP_INPUT_THREAD_S {
    BU_CHAR acDeviceName[64]; ///< kernel name of the device, a plain file name
    BU_S32 s32Pid;            ///< the monitor thread, 0: none; written by the two calls
    BU_BOOL bStart;           ///< a monitor runs; written by the two calls
    BSP_INPUT_EventCallBack pfEventCb;
};

/// Starts the monitor of a device; one that is not there yet is awaited.
/// @return 0, or -1: no name or callback, watched already, or the device file or the thread cannot be made
BU_S32 BSP_INPUT_StartMonitorEvent(BSP_INPUT_THREAD_S *pstInput);

/// Ends it and waits for a running callback. @return 0, or -1: not watched, or called by a callback of this device
BU_S32 BSP_INPUT_StopMonitorEvent(BSP_INPUT_THREAD_S *pstInput);

/// A call of our own. The name of an open input device: that of the kernel; of a watched pseudo-terminal, the device
/// it stands for.
/// @param s32Size  of the buffer; a longer name is cut. @return 0, or -1: no input device; the buffer is untouched
/// Thread: any.
BU_S32 BSP_INPUT_GetDeviceName(BU_S32 s32Fd, BU_CHAR *pcName, BU_S32 s32Size);
