// The public getters and setters of the rows, and access to the settings by their keys.
#include "board/lamp.h"
#include "camera/clock.h"
#include "camera/focus.h"
#include "camera/image.h"
#include "camera/motion.h"
#include "camera/picture.h"
#include "camera/preset.h"
#include "camera/serial.h"
#include "camera/settingEvent.h"
#include "camera/sound.h"
#include "camera/tracking.h"
#include "camera/video.h"
#include "camera/zoom.h"
#include "config/config.h"
#include "settings/settings.h"
#include "util/journal.h"
#include "util/listeners.h"

#include <algorithm>
#include <vector>

// One public function per row and direction. PIPE and DEVICE take the pipeline or device first.
#define GET_PIPE(family, name)                                                                                         \
    BU_S32 family##Get##name(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread)                                        \
    {                                                                                                                  \
        if (const auto injected = journal::ask(__func__, s32Dev)) return *injected;                                    \
        return settings::get(settings::family##name, s32Dev, ps32Value, bReread);                                      \
    }
#define SET_PIPE(family, name)                                                                                         \
    BU_S32 family##Set##name(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate)                        \
    {                                                                                                                  \
        if (const auto injected = journal::call(__func__, s32Dev, s32Value, bSaveCfg, bUpdate)) return *injected;      \
        return settings::set(settings::family##name, s32Dev, s32Value, bSaveCfg, bUpdate);                             \
    }
#define GET_CAMERA(family, name)                                                                                       \
    BU_S32 family##Get##name(BU_S32 *ps32Value, BU_BOOL bReread)                                                       \
    {                                                                                                                  \
        if (const auto injected = journal::ask(__func__)) return *injected;                                            \
        return settings::get(settings::family##name, 0, ps32Value, bReread);                                           \
    }
#define SET_CAMERA(family, name)                                                                                       \
    BU_S32 family##Set##name(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate)                                       \
    {                                                                                                                  \
        if (const auto injected = journal::call(__func__, s32Value, bSaveCfg, bUpdate)) return *injected;              \
        return settings::set(settings::family##name, 0, s32Value, bSaveCfg, bUpdate);                                  \
    }
#define GET_DEVICE(family, name) GET_PIPE(family, name)
#define SET_DEVICE(family, name) SET_PIPE(family, name)
#define MAKE_None(scope, family, name)
#define MAKE_Get(scope, family, name) GET_##scope(family, name)
#define MAKE_Set(scope, family, name) SET_##scope(family, name)
#define MAKE_GetSet(scope, family, name) GET_##scope(family, name) SET_##scope(family, name)
#define SETTING(scope, family, name, functions, ...) MAKE_##functions(scope, family, name)
#include "settings/settings.def"
#undef SETTING

BU_S32 PTZ_API_GetZoomSpd(BU_S32 s32Dev, BU_U8 *pu8Speed, BU_BOOL bReread)
{
    BU_S32 s32Speed = 0;
    const BU_S32 s32Ret = pu8Speed ? PTZ_API_GetZoomSpd(s32Dev, &s32Speed, bReread) : -1;
    if (s32Ret == 0) *pu8Speed = static_cast<BU_U8>(s32Speed);
    return s32Ret;
}

BU_S32 PT_API_SetSpeedAccuracy(BU_S32 s32Dev, BU_S32 s32Accuracy, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Dev, s32Accuracy, bSaveCfg)) return *injected;
    return settings::set(settings::PT_API_SpeedAccuracy, s32Dev, s32Accuracy, bSaveCfg, BU_TRUE);
}

BU_S32 PT_API_SetSpeedMode(BU_S32 s32Dev, BU_S32 s32Mode, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Dev, s32Mode, bSaveCfg)) return *injected;
    return settings::set(settings::PT_API_SpeedMode, s32Dev, s32Mode, bSaveCfg, BU_TRUE);
}

namespace
{
util::Listeners<CFG_SETTING_EVENT_S> g_listeners;
} // namespace

void settings::announce(const BU_CHAR *pcKey, BU_S32 s32Instance, BU_S32 s32Value)
{
    g_listeners.tell({pcKey, s32Instance, s32Value});
}

BU_S32 CFG_SETTING_Listen(FN_CFG_SETTING_LISTENER fnListener) { return g_listeners.add(std::move(fnListener)); }

BU_S32 CFG_SETTING_Unlisten(BU_S32 s32Id) { return g_listeners.remove(s32Id); }

BU_S32 CFG_SETTING_Get(const BU_CHAR *pcKey, BU_S32 s32Pipe, BU_S32 *ps32Value, BU_BOOL bReread)
{
    if (const auto injected = journal::ask(__func__, pcKey, s32Pipe)) return *injected;
    const settings::Row enRow = settings::find(pcKey);
    return enRow == settings::ROW_COUNT ? -1 : settings::get(enRow, s32Pipe, ps32Value, bReread);
}

BU_S32 CFG_SETTING_Set(const BU_CHAR *pcKey, BU_S32 s32Pipe, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate)
{
    if (const auto injected = journal::ask(__func__, pcKey, s32Pipe, s32Value, bSaveCfg, bUpdate)) return *injected;
    const settings::Row enRow = settings::find(pcKey);
    return enRow == settings::ROW_COUNT ? -1 : settings::set(enRow, s32Pipe, s32Value, bSaveCfg, bUpdate);
}

std::vector<CFG_SETTING_INFO_S> CFG_SETTING_List()
{
    std::vector<CFG_SETTING_INFO_S> listSettings;
    for (BU_U16 u16 = 0; u16 < settings::ROW_COUNT; ++u16) {
        const settings::SettingRow &stRow = settings::row(static_cast<settings::Row>(u16));
        listSettings.push_back({stRow.pcKey, settings::sectionName(stRow.enSection), stRow.instances()});
    }
    return listSettings;
}

void CFG_SETTING_Reload() { settings::reload(); }

BU_S32 CFG_COM_GetIntParams(const BU_CHAR *pcKey, CFG_VALUE_INT_S *pstRange)
{
    if (const auto injected = journal::ask(__func__, pcKey)) return *injected;
    const settings::Row enRow = settings::find(pcKey);
    if (!pstRange || enRow == settings::ROW_COUNT) return -1;
    const settings::SettingRow &stRow = settings::row(enRow);
    *pstRange = {stRow.s32Min, stRow.s32Max, stRow.s32Def, stRow.s32Step, settings::value(enRow)};
    return 0;
}

BU_S32 ISP_AF_GetDefVal(const BU_CHAR *pcKey, BU_S32 *ps32Value)
{
    if (const auto injected = journal::ask(__func__, pcKey)) return *injected;
    const settings::Row enRow = settings::find(pcKey);
    if (!ps32Value || enRow == settings::ROW_COUNT) return -1;
    *ps32Value = settings::row(enRow).s32Def;
    return 0;
}

BU_S32 ISP_AF_GetCurVal(const BU_CHAR *pcKey, BU_S32 *ps32Value)
{
    if (const auto injected = journal::ask(__func__, pcKey)) return *injected;
    const settings::Row enRow = settings::find(pcKey);
    return enRow == settings::ROW_COUNT ? -1 : settings::get(enRow, 0, ps32Value);
}
