#pragma once

#include "base/types.h"

/// Counts the changes of the device root, so that who keeps a path open notices. Thread: any.
BU_U32 utilRootGeneration();

/// Takes the device root for this process until it ends, however it ends; a restart takes it again. When another
/// process has it, says so and exits with status 75. A root that cannot be locked at all is used as it is.
void utilRootLock();
