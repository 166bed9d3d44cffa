/// Debug switches and consoles: files below /var/debug/app/ of the device root. What is written to one reaches its
/// reader: `echo 1 > $CAMERA_ROOT/var/debug/app/platform/journal`.
#pragma once

#include "base/types.h"

#include <functional>
#include <istream>
#include <memory>

typedef std::function<BU_S32(std::istream &stIn, void *pvParam)> FN_DEBUG_READER;

/// Registers a reader; the file is made if it is not there. Registering a path again replaces its reader.
/// @param pcPath  "/var/debug/app/..."
/// @return 0, or -1: outside that folder, or the file cannot be made
/// Thread: any. The reader runs on the debug thread, which all readers share, once per closed write or file moved into
/// place; of writes in quick succession it may see the newest content more than once. Content beyond 64 KiB is cut.
BU_S32 UTIL_DebugRegister(const BU_CHAR *pcPath, FN_DEBUG_READER fnReader, void *pvParam);

/// An integer that a write to the file changes; 0 until then; content that is no number changes nothing. Registering
/// again gives a new integer. Never null.
std::shared_ptr<BU_S32> UTIL_DebugRegisterOneInt(const BU_CHAR *pcPath);
