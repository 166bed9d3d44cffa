// Raw frames for those who look at them: each usage has a thread of its own, so that slow receivers hold up nobody.
#include "media/frame.h"

#include "pipe.h"
#include "util/journal.h"

#include <libyuv/convert_from.h>
#include <libyuv/planar_functions.h>

#include <array>
#include <utility>

using namespace media;

namespace
{
class YuvStream : public PictureTaker
{
public:
    YuvStream(const MPP_YUV_PARAM_S &stParam, FN_MPP_FRAME fn)
        : m_stSize{static_cast<BU_S32>(stParam.u32Width), static_cast<BU_S32>(stParam.u32Height)},
          m_stRate(*FrameRate::ofCode(stParam.u32FrmRate)), m_bNv12(stParam.enType == MPP_YUV_FORMAT_E_NV12),
          m_fn(std::move(fn))
    {
    }
    /// The thread keeps the stream alive until it has ended.
    static bool run(const std::shared_ptr<YuvStream> &pst)
    {
        return UTIL_THREAD_RunFuncAsync([pst](void *) { pst->loop(); }, nullptr) == 0;
    }
    std::optional<Wish> wish(FrameRate stOutput) override { return Wish{m_stSize, m_stRate.from(stOutput)}; }
    void take(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs) override;
    void stop(bool bWait);

private:
    void loop();
    void copy(const SCENE_FRAME_S &stFrame);

    const Size m_stSize;
    const FrameRate m_stRate;
    const bool m_bNv12;
    const FN_MPP_FRAME m_fn;
    BU_S32 m_s32Index = 0;

    std::mutex m_lock; // guards the next group, and m_vec while it is full
    std::condition_variable m_changed;
    bool m_bFull = false, m_bStopping = false, m_bEnded = false;
    std::thread::id m_id; // the thread's, once it runs
    MPP_FRAME_INFO_S m_stFrame{};
    std::vector<BU_U8> m_vec; // the frame; the pipe's while it is not full, then the thread's
};

/// A frame that finds the receiver still at work is left out.
void YuvStream::take(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs)
{
    {
        const std::lock_guard guard(m_lock);
        if (m_bFull || m_bStopping) return;
    }
    copy(stFrame);
    const std::lock_guard guard(m_lock);
    m_stFrame = {m_vec.data(),
                 static_cast<BU_U32>(m_vec.size()),
                 !m_bStopping,
                 &m_s32Index,
                 u64TimeUs,
                 static_cast<BU_U32>(m_stSize.s32Width),
                 static_cast<BU_U32>(m_stSize.s32Height)};
    m_bFull = true;
    m_changed.notify_all();
}

void YuvStream::copy(const SCENE_FRAME_S &st)
{
    const int w = m_stSize.s32Width, h = m_stSize.s32Height;
    const auto area = static_cast<std::size_t>(m_stSize.area());
    m_vec.resize(m_bNv12 ? area * 3 / 2 : area * 2);
    if (m_bNv12) {
        libyuv::CopyPlane(st.pu8Y, st.s32StrideY, m_vec.data(), w, w, h);
        libyuv::CopyPlane(st.pu8Uv, st.s32StrideUv, m_vec.data() + area, w, w, h / 2);
        return;
    }
    std::vector<BU_U8> vecUv(area / 2);
    BU_U8 *pu8U = vecUv.data(), *pu8V = pu8U + area / 4;
    libyuv::SplitUVPlane(st.pu8Uv, st.s32StrideUv, pu8U, w / 2, pu8V, w / 2, w / 2, h / 2);
    libyuv::I420ToYUY2(st.pu8Y, st.s32StrideY, pu8U, w / 2, pu8V, w / 2, m_vec.data(), 2 * w, w, h);
}

void YuvStream::loop()
{
    util::nameThread("YuvStream");
    std::unique_lock guard(m_lock);
    m_id = std::this_thread::get_id();
    for (;;) {
        m_changed.wait(guard, [this] { return m_bFull || m_bStopping; });
        if (m_bStopping) break;
        guard.unlock();
        m_fn(&m_stFrame);
        guard.lock();
        m_bFull = false;
    }
    m_bEnded = true;
    m_changed.notify_all();
}

void YuvStream::stop(bool bWait)
{
    std::unique_lock guard(m_lock);
    m_bStopping = true;
    std::atomic_ref(m_stFrame.bEnable) = BU_FALSE; // the call may wait on it
    m_changed.notify_all();
    if (bWait && m_id != std::this_thread::get_id()) m_changed.wait(guard, [this] { return m_bEnded; });
}

struct Streams {
    std::mutex lock; // guards streams
    std::array<std::shared_ptr<YuvStream>, MPP_PIPE_USAGE_E_BUTT> streams;
};
Streams &streams()
{
    static auto *pstStreams = new Streams;
    return *pstStreams;
}

bool isPossible(const MPP_YUV_PARAM_S &st)
{
    const auto isSize = [](BU_U32 u32) { return u32 >= 16 && u32 <= 8192 && u32 % 2 == 0; };
    return (st.enType == MPP_YUV_FORMAT_E_YUV || st.enType == MPP_YUV_FORMAT_E_NV12) && isSize(st.u32Width) &&
           isSize(st.u32Height) && FrameRate::ofCode(st.u32FrmRate);
}
} // namespace

BU_S32 MPP_StartYuvStream(BU_S32 s32Usage, const MPP_YUV_PARAM_S *pstParam, FN_MPP_FRAME fnFrame)
{
    if (const auto injected = journal::call(__func__, s32Usage, pstParam)) return *injected;
    Pipe *pstPipe = pipeOf(s32Usage);
    if (!pstPipe || !pstParam || !fnFrame || !isPossible(*pstParam)) return -1;
    const std::lock_guard guard(streams().lock);
    auto &pst = streams().streams[static_cast<std::size_t>(s32Usage)];
    if (pst) return -1;
    auto pstNew = std::make_shared<YuvStream>(*pstParam, std::move(fnFrame));
    if (!YuvStream::run(pstNew)) return -1;
    pst = pstNew;
    pstPipe->add(std::move(pstNew));
    return 0;
}

BU_S32 MPP_StopYuvStream(BU_S32 s32Usage, BU_BOOL bWait)
{
    if (const auto injected = journal::call(__func__, s32Usage, bWait)) return *injected;
    if (s32Usage < 0 || s32Usage >= MPP_PIPE_USAGE_E_BUTT) return -1;
    std::shared_ptr<YuvStream> pst;
    {
        const std::lock_guard guard(streams().lock);
        pst = std::exchange(streams().streams[static_cast<std::size_t>(s32Usage)], nullptr);
    }
    if (!pst) return 0;
    pst->stop(bWait);
    if (Pipe *pstPipe = pipeOf(s32Usage)) pstPipe->remove(pst.get());
    return 0;
}
