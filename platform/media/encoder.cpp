// The encoder channels, from the outside.
#include "media/encoder.h"

#include "internal.h"
#include "util/journal.h"
#include "vencChannel.h"

#include <array>
#include <memory>

using namespace media;

namespace
{
constexpr BU_S32 CACHES = 4; // of pictures: those of the channels 0 to 3

struct Channels {
    std::array<std::unique_ptr<STREAM_CACHE_S>, CACHES> caches;
    std::array<std::shared_ptr<VencChannel>, MPP_VENC_CHN_MAX> channels;
    std::mutex lock; // serialises what enables and disables; guards bStarted
    bool bStarted = false;

    Channels()
    {
        for (BU_S32 i = 0; i < MPP_VENC_CHN_MAX; ++i) {
            const auto u = static_cast<std::size_t>(i);
            if (i < CACHES) caches[u] = std::make_unique<STREAM_CACHE_S>(writer(i));
            channels[u] = std::make_shared<VencChannel>(i, i < CACHES ? caches[u].get() : nullptr);
            if (i < CACHES)
                channels[u]->setSource(i < 2 ? MPP_PIPE_USAGE_E_CLOSEUP_FULL : MPP_PIPE_USAGE_E_PANORAMA_CROP0);
        }
    }

private:
    Writer writer(BU_S32 s32Chn)
    {
        auto &pst = channels[static_cast<std::size_t>(s32Chn)];
        return {[&pst] {
                    if (Pipe *pstPipe = pipeOf(pst->source())) pstPipe->wake();
                },
                [&pst] { return pst->requestKeyFrame(); }, [&pst] { return pst->bitRate(); }};
    }
};
Channels &all()
{
    static auto *pstAll = new Channels;
    return *pstAll;
}

void runAsStored(VencChannel &channel, const StoredVenc &stStored)
{
    if (stStored.bEnabled)
        channel.enable(stStored.stParam, nullptr);
    else
        channel.disable();
}

/// Lets a channel take the pictures of a pipe, and of no other.
void attach(VencChannel &channel, BU_S32 s32Chn, BU_S32 s32Usage)
{
    if (Pipe *pstPipe = pipeOf(channel.source())) pstPipe->remove(&channel);
    channel.setSource(s32Usage);
    if (Pipe *pstPipe = pipeOf(s32Usage)) pstPipe->add(all().channels[static_cast<std::size_t>(s32Chn)]);
}

void fillRates(const VencChannel &channel, MPP_VENC_PARAM_S &stParam)
{
    const Pipe *pstPipe = pipeOf(channel.source());
    const auto stWanted = FrameRate::ofCode(stParam.u32FrmRate);
    if (!pstPipe || !stWanted) return;
    stParam.s32SrcFps = pstPipe->rate().code();
    stParam.u32RunFrmRate = static_cast<BU_U32>(stWanted->from(pstPipe->rate()).code());
}
} // namespace

std::string journalText(const MPP_VENC_PARAM_S &st)
{
    return "format " + std::to_string(st.enType) + ' ' + std::to_string(st.u32Width) + 'x' +
           std::to_string(st.u32Height) + 'p' + std::to_string(st.u32FrmRate) + ' ' + std::to_string(st.u32BitRate) +
           " kbit/s";
}

VencChannel *media::channelAt(BU_S32 s32Chn)
{
    return s32Chn >= 0 && s32Chn < MPP_VENC_CHN_MAX ? all().channels[static_cast<std::size_t>(s32Chn)].get() : nullptr;
}

VencChannel *media::channelOfCache(BU_S32 s32CacheId)
{
    if (s32CacheId < 1 || s32CacheId > CACHES) return nullptr;
    VencChannel *pst = channelAt(s32CacheId - 1);
    return pst->source() == MPP_PIPE_USAGE_E_BUTT ? nullptr : pst;
}

void media::startChannels()
{
    const std::lock_guard guard(all().lock);
    all().bStarted = true;
    for (BU_S32 i = 0; i < CACHES; ++i) {
        VencChannel &channel = *channelAt(i);
        if (channel.source() == MPP_PIPE_USAGE_E_BUTT) continue;
        attach(channel, i, channel.source());
        runAsStored(channel, loadVenc(i));
        channel.introduce();
    }
}

BU_S32 media::reloadChannels()
{
    const std::lock_guard guard(all().lock);
    for (BU_S32 i = 0; all().bStarted && i < CACHES; ++i) {
        const StoredVenc stStored = loadVenc(i);
        MPP_VENC_PARAM_S stParam;
        const bool bEnabled = channelAt(i)->status(stParam);
        if (bEnabled != stStored.bEnabled || (bEnabled && stParam != stStored.stParam))
            runAsStored(*channelAt(i), stStored);
    }
    return 0;
}

void media::setOutputRate(FrameRate stRate)
{
    setPipeRates(stRate);
    for (const auto &pst : all().channels) pst->renewMetadata();
}

BU_S32 MPP_GetVencChnStatus(BU_S32 s32Chn, MPP_VENC_PARAM_S *pstParam, BU_BOOL bReread)
{
    if (const auto injected = journal::ask(__func__, s32Chn, bReread)) return *injected;
    MPP_VENC_PARAM_S stParam{};
    const VencChannel *pst = channelAt(s32Chn);
    const bool bEnabled = pst && pst->status(stParam);
    if (bEnabled && bReread) stParam = loadVenc(s32Chn).stParam;
    if (bEnabled) fillRates(*pst, stParam);
    if (pstParam) *pstParam = stParam;
    return bEnabled;
}

BU_S32 MPP_GetVencChnStatus(BU_S32 s32Chn, MPP_VENC_PARAM_S &stParam, BU_BOOL bReread)
{
    return MPP_GetVencChnStatus(s32Chn, &stParam, bReread);
}

BU_S32 MPP_GetVencSource(BU_S32 s32Chn)
{
    if (const auto injected = journal::ask(__func__, s32Chn)) return *injected;
    const VencChannel *pst = channelAt(s32Chn);
    return pst ? pst->source() : MPP_PIPE_USAGE_E_BUTT;
}

BU_S32 MPP_EnableVenc(BU_S32 s32Source, BU_S32 s32Chn, const MPP_VENC_PARAM_S *pstParam, FN_MPP_FRAME fnFrame,
                      BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Source, s32Chn, pstParam, bSaveCfg)) return *injected;
    VencChannel *pst = channelAt(s32Chn);
    const Pipe *pstPipe = pipeOf(s32Source);
    if (!pst || !pstPipe || !pstParam) return -1;
    // Only opening tells whether an encoder takes the parameters.
    const auto stRate = FrameRate::ofCode(pstParam->u32FrmRate);
    if (!VideoEncoder::open(*pstParam, stRate.value_or(FrameRate{}))) return -1;
    const std::lock_guard guard(all().lock);
    if (pipeOf(pst->source()) != pstPipe) attach(*pst, s32Chn, s32Source);
    pst->enable(*pstParam, std::move(fnFrame));
    return bSaveCfg ? storeVenc(s32Chn, *pstParam) : 0;
}

BU_S32 MPP_DisableVenc(BU_S32 s32Source, BU_S32 s32Chn, BU_BOOL bSaveCfg)
{
    if (const auto injected = journal::call(__func__, s32Source, s32Chn, bSaveCfg)) return *injected;
    VencChannel *pst = channelAt(s32Chn);
    if (!pst || pipeOf(s32Source) != pipeOf(pst->source())) return -1;
    const std::lock_guard guard(all().lock);
    pst->disable();
    return bSaveCfg ? storeVencEnabled(s32Chn, false) : 0;
}

BU_S32 MPP_GetUnusedVencChnId()
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    MPP_VENC_PARAM_S stParam;
    for (BU_S32 i = CACHES; i < MPP_VENC_CHN_MAX; ++i)
        if (!channelAt(i)->status(stParam)) return i;
    return -1;
}
