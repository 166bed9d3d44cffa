// JPEG stills of a pipe's next picture.
#include "media/frame.h"

#include "jpeg.h"
#include "pipe.h"
#include "sdl.h"
#include "util/journal.h"
#include "util/log.h"

#include <chrono>

using namespace media;

namespace
{
class Snapshot : public PictureTaker
{
public:
    explicit Snapshot(Size stSize) : m_stSize(stSize) {}
    std::optional<Wish> wish(FrameRate stOutput) override
    {
        const std::lock_guard guard(m_lock);
        return m_bTaken ? std::nullopt : std::optional(Wish{.stSize = m_stSize, .stRate = stOutput, .bOnce = true});
    }
    void take(const SCENE_FRAME_S &stFrame, BU_U64) override
    {
        const std::lock_guard guard(m_lock);
        SCENE_Scale(stFrame, m_picture.frame(m_stSize));
        m_bTaken = true;
        m_taken.notify_all();
    }
    const SCENE_FRAME_S *wait(BU_S32 s32TimeoutMs) ///< null: no picture in time
    {
        std::unique_lock guard(m_lock);
        const bool bTaken =
            m_taken.wait_for(guard, std::chrono::milliseconds(s32TimeoutMs), [this] { return m_bTaken; });
        return bTaken ? &m_picture.frame(m_stSize) : nullptr;
    }

private:
    const Size m_stSize;
    std::mutex m_lock; // guards the next group
    std::condition_variable m_taken;
    bool m_bTaken = false;
    Picture m_picture;
};
} // namespace

BU_S32 MPP_SnapImage(MPP_PIPE_USAGE_E enUsage, BU_U32 u32Width, BU_U32 u32Height, BU_U32 u32Quality, SDL_RWops *pstFile,
                     BU_S32 s32TimeoutMs)
{
    if (const auto injected = journal::call(__func__, enUsage, u32Width, u32Height, u32Quality, s32TimeoutMs))
        return *injected;
    const auto isSize = [](BU_U32 u32) { return u32 >= 16 && u32 <= 8192 && u32 % 2 == 0; };
    Pipe *pstPipe = pipeOf(enUsage);
    if (!pstPipe || !pstFile || !isSize(u32Width) || !isSize(u32Height)) return -1;
    const auto pst = std::make_shared<Snapshot>(Size{static_cast<BU_S32>(u32Width), static_cast<BU_S32>(u32Height)});
    pstPipe->add(pst);
    const SCENE_FRAME_S *pstFrame = pst->wait(s32TimeoutMs);
    pstPipe->remove(pst.get());
    if (!pstFrame) {
        LOG_WARN("no picture for a still within %d ms\n", s32TimeoutMs);
        return -1;
    }
    const auto vecJpeg = JpegCompressor().compress(*pstFrame, static_cast<BU_S32>(u32Quality));
    return !vecJpeg.empty() && sdl::write(pstFile, vecJpeg) ? 0 : -1;
}
