/// Recording and playback.
#pragma once

#include "base/types.h"

/// Creates the record manager and resumes an interrupted recording. @return 0
BU_S32 MEDIA_RECORD_Init();
