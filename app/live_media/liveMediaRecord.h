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

inline BU_BOOL isOn(const CFG_LM_CHANNEL_S &stChn, CFG_LM_PROTO_E enProto)
{
    if (stChn.bProtoExclusive) return stChn.enProto == enProto;
    switch (enProto) {
    case CFG_LM_PROTO_E_RTSP:
        return stChn.rtsp.bEnabled != BU_FALSE;
    case CFG_LM_PROTO_E_RTMP:
        return stChn.rtmp.bEnabled != BU_FALSE;
    case CFG_LM_PROTO_E_NDI:
        return stChn.ndi.bEnabled != BU_FALSE;
    case CFG_LM_PROTO_E_SRT:
        return stChn.srt.bEnabled != BU_FALSE;
    default:
        return BU_FALSE;
    }
}
} // namespace live_media

inline BU_BOOL appLmRtsp_IsEnabled(const CFG_LM_CHANNEL_S &st) { return live_media::isOn(st, CFG_LM_PROTO_E_RTSP); }
inline BU_BOOL appLmRtmp_IsEnabled(const CFG_LM_CHANNEL_S &st) { return live_media::isOn(st, CFG_LM_PROTO_E_RTMP); }
inline BU_BOOL appLmNdi_IsEnabled(const CFG_LM_CHANNEL_S &st) { return live_media::isOn(st, CFG_LM_PROTO_E_NDI); }
inline BU_BOOL appLmSrt_IsEnabled(const CFG_LM_CHANNEL_S &st) { return live_media::isOn(st, CFG_LM_PROTO_E_SRT); }

// Which stream caches feed a channel; -1: none.
struct APP_LM_RTSP_USAGE_S {
    CFG_LM_CHN_E enChn;
    BU_S32 s32VideoStreamCacheId, s32AudioStreamCacheId;
};
typedef APP_LM_RTSP_USAGE_S APP_LM_RTMP_USAGE_S;
typedef APP_LM_RTSP_USAGE_S APP_LM_SRT_USAGE_S;
struct APP_LM_NDI_USAGE_S {
    CFG_LM_CHN_E enChn;
    BU_S32 s32MainVideoStreamCacheId, s32SubVideoStreamCacheId, s32AudioStreamCacheId;
    const BU_CHAR *sStreamNameSuffix;
};

// Unused rows are zero.
inline constexpr std::array<APP_LM_RTSP_USAGE_S, LM_CHN_COUNT> DEF_RTSP_USAGE = {{
    {CFG_LM_CHN_E_CLOSEUP_MAIN, 1, 6},
    {CFG_LM_CHN_E_CLOSEUP_SUB, 2, 6},
    {CFG_LM_CHN_E_PANORAMA_MAIN, 3, 6},
    {CFG_LM_CHN_E_PANORAMA_SUB, 4, 6},
}};
inline constexpr auto &DEF_RTMP_USAGE = DEF_RTSP_USAGE;
inline constexpr auto &DEF_SRT_USAGE = DEF_RTSP_USAGE;
inline constexpr std::array<APP_LM_NDI_USAGE_S, LM_CHN_COUNT> DEF_NDI_USAGE = {{
    {CFG_LM_CHN_E_CLOSEUP_MAIN, 1, 2, 6, "-M"},
    {CFG_LM_CHN_E_PANORAMA_MAIN, 3, 4, 6, "-W"},
    {CFG_LM_CHN_E_FULL_NDI, -1, -1, -1, "-HB"},
}};

namespace live_media
{
/// @return null for a channel without a row, and for channel 0, whose number the unused rows carry
template <class Table> constexpr auto findUsage(const Table &table, CFG_LM_CHN_E enChn)
{
    const auto row =
        enChn == CFG_LM_CHN_E_NONE ? table.end() : std::ranges::find(table, enChn, &Table::value_type::enChn);
    return row == table.end() ? nullptr : &*row;
}
} // namespace live_media

constexpr auto appLmRtsp_GetUsage(CFG_LM_CHN_E enChn) { return live_media::findUsage(DEF_RTSP_USAGE, enChn); }
constexpr auto appLmRtmp_GetUsage(CFG_LM_CHN_E enChn) { return live_media::findUsage(DEF_RTMP_USAGE, enChn); }
constexpr auto appLmSrt_GetUsage(CFG_LM_CHN_E enChn) { return live_media::findUsage(DEF_SRT_USAGE, enChn); }
constexpr auto appLmNdi_GetUsage(CFG_LM_CHN_E enChn) { return live_media::findUsage(DEF_NDI_USAGE, enChn); }

static_assert(!appLmRtsp_GetUsage(CFG_LM_CHN_E_NONE) && !appLmRtsp_GetUsage(CFG_LM_CHN_E_CLOSEUP1_MAIN) &&
              !appLmRtsp_GetUsage(CFG_LM_CHN_E_FULL_NDI));
static_assert(!appLmNdi_GetUsage(CFG_LM_CHN_E_NONE) && !appLmNdi_GetUsage(CFG_LM_CHN_E_BUTT) &&
              appLmNdi_GetUsage(CFG_LM_CHN_E_FULL_NDI)->s32AudioStreamCacheId == -1);
