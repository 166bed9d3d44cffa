/// The factory restore: what each bit takes back. Libraries register what they keep; none knows the others.
#pragma once

#include "camera/restore.h" // SYSTEM_RESTORE_E

#include <functional>
#include <string>

namespace store
{
/// What runs after stored values went: brings what runs back in line. @return 0 or -1
using Reload = BU_S32 (*)();

/// A restore of one of the bits forgets the keys that begin with the prefix, then calls pfnReload, unless null. A
/// prefix may be registered by each of several records. Before main(), from static objects.
void onRestore(BU_S32 s32Bits, const std::string &strPrefix, Reload pfnReload);
/// The same for what is not simply a prefix.
void onRestore(BU_S32 s32Bits, std::function<BU_S32()> fnRestore);

/// Takes back all that is registered under one of the bits; goes on after a failure. Thread: any. @return 0 or -1
BU_S32 restore(BU_S32 s32Bits);
} // namespace store
