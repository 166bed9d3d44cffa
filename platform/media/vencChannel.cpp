/// An encoder channel: when it takes pictures, when it makes a key frame, when it needs a new encoder.
#include "vencChannel.h"

#include "util/log.h"
#include "util/time.h"

#include <utility>

using media::FrameRate;
using media::VencChannel;

namespace
{
constexpr BU_U64 KEY_FORCED_US = 500'000; // from one key frame on request to the next
}

bool VencChannel::status(MPP_VENC_PARAM_S &stParam) const
{
    const std::lock_guard guard(m_lock);
    stParam = m_bEnabled ? m_stParam : MPP_VENC_PARAM_S{};
    return m_bEnabled;
}

BU_S32 VencChannel::source() const
{
    const std::lock_guard guard(m_lock);
    return pipeOf(m_s32Usage) ? m_s32Usage : MPP_PIPE_USAGE_E_BUTT;
}

void VencChannel::setSource(BU_S32 s32Usage)
{
    const std::lock_guard guard(m_lock);
    m_s32Usage = s32Usage;
}

void VencChannel::enable(const MPP_VENC_PARAM_S &stParam, FN_MPP_FRAME fnFrame)
{
    disable(); // ends the calls of an earlier frame function
    {
        const std::lock_guard guard(m_lock);
        m_stParam = stParam;
        m_pstFunction = fnFrame ? std::make_shared<FrameFunction>(FrameFunction{std::move(fnFrame)}) : nullptr;
        m_bEnabled = true;
        ++m_u32Change;
    }
    renewMetadata();
    if (Pipe *pstPipe = pipe()) pstPipe->wake();
}

void VencChannel::disable()
{
    Pipe *pstPipe = pipe();
    {
        std::unique_lock guard(m_lock);
        m_bEnabled = false;
        const auto pstFunction = std::exchange(m_pstFunction, nullptr);
        if (pstFunction) std::atomic_ref(pstFunction->stFrame.bEnable) = BU_FALSE; // the call may wait on it
        if (!pstPipe || !pstPipe->isThread()) m_idle.wait(guard, [this] { return !m_bCalling; });
    }
    if (m_pstCache) m_pstCache->setMetadata({});
    if (pstPipe) pstPipe->wake();
}

void VencChannel::listen(bool bOn)
{
    if (bOn) m_bSource = true;
    m_bListening = bOn;
    if (bOn) renewMetadata();
    if (Pipe *pstPipe = pipe()) pstPipe->wake();
}

void VencChannel::destroySource()
{
    listen(false);
    m_bSource = false;
}

BU_S32 VencChannel::requestKeyFrame()
{
    MPP_VENC_PARAM_S stParam;
    if (!status(stParam)) return -1;
    if (!m_bKeyWanted.exchange(true))
        if (Pipe *pstPipe = pipe()) pstPipe->wake();
    return 0;
}

BU_S32 VencChannel::bitRate() const
{
    MPP_VENC_PARAM_S stParam;
    status(stParam);
    return static_cast<BU_S32>(stParam.u32BitRate);
}

STREAM_PACKET_METADATA_S VencChannel::metadata() const
{
    MPP_VENC_PARAM_S stParam;
    const Pipe *pstPipe = pipe();
    if (!status(stParam) || !pstPipe) return {};
    const FrameRate stRate = FrameRate::ofCode(stParam.u32FrmRate)->from(pstPipe->rate());
    return {streamType(stParam.enType),
            static_cast<BU_S32>(stParam.u32Width),
            static_cast<BU_S32>(stParam.u32Height),
            stRate.s32Num,
            stRate.s32Den,
            0,
            0,
            0};
}

void VencChannel::introduce()
{
    if (m_pstCache) m_pstCache->introduce(metadata());
}

void VencChannel::renewMetadata()
{
    Pipe *pstPipe = pipe();
    if (m_pstCache && pstPipe && m_pstCache->setMetadata(metadata()) && m_bListening)
        pstPipe->post([this] { m_pstCache->announce(); });
}

std::optional<media::PictureTaker::Wish> VencChannel::wish(FrameRate stOutput)
{
    bool bWanted = m_pstCache && m_bListening && m_pstCache->isWanted();
    MPP_VENC_PARAM_S stParam;
    BU_S32 s32Usage = 0;
    {
        const std::lock_guard guard(m_lock);
        bWanted = m_bEnabled && (m_pstFunction || bWanted);
        stParam = m_stParam;
        s32Usage = m_s32Usage;
    }
    if (!bWanted) {
        m_pstEncoder.reset();
        return std::nullopt;
    }
    m_stOutput = stOutput;
    return Wish{.stSize = {static_cast<BU_S32>(stParam.u32Width), static_cast<BU_S32>(stParam.u32Height)},
                .stRate = FrameRate::ofCode(stParam.u32FrmRate)->from(stOutput),
                .bOnce = isKeyUrgent(stOutput),
                .s32Target = pipeOf(s32Usage) == pipeAt(PIPE_CLOSE_UP) ? m_s32Chn : -1};
}

/// Makes the encoder follow the parameters. @return false: there is none
bool VencChannel::open(FrameRate stOutput)
{
    MPP_VENC_PARAM_S stParam;
    BU_U32 u32Change = 0;
    {
        const std::lock_guard guard(m_lock);
        stParam = m_stParam;
        u32Change = m_u32Change;
    }
    const FrameRate stRate = FrameRate::ofCode(stParam.u32FrmRate)->from(stOutput);
    if (m_pstEncoder && u32Change == m_u32Followed && stRate == m_stEncoderRate) return true;
    if (!m_pstEncoder || stRate != m_stEncoderRate || !m_pstEncoder->change(stParam)) {
        m_pstEncoder = VideoEncoder::open(stParam, stRate);
        m_u32SinceKey = UINT32_MAX;
    }
    m_u32Followed = u32Change;
    m_stEncoderRate = stRate;
    m_stRunning = stParam;
    if (m_pstEncoder) return true;
    LOG_ERROR("encoder %d is disabled: it cannot be opened\n", m_s32Chn);
    disable();
    return false;
}

/// Somebody waits for a key frame and may have one: any of the output's frames does, also between the stream's own.
bool VencChannel::isKeyUrgent(FrameRate stOutput) const
{
    return m_bKeyWanted && static_cast<BU_U64>(UTIL_TIME_NowUs() - stOutput.dueUs(1)) >= m_u64ForcedUs + KEY_FORCED_US;
}

/// The group of pictures is over, or somebody asked for a key frame and the last that was forced is long enough ago.
bool VencChannel::isKeyDue(BU_U64 u64TimeUs)
{
    const BU_U64 u64Group =
        m_stRunning.u32GOP ? m_stRunning.u32GOP : 2U * m_stEncoderRate.s32Num / m_stEncoderRate.s32Den;
    if (m_u32SinceKey >= u64Group) return true;
    if (!m_bKeyWanted || u64TimeUs - m_u64ForcedUs < KEY_FORCED_US) return false;
    m_u64ForcedUs = u64TimeUs;
    return true;
}

void VencChannel::take(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs)
{
    if (!open(m_stOutput)) return;
    if (stFrame.s32Width != static_cast<BU_S32>(m_stRunning.u32Width) ||
        stFrame.s32Height != static_cast<BU_S32>(m_stRunning.u32Height))
        return; // changed since it was asked
    const bool bKey = isKeyDue(u64TimeUs);
    if (bKey) m_bKeyWanted = false;
    const STREAM_PACKET_REF pstPacket = m_pstEncoder->encode(stFrame, u64TimeUs, bKey);
    m_u32SinceKey = bKey ? 1 : m_u32SinceKey + 1;
    if (pstPacket) deliver(pstPacket);
}

void VencChannel::deliver(const STREAM_PACKET_REF &pstPacket)
{
    std::shared_ptr<FrameFunction> pstFunction;
    {
        const std::lock_guard guard(m_lock);
        if (!m_bEnabled || m_u32Change != m_u32Followed) return;
        pstFunction = m_pstFunction;
        m_bCalling = pstFunction != nullptr;
        if (pstFunction) pstFunction->stFrame.bEnable = BU_TRUE;
    }
    if (!pstFunction) {
        if (m_pstCache && m_bListening) m_pstCache->write(pstPacket);
        return;
    }
    call(*pstFunction, *pstPacket);
    const std::lock_guard guard(m_lock);
    m_bCalling = false;
    m_idle.notify_all();
}

void VencChannel::call(FrameFunction &stFunction, const STREAM_PACKET_S &stPacket)
{
    MPP_FRAME_INFO_S &st = stFunction.stFrame;
    st.virt_addr = const_cast<BU_U8 *>(stPacket.pu8Data);
    st.u32Length = stPacket.u32Length;
    st.ps32Index = &stFunction.s32Index;
    st.u64Pts = stPacket.u64Timestamp;
    st.u32Width = m_stRunning.u32Width;
    st.u32Height = m_stRunning.u32Height;
    stFunction.fn(&st);
}
