// The outputs as rows, and what the manager does with them: start, stop, switch, restart.
#include "live_media/liveMedia.h"

#include "live/fullNdi.h"
#include "live/pipelineLive.h"
#include "model/model.h"
#include "perChannel.h"
#include "record.h"
#include "util/log.h"

namespace
{
APP_LM_HANDLER &gs_LmHandler = *new APP_LM_HANDLER; // lives on for pipeline threads that outlast an exit
std::mutex lockRecord;                              // guards gs_LmHandler

struct Row {
    CFG_LM_PROTO_E enProto; ///< NONE: no output of a channel
    BU_S32 (*pfnInit)();
    BU_S32 (*pfnDeInit)();
    BU_BOOL &(*pfnEnabled)(CFG_LM_CHANNEL_S &);
    BU_S32 (*pfnSetChn)(CFG_LM_CHN_E, const CFG_LM_CHANNEL_S &); ///< hands the output its settings of the channel
};

/// @tparam SET  takes the channel, the output's settings, and BU_TRUE when it can also do without applying them
template <class Out, auto INIT, auto DEINIT, auto SET>
constexpr Row row{Out::enProto, INIT, DEINIT,
                  [](CFG_LM_CHANNEL_S &st) -> BU_BOOL & { return Out::recordOf(st).bEnabled; },
                  [](CFG_LM_CHN_E enChn, const CFG_LM_CHANNEL_S &st) -> BU_S32 {
                      if constexpr (requires { SET(enChn, &Out::recordOf(st), BU_TRUE); })
                          return SET(enChn, &Out::recordOf(st), BU_TRUE);
                      else
                          return SET(enChn, &Out::recordOf(st));
                  }};

/// An output that is not built yet: its settings are kept, each attempt to start it says so.
template <class Out> auto &notBuilt()
{
    static auto &channels = *new live_media::PerChannel<Out, live_media::Instance<void>>(
        [](CFG_LM_CHN_E, const CFG_LM_CHANNEL_S &, live_media::Instance<void> &) -> BU_S32 {
            LOG_WARN("%s is not part of this build\n", Out::NAME);
            return -1;
        },
        [](CFG_LM_CHN_E, live_media::Instance<void> &) {});
    return channels;
}
template <class Out>
constexpr Row notBuiltRow = row<Out, [] { return notBuilt<Out>().init(); }, [] { return notBuilt<Out>().deInit(); },
                                [](CFG_LM_CHN_E enChn, const typename Out::Record *pstCfg) {
                                    return notBuilt<Out>().setChnCfg(enChn, pstCfg);
                                }>;

// In the order in which they start and stop.
constexpr Row OUTPUTS[] = {
    {CFG_LM_PROTO_E_NONE, APP_LM_WS_Init, APP_LM_WS_DeInit, nullptr, nullptr},
    row<live_media::Rtsp, APP_LM_RTSP_Init, APP_LM_RTSP_DeInit, APP_LM_RTSP_SetChnCfg>,
    notBuiltRow<live_media::Rtmp>,
    notBuiltRow<live_media::Ndi>,
    notBuiltRow<live_media::Srt>,
    {CFG_LM_PROTO_E_NONE, APP_LM_DANTE_Init, APP_LM_DANTE_DeInit, nullptr, nullptr},
};

/// @return null: no output of a channel
const Row *find(CFG_LM_PROTO_E enProto)
{
    const Row *pst =
        enProto == CFG_LM_PROTO_E_NONE ? std::end(OUTPUTS) : std::ranges::find(OUTPUTS, enProto, &Row::enProto);
    return pst == std::end(OUTPUTS) ? nullptr : pst;
}

void loadRecord()
{
    CFG_LM_GENERAL_S stGeneral;
    if (CFG_LM_LoadGeneralCfgAll(&stGeneral) == 0)
        live_media::withRecord([&](APP_LM_HANDLER &st) { st.stGeneral = std::move(stGeneral); });

    for (BU_S32 i = 0; i < LM_CHN_COUNT; ++i) {
        CFG_LM_CHANNEL_S stChn;
        if (CFG_LM_LoadAllOfChn(static_cast<CFG_LM_CHN_E>(i), &stChn) != 0) continue;
        LOG_INFO("live_media[%d] is exclusive=%d", i, stChn.bProtoExclusive);
        live_media::withRecord([&](APP_LM_HANDLER &st) { st.stChnCfg[i] = std::move(stChn); });
    }
}

void toggle(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E enProto)
{
    APP_LM_SetProtocolEnable(enChn, enProto, BU_FALSE);
    APP_LM_SetProtocolEnable(enChn, enProto, BU_TRUE);
}
} // namespace

std::mutex &live_media::recordLock() { return lockRecord; }

APP_LM_HANDLER *APP_LM_GetHandler() { return &gs_LmHandler; }

BU_S32 APP_LM_Init()
{
    if (model::isModel(model::TKV_MX, model::QLS_500))
        APP_LM_InitFromBusiness();
    else
        MPP_LM_LoadAllLiveMediaService();
    return 0;
}

BU_S32 APP_LM_DeInit()
{
    if (model::isModel(model::TKV_MX, model::QLS_500))
        APP_LM_DeinitBusiness();
    else
        MPP_LM_StopAllLiveMediaService();
    return 0;
}

BU_S32 APP_LM_InitFromBusiness()
{
    loadRecord();
    for (const Row &st : OUTPUTS) st.pfnInit();
    return 0;
}

BU_S32 APP_LM_DeinitBusiness()
{
    for (const Row &st : OUTPUTS) st.pfnDeInit();
    return 0;
}

BU_S32 APP_LM_GetProtocolEnable(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E enProto)
{
    if (!live_media::isChannel(enChn)) return 0;
    CFG_LM_CHANNEL_S stChn = live_media::channelOf(enChn);
    if (stChn.bProtoExclusive) return stChn.enProto == enProto;
    const Row *pstRow = find(enProto);
    return pstRow && pstRow->pfnEnabled(stChn);
}

BU_S32 APP_LM_SetProtocolEnable(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E enProto, BU_BOOL bEnable)
{
    if (!live_media::isChannel(enChn)) return -1;
    CFG_LM_CHANNEL_S stChn = live_media::channelOf(enChn);
    LOG_INFO("apply proto %d enable=%d", enProto, bEnable);
    const Row *pstRow = find(enProto);
    if (!pstRow) return 0;
    pstRow->pfnEnabled(stChn) = bEnable;
    return pstRow->pfnSetChn(enChn, stChn);
}

BU_S32 APP_LM_GetProtocol(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E *penProto)
{
    if (!penProto || !live_media::isChannel(enChn)) return -1;
    *penProto = live_media::channelOf(enChn).enProto;
    return 0;
}

BU_S32 APP_LM_SetProtocol(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E enProto)
{
    if (!live_media::isChannel(enChn)) return -1;
    const CFG_LM_CHANNEL_S stChn = live_media::channelOf(enChn);
    const CFG_LM_PROTO_E enOld = stChn.enProto;
    if (!stChn.bProtoExclusive || enOld == enProto) {
        LOG_WARN("switch protocol skip for %d", enProto);
        return 0;
    }
    LOG_INFO("chn[%d] switch protocol %d=>%d", enChn, enOld, enProto);
    TRACE("chn[%d] switch protocol %d=>%d\n", enChn, enOld, enProto);
    if (CFG_LM_SetStreamProtocol(enChn, enProto, BU_TRUE) != 0) return -1;

    // The new protocol first: the modules ask the record whether they are on, whatever is switched.
    live_media::withRecord([=](APP_LM_HANDLER &st) { st.stChnCfg[enChn].enProto = enProto; });
    APP_LM_SetProtocolEnable(enChn, enOld, BU_FALSE);
    APP_LM_SetProtocolEnable(enChn, enProto, BU_TRUE);
    return 0;
}

BU_S32 APP_LM_Restart()
{
    for (BU_S32 i = CFG_LM_CHN_E_CLOSEUP_MAIN; i < CFG_LM_CHN_E_BUTT; ++i)
        for (BU_S32 j = CFG_LM_PROTO_E_RTSP; j < CFG_LM_PROTO_E_BUTT; ++j) {
            const auto enChn = static_cast<CFG_LM_CHN_E>(i);
            const auto enProto = static_cast<CFG_LM_PROTO_E>(j);
            if (APP_LM_GetProtocolEnable(enChn, enProto) != 1) continue;
            TRACE("Now wile Restart [%d][%d] \n", enChn, enProto);
            toggle(enChn, enProto);
        }
    BSP_FULL_NDI_SetNDIEncode(BU_FALSE);
    BSP_FULL_NDI_SetNDIEncode(BU_TRUE);
    return 0;
}

BU_S32 APP_LM_RestartAllSingletonProtocolIfNeed()
{
    APP_LM_RTSP_RestartIfNeed();
    return 0;
}
