// The factory restore: which bits stand for which request.
#include "camera/restore.h"
#include "store/restore.h"
#include "store/store.h"
#include "util/journal.h"
#include "util/log.h"

BU_S32 SYSTEM_API_FactoryRestoreConfiguration(BU_S32 s32Bitmap)
{
    constexpr BU_S32 SETTINGS_ONLY = SYSTEM_RESTORE_E_ALL & ~(SYSTEM_RESTORE_E_NETWORK | SYSTEM_RESTORE_E_PRESET);
    if (const auto injected = journal::call(__func__, s32Bitmap)) return *injected;
    const BU_S32 s32Bits = s32Bitmap == -1 ? SYSTEM_RESTORE_E_ALL : s32Bitmap == 0 ? SETTINGS_ONLY : s32Bitmap;
    if ((s32Bits & ~SYSTEM_RESTORE_E_ALL) != 0) return -1;
    LOG_INFO("factory restore, bits 0x%02x\n", s32Bits);
    const BU_S32 s32Erased = s32Bitmap == -1 ? CFG_STORE_Erase("") : 0; // what nobody keeps any more as well
    return store::restore(s32Bits) == 0 ? s32Erased : -1;
}
