// The version of NDI that this platform has.
#include "live/ndi.h"

#include "board/profile.h"
#include "util/journal.h"

#include <cstdio>

BU_S32 ndi_api::NDI_GetNDIVersion(BU_CHAR *pcText, BU_S32 s32Size)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!pcText || s32Size < 1) return -1;
    std::snprintf(pcText, static_cast<std::size_t>(s32Size), "%s",
                  BSP_PROFILE_GetText("versions/ndi", "NDI 5.6.1").c_str());
    return 0;
}
