/// The service's client on the message bus.
#pragma once

#include "base/types.h"

/// State of a firmware upgrade, as announced on the bus.
enum MSG_INFO_STATE_E : BU_S32 {
    MSG_UPGRADE_INFO_STATE_START = 0,
    MSG_UPGRADE_INFO_STATE_FAILED = 1,
    MSG_UPGRADE_INFO_STATE_FINSH = 2
};

/// Connects to the bus. @return 0
BU_S32 MSG_AppClientInit();

/// The last upgrade state received. Thread: any.
MSG_INFO_STATE_E MSG_AppGetUpdateTallyState();
