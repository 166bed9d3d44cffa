// Who takes part in a factory restore.
#include "store/restore.h"

#include "store/store.h"

#include <algorithm>
#include <vector>

namespace
{
struct Restorable {
    BU_S32 s32Bits;
    std::string strPrefix; // empty: not by prefix
    store::Reload pfnReload;
    std::function<BU_S32()> fnRestore;

    BU_S32 restore() const
    {
        if (fnRestore) return fnRestore();
        const BU_S32 s32Erased = CFG_STORE_Erase(strPrefix.c_str());
        return pfnReload && pfnReload() != 0 ? -1 : s32Erased;
    }
};
std::vector<Restorable> &registered() // written before main() only
{
    static auto *pst = new std::vector<Restorable>;
    return *pst;
}
} // namespace

void store::onRestore(BU_S32 s32Bits, const std::string &strPrefix, Reload pfnReload)
{
    const bool bKnown = std::ranges::any_of(registered(), [&](const Restorable &st) {
        return st.strPrefix == strPrefix && st.s32Bits == s32Bits && st.pfnReload == pfnReload;
    });
    if (!bKnown) registered().push_back({s32Bits, strPrefix, pfnReload, nullptr});
}

void store::onRestore(BU_S32 s32Bits, std::function<BU_S32()> fnRestore)
{
    registered().push_back({s32Bits, "", nullptr, std::move(fnRestore)});
}

BU_S32 store::restore(BU_S32 s32Bits)
{
    BU_S32 s32Ret = 0;
    for (const Restorable &st : registered())
        if ((st.s32Bits & s32Bits) && st.restore() != 0) s32Ret = -1;
    return s32Ret;
}
