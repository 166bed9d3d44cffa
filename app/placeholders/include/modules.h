/// Modules that are not built yet, as the others see them; placeholders.cpp answers in their place. A module that is
/// built takes its functions from here into a header of its own.
#pragma once

#include "base/types.h"

// The starts, rows of the bring-up. Each returns 0.
#define ABSENT(step, condition, function, name) BU_S32 function();
#include "modules.def"

/// The service's client on the message bus: connects. @return 0
BU_S32 MSG_AppClientInit();

/// State of a firmware upgrade, as announced on the bus.
enum MSG_INFO_STATE_E : BU_S32 {
    MSG_UPGRADE_INFO_STATE_START = 0,
    MSG_UPGRADE_INFO_STATE_FAILED = 1,
    MSG_UPGRADE_INFO_STATE_FINSH = 2
};
/// The last upgrade state received. Thread: any.
MSG_INFO_STATE_E MSG_AppGetUpdateTallyState();

/// The tally that NDI receivers ask for: 1 when any source is in preview, on program. @return 0. Thread: any.
BU_S32 NDI_PTZ_GetTallyState(BU_U8 *pu8Preview, BU_U8 *pu8Program);

/// FreeD: starts or stops sending on the serial port in use, as its protocol says; after a change of either. @return 0
BU_S32 FREED_UpdateSerialActivePushMsg();
