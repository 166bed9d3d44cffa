#include "live_media/liveMedia.h"

#include "live/fullNdi.h"
#include "live/pipelineLive.h"
#include "live_media/liveMediaRecord.h"
#include "model/model.h"
#include "util/log.h"

namespace
{
APP_LM_HANDLER &gs_LmHandler = *new APP_LM_HANDLER; // lives on for pipeline threads that outlast an exit
std::mutex lockRecord;                              // guards gs_LmHandler

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
    APP_LM_WS_Init();
    APP_LM_RTSP_Init();
    APP_LM_RTMP_Init();
    APP_LM_NDI_Init();
    APP_LM_SRT_Init();
    APP_LM_DANTE_Init();
    return 0;
}

BU_S32 APP_LM_DeinitBusiness()
{
    APP_LM_WS_DeInit();
    APP_LM_RTSP_DeInit();
    APP_LM_RTMP_DeInit();
    APP_LM_NDI_DeInit();
    APP_LM_SRT_DeInit();
    APP_LM_DANTE_DeInit();
    return 0;
}

BU_S32 APP_LM_GetProtocolEnable(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E enProto)
{
    return live_media::isChannel(enChn) && live_media::isOn(live_media::channelOf(enChn), enProto);
}

BU_S32 APP_LM_SetProtocolEnable(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E enProto, BU_BOOL bEnable)
{
    if (!live_media::isChannel(enChn)) return -1;
    CFG_LM_CHANNEL_S stChn = live_media::channelOf(enChn);
    LOG_INFO("apply proto %d enable=%d", enProto, bEnable);
    switch (enProto) {
    case CFG_LM_PROTO_E_RTSP:
        stChn.rtsp.bEnabled = bEnable;
        return APP_LM_RTSP_SetChnCfg(enChn, &stChn.rtsp, BU_TRUE);
    case CFG_LM_PROTO_E_RTMP:
        stChn.rtmp.bEnabled = bEnable;
        return APP_LM_RTMP_SetChnCfg(enChn, &stChn.rtmp);
    case CFG_LM_PROTO_E_NDI:
        stChn.ndi.bEnabled = bEnable;
        return APP_LM_NDI_SetChnCfg(enChn, &stChn.ndi, BU_TRUE);
    case CFG_LM_PROTO_E_SRT:
        stChn.srt.bEnabled = bEnable;
        return APP_LM_SRT_SetChnCfg(enChn, &stChn.srt);
    default:
        return 0;
    }
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
