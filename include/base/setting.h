/// How a setting is declared: one line stands for its getter and its setter.
///
/// Each setting has a running value, which the camera works with, and a stored one, which it starts with.
///
/// Getter: writes the running value through the pointer; with bReread the stored one, or the default when none is
///   stored. Returns 0, or -1: null pointer, or no such pipeline or device; nothing is written then.
/// Setter: returns -1 without any change when the value is outside the range. Otherwise the value reaches the running
///   state at once. bSaveCfg stores it as well: when the call returns 0 it survives a power cut; when it cannot be
///   written the call returns -1 and the running value stays changed. bUpdate tells the listeners
///   (camera/settingEvent.h). The ranges stand beside the declarations; CFG_COM_GetIntParams answers them by key.
/// Thread: any, several at once. Getters take no lock; neither does a setter that does not store.
#pragma once

#include "base/types.h"

#include <type_traits>

/// A getter's overload for a pointer to any enumeration.
#define BU_ENUM_GETTER_DEV(fn)                                                                                         \
    template <class E, std::enable_if_t<std::is_enum_v<E>, int> = 0>                                                   \
    inline BU_S32 fn(BU_S32 s32Dev, E *penValue, BU_BOOL bReread = BU_FALSE)                                           \
    {                                                                                                                  \
        BU_S32 s32Value = static_cast<BU_S32>(*penValue);                                                              \
        const BU_S32 s32Ret = fn(s32Dev, &s32Value, bReread);                                                          \
        *penValue = static_cast<E>(s32Value);                                                                          \
        return s32Ret;                                                                                                 \
    }
#define BU_ENUM_GETTER(fn)                                                                                             \
    template <class E, std::enable_if_t<std::is_enum_v<E>, int> = 0>                                                   \
    inline BU_S32 fn(E *penValue, BU_BOOL bReread = BU_FALSE)                                                          \
    {                                                                                                                  \
        BU_S32 s32Value = static_cast<BU_S32>(*penValue);                                                              \
        const BU_S32 s32Ret = fn(&s32Value, bReread);                                                                  \
        *penValue = static_cast<E>(s32Value);                                                                          \
        return s32Ret;                                                                                                 \
    }

/// Getter and setter of one pipeline or device: `<prefix>Get<name>(dev, &value, reread)` and
/// `<prefix>Set<name>(dev, value, save, update)`.
#define BU_GETTER_DEV(prefix, name)                                                                                    \
    BU_S32 prefix##Get##name(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);                            \
    BU_ENUM_GETTER_DEV(prefix##Get##name)
#define BU_SETTER_DEV(prefix, name)                                                                                    \
    BU_S32 prefix##Set##name(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
#define BU_SETTING_DEV(prefix, name) BU_GETTER_DEV(prefix, name) BU_SETTER_DEV(prefix, name)

/// The same for a setting of the whole camera: `<prefix>Get<name>(&value, reread)`, `<prefix>Set<name>(value, save,
/// update)`.
#define BU_GETTER(prefix, name)                                                                                        \
    BU_S32 prefix##Get##name(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);                                           \
    BU_ENUM_GETTER(prefix##Get##name)
#define BU_SETTER(prefix, name) BU_S32 prefix##Set##name(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
#define BU_SETTING(prefix, name) BU_GETTER(prefix, name) BU_SETTER(prefix, name)
