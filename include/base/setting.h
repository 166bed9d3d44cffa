/// What holds for the getter and the setter of every setting. `scripts/settings` writes their declarations between the
/// lines "settings:" and "end of settings" of the headers: meaning, range, default and [key], by which the store and
/// range questions name it. Switches: 0 off, 1 on.
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

template <class E>
concept Enumeration = std::is_enum_v<E>;

/// Hands a getter the address of a number in place of an enumeration's and takes the number over at the end.
template <Enumeration E> class EnumAsNumber
{
public:
    explicit EnumAsNumber(E *penValue) : m_penValue(penValue), m_s32Value(penValue ? static_cast<BU_S32>(*penValue) : 0)
    {
    }
    ~EnumAsNumber()
    {
        if (m_penValue) *m_penValue = static_cast<E>(m_s32Value);
    }
    EnumAsNumber(const EnumAsNumber &) = delete;
    EnumAsNumber &operator=(const EnumAsNumber &) = delete;
    BU_S32 *address() { return m_penValue ? &m_s32Value : nullptr; }

private:
    E *m_penValue;
    BU_S32 m_s32Value;
};
