/// NDI senders. Thread: any.
#pragma once

#include "base/types.h"

namespace ndi_api
{
/// Version of the NDI library; the last word is its number ("5.6.1"). A longer text is cut. @return 0, or -1: null
BU_S32 NDI_GetNDIVersion(BU_CHAR *pcText, BU_S32 s32Size = 64);
} // namespace ndi_api
