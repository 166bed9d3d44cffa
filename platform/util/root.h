#pragma once

#include "base/types.h"

/// Counts the changes of the device root, so that who keeps a path open notices. Thread: any.
BU_U32 utilRootGeneration();
