#include "protocol/freed.h"

#include "store/store.h"
#include "util/journal.h"

namespace
{
constexpr const BU_CHAR *KEY = "Freed/CammeraId";
constexpr BU_S32 ID_MAX = 255;

BU_S32 storedId()
{
    BU_S32 s32Id = 0;
    return CFG_STORE_GetInt(KEY, &s32Id) == 0 && s32Id >= 0 && s32Id <= ID_MAX ? s32Id : 0;
}
} // namespace

BU_S32 *GetCammeraIdGst()
{
    static BU_S32 s32Id = storedId();
    return &s32Id;
}

BU_S32 SetCammeraId(BU_S32 s32Id, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Id, bSaveCfg)) return *injected;
    if (s32Id < 0 || s32Id > ID_MAX) return -1;
    *GetCammeraIdGst() = s32Id;
    return bSaveCfg ? CFG_STORE_SetInt(KEY, s32Id) : 0;
}
