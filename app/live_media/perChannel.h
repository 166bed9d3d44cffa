/// Outputs that run an instance a channel: which channels have one follows from the record, and a setting that concerns
/// the output restarts its channel's, no other.
#pragma once

#include "record.h"
#include "util/log.h"

#include <mutex>

namespace live_media
{
/// A channel's instance. An output that keeps more derives from it.
template <class Handler> struct Instance {
    std::mutex lockHandler;     // held while the instance is made, ended or used; guards all members
    Handler *handler = nullptr; // null: there is none
};

/// @tparam Out   the output, see Output
/// @tparam Inst  an Instance
template <class Out, class Inst> class PerChannel
{
public:
    /// Makes the instance, with its lock held: sets its handler, or leaves it null. @return 0, or the reason
    using Create = BU_S32 (*)(CFG_LM_CHN_E enChn, const CFG_LM_CHANNEL_S &stChn, Inst &inst);
    /// Ends it, with its lock held. The handler is cleared afterwards.
    using Destroy = void (*)(CFG_LM_CHN_E enChn, Inst &inst);

    PerChannel(Create pfnCreate, Destroy pfnDestroy) : m_pfnCreate(pfnCreate), m_pfnDestroy(pfnDestroy) {}

    BU_S32 init() ///< @return 0
    {
        forEach([this](CFG_LM_CHN_E enChn) { follow(enChn); });
        return 0;
    }
    BU_S32 deInit() ///< @return 0
    {
        forEach([this](CFG_LM_CHN_E enChn) { destroy(enChn); });
        return 0;
    }

    /// @param bCreate  BU_FALSE: an instance that is missing stays so
    /// @return 0, also when the instance cannot be made; the store's result; -1: no such channel, null pointer
    BU_S32 setChnCfg(CFG_LM_CHN_E enChn, const typename Out::Record *pstCfg, BU_BOOL bCreate = BU_TRUE)
    {
        const std::lock_guard guard(m_lockChange);
        bool bChanged = false;
        if (const BU_S32 s32Ret = Out::set(enChn, pstCfg, &bChanged)) return s32Ret;
        if (bChanged) destroy(enChn);
        follow(enChn, bCreate);
        return 0;
    }

    /// Makes an instance that runs anew, from the record. @return 1 when one ran
    BU_S32 reload(CFG_LM_CHN_E enChn)
    {
        const std::lock_guard guard(m_lockChange);
        if (!destroy(enChn)) return 0;
        follow(enChn);
        return 1;
    }

    Inst &at(CFG_LM_CHN_E enChn) { return m_instances[enChn]; }

private:
    template <class Fn> static void forEach(Fn fn)
    {
        for (BU_S32 i = 0; i < LM_CHN_COUNT; ++i) fn(static_cast<CFG_LM_CHN_E>(i));
    }

    /// The channel gets or loses its instance, as the record says.
    void follow(CFG_LM_CHN_E enChn, BU_BOOL bCreate = BU_TRUE)
    {
        const CFG_LM_CHANNEL_S stChn = channelOf(enChn);
        if (!Out::isOn(stChn)) {
            destroy(enChn);
            return;
        }
        if (!bCreate) return;
        if (!Out::usageOf(enChn)) {
            LOG_ERROR("StreamCache useage of live media channel %d is not defined!", enChn);
            return;
        }
        const std::lock_guard guard(at(enChn).lockHandler);
        if (!at(enChn).handler) m_pfnCreate(enChn, stChn, at(enChn));
    }

    bool destroy(CFG_LM_CHN_E enChn)
    {
        const std::lock_guard guard(at(enChn).lockHandler);
        if (!at(enChn).handler) return false;
        m_pfnDestroy(enChn, at(enChn));
        at(enChn).handler = nullptr;
        return true;
    }

    const Create m_pfnCreate;
    const Destroy m_pfnDestroy;
    std::mutex m_lockChange; // one change at a time, from its comparison to the instance that follows it
    std::array<Inst, LM_CHN_COUNT> m_instances;
};
} // namespace live_media
