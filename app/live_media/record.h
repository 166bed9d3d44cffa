/// What the output modules share: the process's live-media record, the rule that says which outputs are on, and the
/// stream caches that feed a channel.
#pragma once

#include "config/liveMedia.h"

#include <algorithm>
#include <array>
#include <mutex>

constexpr BU_S32 LM_CHN_COUNT = CFG_LM_CHN_E_BUTT; ///< element 0 belongs to no channel and stays off

struct APP_LM_HANDLER {
    CFG_LM_GENERAL_S stGeneral;
    CFG_LM_CHANNEL_S stChnCfg[LM_CHN_COUNT]; ///< indexed by CFG_LM_CHN_E
};

/// The record, the only one. Web threads, start-up and pipeline threads share it: touch it inside
/// live_media::withRecord.
APP_LM_HANDLER *APP_LM_GetHandler();

namespace live_media
{
std::mutex &recordLock();

/// Runs fn on the record while no one else does; for copying in and out only, so that nothing waits under the lock.
template <class Fn> auto withRecord(Fn fn)
{
    const std::lock_guard guard(recordLock());
    return fn(*APP_LM_GetHandler());
}

constexpr bool isChannel(CFG_LM_CHN_E enChn) { return enChn >= 0 && enChn < LM_CHN_COUNT; }

/// A copy; with everything off for a channel outside 0..6.
inline CFG_LM_CHANNEL_S channelOf(CFG_LM_CHN_E enChn)
{
    if (!isChannel(enChn)) return {};
    return withRecord([enChn](const APP_LM_HANDLER &st) { return st.stChnCfg[enChn]; });
}

/// Whether the two agree in these fields.
template <auto... FIELDS, class Record> bool agree(const Record &a, const Record &b)
{
    return ((a.*FIELDS == b.*FIELDS) && ...);
}
} // namespace live_media

// Which stream caches feed a channel; -1: none.
struct APP_LM_RTSP_USAGE_S {
    CFG_LM_CHN_E enChn;
    BU_S32 s32VideoStreamCacheId, s32AudioStreamCacheId;
};
struct APP_LM_NDI_USAGE_S {
    CFG_LM_CHN_E enChn;
    BU_S32 s32MainVideoStreamCacheId, s32SubVideoStreamCacheId, s32AudioStreamCacheId;
    const BU_CHAR *sStreamNameSuffix;
};

// Unused rows are zero. RTMP and SRT take the same caches as RTSP.
inline constexpr std::array<APP_LM_RTSP_USAGE_S, LM_CHN_COUNT> DEF_RTSP_USAGE = {{
    {CFG_LM_CHN_E_CLOSEUP_MAIN, 1, 6},
    {CFG_LM_CHN_E_CLOSEUP_SUB, 2, 6},
    {CFG_LM_CHN_E_PANORAMA_MAIN, 3, 6},
    {CFG_LM_CHN_E_PANORAMA_SUB, 4, 6},
}};
inline constexpr std::array<APP_LM_NDI_USAGE_S, LM_CHN_COUNT> DEF_NDI_USAGE = {{
    {CFG_LM_CHN_E_CLOSEUP_MAIN, 1, 2, 6, "-M"},
    {CFG_LM_CHN_E_PANORAMA_MAIN, 3, 4, 6, "-W"},
    {CFG_LM_CHN_E_FULL_NDI, -1, -1, -1, "-HB"},
}};

namespace live_media
{
template <class T> T recordType(T CFG_LM_CHANNEL_S::*);

/// An output that a channel can have.
/// @tparam RECORD    its settings within the channel's
/// @tparam STORE     checks and stores them
/// @tparam USAGE     the caches that feed its channels
/// @tparam COMPARED  the settings whose change concerns it
template <CFG_LM_PROTO_E PROTO, auto RECORD, auto STORE, const auto &USAGE, auto... COMPARED> struct Output {
    using Record = decltype(recordType(RECORD));
    static constexpr CFG_LM_PROTO_E enProto = PROTO;

    template <class Channel> static auto &recordOf(Channel &stChn) { return stChn.*RECORD; }
    static BU_BOOL isOn(const CFG_LM_CHANNEL_S &stChn)
    {
        return stChn.bProtoExclusive ? stChn.enProto == PROTO : recordOf(stChn).bEnabled != BU_FALSE;
    }
    /// @return null for a channel without a row, and for channel 0, whose number the unused rows carry
    static constexpr auto usageOf(CFG_LM_CHN_E enChn)
    {
        const auto row = enChn == CFG_LM_CHN_E_NONE
                             ? USAGE.end()
                             : std::ranges::find_if(USAGE, [=](const auto &st) { return st.enChn == enChn; });
        return row == USAGE.end() ? nullptr : &*row;
    }

    /// @return 0, or -1: no such channel, null pointer
    static BU_S32 get(CFG_LM_CHN_E enChn, Record *pstCfg)
    {
        if (!pstCfg || !isChannel(enChn)) return -1;
        *pstCfg = channelOf(enChn).*RECORD;
        return 0;
    }
    /// Settings with a change that concerns the output reach the store, then the record.
    /// @return 0; the store's result, and nothing changes; -1: no such channel, null pointer
    static BU_S32 set(CFG_LM_CHN_E enChn, const Record *pstCfg, bool *pbChanged)
    {
        if (!pstCfg || !isChannel(enChn)) return -1;
        *pbChanged = !agree<COMPARED...>(*pstCfg, channelOf(enChn).*RECORD);
        if (!*pbChanged) return 0;
        if (const BU_S32 s32Ret = STORE(enChn, pstCfg)) return s32Ret;
        withRecord([&](APP_LM_HANDLER &st) { recordOf(st.stChnCfg[enChn]) = *pstCfg; });
        return 0;
    }
};

struct Rtsp : Output<CFG_LM_PROTO_E_RTSP, &CFG_LM_CHANNEL_S::rtsp, CFG_LM_SetRtspCfgOfChn, DEF_RTSP_USAGE,
                     &CFG_LM_RTSP_S::bEnabled, &CFG_LM_RTSP_S::sSessionName> {
};
struct Rtmp : Output<CFG_LM_PROTO_E_RTMP, &CFG_LM_CHANNEL_S::rtmp, CFG_LM_SetRtmpCfgOfChn, DEF_RTSP_USAGE,
                     &CFG_LM_RTMP_S::bEnabled, &CFG_LM_RTMP_S::sServer, &CFG_LM_RTMP_S::sStreamCode,
                     &CFG_LM_RTMP_S::bAuthEnable, &CFG_LM_RTMP_S::sUsername, &CFG_LM_RTMP_S::sPassword> {
    static constexpr const BU_CHAR *NAME = "RTMP output";
};
struct Ndi : Output<CFG_LM_PROTO_E_NDI, &CFG_LM_CHANNEL_S::ndi, CFG_LM_SetNdiCfgOfChn, DEF_NDI_USAGE,
                    &CFG_LM_NDI_S::bEnabled, &CFG_LM_NDI_S::sStreamName> {
    static constexpr const BU_CHAR *NAME = "NDI output";
};
struct Srt
    : Output<CFG_LM_PROTO_E_SRT, &CFG_LM_CHANNEL_S::srt, CFG_LM_SetSrtCfgOfChn, DEF_RTSP_USAGE, &CFG_LM_SRT_S::bEnabled,
             &CFG_LM_SRT_S::bIsListener, &CFG_LM_SRT_S::sStreamId, &CFG_LM_SRT_S::sHostname, &CFG_LM_SRT_S::s32Port,
             &CFG_LM_SRT_S::s32AesMode, &CFG_LM_SRT_S::sPassword, &CFG_LM_SRT_S::s32Latency> {
    static constexpr const BU_CHAR *NAME = "SRT output";
};
static_assert(!Rtsp::usageOf(CFG_LM_CHN_E_NONE) && !Rtsp::usageOf(CFG_LM_CHN_E_CLOSEUP1_MAIN) &&
              !Rtsp::usageOf(CFG_LM_CHN_E_FULL_NDI));
static_assert(!Ndi::usageOf(CFG_LM_CHN_E_NONE) && !Ndi::usageOf(CFG_LM_CHN_E_BUTT) &&
              Ndi::usageOf(CFG_LM_CHN_E_FULL_NDI)->s32AudioStreamCacheId == -1);
} // namespace live_media
