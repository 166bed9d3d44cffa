// The number under which the camera reports its position.
#include "protocol/freed.h"

#include "store/record.h"
#include "util/journal.h"

namespace
{
struct Identity {
    BU_S32 s32Id = 0;
};
constexpr store::Field<Identity> FIELDS[] = {store::number<&Identity::s32Id>("CammeraId", 0, 255)};
BU_S32 reload();
const store::Record<Identity> IDENTITY{"Freed/", FIELDS, SYSTEM_RESTORE_E_CONTROL, reload};

BU_S32 reload()
{
    *GetCammeraIdGst() = IDENTITY.load().s32Id;
    return 0;
}
} // namespace

BU_S32 *GetCammeraIdGst()
{
    static BU_S32 s32Id = IDENTITY.load().s32Id;
    return &s32Id;
}

BU_S32 SetCammeraId(BU_S32 s32Id, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Id, bSaveCfg)) return *injected;
    if (IDENTITY.check({s32Id}) != 0) return -1;
    *GetCammeraIdGst() = s32Id;
    return bSaveCfg ? IDENTITY.save({s32Id}) : 0;
}
